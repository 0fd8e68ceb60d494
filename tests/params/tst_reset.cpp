// SPDX-License-Identifier: MIT
// Putting the defaults of the SDK back: which default lands where, and as what it is sent.
#include "tests/params/switchrows.h"

#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QSlider>
#include <QtWidgets/QSpinBox>

#include <cmath>

namespace {

using Defaults = recording::ConfigurationState;

/// The calls of one operation.
QStringList callsOf(kit::Operator& user, const char* operation)
{
    return user.calls().filter(QLatin1String(operation) + QLatin1Char('('));
}

void connectCamera(kit::Operator& user)
{
    user.connectCamera();
    user.rest();
}

using switchrows::Row;

/// A region as the defaults give it: the two coordinates of one axis.
struct Axis {
    const char* name;
    const char* lowBox;
    const char* highBox;
    double Defaults::*low;
    double Defaults::*high;
    const char* lowCall;
    const char* highCall;
    const char* rule;
};

// clang-format off
constexpr Axis axes[] = {
    {"X of region 0", "Roi0IncX1", "Roi0IncX2", &Defaults::roi0IncX1, &Defaults::roi0IncX2,
     "camera.setRoiX1(300, 0, false, false, false)", "camera.setRoiX2(200, 0, false, false, false)",
     "ROI 0 X1 must be lower than ROI X2"},
    {"Y of region 0", "Roi0IncY1", "Roi0IncY2", &Defaults::roi0IncY1, &Defaults::roi0IncY2,
     "camera.setRoiY1(300, 0, false, false, false)", "camera.setRoiY2(200, 0, false, false, false)",
     "ROI 0 Y1 must be lower than ROI Y2"},
    {"X of region 1", "Roi0ExcX1", "Roi0ExcX2", &Defaults::roi0ExcX1, &Defaults::roi0ExcX2,
     "camera.setRoiX1(300, 1, false, false, false)", "camera.setRoiX2(200, 1, false, false, false)",
     "ROI 1 X1 must be lower than ROI X2"},
    {"Y of region 1", "Roi0ExcY1", "Roi0ExcY2", &Defaults::roi0ExcY1, &Defaults::roi0ExcY2,
     "camera.setRoiY1(300, 1, false, false, false)", "camera.setRoiY2(200, 1, false, false, false)",
     "ROI 1 Y1 must be lower than ROI Y2"},
    {"X of region 2", "Roi1IncX1", "Roi1IncX2", &Defaults::roi1IncX1, &Defaults::roi1IncX2,
     "camera.setRoiX1(300, 2, false, false, false)", "camera.setRoiX2(200, 2, false, false, false)",
     "ROI 2 X1 must be lower than ROI X2"},
    {"Y of region 2", "Roi1IncY1", "Roi1IncY2", &Defaults::roi1IncY1, &Defaults::roi1IncY2,
     "camera.setRoiY1(300, 2, false, false, false)", "camera.setRoiY2(200, 2, false, false, false)",
     "ROI 2 Y1 must be lower than ROI Y2"},
    {"X of region 3", "Roi1ExcX1", "Roi1ExcX2", &Defaults::roi1ExcX1, &Defaults::roi1ExcX2,
     "camera.setRoiX1(300, 3, false, false, false)", "camera.setRoiX2(200, 3, false, false, false)",
     "ROI 3 X1 must be lower than ROI X2"},
    {"Y of region 3", "Roi1ExcY1", "Roi1ExcY2", &Defaults::roi1ExcY1, &Defaults::roi1ExcY2,
     "camera.setRoiY1(300, 3, false, false, false)", "camera.setRoiY2(200, 3, false, false, false)",
     "ROI 3 Y1 must be lower than ROI Y2"},
};
// clang-format on

/// Every switch that a reset goes back to something with, both ways.
void everySwitchWithADefault()
{
    QTest::addColumn<const Row*>("feature");
    QTest::addColumn<bool>("on");
    for (const Row& row : switchrows::rows) {
        if (row.standard != nullptr) {
            QTest::addRow("%s on", row.button) << &row << true;
            QTest::addRow("%s off", row.button) << &row << false;
        }
    }
}

} // namespace

Q_DECLARE_METATYPE(const Axis*)

class TestReset : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // ---- lists

    void theFrameRateFallsBackTo25Hz_data()
    {
        QTest::addColumn<int>("standard");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<QStringList>("calls");
        const auto add = [](int hertz, const char* shown, const char* call) {
            QTest::addRow("%d Hz", hertz)
                << hertz << QString::fromLatin1(shown) << kit::lines({call});
        };
        add(9, "9Hz", "camera.setFrameRate(9)");
        add(25, "25Hz", "camera.setFrameRate(25)");
        add(30, "30Hz", "camera.setFrameRate(30)");
        add(50, "50Hz", "camera.setFrameRate(50)");
        add(60, "60Hz", "camera.setFrameRate(60)");
        add(0, "25Hz", "camera.setFrameRate(25)");
        add(24, "25Hz", "camera.setFrameRate(25)");
        add(255, "25Hz", "camera.setFrameRate(25)");
    }

    void theFrameRateFallsBackTo25Hz()
    {
        QFETCH(int, standard);
        QFETCH(QString, shown);
        QFETCH(QStringList, calls);
        kit::Operator user;
        user.sdk.camera.frameRate = standard == 30 ? 60 : 30;
        user.sdk.configuration.frameRate = static_cast<std::uint8_t>(standard);
        connectCamera(user);
        user.click("resetParamButtonUser");
        QCOMPARE(user.text("frameRateCB"), shown);
        // Once only: the apply finds the camera there already.
        QCOMPARE(callsOf(user, "camera.setFrameRate"), calls);
    }

    void theFrameRateThatTheCameraHasLeavesNoLine_data()
    {
        QTest::addColumn<int>("camera");
        QTest::addColumn<int>("standard");
        for (const int hertz : {9, 25, 30, 50, 60}) {
            QTest::addRow("%d Hz", hertz) << hertz << hertz;
        }
        QTest::newRow("unknown default, camera at 25 Hz") << 25 << 99;
    }

    void theFrameRateThatTheCameraHasLeavesNoLine()
    {
        QFETCH(int, camera);
        QFETCH(int, standard);
        kit::Operator user;
        user.sdk.camera.frameRate = static_cast<std::uint8_t>(camera);
        user.sdk.configuration.frameRate = static_cast<std::uint8_t>(standard);
        connectCamera(user);
        user.click("resetParamButtonUser");
        QCOMPARE(callsOf(user, "camera.setFrameRate"), QStringList());
        QCOMPARE(user.newLog().filter(QStringLiteral("FRAME RATE")), QStringList());
    }

    void aCameraThatLeftItsFrameRateMeanwhileIsCalledBackByTheApply()
    {
        kit::Operator user;
        user.sdk.camera.testPattern = 1;
        user.sdk.configuration.testPattern = 1;
        connectCamera(user);
        // The list shows the default already, so only the apply notices.
        user.sdk.camera.frameRate = 60;
        user.click("resetParamButtonUser");
        QCOMPARE(callsOf(user, "camera.setFrameRate"), kit::lines({"camera.setFrameRate(9)"}));
        QCOMPARE(user.newLog().mid(0, 2),
                 kit::lines({"Start applying camera parameters", "Set FRAME RATE value OK"}));
        QCOMPARE(callsOf(user, "camera.setTestPattern"),
                 kit::lines({"camera.setTestPattern(false)"}));
        QCOMPARE(user.text("TestPatternButton"), QStringLiteral("Test Pattern: Deactivated"));
    }

    void theContrastTypeEndsOnTheRegions_data()
    {
        QTest::addColumn<int>("camera");
        QTest::addColumn<int>("standard");
        QTest::addColumn<QStringList>("calls");
        const QString regions = QStringLiteral("camera.configureContrastType(0)");
        const QString local = QStringLiteral("camera.configureContrastType(1)");
        QTest::newRow("regions, default regions") << 0 << 0 << QStringList({regions});
        QTest::newRow("regions, default local") << 0 << 1 << QStringList({local, regions, regions});
        QTest::newRow("local, default regions") << 1 << 0 << QStringList({regions, regions});
        QTest::newRow("local, default local") << 1 << 1 << QStringList({regions, regions});
        QTest::newRow("default outside the list")
            << 0 << 2
            << QStringList({QStringLiteral("camera.configureContrastType(255)"), regions, regions});
    }

    void theContrastTypeEndsOnTheRegions()
    {
        QFETCH(int, camera);
        QFETCH(int, standard);
        QFETCH(QStringList, calls);
        kit::Operator user;
        user.sdk.camera.contrastType = static_cast<std::uint8_t>(camera);
        user.sdk.configuration.contrastType = static_cast<std::uint8_t>(standard);
        connectCamera(user);
        user.click("resetParamButtonUser");
        QCOMPARE(user.text("contrastTypeEdit"), QStringLiteral("CLHE (ROI)"));
        QCOMPARE(callsOf(user, "camera.configureContrastType"), calls);
    }

    // A list without such an entry shows none; the index of "none" travels as 255.
    void aDefaultOutsideItsListSelectsNoEntry()
    {
        kit::Operator user;
        user.sdk.configuration.videoOutput = 9;
        user.sdk.configuration.colorLut = 8;
        user.sdk.configuration.edgeCorrection = 3;
        user.sdk.configuration.zoomMethod = 2;
        connectCamera(user);
        user.click("resetParamButtonUser");
        QCOMPARE(callsOf(user, "camera.setVideoOutput").last(),
                 QStringLiteral("camera.setVideoOutput(255)"));
        QCOMPARE(callsOf(user, "camera.setColorLut").last(),
                 QStringLiteral("camera.setColorLut(255)"));
        QCOMPARE(callsOf(user, "camera.configureEdgeCorrection").last(),
                 QStringLiteral("camera.configureEdgeCorrection(255, 0, 0)"));
        QCOMPARE(callsOf(user, "camera.configureZoom"),
                 kit::lines({"camera.configureZoom(1, 320, 240, 255)"}));
    }

    // ---- buttons

    void bothFlipsLandOnTheHorizontalButtonTheVerticalOneLast_data()
    {
        QTest::addColumn<bool>("horizontal");
        QTest::addColumn<bool>("vertical");
        for (const bool horizontal : {false, true}) {
            for (const bool vertical : {false, true}) {
                QTest::addRow("horizontal %d, vertical %d", horizontal, vertical)
                    << horizontal << vertical;
            }
        }
    }

    void bothFlipsLandOnTheHorizontalButtonTheVerticalOneLast()
    {
        QFETCH(bool, horizontal);
        QFETCH(bool, vertical);
        kit::Operator user;
        user.sdk.configuration.horizontalFlip = horizontal ? 1 : 0;
        user.sdk.configuration.verticalFlip = vertical ? 1 : 0;
        connectCamera(user);
        user.click("resetParamButtonUser");
        QCOMPARE(user.checked("horizontalFlipButton"), vertical);
        QCOMPARE(callsOf(user, "camera.setHorizontalFlip"),
                 kit::lines({vertical ? "camera.setHorizontalFlip(true)"
                                      : "camera.setHorizontalFlip(false)"}));
        QCOMPARE(user.sdk.count("camera.setVerticalFlip"), 0);
        QVERIFY(!user.checked("verticalFlipButton"));
    }

    void anAcceptedDefaultTurnsCheckStateAndCaption_data() { everySwitchWithADefault(); }
    void anAcceptedDefaultTurnsCheckStateAndCaption()
    {
        QFETCH(const Row*, feature);
        QFETCH(bool, on);
        kit::Operator user;
        user.sdk.camera.*feature->state = on ? 0 : 1;
        // Any byte but zero means on.
        user.sdk.configuration.*feature->standard = on ? 128 : 0;
        connectCamera(user);
        user.click("resetParamButtonUser");
        QCOMPARE(user.checked(feature->button), on);
        QCOMPARE(user.text(feature->button), feature->shown(on));
    }

    void aRefusedDefaultLeavesCheckStateAndCaptionAtOdds_data() { everySwitchWithADefault(); }
    void aRefusedDefaultLeavesCheckStateAndCaptionAtOdds()
    {
        QFETCH(const Row*, feature);
        QFETCH(bool, on);
        kit::Operator user;
        user.sdk.camera.*feature->state = on ? 0 : 1;
        user.sdk.configuration.*feature->standard = on ? 1 : 0;
        connectCamera(user);
        user.sdk.answer(feature->operation, 0);
        user.click("resetParamButtonUser");
        QCOMPARE(user.checked(feature->button), on);
        QCOMPARE(user.text(feature->button), feature->shown(!on));
    }

    // ---- numbers

    void gammaAndClheHaveNoDefaultAndAreSentAsTheyStand()
    {
        kit::Operator user;
        connectCamera(user);
        // Moved, but not sent yet.
        user.press("gammaSlider", Qt::Key_Home);
        user.press("clheSlider", Qt::Key_End);
        user.rest();
        user.click("resetParamButtonUser");
        QCOMPARE(callsOf(user, "camera.setGamma"), kit::lines({"camera.setGamma(32768)"}));
        QCOMPARE(callsOf(user, "camera.setClhe"), kit::lines({"camera.setClhe(10000)"}));
    }

    void aNumberBeyondItsSpinBoxStopsAtTheEnd()
    {
        kit::Operator user;
        user.sdk.configuration.sharpeningGain = 4294967295U;
        user.sdk.configuration.temporalFilter = 9;
        user.sdk.configuration.ahcBlackGainLimit = 101;
        user.sdk.configuration.ahcWhiteGainLimit = 255;
        user.sdk.configuration.zoomFactor = 100.0F;
        user.sdk.configuration.zoomXCenter = 641;
        user.sdk.configuration.zoomYCenter = -1;
        user.sdk.configuration.zoomXResolution = 2000;
        user.sdk.configuration.zoomYResolution = 9;
        connectCamera(user);
        user.click("resetParamButtonUser");
        QCOMPARE(callsOf(user, "camera.configureEdgeCorrection"),
                 kit::lines({"camera.configureEdgeCorrection(0, 1024, 0)"}));
        QCOMPARE(callsOf(user, "camera.setLutTemporalFilter"),
                 kit::lines({"camera.setLutTemporalFilter(8)"}));
        QCOMPARE(callsOf(user, "camera.setAhcGainsLimitation"),
                 kit::lines({"camera.setAhcGainsLimitation(100, 100)"}));
        QCOMPARE(callsOf(user, "camera.configureZoom"),
                 kit::lines({"camera.configureZoom(8, 640, 0, 0)"}));
        QCOMPARE(callsOf(user, "camera.configureZoomResolution"),
                 kit::lines({"camera.configureZoomResolution(1024, 10)"}));
    }

    void aThresholdBeyondTheSliderStaysOnlyWhenTheSliderStoodAtItsEnd_data()
    {
        QTest::addColumn<int>("camera");
        QTest::addColumn<QByteArray>("sent");
        QTest::newRow("slider at its end")
            << 200 << QByteArray("camera.configureEdgeCorrection(0, 0, 250)");
        QTest::newRow("slider below its end")
            << 199 << QByteArray("camera.configureEdgeCorrection(0, 0, 200)");
    }

    void aThresholdBeyondTheSliderStaysOnlyWhenTheSliderStoodAtItsEnd()
    {
        QFETCH(int, camera);
        QFETCH(QByteArray, sent);
        kit::Operator user;
        user.sdk.camera.edgeCorrection.firstThreshold = static_cast<std::uint32_t>(camera);
        user.sdk.configuration.sharpeningThreshold = 250;
        connectCamera(user);
        user.click("resetParamButtonUser");
        QCOMPARE(callsOf(user, "camera.configureEdgeCorrection"), kit::lines({sent}));
    }

    void aCoordinateIsCutToWholePixelsTowardZero_data()
    {
        QTest::addColumn<double>("standard");
        QTest::addColumn<QString>("shown");
        QTest::newRow("15.99") << 15.99 << QStringLiteral("15");
        QTest::newRow("16") << 16.0 << QStringLiteral("16");
        QTest::newRow("5.999") << 5.999 << QStringLiteral("5");
        QTest::newRow("below the form's range") << -3.7 << QStringLiteral("5");
        QTest::newRow("above the form's range") << 636.0 << QStringLiteral("635");
        QTest::newRow("beyond an int") << 1e300 << QStringLiteral("635");
        QTest::newRow("beyond an int, below") << -1e300 << QStringLiteral("5");
        QTest::newRow("no number") << std::nan("") << QStringLiteral("5");
    }

    void aCoordinateIsCutToWholePixelsTowardZero()
    {
        QFETCH(double, standard);
        QFETCH(QString, shown);
        kit::Operator user;
        user.sdk.configuration.roi0IncX1 = standard;
        user.sdk.configuration.roi0IncX2 = 635;
        connectCamera(user);
        user.click("resetParamButtonUser");
        QCOMPARE(user.text("Roi0IncX1"), shown);
    }

    void everyRegionGetsItsOwnDefaults()
    {
        kit::Operator user;
        connectCamera(user);
        user.click("resetParamButtonUser");
        QStringList shown;
        for (const Axis& axis : axes) {
            shown << user.text(axis.lowBox) << user.text(axis.highBox);
        }
        QCOMPARE(shown, kit::lines({"15", "600", "16", "440", "21", "123", "22", "124", "31", "133",
                                    "32", "134", "41", "143", "42", "144"}));
    }

    void everyRegionIsEnabledByItsOwnDefault_data()
    {
        QTest::addColumn<int>("enabled");
        for (int enabled = 0; enabled < 8; ++enabled) {
            QTest::addRow("%d%d%d", enabled & 1, (enabled >> 1) & 1, (enabled >> 2) & 1) << enabled;
        }
    }

    void everyRegionIsEnabledByItsOwnDefault()
    {
        QFETCH(int, enabled);
        const bool roi0Exclusive = (enabled & 1) != 0;
        const bool roi1Inclusive = (enabled & 2) != 0;
        const bool roi1Exclusive = (enabled & 4) != 0;
        kit::Operator user;
        user.sdk.camera.regions.fill({10, 20, 10, 20});
        user.sdk.configuration.roi0ExcEnable = roi0Exclusive ? 1 : 0;
        user.sdk.configuration.roi1IncEnable = roi1Inclusive ? 1 : 0;
        user.sdk.configuration.roi1ExcEnable = roi1Exclusive ? 1 : 0;
        connectCamera(user);
        user.click("resetParamButtonUser");
        QCOMPARE(user.checked("roi0ExcEnable"), roi0Exclusive);
        QCOMPARE(user.checked("roi1IncEnable"), roi1Inclusive);
        QCOMPARE(user.checked("roi1ExcEnable"), roi1Exclusive);
        QCOMPARE(user.enabled("Roi0ExcX1"), roi0Exclusive);
        QCOMPARE(user.enabled("Roi1IncX1"), roi1Inclusive);
        QCOMPARE(user.enabled("Roi1ExcX1"), roi1Exclusive);
        const auto word = [](bool on) {
            return on ? QStringLiteral("true") : QStringLiteral("false");
        };
        QCOMPARE(callsOf(user, "camera.setRoiX1").first(),
                 QStringLiteral("camera.setRoiX1(15, 0, %1, %2, %3)")
                     .arg(word(roi1Inclusive), word(roi0Exclusive), word(roi1Exclusive)));
    }

    // ---- boxes in the middle of an apply

    void aRegionWhoseDefaultsBreakTheRuleIsReportedAndTheApplyGoesOn_data()
    {
        QTest::addColumn<const Axis*>("axis");
        for (const Axis& axis : axes) {
            QTest::newRow(axis.name) << &axis;
        }
    }

    void aRegionWhoseDefaultsBreakTheRuleIsReportedAndTheApplyGoesOn()
    {
        QFETCH(const Axis*, axis);
        kit::Operator user;
        user.sdk.configuration.*axis->low = 300;
        user.sdk.configuration.*axis->high = 200;
        connectCamera(user);
        user.expectBox({.title = "ROI", .text = axis->rule});
        user.click("resetParamButtonUser");
        const QStringList calls = user.calls();
        QVERIFY(calls.contains(QLatin1String(axis->lowCall)));
        QVERIFY(calls.contains(QLatin1String(axis->highCall)));
        QCOMPARE(calls.filter(QStringLiteral("camera.setRoi")).size(), 16);
        QCOMPARE(calls.last(), QStringLiteral("sdk.saveConfiguration()"));
        QCOMPARE(user.newLog().last(), QStringLiteral("End applying camera parameters"));
        QCOMPARE(user.text(axis->lowBox), QStringLiteral("200"));
    }

    void everyBrokenRuleHasItsOwnBoxInTheOrderOfTheApply()
    {
        kit::Operator user;
        for (const Axis& axis : axes) {
            user.sdk.configuration.*axis.low = 300;
            user.sdk.configuration.*axis.high = 200;
        }
        connectCamera(user);
        for (const Axis& axis : axes) {
            user.expectBox({.title = "ROI", .text = axis.rule});
        }
        user.click("resetParamButtonUser");
        QStringList expected;
        for (const Axis& axis : axes) {
            expected << QLatin1String(axis.lowCall) << QLatin1String(axis.highCall);
        }
        QCOMPARE(user.calls().filter(QStringLiteral("camera.setRoi")), expected);
    }
};

TAVREL_TEST_MAIN(TestReset)
#include "tst_reset.moc"
