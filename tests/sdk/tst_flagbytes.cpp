// SPDX-License-Identifier: MIT
// One-byte results may hold any byte. Nonzero is success or "on"; with the sanitizers, a byte that
// was taken for a C++ bool would end the program here.
#include "tests/kit/operator.h"

#include <QtWidgets/QTabWidget>

namespace {

struct SwitchRow {
    const char* button;
    std::uint8_t recording::CameraState::*state;
    const char* feature;
    const char* ok;
    const char* ko;
};

const SwitchRow switchRows[] = {
    {"ColumnCorrectionButton", &recording::CameraState::columnCorrection, "Column Correction",
     "Set column correction value OK", "Set column correction value KO"},
    {"VignettingCorrectionButton", &recording::CameraState::vignettingCorrection,
     "Vignetting Correction", "Set vignetting correction value OK",
     "Set vignetting correction value KO"},
    {"nucEnablingButton", &recording::CameraState::nucControl, "NUC", "Set NUC control OK",
     "Set NUC control value KO"},
    {"TestPatternButton", &recording::CameraState::testPattern, "Test Pattern",
     "Set TEST PATTERN value OK", "Set TEST PATTERN value KO"},
    {"sdiOutputButton", &recording::CameraState::bt656SdiOutput, "BT656/SDI Output",
     "Set BT656/SDI OUTPUT value OK", "Set BT656/SDI OUTPUT value KO"},
    {"parallelOutputButton", &recording::CameraState::parallelOutput, "Parallel Output",
     "Set PARALLEL OUTPUT value OK", "Set PARALLEL OUTPUT value KO"},
    {"mipiOutputButton", &recording::CameraState::mipiOutput, "MIPI Output",
     "Set MIPI OUTPUT value OK", "Set MIPI OUTPUT value KO"},
    {"polarityButton", &recording::CameraState::polarity, "Invert Polarity",
     "Set POLARITY value OK", "Set POLARITY value KO"},
    {"horizontalFlipButton", &recording::CameraState::horizontalFlip, "Horizontal Flip",
     "Set HORIZONTAL FLIP value OK", "Set HORIZONTAL FLIP value KO"},
    {"enableBprPB", &recording::CameraState::bprCorrection, "BPR Correction",
     "Set BPR correction value OK", "Set BPR correction value KO"},
    {"enableOffsetPB", &recording::CameraState::offsetCorrection, "Offset Correction",
     "Set Offset correction value OK", "Set Offset correction value KO"},
    {"enableGainPB", &recording::CameraState::gainCorrection, "Gain Correction",
     "Set Gain correction value OK", "Set Gain correction value KO"},
    {"verticalFlipButton", &recording::CameraState::verticalFlip, "Vertical flip",
     "Set VERTICAL FLIP value OK", "Set VERTICAL FLIP value KO"},
};

void addBytes()
{
    QTest::addColumn<int>("byte");
    for (const int byte : {0, 1, 2, 127, 128, 254, 255}) {
        QTest::addRow("%d", byte) << byte;
    }
}

} // namespace

class TestFlagBytes : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void anyNonzeroByteReadsAsOn_data() { addBytes(); }
    void anyNonzeroByteReadsAsOn()
    {
        QFETCH(int, byte);
        kit::Operator user;
        user.sdk.configuration.expertMode = 1;
        for (const SwitchRow& row : switchRows) {
            user.sdk.camera.*row.state = static_cast<std::uint8_t>(byte);
        }
        user.connectCamera();
        for (const SwitchRow& row : switchRows) {
            QCOMPARE(user.checked(row.button), byte != 0);
            QCOMPARE(user.text(row.button),
                     QString::fromLatin1(row.feature) +
                         QString::fromLatin1(byte != 0 ? ": Activated" : ": Deactivated"));
        }
    }

    void anyNonzeroByteIsSuccess_data() { addBytes(); }
    void anyNonzeroByteIsSuccess()
    {
        QFETCH(int, byte);
        kit::Operator user;
        user.sdk.configuration.expertMode = 1;
        user.connectCamera();
        user.sdk.answerEveryCommand(static_cast<std::uint8_t>(byte));
        QStringList expected;
        for (const SwitchRow& row : switchRows) {
            user.click(row.button);
            expected.append(QString::fromLatin1(byte != 0 ? row.ok : row.ko));
        }
        QCOMPARE(user.newLog(), expected);
    }

    void anyNonzeroByteIsAClosedShutter_data() { addBytes(); }
    void anyNonzeroByteIsAClosedShutter()
    {
        QFETCH(int, byte);
        kit::Operator user;
        user.sdk.camera.shutterClosed = static_cast<std::uint8_t>(byte);
        user.connectCamera();
        QCOMPARE(user.checked("shutterCtrlPB"), byte != 0);
        QCOMPARE(user.text("shutterCtrlPB"),
                 QString::fromLatin1(byte != 0 ? "Shutter closed" : "Shutter opened"));
    }

    void anyNonzeroByteMakesATemperatureValid_data() { addBytes(); }
    void anyNonzeroByteMakesATemperatureValid()
    {
        QFETCH(int, byte);
        kit::Operator user;
        user.sdk.answer("camera.getTemperatures", byte);
        user.connectCamera();
        QCOMPARE(user.text("SensorTempTextEdit"), byte != 0 ? QStringLiteral("25 C") : QString());
    }

    void anyNonzeroDefaultIsOn_data() { addBytes(); }
    void anyNonzeroDefaultIsOn()
    {
        QFETCH(int, byte);
        kit::Operator user;
        const auto value = static_cast<std::uint8_t>(byte);
        auto& defaults = user.sdk.configuration;
        for (std::uint8_t* flag :
             {&defaults.roi0ExcEnable, &defaults.roi1IncEnable, &defaults.roi1ExcEnable,
              &defaults.polarity, &defaults.horizontalFlip, &defaults.verticalFlip,
              &defaults.vignettingCorrection, &defaults.columnCorrection, &defaults.bt656SdiOutput,
              &defaults.parallelOutput, &defaults.mipiOutput, &defaults.testPattern}) {
            *flag = value;
        }
        user.connectCamera();
        user.click("resetParamButtonUser");
        for (const char* const box :
             {"roi0ExcEnable", "roi1IncEnable", "roi1ExcEnable", "polarityButton",
              "horizontalFlipButton", "VignettingCorrectionButton", "ColumnCorrectionButton",
              "sdiOutputButton", "parallelOutputButton", "mipiOutputButton", "TestPatternButton"}) {
            QVERIFY2(user.checked(box) == (byte != 0), box);
        }
    }

    void anyNonzeroByteInTheConfigurationShowsTheExpertTab_data() { addBytes(); }
    void anyNonzeroByteInTheConfigurationShowsTheExpertTab()
    {
        QFETCH(int, byte);
        kit::Operator user;
        user.sdk.configuration.expertMode = static_cast<std::uint8_t>(byte);
        const auto& tabs = user.find<QTabWidget>("tabWidget");
        QCOMPARE(tabs.count(), byte != 0 ? 6 : 5);
    }

    void anyNonzeroByteIsAnAppliedNuc_data() { addBytes(); }
    void anyNonzeroByteIsAnAppliedNuc()
    {
        QFETCH(int, byte);
        kit::Operator user;
        user.connectCamera();
        user.sdk.answer("camera.requestNuc", byte);
        if (byte == 0) {
            user.expectBox(
                {.kind = kit::Box::Warning, .text = "Error on processing the NUC request"});
        }
        user.click("userNucRequest");
        QCOMPARE(user.newLog(), byte != 0 ? kit::lines({"NUC applied"}) : QStringList());
    }
};

TAVREL_TEST_MAIN(TestFlagBytes)
#include "tst_flagbytes.moc"
