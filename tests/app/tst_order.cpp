// SPDX-License-Identifier: MIT
// What comes before what, when an operator works the window: widgets that change, boxes, calls, log
// lines, files and the timer. The switches and the long sequences of a read and a reset have their
// order in the tests of their own.
#include "tests/bpr/tablefiles.h"
#include "tests/kit/sequence.h"
#include "tests/params/switchrows.h"

#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSlider>
#include <QtWidgets/QSpinBox>

namespace {

using kit::block;
using kit::Sequence;

/// A connected window with the Expert tab, on which nothing has the keyboard.
void connectCamera(kit::Operator& user)
{
    user.sdk.configuration.expertMode = 1;
    ombrix_sdk::ISdkConfiguration& limits = user.sdk.configurationObject();
    limits.gskMax = limits.gfidMax = limits.gmsMax = limits.tintMax = 1000;
    user.connectCamera();
    user.rest();
}

/// The lines with the names of the map files as the tool shows them.
QStringList withPaths(const QStringList& lines)
{
    QStringList result = lines;
    result.replaceInStrings(QStringLiteral("WORKING"), tablefiles::full(tablefiles::working()));
    result.replaceInStrings(QStringLiteral("BACKUP"), tablefiles::full(tablefiles::backup()));
    return result;
}

QStringList disconnection()
{
    return block(R"(
        link.closeCamera(camera 1)
        timer stopped
        sdk.releaseSerialLink(link 1)
        scanDeviceButton enabled true
        selectDeviceComboBox enabled true
        connectDeviceButton enabled true
        disconnectDeviceButton enabled false
        resetParamButtonUser enabled false
        readParamButtonUser enabled false
        tabWidget enabled false
    )");
}

} // namespace

class TestOrder : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // ---- link

    void aScanFillsTheListAndThenUnlocksIt()
    {
        kit::Operator user;
        user.start();
        user.widget("selectDeviceComboBox").setEnabled(false);
        user.ports.plug(QStringLiteral("ttyUSB0"));
        Sequence sequence(user);
        user.click("scanDeviceButton");
        QCOMPARE(sequence.take(), block(R"(
            selectDeviceComboBox count 1
            selectDeviceComboBox currentIndex 0
            connectDeviceButton enabled true
            selectDeviceComboBox enabled true
        )"));
        user.ports.unplug(QStringLiteral("ttyUSB0"));
        user.expectBox(
            {kit::Box::Warning, "", "No COM port found!\nPlease, plug a COM port ans scan again."});
        user.click("scanDeviceButton");
        QCOMPARE(sequence.take(), block(R"(
            selectDeviceComboBox count 0
            selectDeviceComboBox currentIndex -1
            box "" / "No COM port found! / Please, plug a COM port ans scan again."
            box closed
        )"));
    }

    void aConnectionLocksTheBarOnceItHasReadAndThenSetsUpTheExpertTab()
    {
        kit::Operator user;
        user.sdk.configuration.expertMode = 1;
        ombrix_sdk::ISdkConfiguration& limits = user.sdk.configurationObject();
        limits.gskMin = limits.gfidMin = limits.gmsMin = limits.tintMin = 1;
        limits.gskMax = limits.gfidMax = limits.gmsMax = limits.tintMax = 1000;
        limits.gskValue = limits.gfidValue = limits.gmsValue = limits.tintValue = 7;
        user.start();
        user.ports.plug(QStringLiteral("ttyUSB0"));
        user.click("scanDeviceButton");
        Sequence sequence(user);
        user.click("connectDeviceButton");
        QStringList all = sequence.take();
        const auto start = all.indexOf(QStringLiteral("log 2: Start reading camera parameters"));
        const auto end = all.indexOf(QStringLiteral("log 2: End reading camera parameters"));
        QVERIFY(start > 0 && end > start);
        QCOMPARE(QStringList(all.mid(0, start)), block(R"(
            sdk.getConfiguration()
            config.getCommunicationType()
            log 2: ALTERNATIVE SERIAL PORT : ttyUSB0
            sdk.createSerialLink()
            link.openCamera("ttyUSB0")
            camera.connect(context)
        )"));
        const auto expert =
            all.indexOf(QStringLiteral("log 2: Start reading camera expert parameters"));
        QCOMPARE(QStringList(all.mid(end + 1, expert - end - 1)), block(R"(
            scanDeviceButton enabled false
            selectDeviceComboBox enabled false
            connectDeviceButton enabled false
            disconnectDeviceButton enabled true
            resetParamButtonUser enabled true
            readParamButtonUser enabled true
            tabWidget enabled true
            timer started, 1000 ms
            sdk.getConfiguration()
            sdk.getConfiguration()
            config.isExpertModeEnabled()
        )"));
    }

    void aCameraThatRefusesTheConnectionIsLoggedAndThenGivenBack()
    {
        kit::Operator user;
        user.start();
        user.ports.plug(QStringLiteral("ttyUSB0"));
        user.click("scanDeviceButton");
        user.sdk.answer("camera.connect", 2);
        user.widget("scanDeviceButton").setEnabled(true);
        Sequence sequence(user);
        user.click("connectDeviceButton");
        QCOMPARE(sequence.take(), block(R"(
            sdk.getConfiguration()
            config.getCommunicationType()
            log 2: ALTERNATIVE SERIAL PORT : ttyUSB0
            sdk.createSerialLink()
            link.openCamera("ttyUSB0")
            camera.connect(context)
            log 2: No camera connected
            link.closeCamera(camera 1)
            sdk.releaseSerialLink(link 1)
        )"));
    }

    void theExpertTabGetsEachRangeBeforeItsValue()
    {
        kit::Operator user;
        connectCamera(user);
        ombrix_sdk::ISdkConfiguration& limits = user.sdk.configurationObject();
        limits.gskMin = limits.gfidMin = limits.gmsMin = limits.tintMin = 2000;
        limits.gskMax = limits.gfidMax = limits.gmsMax = limits.tintMax = 3000;
        limits.gskValue = 2001;
        limits.gfidValue = 2002;
        limits.gmsValue = 2003;
        limits.tintValue = 2004;
        user.sdk.camera.gsk = 2001;
        user.sdk.camera.gfid = 2002;
        user.sdk.camera.gms = 2003;
        user.sdk.camera.tint = 2004;
        user.click("disconnectDeviceButton");
        for (const char* const name : {"gsk", "gfid", "gms", "tint"}) {
            auto& slider = user.find<QSlider>(QByteArray(name) + "Slider");
            slider.setEnabled(false);
            slider.setOrientation(Qt::Vertical);
            slider.setTickInterval(7);
            slider.setSingleStep(3);
            slider.setPageStep(4);
            user.find<QDoubleSpinBox>(QByteArray(name) + "Edit").setSingleStep(2);
        }
        Sequence sequence(user);
        user.click("connectDeviceButton");
        const QStringList all = sequence.take();
        const auto start = all.indexOf(QStringLiteral("timer started, 1000 ms"));
        const auto end = all.indexOf(QStringLiteral("config.isExpertModeEnabled()"));
        QCOMPARE(QStringList(all.mid(start + 1, end - start)), block(R"(
            sdk.getConfiguration()
            gskSlider minimum 2000
            gskSlider maximum 3000
            gskSlider value 2000
            gskEdit value 1000
            gskSlider enabled true
            gskSlider singleStep 1
            gskSlider pageStep 10
            gskSlider orientation 1
            gskSlider tickInterval 1
            gskSlider value 2001
            gskEdit minimum 2000
            gskEdit maximum 3000
            gskEdit value 2000
            gskSlider value 2000
            gskEdit value 2001
            gskSlider value 2001
            gskEdit singleStep 1
            gfidSlider minimum 2000
            gfidSlider maximum 3000
            gfidSlider value 2000
            gfidEdit value 1000
            gfidSlider enabled true
            gfidSlider singleStep 1
            gfidSlider pageStep 10
            gfidSlider orientation 1
            gfidSlider tickInterval 1
            gfidSlider value 2002
            gfidEdit minimum 2000
            gfidEdit maximum 3000
            gfidEdit value 2000
            gfidSlider value 2000
            gfidEdit value 2002
            gfidSlider value 2002
            gfidEdit singleStep 1
            gmsSlider minimum 2000
            gmsSlider maximum 3000
            gmsSlider value 2000
            gmsEdit value 2000
            gmsSlider enabled true
            gmsSlider singleStep 1
            gmsSlider pageStep 10
            gmsSlider orientation 1
            gmsSlider value 2003
            gmsSlider tickInterval 1
            gmsEdit value 2003
            gmsEdit singleStep 1
            tintSlider minimum 2000
            tintSlider maximum 3000
            tintSlider value 2000
            tintEdit value 1000
            tintSlider enabled true
            tintSlider singleStep 1
            tintSlider pageStep 10
            tintSlider orientation 1
            tintSlider tickInterval 1
            tintSlider value 2004
            tintEdit minimum 2000
            tintEdit maximum 3000
            tintEdit value 2000
            tintSlider value 2000
            tintEdit value 2004
            tintSlider value 2004
            tintEdit singleStep 1
            sdk.getConfiguration()
            config.isExpertModeEnabled()
        )"));
    }

    void aDisconnectionClosesTheCameraStopsTheTimerAndGivesTheLinkBack()
    {
        kit::Operator user;
        connectCamera(user);
        Sequence sequence(user);
        user.click("disconnectDeviceButton");
        QCOMPARE(sequence.take(), disconnection());
    }

    void aPortThatIsGoneDisconnectsAndThenScans()
    {
        kit::Operator user;
        connectCamera(user);
        user.ports.plug(QStringLiteral("ttyUSB1"));
        user.ports.unplug(QStringLiteral("ttyUSB0"));
        Sequence sequence(user);
        QVERIFY(QMetaObject::invokeMethod(&user.window(), "monitoringSystem"));
        QCOMPARE(sequence.take(), disconnection() + block(R"(
            selectDeviceComboBox count 0
            selectDeviceComboBox currentIndex -1
            selectDeviceComboBox count 1
            selectDeviceComboBox currentIndex 0
        )"));
    }

    void theTemperaturesAreAskedForAndShownOneAfterTheOther()
    {
        kit::Operator user;
        connectCamera(user);
        Sequence sequence(user);
        user.sdk.camera.temperatures = {300000.0F, 320000.0F};
        QVERIFY(QMetaObject::invokeMethod(&user.window(), "getTemperature"));
        QCOMPARE(sequence.take(), block(R"(
            camera.getTemperatures()
            FpgaTempTextEdit text
            FpgaTempTextEdit text 47 C
            SensorTempTextEdit text
            SensorTempTextEdit text 27 C
        )"));
        user.sdk.answer("camera.getTemperatures", 0);
        QVERIFY(QMetaObject::invokeMethod(&user.window(), "getTemperature"));
        QCOMPARE(sequence.take(), block(R"(
            camera.getTemperatures()
            timer stopped
        )"));
    }

    void theCamerasBaudRateIsSentAndThenLogged()
    {
        kit::Operator user;
        connectCamera(user);
        Sequence sequence(user);
        user.click("PermanentButton");
        user.click("applyBaudrateBP");
        QCOMPARE(sequence.take(), block(R"(
            PermanentButton checked true
            PermanentButton text Permanent
            camera.setBaudRate(115200, true)
            log 2: Set baud rate value OK
        )"));
    }

    // ---- NUC and shutter

    void anAcceptedNucMarksTheButtonAndIsThenLogged_data() { addNucs(); }
    void anAcceptedNucMarksTheButtonAndIsThenLogged()
    {
        QFETCH(QByteArray, button);
        QFETCH(QString, call);
        kit::Operator user;
        connectCamera(user);
        user.sdk.camera.shutterClosed = 1;
        Sequence sequence(user);
        user.click(button);
        QStringList expected = QStringList(call) + block(R"(
            nucEnablingButton checked true
            nucEnablingButton text NUC: Activated
            log 2: NUC applied
        )");
        if (button == "autoNucPB") {
            expected += shutterReadBack();
        }
        QCOMPARE(sequence.take(), expected);
    }

    void aRefusedNucIsToldInABoxAndChangesNothing_data() { addNucs(); }
    void aRefusedNucIsToldInABoxAndChangesNothing()
    {
        QFETCH(QByteArray, button);
        QFETCH(QString, call);
        kit::Operator user;
        connectCamera(user);
        user.sdk.camera.shutterClosed = 1;
        user.sdk.answer("camera.requestNuc", 0);
        user.expectBox({kit::Box::Warning, "", "Error on processing the NUC request"});
        Sequence sequence(user);
        user.click(button);
        QStringList expected = QStringList(call) + block(R"(
            box "" / "Error on processing the NUC request"
            box closed
        )");
        if (button == "autoNucPB") {
            expected += shutterReadBack();
        }
        QCOMPARE(sequence.take(), expected);
    }

    void anAcceptedShutterTurnsTheCaptionAndIsThenLogged()
    {
        kit::Operator user;
        connectCamera(user);
        Sequence sequence(user);
        user.click("shutterCtrlPB");
        QCOMPARE(sequence.take(), block(R"(
            shutterCtrlPB checked true
            camera.setShutterPosition(true)
            shutterCtrlPB text Shutter closed
            log 2: Set shutter position OK
        )"));
    }

    void aRefusedShutterIsLoggedAndThenShownAsOpen()
    {
        kit::Operator user;
        connectCamera(user);
        user.sdk.answer("camera.setShutterPosition", 0);
        Sequence sequence(user);
        user.click("shutterCtrlPB");
        QCOMPARE(sequence.take(), block(R"(
            shutterCtrlPB checked true
            camera.setShutterPosition(true)
            log 2: Set shutter position KO
            shutterCtrlPB checked false
        )"));
    }

    // ---- values, regions, lists

    void aTypedValueMovesItsSliderAndIsThenSentAndLogged()
    {
        kit::Operator user;
        connectCamera(user);
        Sequence sequence(user);
        user.type("gammaEdit", "1.3");
        QCOMPARE(sequence.take(), block(R"(
            gammaEdit value 1.3
            gammaSlider value 8
            camera.setGamma(85196)
            log 2: Set GAMMA value OK
        )"));
    }

    void aSliderMovesItsSpinBoxAndSendsWhenItIsLetGo()
    {
        kit::Operator user;
        connectCamera(user);
        Sequence sequence(user);
        user.press("TempoFilterSlider", Qt::Key_Right);
        QCOMPARE(sequence.take(), block(R"(
            TempoFilterSlider value 4
            TempoFilterSpin value 4
        )"));
        user.dragAndRelease("TempoFilterSlider", 4);
        QCOMPARE(sequence.take(), block(R"(
            camera.setLutTemporalFilter(4)
            log 2: Set LUT TEMPORAL FILTER value OK
        )"));
    }

    void aBrokenRuleOfARegionIsCorrectedToldAndThenSentAsItWas()
    {
        kit::Operator user;
        user.sdk.camera.regions[0] = {5, 400, 5, 400};
        connectCamera(user);
        user.expectBox({.title = "ROI", .text = "ROI 0 X1 must be lower than ROI X2"});
        Sequence sequence(user);
        user.find<QSpinBox>("Roi0IncX1").setValue(500);
        sequence.take();
        QVERIFY(QMetaObject::invokeMethod(&user.window(), "x1RoiUserValueChanged", Q_ARG(int, 0)));
        QCOMPARE(sequence.take(), block(R"(
            Roi0IncX1 value 400
            box "ROI" / "ROI 0 X1 must be lower than ROI X2"
            box closed
            camera.setRoiX1(500, 0, false, false, false)
            log 2: Set ROI 0 X1 value OK
        )"));
    }

    void anotherFrameRateIsSentLoggedAndThenEndsTheTestPattern_data()
    {
        QTest::addColumn<bool>("accepted");
        QTest::newRow("accepted") << true;
        QTest::newRow("refused") << false;
    }

    void anotherFrameRateIsSentLoggedAndThenEndsTheTestPattern()
    {
        QFETCH(bool, accepted);
        kit::Operator user;
        user.sdk.camera.testPattern = 1;
        connectCamera(user);
        user.sdk.answer("camera.setFrameRate", accepted ? 1 : 0);
        Sequence sequence(user);
        user.choose("frameRateCB", "60Hz");
        QCOMPARE(sequence.take(), (QStringList{QStringLiteral("frameRateCB currentIndex 4"),
                                               QStringLiteral("camera.getFrameRate()"),
                                               QStringLiteral("camera.setFrameRate(60)"),
                                               QStringLiteral("log 2: Set FRAME RATE value ") +
                                                   QLatin1String(accepted ? "OK" : "KO")}) +
                                      block(R"(
            TestPatternButton checked false
            TestPatternButton text Test Pattern: Deactivated
        )"));
    }

    // ---- the Expert tab

    void anExpertReadShowsEachValueBeforeItIsLogged()
    {
        kit::Operator user;
        connectCamera(user);
        recording::CameraState& camera = user.sdk.camera;
        camera.gsk = 3;
        camera.gfid = 77;
        camera.gms = 4000; // more than its slider can show
        camera.tint = 13;
        camera.bprCorrection = camera.offsetCorrection = camera.gainCorrection = 1;
        camera.verticalFlip = 1;
        pairrows::change(camera);
        Sequence sequence(user);
        user.click("readParamButtonExpert");
        QCOMPARE(sequence.take(), block(R"(
            log 2: Start reading camera expert parameters
            sdk.getConfiguration()
            camera.getGsk()
            gskSlider value 3
            gskEdit value 3
            log 2: GSK value = 3
            camera.getGfid()
            gfidSlider value 77
            gfidEdit value 77
            log 2: GFID value = 77
            camera.getGms()
            gmsSlider value 1000
            gmsEdit value 1000
            gmsEdit value 4000
            log 2: GMS value = 4000
            camera.getTint()
            tintSlider value 13
            tintEdit value 13
            log 2: TINT value = 13
        )") + switchrows::readOf(switchrows::expert, camera) +
                                      block(R"(
            log 2: End reading camera expert parameters
        )"));
    }

    void anExpertApplyTurnsEachCaptionBeforeItsLine()
    {
        kit::Operator user;
        connectCamera(user);
        for (const char* const button : {"enableBprPB", "enableOffsetPB", "enableGainPB"}) {
            user.find<QPushButton>(button).setChecked(true);
        }
        user.sdk.answer("camera.setBaudRate", 0);
        user.expectBox({kit::Box::Warning, "", "Problem transmitting expert parameters values\n"});
        Sequence sequence(user);
        QVERIFY(QMetaObject::invokeMethod(&user.window(), "ApplyParamsExpert"));
        QCOMPARE(sequence.take(), block(R"(
            log 2: Start applying camera expert parameters
            camera.setGsk(2)
            log 2: Set GSK value OK
            camera.setGfid(300)
            log 2: Set GFID value OK
            camera.setTint(5)
            log 2: Set TINT value OK
            camera.setGms(40)
            log 2: Set GMS value OK
            camera.setBprCorrection(true)
            enableBprPB text BPR Correction: Activated
            log 2: Set BPR correction value OK
            camera.setOffsetCorrection(true)
            enableOffsetPB text Offset Correction: Activated
            log 2: Set Offset correction value OK
            camera.setGainCorrection(true)
            enableGainPB text Gain Correction: Activated
            log 2: Set Gain correction value OK
            camera.setBaudRate(115200, false)
            log 2: Set Mavlink baud rate value KO
            box "" / "Problem transmitting expert parameters values / "
            box closed
            log 2: End applying camera expert parameters
        )"));
    }

    // ---- the bad pixel table

    void aReadTableIsWrittenBeforeItIsLoggedAndTheTimerRunsAgainAtTheEnd()
    {
        kit::Operator user;
        connectCamera(user);
        Sequence sequence(user);
        user.click("readBPRTableButton");
        QCOMPARE(sequence.take(), withPaths(block(R"(
            timer stopped
            camera.readTableData(4096, 8192, 9)
            camera.getSerialNumber()
            bprBackup/bpr_SN4711.bin written
            log 2: Backup table written to BACKUP
            bpr/bpr_SN4711.bin written
            log 2: Table written to WORKING
            log 2: Table containing : 2 Bad Pixels
            timer started, 1000 ms
        )")));
        user.sdk.answer("camera.readTableData", -3);
        user.expectBox(
            {.title = "BPR table", .text = "BPR table not read correctly (error code = -3)"});
        user.click("readBPRTableButton");
        QCOMPARE(sequence.take(), block(R"-(
            timer stopped
            camera.readTableData(4096, 8192, 9)
            box "BPR table" / "BPR table not read correctly (error code = -3)"
            box closed
            timer started, 1000 ms
        )-"));
    }

    void aWrittenTableIsCountedSentAndThenLogged()
    {
        kit::Operator user;
        connectCamera(user);
        tablefiles::put(tablefiles::backup(), tablefiles::mapOf({5, 7}));
        user.sdk.camera.replacements.resize(2);
        user.sdk.camera.replacementTable = std::vector<std::uint8_t>(16, 1);
        Sequence sequence(user);
        user.click("writeBPRTableButton");
        QCOMPARE(sequence.take(), withPaths(block(R"(
            timer stopped
            camera.getSerialNumber()
            bpr/bpr_SN4711.bin written
            camera.loadBadPixelList("WORKING", 480, 640)
            log 2: Bad pixels found 2 < 1024
            camera.writeTableData(4096, 8192, 8)
            log 2: BPR table WORKING correctly written.
            timer started, 1000 ms
        )")));
        user.sdk.answer("camera.writeTableData", 0);
        user.expectBox({.title = "BP table", .text = "BP table not written correctly"});
        user.click("writeBPRTableButton");
        QCOMPARE(sequence.take(), withPaths(block(R"(
            timer stopped
            camera.getSerialNumber()
            camera.loadBadPixelList("WORKING", 480, 640)
            log 2: Bad pixels found 2 < 1024
            camera.writeTableData(4096, 8192, 8)
            box "BP table" / "BP table not written correctly"
            box closed
            timer started, 1000 ms
        )")));
    }

    void aResetTableIsPutInPlaceBeforeItIsLogged()
    {
        kit::Operator user;
        connectCamera(user);
        tablefiles::put(tablefiles::backup(), tablefiles::mapOf({5, 7}));
        Sequence sequence(user);
        user.click("resetBPRTableButton");
        QCOMPARE(sequence.take(), block(R"(
            camera.getSerialNumber()
            bpr/bpr_SN4711.bin written
            log 2: BP table reset succeed.
        )"));
    }

    void anEditIsMadeInTheWorkingCopyBeforeItIsLogged()
    {
        kit::Operator user;
        connectCamera(user);
        tablefiles::put(tablefiles::backup(), tablefiles::mapOf({5, 7}));
        Sequence sequence(user);
        user.click("addBadPixelButton");
        QCOMPARE(sequence.take(), withPaths(block(R"(
            camera.getSerialNumber()
            bpr/bpr_SN4711.bin written
            camera.addBadPixels("WORKING", 0, 0)
            log 2: Pixel X:0 Y: 0 correctly added.
        )")));
    }

private:
    static void addNucs()
    {
        QTest::addColumn<QByteArray>("button");
        QTest::addColumn<QString>("call");
        QTest::newRow("the user's")
            << QByteArray("userNucRequest") << QStringLiteral("camera.requestNuc(0)");
        QTest::newRow("automatic")
            << QByteArray("autoNucPB") << QStringLiteral("camera.requestNuc(1)");
    }

    static QStringList shutterReadBack()
    {
        return block(R"(
            camera.getShutterPosition()
            shutterCtrlPB checked true
            shutterCtrlPB text Shutter closed
            log 2: Shutter closed
        )");
    }
};

TAVREL_TEST_MAIN(TestOrder)
#include "tst_order.moc"
