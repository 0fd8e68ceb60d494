// SPDX-License-Identifier: MIT
// The read as a whole: what the camera is asked, what is sent back to it and what is logged, in
// order; and the reads that end early.
#include "tests/kit/sequence.h"
#include "tests/params/switchrows.h"

#include <QtCore/QTimer>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QPushButton>

#include <algorithm>
#include <locale>

namespace {

/// A camera of which every value differs from every other and from what the form starts with.
recording::CameraState busyCamera()
{
    recording::CameraState camera;
    camera.versions = 0x32040123;
    camera.serialNumber = 123456789;
    camera.sensorSerialNumber = 4294967295;
    camera.operatingTime = {1234567, 89012};
    camera.vignettingCorrection = 1;
    camera.columnCorrection = 0;
    camera.nucControl = 1;
    camera.testPattern = 1;
    camera.bt656SdiOutput = 0;
    camera.parallelOutput = 1;
    camera.mipiOutput = 0;
    camera.videoOutput = 8;
    camera.frameRate = 60;
    camera.polarity = 1;
    camera.regions = {
        {{11, 611, 12, 412}, {21, 521, 22, 322}, {0, 431, 32, 232}, {41, 341, 42, 142}}};
    camera.colorLut = 3;
    camera.contrastType = 1;
    camera.ahcGains = {61, 72};
    camera.zoom = {2.5F, 101, 202, 1};
    camera.zoomResolution = {800, 600};
    camera.horizontalFlip = 1;
    camera.edgeCorrection = {2, 33, 44, 30};
    camera.shutterClosed = 1;
    pairrows::change(camera);
    return camera;
}

const char* const notConnected = "Camera not connected";

} // namespace

class TestReadSequence : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aReadAsksSendsAndLogsInOrder()
    {
        kit::Operator user;
        user.connectCamera();
        user.sdk.camera = busyCamera();
        kit::Sequence sequence(user);
        user.click("readParamButtonUser");
        // What stands in a combo box is sent back from within the change of its index, so that line
        // comes before the line of the read; an edge correction takes along the gain and the
        // threshold that stood in the spin boxes before the read.
        QCOMPARE(sequence.take(), kit::block(R"(
            log 2: Start reading camera parameters
            camera.getVersions()
            camera.refresh()
            log 2: RISC-V version = 1.2.3 / FPGA version = 2.0.4 MIPI 9Hz
            camera.getSerialNumber()
            log 2: Serial number = 123456789
            camera.getSensorSerialNumber()
            log 2: Sensor serial number = 4294967295
            camera.getOperatingTime()
            log 2: Operating time = 1234567 min
            log 2: Startup number = 89012
        )") + switchrows::readOf(switchrows::imageProcessing, busyCamera()) +
                                      kit::block(R"(
            camera.getVideoOutput()
            VideoOutputCB currentIndex 8
            camera.setVideoOutput(8)
            log 2: Set VIDEO OUTPUT value OK
            log 2: Video output = BT656
            camera.getFrameRate()
            frameRateCB currentIndex 4
            camera.getFrameRate()
            log 2: Frame rate = 60Hz
        )") + switchrows::readOf(switchrows::lut, busyCamera()) +
                                      kit::block(R"(
            camera.getRoiX1(0)
            camera.getRoiY1(0)
            camera.getRoiX2(0)
            camera.getRoiY2(0)
            camera.getRoiX1(1)
            camera.getRoiY1(1)
            camera.getRoiX2(1)
            camera.getRoiY2(1)
            camera.getRoiX1(2)
            camera.getRoiY1(2)
            camera.getRoiX2(2)
            camera.getRoiY2(2)
            camera.getRoiX1(3)
            camera.getRoiY1(3)
            camera.getRoiX2(3)
            camera.getRoiY2(3)
            Roi0IncX1 value 11
            log 2: ROI0 inclusive X1 value = 11
            Roi0IncY1 value 12
            log 2: ROI0 inclusive Y1 value = 12
            Roi0IncX2 value 611
            log 2: ROI0 inclusive X2 value = 611
            Roi0IncY2 value 412
            log 2: ROI0 inclusive Y2 value = 412
            Roi0ExcX1 enabled true
            roi0ExcEnable checked true
            Roi0ExcX2 enabled true
            Roi0ExcY1 enabled true
            Roi0ExcY2 enabled true
            Roi0ExcX1 value 21
            log 2: ROI0 exclusive X1 value = 21
            Roi0ExcY1 value 22
            log 2: ROI0 exclusive Y1 value = 22
            Roi0ExcX2 value 521
            log 2: ROI0 exclusive X2 value = 521
            Roi0ExcY2 value 322
            log 2: ROI0 exclusive Y2 value = 322
            log 2: ROI1 inclusive X1 value = 0
            Roi1IncY1 value 32
            log 2: ROI1 inclusive Y1 value = 32
            Roi1IncX2 value 431
            log 2: ROI1 inclusive X2 value = 431
            Roi1IncY2 value 232
            log 2: ROI1 inclusive Y2 value = 232
            Roi1ExcX1 enabled true
            roi1ExcEnable checked true
            Roi1ExcX2 enabled true
            Roi1ExcY1 enabled true
            Roi1ExcY2 enabled true
            Roi1ExcX1 value 41
            log 2: ROI1 exclusive X1 value = 41
            Roi1ExcY1 value 42
            log 2: ROI1 exclusive Y1 value = 42
            Roi1ExcX2 value 341
            log 2: ROI1 exclusive X2 value = 341
            Roi1ExcY2 value 142
            log 2: ROI1 exclusive Y2 value = 142
        )") + pairrows::readOf(pairrows::contrast) +
                                      kit::block(R"(
            camera.getColorLut()
            lutColorEdit currentIndex 3
            camera.setColorLut(3)
            log 2: Set COLOR LUT value OK
            log 2: Color Lut = RAINBOW
            camera.getContrastType()
            contrastTypeEdit currentIndex 1
            camera.configureContrastType(1)
            log 2: Configure contrast type OK
            log 2: Contrast type = CLAHE (LOCAL)
        )") + pairrows::readOf(pairrows::filter) +
                                      kit::block(R"(
            camera.getAhcGainsLimitation()
            AhcBlackGainLimSpin value 61
            AhcBlackGainLimSlider value 61
            AhcWhiteGainLimSpin value 72
            AhcWhiteGainLimSlider value 72
            log 2: AHC black gain limitation = 61
            log 2: AHC white gain limitation = 72
            camera.getTemperatures()
            FpgaTempTextEdit text
            FpgaTempTextEdit text 37.5 C
            SensorTempTextEdit text
            SensorTempTextEdit text 25 C
            camera.getZoom()
            factorZoomEdit value 2.5
            methodZoomEdit currentIndex 1
            xCenterZoomEdit value 101
            yCenterZoomEdit value 202
            log 2: ZOOM factor value = 2.5
            camera.getZoomResolution()
            xResolutionZoomEdit value 800
            log 2: X zoom resolution = 800
            yResolutionZoomEdit value 600
            log 2: Y zoom resolution = 600
        )") + switchrows::readOf(switchrows::zoom, busyCamera()) +
                                      kit::block(R"(
            camera.getEdgeCorrection()
            EdgeCorrectionCB currentIndex 2
            camera.configureEdgeCorrection(2, 10, 20)
            log 2: Configure EDGE CORRECTION OK
            sharpeningGainSlider value 330
            sharpeningGainEdit value 33
            SharpeningTHSlider value 440
            SharpeningTHEdit value 44
            camera.getShutterPosition()
            shutterCtrlPB checked true
            shutterCtrlPB text Shutter closed
            log 2: Shutter closed
            log 2: Correction type = 2 / Correction gain = 33 / First threshold = 4294967286 / Second threshold = 30
            log 2: End reading camera parameters
        )"));
    }

    void thePaneShowsTheLinesThatTheSdkLogGets()
    {
        kit::Operator user;
        user.connectCamera();
        user.sdk.camera = busyCamera();
        user.click("readParamButtonUser");
        QStringList records;
        for (const recording::LogRecord& record : user.sdk.records()) {
            records.append(QString::fromStdString(record.text));
        }
        QCOMPARE(user.newLog(), records.join(QLatin1Char('\n')).split(QLatin1Char('\n')));
        QCOMPARE(records.filter(QStringLiteral("version =")).size(), 1);
        QCOMPARE(records.filter(QStringLiteral("threshold =")).size(), 1);
    }

    void theReadOfAConnectionLogsTheSameAsTheReadButton()
    {
        kit::Operator user;
        user.sdk.camera = busyCamera();
        // Without values of its own to send back, the button's read repeats the connection's.
        user.sdk.camera.videoOutput = 0;
        user.sdk.camera.colorLut = 0;
        user.sdk.camera.contrastType = 0;
        user.sdk.camera.edgeCorrection.type = 0;
        user.connectCamera();
        QStringList atConnection = user.log();
        atConnection = atConnection.mid(
            atConnection.indexOf(QStringLiteral("Start reading camera parameters")));
        user.click("readParamButtonUser");
        QCOMPARE(user.newLog(), atConnection);
    }

    void aSecondReadSendsNothingBack()
    {
        kit::Operator user;
        user.sdk.camera = busyCamera();
        user.connectCamera();
        user.click("readParamButtonUser");
        QCOMPARE(user.calls(), kit::lines({"camera.refresh()"}));
    }

    void aCameraThatRefusesWhatIsSentBackIsReadToTheEnd()
    {
        kit::Operator user;
        user.connectCamera();
        user.sdk.camera = busyCamera();
        user.sdk.answerEveryCommand(0);
        user.click("readParamButtonUser");
        QCOMPARE(user.newLog().filter(QStringLiteral("KO")),
                 kit::lines({"Set VIDEO OUTPUT value KO", "Set COLOR LUT value KO",
                             "Configure contrast type KO", "Configure EDGE CORRECTION KO"}));
        QCOMPARE(user.newLog().last(), QStringLiteral("End reading camera parameters"));
    }

    void allRegionsAreAskedForBeforeAnyIsShown()
    {
        kit::Operator user;
        user.connectCamera();
        const auto fields = [&user] {
            QStringList texts;
            for (const char* const region : {"Roi0Inc", "Roi0Exc", "Roi1Inc", "Roi1Exc"}) {
                for (const char* const coordinate : {"X1", "X2", "Y1", "Y2"}) {
                    texts.append(user.text(QByteArray(region) + coordinate));
                }
            }
            return texts.join(QLatin1Char(' '));
        };
        const QString before = fields();
        user.sdk.camera = busyCamera();
        QStringList shown;
        user.sdk.whenCalled("camera.getRoiY2", [&] { shown.append(fields()); });
        user.click("readParamButtonUser");
        QCOMPARE(shown, (QStringList{before, before, before, before}));
        QCOMPARE(user.text("Roi0IncX1"), QStringLiteral("11"));
    }

    void numbersAreLoggedAlikeInEveryLocale()
    {
        struct Grouping : std::numpunct<char> {
            char do_thousands_sep() const override { return '\''; }
            char do_decimal_point() const override { return ','; }
            std::string do_grouping() const override { return "\3"; }
        };
        kit::Operator user;
        user.connectCamera();
        user.sdk.camera = busyCamera();
        const std::locale previous =
            std::locale::global(std::locale(std::locale::classic(), new Grouping));
        user.click("readParamButtonUser");
        std::locale::global(previous);
        const QStringList log = user.newLog();
        QVERIFY(log.contains(QStringLiteral("Serial number = 123456789")));
        QVERIFY(log.contains(QStringLiteral("Gamma value = 2.2")));
        QVERIFY(log.contains(QStringLiteral("CLHE value = 7000")));
        QVERIFY(log.contains(QStringLiteral("ZOOM factor value = 2.5")));
    }

    void aCameraThatDoesNotAnswerEndsTheReadWithABox_data()
    {
        QTest::addColumn<bool>("withheld");
        QTest::newRow("both versions are 0") << false;
        QTest::newRow("no version is written") << true;
    }

    void aCameraThatDoesNotAnswerEndsTheReadWithABox()
    {
        QFETCH(bool, withheld);
        kit::Operator user;
        user.connectCamera();
        user.sdk.camera = busyCamera();
        if (withheld) {
            user.sdk.withholdOutput("camera.getVersions");
        } else {
            user.sdk.camera.versions = 0;
        }
        const QString gamma = user.text("gammaEdit");
        const QString caption = user.text("VignettingCorrectionButton");
        QStringList logAtTheBox;
        user.expectBox({.title = notConnected,
                        .text = "Unable to connect to ttyUSB0",
                        .whileOpen = [&](QDialog&) {
                            logAtTheBox = user.newLog();
                        }});
        user.click("readParamButtonUser");
        QCOMPARE(user.boxesAwaited(), 0);
        QCOMPARE(logAtTheBox, kit::lines({"Start reading camera parameters"}));
        QCOMPARE(user.newLog(), kit::lines({"Start reading camera parameters",
                                            "End Read camera parameters : COM Error"}));
        QStringList calls = user.calls(recording::Show::Everything);
        // The monitoring may have ticked behind the box.
        calls.removeAll(QStringLiteral("camera.getTemperatures()"));
        calls.removeAll(QStringLiteral("OmbrixSdk.get_instance()"));
        QCOMPARE(calls, kit::lines({"camera.getVersions()"}));
        QCOMPARE(user.text("gammaEdit"), gamma);
        QCOMPARE(user.text("VignettingCorrectionButton"), caption);
    }

    void oneVersionThatIsNotZeroIsAnAnswer_data()
    {
        QTest::addColumn<quint32>("versions");
        QTest::newRow("the processor's") << quint32{0x00000001};
        QTest::newRow("the FPGA's") << quint32{0x00010000};
    }

    void oneVersionThatIsNotZeroIsAnAnswer()
    {
        QFETCH(quint32, versions);
        kit::Operator user;
        user.connectCamera();
        user.sdk.camera.versions = versions;
        user.click("readParamButtonUser");
        QCOMPARE(user.newLog().last(), QStringLiteral("End reading camera parameters"));
    }

    // The button is locked then; the read guards itself as well.
    void withoutACameraAReadOnlyShowsABox_data()
    {
        QTest::addColumn<bool>("triedToConnect");
        QTest::addColumn<QString>("text");
        QTest::newRow("never connected") << false << QStringLiteral("Unable to connect to ");
        QTest::newRow("nothing on the port")
            << true << QStringLiteral("Unable to connect to ttyUSB0");
    }

    void withoutACameraAReadOnlyShowsABox()
    {
        QFETCH(bool, triedToConnect);
        QFETCH(QString, text);
        kit::Operator user;
        if (triedToConnect) {
            user.sdk.answer("link.openCamera", 0);
            user.ports.plug(QStringLiteral("ttyUSB0"));
            user.click("scanDeviceButton");
            user.expectBox(
                {.title = "Invalid communication", .text = "Select an other serial port"});
            user.click("connectDeviceButton");
        }
        user.find<QPushButton>("readParamButtonUser").setEnabled(true);
        user.forget();
        user.expectBox({.title = notConnected, .text = text.toStdString()});
        user.click("readParamButtonUser");
        QCOMPARE(user.boxesAwaited(), 0);
        QCOMPARE(user.calls(recording::Show::Everything), QStringList());
        QCOMPARE(user.newLog(), QStringList());
    }

    void aReadThatFailsInTheMiddleGoesOnToTheEnd_data()
    {
        QTest::addColumn<QByteArray>("operation");
        QTest::addColumn<QString>("line");
        const auto add = [](const char* name, const char* operation, const char* line) {
            QTest::newRow(name) << QByteArray(operation) << line;
        };
        add("operating time", "camera.getOperatingTime", "Operating time = 0 min");
        add("start-ups", "camera.getOperatingTime", "Startup number = 0");
        add("zoom", "camera.getZoom", "ZOOM factor value = 0");
        add("x resolution", "camera.getZoomResolution", "X zoom resolution = 0");
        add("y resolution", "camera.getZoomResolution", "Y zoom resolution = 0");
        add("AHC limits", "camera.getAhcGainsLimitation", "AHC gain limitation read error");
        add("shutter", "camera.getShutterPosition", "Unable to get shutter position");
        add("temperatures", "camera.getTemperatures", "ZOOM factor value = 2.5");
    }

    // What the camera did not fill in counts as zero, never as what happened to be in memory.
    void aReadThatFailsInTheMiddleGoesOnToTheEnd()
    {
        QFETCH(QByteArray, operation);
        QFETCH(QString, line);
        kit::Operator user;
        user.connectCamera();
        user.sdk.camera = busyCamera();
        user.sdk.answer(operation.constData(), 0);
        user.click("readParamButtonUser");
        QVERIFY2(user.newLog().contains(line), qPrintable(user.newLog().join(QLatin1Char('\n'))));
        QCOMPARE(user.newLog().last(), QStringLiteral("End reading camera parameters"));
    }

    void aReadShowsTheTemperatures()
    {
        kit::Operator user;
        user.connectCamera();
        user.sdk.camera.temperatures = {263000.0F, 300123.456F};
        user.click("readParamButtonUser");
        QCOMPARE(user.text("SensorTempTextEdit"), QStringLiteral("-10 C"));
        QCOMPARE(user.text("FpgaTempTextEdit"), QStringLiteral("27.1235 C"));
        QVERIFY(monitoring(user));
    }

    void aReadWithoutTemperaturesKeepsTheOldOnesAndEndsTheMonitoring()
    {
        kit::Operator user;
        user.connectCamera();
        QVERIFY(monitoring(user));
        const QString sensor = user.text("SensorTempTextEdit");
        const QString fpga = user.text("FpgaTempTextEdit");
        user.sdk.camera.temperatures = {263000.0F, 263000.0F};
        user.sdk.answer("camera.getTemperatures", 0);
        user.click("readParamButtonUser");
        QCOMPARE(user.text("SensorTempTextEdit"), sensor);
        QCOMPARE(user.text("FpgaTempTextEdit"), fpga);
        QVERIFY(!monitoring(user));
        QCOMPARE(user.newLog().last(), QStringLiteral("End reading camera parameters"));
    }

private:
    static bool monitoring(kit::Operator& user)
    {
        const auto timers =
            user.window().findChildren<QTimer*>(QString(), Qt::FindDirectChildrenOnly);
        return std::any_of(timers.begin(), timers.end(),
                           [](const QTimer* timer) { return timer->isActive(); });
    }
};

TAVREL_TEST_MAIN(TestReadSequence)
#include "tst_readsequence.moc"
