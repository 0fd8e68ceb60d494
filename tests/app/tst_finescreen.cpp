// SPDX-License-Identifier: MIT
// Pictures on a screen with two pixels where the form has one.
#include "tests/kit/operator.h"

#include <QtGui/QImage>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

namespace {

/// How many squares of two by two pixels are not of one colour; none in a picture that was
/// enlarged.
int fineSquares(QWidget& widget)
{
    const QImage image = widget.grab().toImage();
    int fine = 0;
    for (int y = 0; y + 1 < image.height(); y += 2) {
        for (int x = 0; x + 1 < image.width(); x += 2) {
            const QRgb first = image.pixel(x, y);
            fine += image.pixel(x + 1, y) != first || image.pixel(x, y + 1) != first ||
                    image.pixel(x + 1, y + 1) != first;
        }
    }
    return fine;
}

} // namespace

class TestFineScreen : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void iconsAreNotEnlarged_data()
    {
        QTest::addColumn<QByteArray>("name");
        kit::Operator user;
        for (const QPushButton* button : user.window().findChildren<QPushButton*>()) {
            if (!button->icon().isNull()) {
                const QByteArray name = button->objectName().toLatin1();
                QTest::newRow(name.constData()) << name;
            }
        }
    }

    void iconsAreNotEnlarged()
    {
        QFETCH(QByteArray, name);
        kit::Operator user;
        auto& button = user.find<QPushButton>(name.constData());
        // Nothing is left to be seen but the icon.
        button.setText(QString());
        button.setFlat(true);
        button.setEnabled(true);
        const int withIcon = fineSquares(button);
        button.setIcon(QIcon());
        QVERIFY2(withIcon > fineSquares(button) + 20, qPrintable(QString::number(withIcon)));
    }

    void logosAreNotEnlarged_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::newRow("product") << QByteArray("KVLogo");
        QTest::newRow("vendor") << QByteArray("HTLogo");
    }

    void logosAreNotEnlarged()
    {
        QFETCH(QByteArray, name);
        kit::Operator user;
        auto& logo = user.find<QLabel>(name.constData());
        QVERIFY(fineSquares(logo) > 500);
        // As large as before on the screen.
        QCOMPARE(logo.sizeHint().width(), 176);
    }
};

int main(int argc, char* argv[])
{
    kit::prepareProcess();
    qputenv("QT_SCALE_FACTOR", "2");
    QApplication application(argc, argv);
    TestFineScreen test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_finescreen.moc"
