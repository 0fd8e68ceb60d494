// SPDX-License-Identifier: MIT
// The eleven values with a slider and a spin box: when a value goes to the camera, and as what.
#include "tests/kit/operator.h"
#include "tests/params/pairrows.h"

#include <QtTest/QSignalSpy>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QSlider>

namespace {

using Value = pairrows::Row;

/// The names of the slots that send, each once.
QStringList sendSlots()
{
    QStringList names;
    for (const Value& value : pairrows::rows) {
        if (value.sendSlot == nullptr) {
            continue;
        }
        // The text of a slot begins with a mark of its own and ends with its arguments.
        const QString name =
            QString::fromLatin1(value.sendSlot + 1).section(QLatin1Char('('), 0, 0);
        if (!names.contains(name)) {
            names.append(name);
        }
    }
    return names;
}

void everyValue()
{
    QTest::addColumn<const Value*>("value");
    for (const Value& value : pairrows::rows) {
        QTest::newRow(value.slider) << &value;
    }
}

/// A connected camera, the Expert tab in reach, and no editor with the focus.
void connectCamera(kit::Operator& user)
{
    user.sdk.configuration.expertMode = 1;
    pairrows::begin(user.sdk.camera);
    user.connectCamera();
    user.rest();
}

QStringList line(const char* text)
{
    return kit::lines({text});
}

} // namespace

class TestValues : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aDraggedSliderSendsOnceWhenItIsLetGo_data() { everyValue(); }
    void aDraggedSliderSendsOnceWhenItIsLetGo()
    {
        QFETCH(const Value*, value);
        kit::Operator user;
        connectCamera(user);
        QSignalSpy passed(&user.find<QSlider>(value->slider), &QSlider::valueChanged);
        const int reached = user.drag(value->slider, value->target);
        QVERIFY(!passed.isEmpty());
        QCOMPARE(user.calls(), QStringList());
        QCOMPARE(user.newLog(), QStringList());
        user.release();
        QCOMPARE(user.calls(), QStringList(value->sent(reached)));
        QCOMPARE(user.newLog(), line(value->ok));
    }

    void aFinishedEditSendsOnce_data()
    {
        QTest::addColumn<QByteArray>("spinBox");
        QTest::addColumn<QByteArray>("typed");
        QTest::addColumn<QByteArray>("sent");
        QTest::addColumn<QByteArray>("logged");
        QTest::addColumn<int>("key");
        const auto add = [](const char* spinBox, const char* typed, const char* sent,
                            const char* logged) {
            const auto row = [&](const char* name, Qt::Key key) {
                QTest::addRow("%s in %s, %s", typed, spinBox, name)
                    << QByteArray(spinBox) << QByteArray(typed) << QByteArray(sent)
                    << QByteArray(logged) << int(key);
            };
            row("Tab", Qt::Key_Tab);
            row("Return", Qt::Key_Return);
            row("Enter", Qt::Key_Enter);
        };
        add("gammaEdit", "2.2", "camera.setGamma(144179)", "Set GAMMA value OK");
        add("gammaEdit", "1.3", "camera.setGamma(85196)", "Set GAMMA value OK");
        add("gammaEdit", "0.5", "camera.setGamma(32768)", "Set GAMMA value OK");
        add("gammaEdit", "2.5", "camera.setGamma(163840)", "Set GAMMA value OK");
        add("clheEdit", "1234", "camera.setClhe(1234)", "Set CLHE value OK");
        add("sharpeningGainEdit", "10.7", "camera.configureEdgeCorrection(0, 10, 20)",
            "Configure EDGE CORRECTION OK");
        add("sharpeningGainEdit", "999.9", "camera.configureEdgeCorrection(0, 999, 20)",
            "Configure EDGE CORRECTION OK");
        add("SharpeningTHEdit", "199.9", "camera.configureEdgeCorrection(0, 10, 199)",
            "Configure EDGE CORRECTION OK");
        add("AhcBlackGainLimSpin", "100", "camera.setAhcGainsLimitation(100, 20)",
            "Set AHC GAINS LIMITATION values OK");
        add("AhcWhiteGainLimSpin", "99", "camera.setAhcGainsLimitation(10, 99)",
            "Set AHC GAINS LIMITATION values OK");
        add("TempoFilterSpin", "8", "camera.setLutTemporalFilter(8)",
            "Set LUT TEMPORAL FILTER value OK");
        add("gskEdit", "3", "camera.setGsk(3)", "Set GSK value OK");
        add("gfidEdit", "1000", "camera.setGfid(1000)", "Set GFID value OK");
        add("gmsEdit", "17", "camera.setGms(17)", "Set GMS value OK");
        add("tintEdit", "20", "camera.setTint(20)", "Set TINT value OK");
    }

    void aFinishedEditSendsOnce()
    {
        QFETCH(QByteArray, spinBox);
        QFETCH(QByteArray, typed);
        QFETCH(QByteArray, sent);
        QFETCH(QByteArray, logged);
        QFETCH(int, key);
        kit::Operator user;
        connectCamera(user);
        user.type(spinBox, typed, Qt::Key_unknown);
        QCOMPARE(user.calls(), QStringList());
        user.press(spinBox, static_cast<Qt::Key>(key));
        QCOMPARE(user.calls(), line(sent));
        QCOMPARE(user.newLog(), line(logged));
    }

    // Dragging, Enter and leaving the field each finish an edit of their own.
    void draggingThenTypingWithEnterThenTabSendsThreeTimes_data() { everyValue(); }
    void draggingThenTypingWithEnterThenTabSendsThreeTimes()
    {
        QFETCH(const Value*, value);
        kit::Operator user;
        connectCamera(user);
        const QString before = user.text(value->spinBox);
        const int reached = user.dragAndRelease(value->slider, value->target);
        user.type(value->spinBox, before.toLatin1(), Qt::Key_Return);
        user.press(value->spinBox, Qt::Key_Tab);
        QCOMPARE(user.calls(), QStringList({value->sent(reached), QLatin1String(value->asRead),
                                            QLatin1String(value->asRead)}));
        QCOMPARE(user.newLog(), kit::lines({value->ok, value->ok, value->ok}));
    }

    void theKeyboardAndTheWheelMoveASliderWithoutSending_data() { everyValue(); }
    void theKeyboardAndTheWheelMoveASliderWithoutSending()
    {
        QFETCH(const Value*, value);
        kit::Operator user;
        connectCamera(user);
        user.press(value->slider, Qt::Key_Right);
        QCOMPARE(user.text(value->spinBox), QString::fromLatin1(value->oneKeyOn));
        const int afterKey = user.sliderValue(value->slider);
        user.wheel(value->slider, -1);
        QVERIFY(user.sliderValue(value->slider) < afterKey);
        QVERIFY(user.text(value->spinBox) != QLatin1String(value->oneKeyOn));
        user.press(value->slider, Qt::Key_Tab);
        QCOMPARE(user.calls(), QStringList());
        QCOMPARE(user.newLog(), QStringList());
    }

    void whatTheKeyboardMovedIsSentWhenTheHandleIsNextLetGo_data() { everyValue(); }
    void whatTheKeyboardMovedIsSentWhenTheHandleIsNextLetGo()
    {
        QFETCH(const Value*, value);
        kit::Operator user;
        connectCamera(user);
        user.press(value->slider, Qt::Key_Home);
        const int moved = user.sliderValue(value->slider);
        user.dragAndRelease(value->slider, moved);
        QCOMPARE(user.sliderValue(value->slider), moved);
        QCOMPARE(user.calls(), QStringList(value->sent(moved)));
    }

    void whatTheKeyboardMovedIsSentWhenTheSpinBoxIsLeft_data() { everyValue(); }
    void whatTheKeyboardMovedIsSentWhenTheSpinBoxIsLeft()
    {
        QFETCH(const Value*, value);
        kit::Operator user;
        connectCamera(user);
        user.press(value->slider, Qt::Key_Home);
        const int moved = user.sliderValue(value->slider);
        user.press(value->spinBox, Qt::Key_Tab);
        QCOMPARE(user.calls(), QStringList(value->sent(moved)));
    }

    void theArrowsOfASpinBoxSendWhenTheFieldIsLeft()
    {
        kit::Operator user;
        connectCamera(user);
        user.press("gammaEdit", Qt::Key_Up);
        user.press("gammaEdit", Qt::Key_Up);
        QCOMPARE(user.sliderValue("gammaSlider"), 7);
        QCOMPARE(user.calls(), QStringList());
        user.press("gammaEdit", Qt::Key_Tab);
        QCOMPARE(user.calls(), line("camera.setGamma(78643)"));
    }

    void halfANumberLeftBehindBecomesAWholeOneEverywhere_data()
    {
        QTest::addColumn<QByteArray>("spinBox");
        QTest::addColumn<QByteArray>("slider");
        QTest::addColumn<QByteArray>("typed");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<int>("position");
        QTest::addColumn<QByteArray>("sent");
        const auto add = [](const char* spinBox, const char* slider, const char* typed,
                            const char* shown, int position, const char* sent) {
            QTest::addRow("\"%s\" in %s", typed, spinBox)
                << QByteArray(spinBox) << QByteArray(slider) << QByteArray(typed)
                << QString::fromLatin1(shown) << position << QByteArray(sent);
        };
        add("gammaEdit", "gammaSlider", "", "1.0", 5, "camera.setGamma(65536)");
        add("gammaEdit", "gammaSlider", "0", "1.0", 5, "camera.setGamma(65536)");
        add("gammaEdit", "gammaSlider", "0.", "1.0", 5, "camera.setGamma(65536)");
        add("gammaEdit", "gammaSlider", "2.", "2.0", 15, "camera.setGamma(131072)");
        add("gammaEdit", "gammaSlider", "2.17", "2.1", 16, "camera.setGamma(137625)");
        add("clheEdit", "clheSlider", "", "2000", 2000, "camera.setClhe(2000)");
        add("clheEdit", "clheSlider", "12x", "12", 12, "camera.setClhe(12)");
        add("sharpeningGainEdit", "sharpeningGainSlider", "7.", "7.0", 70,
            "camera.configureEdgeCorrection(0, 7, 20)");
        add("AhcBlackGainLimSpin", "AhcBlackGainLimSlider", "", "10", 10,
            "camera.setAhcGainsLimitation(10, 20)");
        add("AhcBlackGainLimSpin", "AhcBlackGainLimSlider", "101", "10", 10,
            "camera.setAhcGainsLimitation(10, 20)");
        add("TempoFilterSpin", "TempoFilterSlider", "9", "3", 3, "camera.setLutTemporalFilter(3)");
        add("gskEdit", "gskSlider", "", "2", 2, "camera.setGsk(2)");
        add("gskEdit", "gskSlider", "0", "2", 2, "camera.setGsk(2)");
        add("gmsEdit", "gmsSlider", "", "40", 40, "camera.setGms(40)");
        add("gmsEdit", "gmsSlider", "1.5", "1", 1, "camera.setGms(1)");
    }

    void halfANumberLeftBehindBecomesAWholeOneEverywhere()
    {
        QFETCH(QByteArray, spinBox);
        QFETCH(QByteArray, slider);
        QFETCH(QByteArray, typed);
        QFETCH(QString, shown);
        QFETCH(int, position);
        QFETCH(QByteArray, sent);
        kit::Operator user;
        connectCamera(user);
        user.type(spinBox, typed, Qt::Key_unknown);
        if (typed.isEmpty()) {
            user.press(spinBox, Qt::Key_Delete);
        }
        user.press(spinBox, Qt::Key_Tab);
        QCOMPARE(user.text(spinBox), shown);
        QCOMPARE(user.sliderValue(slider), position);
        QCOMPARE(user.calls(), line(sent));
    }

    void theSpinBoxIsSentEvenWhenTheSliderIsElsewhere_data() { everyValue(); }
    void theSpinBoxIsSentEvenWhenTheSliderIsElsewhere()
    {
        QFETCH(const Value*, value);
        kit::Operator user;
        connectCamera(user);
        {
            auto& slider = user.find<QSlider>(value->slider);
            const QSignalBlocker noMirror(slider);
            slider.setValue(value->target);
        }
        user.press(value->spinBox, Qt::Key_Tab);
        QCOMPARE(user.calls(), line(value->asRead));
    }

    void aValueBeyondItsSliderIsSentWhenTheHandleIsLetGo()
    {
        kit::Operator user;
        connectCamera(user);
        // A threshold and a GMS that their sliders cannot show.
        user.find<QSlider>("SharpeningTHSlider").setValue(2000);
        user.find<QDoubleSpinBox>("SharpeningTHEdit").setValue(254.9);
        user.dragAndRelease("SharpeningTHSlider", 2000);
        user.find<QSlider>("gmsSlider").setValue(50);
        user.find<QDoubleSpinBox>("gmsEdit").setValue(60);
        user.dragAndRelease("gmsSlider", 50);
        QCOMPARE(user.calls(),
                 kit::lines({"camera.configureEdgeCorrection(0, 10, 254)", "camera.setGms(60)"}));
    }

    void sharpeningIsSentWithTheChosenCorrectionType()
    {
        kit::Operator user;
        connectCamera(user);
        user.choose("EdgeCorrectionCB", "Contouring");
        user.rest();
        user.type("sharpeningGainEdit", "33");
        user.dragAndRelease("SharpeningTHSlider", 0);
        QCOMPARE(user.calls(),
                 kit::lines({"camera.configureEdgeCorrection(2, 33, 20)",
                             // The second field of the pair lost the focus that Tab gave it.
                             "camera.configureEdgeCorrection(2, 33, 0)"}));
    }

    void aRefusedValueIsReportedAndKept_data() { everyValue(); }
    void aRefusedValueIsReportedAndKept()
    {
        QFETCH(const Value*, value);
        kit::Operator user;
        connectCamera(user);
        user.sdk.answer(value->operation, 0);
        const int reached = user.dragAndRelease(value->slider, value->target);
        const QString shown = user.text(value->spinBox);
        user.press(value->spinBox, Qt::Key_Return);
        QCOMPARE(user.calls(), QStringList({value->sent(reached), value->sent(reached)}));
        QCOMPARE(user.newLog(), kit::lines({value->ko, value->ko}));
        QCOMPARE(user.sliderValue(value->slider), reached);
        QCOMPARE(user.text(value->spinBox), shown);
    }

    void anyByteButZeroIsSuccess_data() { everyValue(); }
    void anyByteButZeroIsSuccess()
    {
        QFETCH(const Value*, value);
        kit::Operator user;
        connectCamera(user);
        user.sdk.answer(value->operation, 254);
        user.dragAndRelease(value->slider, value->target);
        QCOMPARE(user.newLog(), line(value->ok));
    }

    void aValueSetFromCodeMovesBothWidgetsAndSendsNothing_data() { everyValue(); }
    void aValueSetFromCodeMovesBothWidgetsAndSendsNothing()
    {
        QFETCH(const Value*, value);
        kit::Operator user;
        connectCamera(user);
        const QString before = user.text(value->spinBox);
        const int position = user.sliderValue(value->slider);
        user.find<QSlider>(value->slider).setValue(value->target);
        QVERIFY(user.text(value->spinBox) != before);
        QVERIFY(user.widget(value->spinBox).setProperty("value", before));
        QCOMPARE(user.sliderValue(value->slider), position);
        QCOMPARE(user.calls(), QStringList());
        QCOMPARE(user.newLog(), QStringList());
    }

    // ---- no camera

    void beforeAConnectionNothingIsSentAndNothingIsLogged_data()
    {
        QTest::addColumn<bool>("tried");
        QTest::newRow("no connection tried") << false;
        QTest::newRow("no camera on the port") << true;
    }

    void beforeAConnectionNothingIsSentAndNothingIsLogged()
    {
        QFETCH(bool, tried);
        kit::Operator user;
        if (tried) {
            user.sdk.answer("link.openCamera", 0);
            user.ports.plug(QStringLiteral("ttyUSB0"));
            user.expectBox(
                {.title = "Invalid communication", .text = "Select an other serial port"});
            user.click("scanDeviceButton");
            user.click("connectDeviceButton");
        }
        user.window();
        user.forget();
        // The tabs are locked, so no mouse and no key gets there: the signals come from code.
        for (const Value& value : pairrows::rows) {
            QVERIFY(QMetaObject::invokeMethod(&user.widget(value.slider), "sliderReleased"));
            QVERIFY(QMetaObject::invokeMethod(&user.widget(value.spinBox), "editingFinished"));
        }
        for (const QString& slot : sendSlots()) {
            QVERIFY(QMetaObject::invokeMethod(&user.window(), qPrintable(slot)));
        }
        QCOMPARE(user.calls(recording::Show::Everything), QStringList());
        QCOMPARE(user.newLog(), QStringList());
    }

    void withACameraEachOfThoseSignalsSends_data() { everyValue(); }
    void withACameraEachOfThoseSignalsSends()
    {
        QFETCH(const Value*, value);
        kit::Operator user;
        connectCamera(user);
        QVERIFY(QMetaObject::invokeMethod(&user.widget(value->slider), "sliderReleased"));
        QVERIFY(QMetaObject::invokeMethod(&user.widget(value->spinBox), "editingFinished"));
        QCOMPARE(user.calls(), kit::lines({value->asRead, value->asRead}));
    }

    void theSendSlotsAreReachedByTheirNames()
    {
        kit::Operator user;
        connectCamera(user);
        for (const QString& slot : sendSlots()) {
            QVERIFY(QMetaObject::invokeMethod(&user.window(), qPrintable(slot)));
        }
        QCOMPARE(user.calls(),
                 kit::lines({"camera.setGamma(65536)", "camera.setClhe(2000)",
                             "camera.configureEdgeCorrection(0, 10, 20)",
                             "camera.setAhcGainsLimitation(10, 20)",
                             "camera.setLutTemporalFilter(3)", "camera.setGsk(2)",
                             "camera.setGfid(300)", "camera.setGms(40)", "camera.setTint(5)"}));
    }
};

TAVREL_TEST_MAIN(TestValues)
#include "tst_values.moc"
