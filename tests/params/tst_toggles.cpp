// SPDX-License-Identifier: MIT
// The buttons that switch one feature of the camera on and off.
#include "tests/kit/sequence.h"

#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QTabWidget>

namespace {

struct Toggle {
    const char* button;
    const char* operation;
    const char* callOn;
    const char* callOff;
    const char* captionOn;
    const char* captionOff;
    const char* ok;
    const char* ko;
    std::uint8_t recording::CameraState::*state;
};

using State = recording::CameraState;

// clang-format off
constexpr Toggle toggles[] = {
    {"TestPatternButton", "camera.setTestPattern",
     "camera.setTestPattern(true)", "camera.setTestPattern(false)",
     "Test Pattern: Activated", "Test Pattern: Deactivated",
     "Set TEST PATTERN value OK", "Set TEST PATTERN value KO", &State::testPattern},
    {"ColumnCorrectionButton", "camera.setColumnCorrection",
     "camera.setColumnCorrection(true)", "camera.setColumnCorrection(false)",
     "Column Correction: Activated", "Column Correction: Deactivated",
     "Set column correction value OK", "Set column correction value KO", &State::columnCorrection},
    {"VignettingCorrectionButton", "camera.setVignettingCorrection",
     "camera.setVignettingCorrection(true)", "camera.setVignettingCorrection(false)",
     "Vignetting Correction: Activated", "Vignetting Correction: Deactivated",
     "Set vignetting correction value OK", "Set vignetting correction value KO",
     &State::vignettingCorrection},
    {"sdiOutputButton", "camera.setBt656SdiOutput",
     "camera.setBt656SdiOutput(true)", "camera.setBt656SdiOutput(false)",
     "BT656/SDI Output: Activated", "BT656/SDI Output: Deactivated",
     "Set BT656/SDI OUTPUT value OK", "Set BT656/SDI OUTPUT value KO", &State::bt656SdiOutput},
    {"parallelOutputButton", "camera.setParallelOutput",
     "camera.setParallelOutput(true)", "camera.setParallelOutput(false)",
     "Parallel Output: Activated", "Parallel Output: Deactivated",
     "Set PARALLEL OUTPUT value OK", "Set PARALLEL OUTPUT value KO", &State::parallelOutput},
    {"mipiOutputButton", "camera.setMipiOutput",
     "camera.setMipiOutput(true)", "camera.setMipiOutput(false)",
     "MIPI Output: Activated", "MIPI Output: Deactivated",
     "Set MIPI OUTPUT value OK", "Set MIPI OUTPUT value KO", &State::mipiOutput},
    {"polarityButton", "camera.setPolarity",
     "camera.setPolarity(true)", "camera.setPolarity(false)",
     "Invert Polarity: Activated", "Invert Polarity: Deactivated",
     "Set POLARITY value OK", "Set POLARITY value KO", &State::polarity},
    {"horizontalFlipButton", "camera.setHorizontalFlip",
     "camera.setHorizontalFlip(true)", "camera.setHorizontalFlip(false)",
     "Horizontal Flip: Activated", "Horizontal Flip: Deactivated",
     "Set HORIZONTAL FLIP value OK", "Set HORIZONTAL FLIP value KO", &State::horizontalFlip},
    {"nucEnablingButton", "camera.setNucControl",
     "camera.setNucControl(2)", "camera.setNucControl(0)",
     "NUC: Activated", "NUC: Deactivated",
     "Set NUC control OK", "Set NUC control value KO", &State::nucControl},
    {"enableBprPB", "camera.setBprCorrection",
     "camera.setBprCorrection(true)", "camera.setBprCorrection(false)",
     "BPR Correction: Activated", "BPR Correction: Deactivated",
     "Set BPR correction value OK", "Set BPR correction value KO", &State::bprCorrection},
    {"enableOffsetPB", "camera.setOffsetCorrection",
     "camera.setOffsetCorrection(true)", "camera.setOffsetCorrection(false)",
     "Offset Correction: Activated", "Offset Correction: Deactivated",
     "Set Offset correction value OK", "Set Offset correction value KO", &State::offsetCorrection},
    {"enableGainPB", "camera.setGainCorrection",
     "camera.setGainCorrection(true)", "camera.setGainCorrection(false)",
     "Gain Correction: Activated", "Gain Correction: Deactivated",
     "Set Gain correction value OK", "Set Gain correction value KO", &State::gainCorrection},
    {"verticalFlipButton", "camera.setVerticalFlip",
     "camera.setVerticalFlip(true)", "camera.setVerticalFlip(false)",
     "Vertical flip: Activated", "Vertical flip: Deactivated",
     "Set VERTICAL FLIP value OK", "Set VERTICAL FLIP value KO", &State::verticalFlip},
};
// clang-format on

QStringList line(const char* text)
{
    return {QString::fromLatin1(text)};
}

/// A row for every toggle and both directions.
void everyToggleBothWays()
{
    QTest::addColumn<const Toggle*>("toggle");
    QTest::addColumn<bool>("on");
    for (const Toggle& toggle : toggles) {
        QTest::addRow("%s on", toggle.button) << &toggle << true;
        QTest::addRow("%s off", toggle.button) << &toggle << false;
    }
}

/// A connected camera whose feature stands opposite to what the next click asks for.
void connectBefore(kit::Operator& user, const Toggle& toggle, bool on)
{
    user.sdk.configuration.expertMode = 1;
    user.sdk.camera.*toggle.state = on ? 0 : 1;
    user.connectCamera();
}

} // namespace

Q_DECLARE_METATYPE(const Toggle*)

class TestToggles : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void anAcceptedClickSendsTheNewStateAndTurnsTheCaption_data() { everyToggleBothWays(); }
    void anAcceptedClickSendsTheNewStateAndTurnsTheCaption()
    {
        QFETCH(const Toggle*, toggle);
        QFETCH(bool, on);
        kit::Operator user;
        connectBefore(user, *toggle, on);
        const QString button = QLatin1String(toggle->button);
        QCOMPARE(user.text(toggle->button),
                 QLatin1String(on ? toggle->captionOff : toggle->captionOn));
        kit::Sequence sequence(user);
        user.click(toggle->button);
        QCOMPARE(sequence.take(),
                 (QStringList{button + (on ? QStringLiteral(" checked true")
                                           : QStringLiteral(" checked false")),
                              QLatin1String(on ? toggle->callOn : toggle->callOff),
                              button + QStringLiteral(" text ") +
                                  QLatin1String(on ? toggle->captionOn : toggle->captionOff),
                              QStringLiteral("log 2: ") + QLatin1String(toggle->ok)}));
    }

    void everyClickFirstFetchesTheLibrarysRoot_data() { everyToggleBothWays(); }
    void everyClickFirstFetchesTheLibrarysRoot()
    {
        QFETCH(const Toggle*, toggle);
        QFETCH(bool, on);
        kit::Operator user;
        connectBefore(user, *toggle, on);
        user.click(toggle->button);
        QCOMPARE(QString::fromStdString(user.sdk.entries().front().text()),
                 QStringLiteral("OmbrixSdk.get_instance()"));
        QCOMPARE(user.sdk.count("OmbrixSdk.get_instance"), 1);
    }

    void aRefusedToggleKeepsMarkAndCaptionAtOdds_data() { everyToggleBothWays(); }
    void aRefusedToggleKeepsMarkAndCaptionAtOdds()
    {
        QFETCH(const Toggle*, toggle);
        QFETCH(bool, on);
        kit::Operator user;
        connectBefore(user, *toggle, on);
        user.sdk.answer(toggle->operation, 0);
        kit::Sequence sequence(user);
        user.click(toggle->button);
        QCOMPARE(
            sequence.take(),
            (QStringList{QLatin1String(toggle->button) + (on ? QStringLiteral(" checked true")
                                                             : QStringLiteral(" checked false")),
                         QLatin1String(on ? toggle->callOn : toggle->callOff),
                         QStringLiteral("log 2: ") + QLatin1String(toggle->ko)}));
    }

    void afterARefusalTheNextReadBringsMarkAndCaptionTogether_data() { everyToggleBothWays(); }
    void afterARefusalTheNextReadBringsMarkAndCaptionTogether()
    {
        QFETCH(const Toggle*, toggle);
        QFETCH(bool, on);
        kit::Operator user;
        connectBefore(user, *toggle, on);
        user.sdk.answer(toggle->operation, 0);
        user.click(toggle->button);
        user.click("readParamButtonUser");
        user.click("readParamButtonExpert");
        QCOMPARE(user.checked(toggle->button), !on);
        QCOMPARE(user.text(toggle->button),
                 QLatin1String(on ? toggle->captionOff : toggle->captionOn));
    }

    // The click after a refusal asks for the state that the camera never left.
    void aClickAfterARefusalAsksForTheOldStateAgain_data() { everyToggleBothWays(); }
    void aClickAfterARefusalAsksForTheOldStateAgain()
    {
        QFETCH(const Toggle*, toggle);
        QFETCH(bool, on);
        kit::Operator user;
        connectBefore(user, *toggle, on);
        user.sdk.answerCall(toggle->operation, 1, 0);
        user.click(toggle->button);
        user.forget();
        user.click(toggle->button);
        QCOMPARE(user.calls(), line(on ? toggle->callOff : toggle->callOn));
        QCOMPARE(user.newLog(), line(toggle->ok));
        QCOMPARE(user.checked(toggle->button), !on);
        QCOMPARE(user.text(toggle->button),
                 QLatin1String(on ? toggle->captionOff : toggle->captionOn));
    }

    void anAcceptedClickLeavesAForeignCaptionAlone_data()
    {
        QTest::addColumn<const Toggle*>("toggle");
        QTest::addColumn<bool>("on");
        QTest::addColumn<QString>("caption");
        for (const Toggle& toggle : toggles) {
            for (const bool on : {true, false}) {
                const auto opposite = QLatin1String(on ? toggle.captionOff : toggle.captionOn);
                const auto add = [&](const char* kind, const QString& caption) {
                    QTest::addRow("%s %s, %s", toggle.button, on ? "on" : "off", kind)
                        << &toggle << on << caption;
                };
                add("other case", QString(opposite).toUpper());
                add("one blank more", opposite + QLatin1Char(' '));
                add("already right", QLatin1String(on ? toggle.captionOn : toggle.captionOff));
            }
        }
    }

    void anAcceptedClickLeavesAForeignCaptionAlone()
    {
        QFETCH(const Toggle*, toggle);
        QFETCH(bool, on);
        QFETCH(QString, caption);
        kit::Operator user;
        connectBefore(user, *toggle, on);
        user.find<QPushButton>(toggle->button).setText(caption);
        user.click(toggle->button);
        QCOMPARE(user.newLog(), line(toggle->ok));
        QCOMPARE(user.checked(toggle->button), on);
        QCOMPARE(user.text(toggle->button), caption);
    }

    void anyByteButZeroIsSuccess_data()
    {
        QTest::addColumn<const Toggle*>("toggle");
        QTest::addColumn<int>("answer");
        for (const Toggle& toggle : toggles) {
            for (const int answer : {2, 128, 255}) {
                QTest::addRow("%s answered %d", toggle.button, answer) << &toggle << answer;
            }
        }
    }

    void anyByteButZeroIsSuccess()
    {
        QFETCH(const Toggle*, toggle);
        QFETCH(int, answer);
        kit::Operator user;
        connectBefore(user, *toggle, true);
        user.sdk.answer(toggle->operation, answer);
        user.click(toggle->button);
        QCOMPARE(user.newLog(), line(toggle->ok));
        QCOMPARE(user.text(toggle->button), QLatin1String(toggle->captionOn));
    }

    void theCaptionStandsBeforeTheLineIsLogged_data() { everyToggleBothWays(); }
    void theCaptionStandsBeforeTheLineIsLogged()
    {
        QFETCH(const Toggle*, toggle);
        QFETCH(bool, on);
        QString captionAtTheCall;
        QString captionAtTheLine;
        kit::Operator user;
        connectBefore(user, *toggle, on);
        user.sdk.whenCalled(toggle->operation,
                            [&] { captionAtTheCall = user.text(toggle->button); });
        connect(&user.find<QPlainTextEdit>("logView"), &QPlainTextEdit::textChanged, this,
                [&] { captionAtTheLine = user.text(toggle->button); });
        user.click(toggle->button);
        QCOMPARE(captionAtTheCall, QLatin1String(on ? toggle->captionOff : toggle->captionOn));
        QCOMPARE(captionAtTheLine, QLatin1String(on ? toggle->captionOn : toggle->captionOff));
    }

    void theFormsOwnMipiCaptionSurvivesClicksBeforeAnyRead()
    {
        kit::Operator user;
        openTabsBeforeAnyRead(user);
        user.click("mipiOutputButton");
        QCOMPARE(user.text("mipiOutputButton"), QStringLiteral("Mipi Output: Activated"));
        user.click("mipiOutputButton");
        QCOMPARE(user.text("mipiOutputButton"), QStringLiteral("Mipi Output: Activated"));
        QCOMPARE(user.calls(),
                 kit::lines({"camera.setMipiOutput(true)", "camera.setMipiOutput(false)"}));
        QCOMPARE(user.newLog(),
                 kit::lines({"Set MIPI OUTPUT value OK", "Set MIPI OUTPUT value OK"}));
    }

    // Some captions of the form already say "Activated" while nothing is checked; the first click
    // makes them true, the second turns them.
    void beforeAnyReadTheFormsCaptionsBecomeTrueByTheFirstClick_data()
    {
        QTest::addColumn<const Toggle*>("toggle");
        for (const Toggle& toggle : toggles) {
            if (qstrcmp(toggle.button, "mipiOutputButton") != 0) {
                QTest::newRow(toggle.button) << &toggle;
            }
        }
    }

    void beforeAnyReadTheFormsCaptionsBecomeTrueByTheFirstClick()
    {
        QFETCH(const Toggle*, toggle);
        kit::Operator user;
        openTabsBeforeAnyRead(user);
        user.click(toggle->button);
        QCOMPARE(user.text(toggle->button), QLatin1String(toggle->captionOn));
        user.click(toggle->button);
        QCOMPARE(user.text(toggle->button), QLatin1String(toggle->captionOff));
    }

    void withoutACameraAClickSendsAndLogsNothing_data()
    {
        QTest::addColumn<const Toggle*>("toggle");
        for (const Toggle& toggle : toggles) {
            QTest::newRow(toggle.button) << &toggle;
        }
    }

    void withoutACameraAClickSendsAndLogsNothing()
    {
        QFETCH(const Toggle*, toggle);
        kit::Operator user;
        user.sdk.configuration.expertMode = 1;
        user.find<QTabWidget>("tabWidget").setEnabled(true);
        user.forget();
        user.click(toggle->button);
        QCOMPARE(user.calls(), QStringList());
        QCOMPARE(user.newLog(), QStringList());
    }

private:
    /// A camera whose read failed: it is there, but the window still shows the form's own texts.
    static void openTabsBeforeAnyRead(kit::Operator& user)
    {
        user.sdk.configuration.expertMode = 2; // the tab is there, but not read
        user.sdk.camera.versions = 0;
        user.ports.plug(QStringLiteral("ttyUSB0"));
        user.click("scanDeviceButton");
        user.expectBox({.title = "Camera not connected", .text = "Unable to connect to ttyUSB0"});
        user.click("connectDeviceButton");
        user.find<QTabWidget>("tabWidget").setEnabled(true);
        user.forget();
    }
};

TAVREL_TEST_MAIN(TestToggles)
#include "tst_toggles.moc"
