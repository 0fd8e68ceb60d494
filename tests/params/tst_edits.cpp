// SPDX-License-Identifier: MIT
// What the user guide has to tell of edits and reads, because nobody would expect it.
#include "tests/kit/operator.h"

#include <QtCore/QTimer>
#include <QtGui/QWindow>
#include <QtWidgets/QSlider>

class TestEdits : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void closingTheWindowInTheMiddleOfAnEditSendsTheValue()
    {
        kit::Operator user;
        user.connectCamera();
        user.rest();
        user.type("gammaEdit", "1.3", Qt::Key_unknown);
        QCOMPARE(user.calls(), QStringList());
        user.window().close();
        QCOMPARE(user.calls(), kit::lines({"camera.setGamma(85196)"}));
    }

    void anotherWindowThatTakesTheFocusEndsTheEdit()
    {
        kit::Operator user;
        user.connectCamera();
        user.rest();
        user.type("gammaEdit", "1.3", Qt::Key_unknown);
        QWidget other;
        other.show();
        other.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&other));
        QCOMPARE(user.calls(), kit::lines({"camera.setGamma(85196)"}));
    }

    void theClickThatMakesARegionsNoteAppearIsLost()
    {
        kit::Operator user;
        user.sdk.camera.regions.fill({10, 400, 10, 400});
        user.connectCamera();
        user.rest();
        user.type("Roi0IncX1", "500", Qt::Key_unknown);
        user.expectBox({.title = "ROI", .text = "ROI 0 X1 must be lower than ROI X2"});
        QWindow* const window = user.window().windowHandle();
        const QWidget& button = user.widget("polarityButton");
        const QPoint place = button.mapTo(&user.window(), button.rect().center());
        // The hand lets go while the box is open.
        QTimer::singleShot(0, &user.window(), [&] {
            QTest::mouseRelease(window, Qt::LeftButton, Qt::NoModifier, place);
        });
        QTest::mousePress(window, Qt::LeftButton, Qt::NoModifier, place);
        QVERIFY(user.calls().contains(QStringLiteral("camera.setRoiX1(500, 0, true, true, true)")));
        QCOMPARE(user.calls().filter(QStringLiteral("setPolarity")), QStringList());
        // Once more, and it is a click like any other.
        user.activate();
        user.click("polarityButton");
        QVERIFY(user.calls().contains(QStringLiteral("camera.setPolarity(true)")));
    }

    void aClickIntoASlidersGrooveShowsAValueAndSendsNothing()
    {
        kit::Operator user;
        user.connectCamera();
        user.showTab("LUT");
        user.rest();
        auto& slider = user.find<QSlider>("clheSlider");
        const QString before = user.text("clheEdit");
        QTest::mouseClick(&slider, Qt::LeftButton, Qt::NoModifier,
                          QPoint(slider.width() - 10, slider.height() / 4));
        QVERIFY(user.text("clheEdit") != before);
        user.press("clheSlider", Qt::Key_Tab);
        QCOMPARE(user.calls(), QStringList());
    }

    void aFirstConnectionSendsTheEdgeTypeWithGainAndThresholdOfAnEmptyScreen()
    {
        kit::Operator user;
        user.sdk.camera.edgeCorrection = {1, 40, 15, 55};
        user.ports.plug(QStringLiteral("ttyUSB0"));
        user.click("scanDeviceButton");
        user.click("connectDeviceButton");
        QVERIFY2(user.calls().contains(QStringLiteral("camera.configureEdgeCorrection(1, 0, 0)")),
                 qPrintable(user.calls().join(QLatin1Char('\n'))));
        // The screen shows what was read before.
        QCOMPARE(user.text("sharpeningGainEdit"), QStringLiteral("40.0"));
        QCOMPARE(user.text("SharpeningTHEdit"), QStringLiteral("15.0"));
        // What the guide says to do about it.
        user.showTab("Edge");
        user.forget();
        user.press("sharpeningGainEdit", Qt::Key_Return);
        QCOMPARE(user.calls(), kit::lines({"camera.configureEdgeCorrection(1, 40, 15)"}));
    }
};

TAVREL_TEST_MAIN(TestEdits)
#include "tst_edits.moc"
