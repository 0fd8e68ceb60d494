// SPDX-License-Identifier: MIT
// A whole reset, call by call and log line by log line.
#include "tests/kit/sequence.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QTimer>

namespace {

/// Every default is what the camera has already.
void makeDefaultsEqual(recording::Sdk& sdk)
{
    // In the order x1, x2, y1, y2.
    sdk.camera.regions = {
        {{15, 600, 16, 440}, {21, 123, 22, 124}, {31, 133, 32, 134}, {41, 143, 42, 144}}};
    recording::ConfigurationState& defaults = sdk.configuration;
    defaults.roi0ExcEnable = defaults.roi1IncEnable = defaults.roi1ExcEnable = 1;
    defaults.sharpeningGain = sdk.camera.edgeCorrection.gain;
    defaults.sharpeningThreshold = sdk.camera.edgeCorrection.firstThreshold;
    defaults.temporalFilter = sdk.camera.lutTemporalFilter;
    defaults.ahcBlackGainLimit = sdk.camera.ahcGains.black;
    defaults.ahcWhiteGainLimit = sdk.camera.ahcGains.white;
}

/// An apply sends a region; all regions are on.
QStringList regionSent(int region, int x1, int x2, int y1, int y2)
{
    QStringList sequence;
    const auto add = [&](const char* coordinate, int value) {
        const QLatin1String name(coordinate);
        sequence.append(QStringLiteral("camera.setRoi%1(%2, %3, true, true, true)")
                            .arg(name)
                            .arg(value)
                            .arg(region));
        sequence.append(QStringLiteral("log 2: Set ROI %1 %2 value OK").arg(region).arg(name));
    };
    add("X1", x1);
    add("X2", x2);
    add("Y1", y1);
    add("Y2", y2);
    return sequence;
}

/// A reset switches a region on and shows its defaults.
QStringList regionReset(const char* region, const char* enable, int x1, int x2, int y1, int y2)
{
    QStringList sequence = kit::block(R"(
        config.getDefault%1Enable()
        %1X1 enabled true
        %2 checked true
        %1X2 enabled true
        %1Y1 enabled true
        %1Y2 enabled true
        config.getDefault%1X1()
        %1X1 value %3
        config.getDefault%1X2()
        %1X2 value %4
        config.getDefault%1Y1()
        %1Y1 value %5
        config.getDefault%1Y2()
        %1Y2 value %6
    )");
    const QString values[] = {QLatin1String(region), QLatin1String(enable), QString::number(x1),
                              QString::number(x2),   QString::number(y1),   QString::number(y2)};
    for (int place = 0; place < 6; ++place) {
        sequence.replaceInStrings(QLatin1Char('%') + QString::number(place + 1), values[place]);
    }
    return sequence;
}

const QStringList applyOfEqualDefaults = kit::block(R"(
    log 2: Start applying camera parameters
    camera.getFrameRate()
    camera.setVignettingCorrection(false)
    log 2: Set vignetting correction value OK
    camera.setColumnCorrection(false)
    log 2: Set column correction value OK
    camera.setTestPattern(false)
    log 2: Set TEST PATTERN value OK
    camera.setVideoOutput(0)
    log 2: Set VIDEO OUTPUT value OK
    camera.setBt656SdiOutput(false)
    log 2: Set BT656/SDI OUTPUT value OK
    camera.setParallelOutput(false)
    log 2: Set PARALLEL OUTPUT value OK
    camera.setMipiOutput(false)
    log 2: Set MIPI OUTPUT value OK
    camera.setPolarity(false)
    log 2: Set POLARITY value OK
    camera.setGamma(65536)
    log 2: Set GAMMA value OK
)") + regionSent(0, 15, 600, 16, 440) + regionSent(1, 21, 123, 22, 124) +
                                         regionSent(2, 31, 133, 32, 134) +
                                         regionSent(3, 41, 143, 42, 144) + kit::block(R"(
    camera.configureContrastType(0)
    log 2: Configure contrast type OK
    camera.setColorLut(0)
    log 2: Set COLOR LUT value OK
    camera.setClhe(2000)
    log 2: Set CLHE value OK
    camera.setLutTemporalFilter(3)
    log 2: Set LUT TEMPORAL FILTER value OK
    camera.setAhcGainsLimitation(10, 20)
    log 2: Set AHC GAINS LIMITATION values OK
    camera.configureZoomResolution(720, 576)
    log 2: Configure ZOOM RESOLUTION OK
    camera.configureZoom(1, 320, 240, 0)
    log 2: Configure Zoom OK
    camera.setHorizontalFlip(false)
    log 2: Set HORIZONTAL FLIP value OK
    camera.configureEdgeCorrection(0, 10, 20)
    log 2: Configure EDGE CORRECTION OK
    sdk.saveConfiguration()
    log 2: End applying camera parameters
)");

/// No default is what the camera has; gamma and CLHE, which have none, are away from their usual.
void makeDefaultsDiffer(recording::Sdk& sdk)
{
    sdk.camera.gamma = 144179;
    sdk.camera.clhe = 4321;
    recording::ConfigurationState& defaults = sdk.configuration;
    defaults.frameRate = 50;
    defaults.roi0IncX1 = 50.9;
    defaults.roi0IncY1 = 60.9;
    defaults.roi0IncX2 = 500.9;
    defaults.roi0IncY2 = 400.9;
    defaults.roi0ExcEnable = defaults.roi1IncEnable = defaults.roi1ExcEnable = 1;
    defaults.polarity = 1;
    defaults.zoomFactor = 2.5F;
    defaults.zoomMethod = 1;
    defaults.zoomXCenter = 111;
    defaults.zoomYCenter = 222;
    defaults.zoomXResolution = 640;
    defaults.zoomYResolution = 480;
    defaults.contrastType = 1;
    defaults.colorLut = 3;
    defaults.horizontalFlip = 0;
    defaults.verticalFlip = 1;
    defaults.vignettingCorrection = defaults.columnCorrection = 1;
    defaults.edgeCorrection = 2;
    defaults.sharpeningGain = 33;
    defaults.sharpeningThreshold = 44;
    defaults.videoOutput = 8;
    defaults.bt656SdiOutput = defaults.parallelOutput = defaults.mipiOutput = 1;
    defaults.testPattern = 1;
    defaults.temporalFilter = 7;
    defaults.ahcBlackGainLimit = 55;
    defaults.ahcWhiteGainLimit = 66;
}

// The lists send their values as they change, and the apply sends them again.
const QStringList resetToOtherDefaults = kit::block(R"(
    sdk.getConfiguration()
    config.getDefaultFrameRate()
    frameRateCB currentIndex 3
    camera.getFrameRate()
    camera.setFrameRate(50)
    log 2: Set FRAME RATE value OK
    config.getDefaultRoi0IncX1()
    Roi0IncX1 value 50
    config.getDefaultRoi0IncY1()
    Roi0IncY1 value 60
    config.getDefaultRoi0IncX2()
    Roi0IncX2 value 500
    config.getDefaultRoi0IncY2()
    Roi0IncY2 value 400
)") + regionReset("Roi0Exc", "roi0ExcEnable", 21, 123, 22, 124) +
                                         regionReset("Roi1Inc", "roi1IncEnable", 31, 133, 32, 134) +
                                         regionReset("Roi1Exc", "roi1ExcEnable", 41, 143, 42, 144) +
                                         kit::block(R"(
    config.getDefaultPolarity()
    polarityButton checked true
    config.getDefaultZoomFactor()
    factorZoomEdit value 2.5
    config.getDefaultZoomMethod()
    methodZoomEdit currentIndex 1
    config.getDefaultZoomXCenter()
    xCenterZoomEdit value 111
    config.getDefaultZoomYCenter()
    yCenterZoomEdit value 222
    config.getDefaultZoomXResolution()
    xResolutionZoomEdit value 640
    config.getDefaultZoomYResolution()
    yResolutionZoomEdit value 480
    config.getDefaultContrastType()
    contrastTypeEdit currentIndex 1
    camera.configureContrastType(1)
    log 2: Configure contrast type OK
    contrastTypeEdit currentIndex 0
    camera.configureContrastType(0)
    log 2: Configure contrast type OK
    config.getDefaultColorLut()
    lutColorEdit currentIndex 3
    camera.setColorLut(3)
    log 2: Set COLOR LUT value OK
    config.getDefaultHorizontalFlip()
    config.getDefaultVerticalFlip()
    horizontalFlipButton checked true
    config.getDefaultVignettingCorrection()
    VignettingCorrectionButton checked true
    config.getDefaultColumnCorrection()
    ColumnCorrectionButton checked true
    config.getDefaultEdgeCorrection()
    EdgeCorrectionCB currentIndex 2
    camera.configureEdgeCorrection(2, 10, 20)
    log 2: Configure EDGE CORRECTION OK
    config.getDefaultSharpeningGain()
    sharpeningGainEdit value 33
    sharpeningGainSlider value 330
    config.getDefaultSharpeningThreshold()
    SharpeningTHEdit value 44
    SharpeningTHSlider value 440
    config.getDefaultVideoOutput()
    VideoOutputCB currentIndex 8
    camera.setVideoOutput(8)
    log 2: Set VIDEO OUTPUT value OK
    config.getDefaultBt656SdiOutput()
    sdiOutputButton checked true
    config.getDefaultParallelOutput()
    parallelOutputButton checked true
    config.getDefaultMipiOutput()
    mipiOutputButton checked true
    config.getDefaultTestPattern()
    TestPatternButton checked true
    config.getDefaultTemporalFilter()
    TempoFilterSpin value 7
    TempoFilterSlider value 7
    config.getDefaultAhcBlackGainLimit()
    AhcBlackGainLimSpin value 55
    AhcBlackGainLimSlider value 55
    config.getDefaultAhcWhiteGainLimit()
    AhcWhiteGainLimSpin value 66
    AhcWhiteGainLimSlider value 66
    log 2: Start applying camera parameters
    camera.getFrameRate()
    camera.setVignettingCorrection(true)
    VignettingCorrectionButton text Vignetting Correction: Activated
    log 2: Set vignetting correction value OK
    camera.setColumnCorrection(true)
    ColumnCorrectionButton text Column Correction: Activated
    log 2: Set column correction value OK
    camera.setTestPattern(true)
    TestPatternButton text Test Pattern: Activated
    log 2: Set TEST PATTERN value OK
    camera.setVideoOutput(8)
    log 2: Set VIDEO OUTPUT value OK
    camera.setBt656SdiOutput(true)
    sdiOutputButton text BT656/SDI Output: Activated
    log 2: Set BT656/SDI OUTPUT value OK
    camera.setParallelOutput(true)
    parallelOutputButton text Parallel Output: Activated
    log 2: Set PARALLEL OUTPUT value OK
    camera.setMipiOutput(true)
    mipiOutputButton text MIPI Output: Activated
    log 2: Set MIPI OUTPUT value OK
    camera.setPolarity(true)
    polarityButton text Invert Polarity: Activated
    log 2: Set POLARITY value OK
    camera.setGamma(144179)
    log 2: Set GAMMA value OK
)") + regionSent(0, 50, 500, 60, 400) + regionSent(1, 21, 123, 22, 124) +
                                         regionSent(2, 31, 133, 32, 134) +
                                         regionSent(3, 41, 143, 42, 144) + kit::block(R"(
    camera.configureContrastType(0)
    log 2: Configure contrast type OK
    camera.setColorLut(3)
    log 2: Set COLOR LUT value OK
    camera.setClhe(4321)
    log 2: Set CLHE value OK
    camera.setLutTemporalFilter(7)
    log 2: Set LUT TEMPORAL FILTER value OK
    camera.setAhcGainsLimitation(55, 66)
    log 2: Set AHC GAINS LIMITATION values OK
    camera.configureZoomResolution(640, 480)
    log 2: Configure ZOOM RESOLUTION OK
    camera.configureZoom(2.5, 111, 222, 1)
    log 2: Configure Zoom OK
    camera.setHorizontalFlip(true)
    horizontalFlipButton text Horizontal Flip: Activated
    log 2: Set HORIZONTAL FLIP value OK
    camera.configureEdgeCorrection(2, 33, 44)
    log 2: Configure EDGE CORRECTION OK
    sdk.saveConfiguration()
    log 2: End applying camera parameters
)");

// Every default is asked for in the same order.
const QStringList resetToEqualDefaults = resetToOtherDefaults.filter(QRegularExpression(
                                             QStringLiteral("^(config[.]|sdk.getConfiguration)"))) +
                                         applyOfEqualDefaults;

struct Refusal {
    const char* operation;
    const char* ko;
};

constexpr Refusal refusals[] = {
    {"camera.setVignettingCorrection", "Set vignetting correction value KO"},
    {"camera.setColumnCorrection", "Set column correction value KO"},
    {"camera.setTestPattern", "Set TEST PATTERN value KO"},
    {"camera.setVideoOutput", "Set VIDEO OUTPUT value KO"},
    {"camera.setBt656SdiOutput", "Set BT656/SDI OUTPUT value KO"},
    {"camera.setParallelOutput", "Set PARALLEL OUTPUT value KO"},
    {"camera.setMipiOutput", "Set MIPI OUTPUT value KO"},
    {"camera.setPolarity", "Set POLARITY value KO"},
    {"camera.setGamma", "Set GAMMA value KO"},
    {"camera.setRoiX1", "Set ROI X1 value KO"},
    {"camera.setRoiX2", "Set ROI X2 value KO"},
    {"camera.setRoiY1", "Set ROI Y1 value KO"},
    {"camera.setRoiY2", "Set ROI Y2 value KO"},
    {"camera.configureContrastType", "Configure contrast type KO"},
    {"camera.setColorLut", "Set COLOR LUT value KO"},
    {"camera.setClhe", "Set CLHE value KO"},
    {"camera.setLutTemporalFilter", "Set LUT TEMPORAL FILTER value KO"},
    {"camera.setAhcGainsLimitation", "Set AHC GAINS LIMITATION values KO"},
    {"camera.configureZoomResolution", "Configure ZOOM RESOLUTION KO"},
    {"camera.configureZoom", "Configure Zoom KO"},
    {"camera.setHorizontalFlip", "Set HORIZONTAL FLIP value KO"},
    {"camera.configureEdgeCorrection", "Configure EDGE CORRECTION KO"},
};

/// The sequence with the line after each call of the operation turned into its refusal.
QStringList with(const Refusal& refusal, QStringList sequence)
{
    const QString call = QLatin1String(refusal.operation) + QLatin1Char('(');
    for (int index = 0; index < sequence.size(); ++index) {
        if (sequence[index].startsWith(call)) {
            sequence[index + 1] = QStringLiteral("log 2: ") + QLatin1String(refusal.ko);
        }
    }
    return sequence;
}

/// A refused frame rate is asked for again by the apply, which unchecks the test pattern.
QStringList withRefusedFrameRate(QStringList sequence)
{
    sequence = with({"camera.setFrameRate", "Set FRAME RATE value KO"}, sequence);
    const auto inApply = sequence.lastIndexOf(QStringLiteral("camera.getFrameRate()"));
    sequence.insert(inApply + 1, QStringLiteral("camera.setFrameRate(50)"));
    sequence.insert(inApply + 2, QStringLiteral("log 2: Set FRAME RATE value KO"));
    sequence.replaceInStrings(QStringLiteral("camera.setTestPattern(true)"),
                              QStringLiteral("camera.setTestPattern(false)"));
    return sequence;
}

/// Connects with the monitoring off, so that no tick falls among the calls.
void connectCamera(kit::Operator& user)
{
    user.connectCamera();
    user.window().findChild<QTimer*>(QString(), Qt::FindDirectChildrenOnly)->stop();
    user.rest();
}

/// The calls and log records of a sequence.
QStringList journalOf(const QStringList& sequence)
{
    return sequence.filter(QRegularExpression(QStringLiteral("^(camera|config|sdk)[.]|^log ")));
}

/// What the log pane must show after the sequence.
QStringList linesOf(const QStringList& sequence)
{
    const auto prefix = QStringLiteral("log 2: ");
    QStringList lines;
    for (const QString& entry : sequence) {
        if (entry.startsWith(prefix)) {
            lines.append(entry.mid(prefix.size()));
        }
    }
    return lines;
}

/// Nothing is lost by a refusal: the widgets show the defaults all the same.
void compareWidgetsWithOtherDefaults(kit::Operator& user)
{
    const QStringList shown = {user.text("frameRateCB"),         user.text("VideoOutputCB"),
                               user.text("contrastTypeEdit"),    user.text("lutColorEdit"),
                               user.text("EdgeCorrectionCB"),    user.text("methodZoomEdit"),
                               user.text("factorZoomEdit"),      user.text("xCenterZoomEdit"),
                               user.text("yCenterZoomEdit"),     user.text("xResolutionZoomEdit"),
                               user.text("yResolutionZoomEdit"), user.text("sharpeningGainEdit"),
                               user.text("SharpeningTHEdit"),    user.text("TempoFilterSpin"),
                               user.text("AhcBlackGainLimSpin"), user.text("AhcWhiteGainLimSpin"),
                               user.text("gammaEdit"),           user.text("clheEdit"),
                               user.text("Roi0IncX1"),           user.text("Roi1ExcY2")};
    QCOMPARE(shown, kit::lines({"50Hz",     "BT656", "CLHE (ROI)", "RAINBOW", "Contouring",
                                "Bilinear", "2.500", "111",        "222",     "640",
                                "480",      "33.0",  "44.0",       "7",       "55",
                                "66",       "2.2",   "4321",       "50",      "144"}));
    for (const char* const button :
         {"VignettingCorrectionButton", "ColumnCorrectionButton", "sdiOutputButton",
          "parallelOutputButton", "mipiOutputButton", "polarityButton", "horizontalFlipButton"}) {
        QVERIFY2(user.checked(button), button);
    }
}

} // namespace

Q_DECLARE_METATYPE(const Refusal*)

class TestResetSequence : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aResetToWhatTheCameraHasSendsEveryValueOnce()
    {
        kit::Operator user;
        makeDefaultsEqual(user.sdk);
        connectCamera(user);
        user.click("resetParamButtonUser");
        QCOMPARE(user.journal(), resetToEqualDefaults);
        QCOMPARE(user.newLog(), linesOf(resetToEqualDefaults));
    }

    void anApplyByNameReadsNoDefaults()
    {
        kit::Operator user;
        makeDefaultsEqual(user.sdk);
        connectCamera(user);
        QVERIFY(QMetaObject::invokeMethod(&user.window(), "ApplyParamsUser"));
        QCOMPARE(user.journal(), applyOfEqualDefaults);
        QCOMPARE(user.newLog(), linesOf(applyOfEqualDefaults));
    }

    void aResetThatChangesEverythingSendsTheListsTwice()
    {
        kit::Operator user;
        makeDefaultsDiffer(user.sdk);
        connectCamera(user);
        kit::Sequence sequence(user);
        user.click("resetParamButtonUser");
        QCOMPARE(sequence.take(), resetToOtherDefaults);
        QCOMPARE(user.newLog(), linesOf(journalOf(resetToOtherDefaults)));
        compareWidgetsWithOtherDefaults(user);
    }

    void oneRefusedCommandChangesNothingButItsOwnLine_data()
    {
        QTest::addColumn<const Refusal*>("refusal");
        for (const Refusal& refusal : refusals) {
            QTest::newRow(refusal.operation) << &refusal;
        }
    }

    void oneRefusedCommandChangesNothingButItsOwnLine()
    {
        QFETCH(const Refusal*, refusal);
        kit::Operator user;
        makeDefaultsDiffer(user.sdk);
        connectCamera(user);
        user.sdk.answer(refusal->operation, 0);
        user.click("resetParamButtonUser");
        const QStringList accepted = journalOf(resetToOtherDefaults);
        const QStringList expected = with(*refusal, accepted);
        QVERIFY(expected != accepted);
        QCOMPARE(user.journal(), expected);
        QCOMPARE(user.newLog(), linesOf(expected));
        compareWidgetsWithOtherDefaults(user);
    }

    void aRefusedFrameRateIsAskedForAgainAndEndsTheTestPattern()
    {
        kit::Operator user;
        makeDefaultsDiffer(user.sdk);
        connectCamera(user);
        user.sdk.answer("camera.setFrameRate", 0);
        user.click("resetParamButtonUser");
        QCOMPARE(user.journal(), withRefusedFrameRate(journalOf(resetToOtherDefaults)));
        compareWidgetsWithOtherDefaults(user);
    }

    void aCameraThatRefusesEverythingIsStillAskedForAllAndTheSdkStillSaves()
    {
        kit::Operator user;
        makeDefaultsDiffer(user.sdk);
        connectCamera(user);
        user.sdk.answerEveryCommand(0);
        user.click("resetParamButtonUser");
        QStringList expected = withRefusedFrameRate(journalOf(resetToOtherDefaults));
        for (const Refusal& refusal : refusals) {
            expected = with(refusal, expected);
        }
        QCOMPARE(expected.filter(QStringLiteral(" OK")), QStringList());
        QCOMPARE(user.journal(), expected);
        QCOMPARE(user.newLog(), linesOf(expected));
        QCOMPARE(user.sdk.count("sdk.saveConfiguration"), 1);
        compareWidgetsWithOtherDefaults(user);
    }
};

TAVREL_TEST_MAIN(TestResetSequence)
#include "tst_reset_sequence.moc"
