// SPDX-License-Identifier: MIT
// The window on a desktop whose fonts are drawn for 192 dots per inch.
#include "tests/kit/operator.h"

#include <QtWidgets/QLabel>
#include <QtWidgets/QPlainTextEdit>

class TestLargeFonts : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theCaptionsOfTheTemperaturesAreWhole_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::newRow("FPGA") << QByteArray("label_6");
        QTest::newRow("sensor") << QByteArray("label_12");
    }

    void theCaptionsOfTheTemperaturesAreWhole()
    {
        QFETCH(QByteArray, name);
        kit::Operator user;
        const QWidget& caption = user.widget(name.constData());
        QVERIFY(caption.sizeHint().width() > 150);
        QVERIFY(caption.width() >= caption.sizeHint().width());
    }

    void theFieldsKeepTheirSize_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::newRow("BIT") << QByteArray("BitTextEdit");
        QTest::newRow("FPGA") << QByteArray("FpgaTempTextEdit");
        QTest::newRow("sensor") << QByteArray("SensorTempTextEdit");
    }

    void theFieldsKeepTheirSize()
    {
        QFETCH(QByteArray, name);
        kit::Operator user;
        QCOMPARE(user.widget(name.constData()).size(), QSize(150, 30));
    }

    void theTemperatureHasTheWholeHeightOfItsField()
    {
        kit::Operator user;
        const auto& field = user.find<QPlainTextEdit>("FpgaTempTextEdit");
        const double margin = field.document()->documentMargin();
        QVERIFY(margin < QTextDocument().documentMargin());
        // As much margin as the font leaves, and none where it fills the field.
        const double text = field.fontMetrics().height();
        QVERIFY(margin == 0 || text + 2 * margin <= field.height() - 2 * field.frameWidth());
    }

    void smallerFontsBringTheUsualPlacesBack()
    {
        kit::Operator user;
        user.window().setFont(QFont(QApplication::font().family(), 4));
        QTRY_COMPARE(user.widget("label_6").width(), 150);
        QCOMPARE(user.find<QPlainTextEdit>("FpgaTempTextEdit").document()->documentMargin(),
                 QTextDocument().documentMargin());
    }
};

int main(int argc, char* argv[])
{
    kit::prepareProcess();
    qputenv("QT_FONT_DPI", "192");
    // Qt 6 would scale the whole window instead.
    qputenv("QT_ENABLE_HIGHDPI_SCALING", "0");
    QApplication application(argc, argv);
    TestLargeFonts test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_largefonts.moc"
