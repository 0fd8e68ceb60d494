// SPDX-License-Identifier: MIT
// Connecting and disconnecting a camera.
#include "tests/link/connectionstate.h"

#include <QtWidgets/QTabWidget>

#include <algorithm>

namespace {

kit::Box unableToConnectBox(const char* port)
{
    return {.kind = kit::Box::About,
            .title = "Camera not connected",
            .text = std::string("Unable to connect to ") + port};
}

/// Plugs a port, lists it and forgets what that brought.
void findPort(kit::Operator& user)
{
    user.ports.plug(QStringLiteral("ttyUSB0"));
    user.click("scanDeviceButton");
    user.forget();
}

/// Runs a slot of the window by its name, as a program beside the window could.
void invoke(kit::Operator& user, const char* slot)
{
    QVERIFY(QMetaObject::invokeMethod(&user.window(), slot));
}

int numberOfTheLastCallee(kit::Operator& user, const char* operation)
{
    const auto& entries = user.sdk.entries();
    const auto last =
        std::find_if(entries.rbegin(), entries.rend(),
                     [&](const recording::Entry& entry) { return entry.operation == operation; });
    return last == entries.rend() ? 0 : last->object;
}

} // namespace

class TestConnection : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // ---- the way to a connection

    void aConnectionLocksTheBarAndUnlocksTheParameters()
    {
        kit::Operator user;
        findPort(user);
        QCOMPARE(kit::usable(user), kit::portsFound());
        user.click("connectDeviceButton");
        QCOMPARE(kit::usable(user), kit::connected());
        QCOMPARE(user.timer().interval(), 1000);
        QVERIFY(!user.timer().isSingleShot());
    }

    void linkCameraAndAnswerAreAskedForInThisOrder()
    {
        kit::Operator user;
        findPort(user);
        user.click("connectDeviceButton");
        QCOMPARE(user.calls(), kit::lines({"sdk.createSerialLink()", "link.openCamera(\"ttyUSB0\")",
                                           "camera.connect(context)", "camera.refresh()"}));
    }

    void theLinkTypeIsAskedForBeforeALinkIsMade()
    {
        kit::Operator user;
        findPort(user);
        user.click("connectDeviceButton");
        const QStringList calls = user.calls(recording::Show::Everything);
        const auto asked = calls.indexOf(QStringLiteral("config.getCommunicationType()"));
        QVERIFY(asked >= 0);
        QVERIFY(asked < calls.indexOf(QStringLiteral("sdk.createSerialLink()")));
    }

    void theLogTellsThePortAndThenTheParameters()
    {
        kit::Operator user;
        findPort(user);
        user.click("connectDeviceButton");
        const QStringList log = user.newLog();
        QCOMPARE(log.value(0), QStringLiteral("ALTERNATIVE SERIAL PORT : ttyUSB0"));
        QCOMPARE(log.value(1), QStringLiteral("Start reading camera parameters"));
        QCOMPARE(log.last(), QStringLiteral("End reading camera parameters"));
    }

    void thePortOfTheListIsTheOneThatIsOpened()
    {
        kit::Operator user;
        user.ports.plug(QStringLiteral("ttyUSB0"));
        user.ports.plug(QStringLiteral("ttyUSB1"));
        user.click("scanDeviceButton");
        user.choose("selectDeviceComboBox", "ttyUSB1");
        user.click("connectDeviceButton");
        QVERIFY(user.calls().contains(QStringLiteral("link.openCamera(\"ttyUSB1\")")));
        QVERIFY(user.log().contains(QStringLiteral("ALTERNATIVE SERIAL PORT : ttyUSB1")));
    }

    void theBarIsLockedOnlyAfterTheParametersWereRead()
    {
        kit::Operator user;
        findPort(user);
        QStringList inTheMiddle;
        user.sdk.whenCalled("camera.getShutterPosition", [&] { inTheMiddle = kit::usable(user); });
        user.click("connectDeviceButton");
        QCOMPARE(inTheMiddle, kit::portsFound());
    }

    // ---- what can go wrong on the way

    void anotherLinkTypeIsRefusedBeforeALinkIsMade_data()
    {
        QTest::addColumn<QByteArray>("type");
        for (const char* const type :
             {"", "uart", "UAR", "UART ", " UART", "UARTX", "USB", "Uart"}) {
            QTest::addRow("'%s'", type) << QByteArray(type);
        }
    }

    void anotherLinkTypeIsRefusedBeforeALinkIsMade()
    {
        QFETCH(QByteArray, type);
        kit::Operator user;
        user.sdk.configuration.communicationType = type.toStdString();
        findPort(user);
        user.expectBox(kit::invalidCommunicationBox());
        user.click("connectDeviceButton");
        QCOMPARE(user.boxesAwaited(), 0);
        QCOMPARE(user.calls(), QStringList());
        QCOMPARE(user.newLog(), QStringList());
        QCOMPARE(kit::usable(user), kit::portsFound());
    }

    void noCameraOnThePortIsToldInABox()
    {
        kit::Operator user;
        user.sdk.answer("link.openCamera", 0);
        findPort(user);
        user.expectBox(kit::invalidCommunicationBox());
        user.click("connectDeviceButton");
        QCOMPARE(user.boxesAwaited(), 0);
        QCOMPARE(kit::usable(user), kit::portsFound());
        QCOMPARE(user.newLog(), kit::lines({"ALTERNATIVE SERIAL PORT : ttyUSB0"}));
    }

    void theLinkOfAFailedAttemptIsHeldAndThenReplaced()
    {
        kit::Operator user;
        user.sdk.answerCall("link.openCamera", 1, 0);
        findPort(user);
        user.expectBox(kit::invalidCommunicationBox());
        user.click("connectDeviceButton");
        QCOMPARE(user.calls(),
                 kit::lines({"sdk.createSerialLink()", "link.openCamera(\"ttyUSB0\")"}));
        user.click("connectDeviceButton");
        QCOMPARE(kit::usable(user), kit::connected());
        user.forget();
        user.click("disconnectDeviceButton");
        QCOMPARE(user.calls(),
                 kit::lines({"link.closeCamera(camera 1)", "sdk.releaseSerialLink(link 2)"}));
        QCOMPARE(numberOfTheLastCallee(user, "link.closeCamera"), 2);
    }

    void onlyTheAnswerOneIsACamera_data()
    {
        QTest::addColumn<int>("answer");
        QTest::addColumn<bool>("isCamera");
        QTest::newRow("0") << 0 << false;
        QTest::newRow("1") << 1 << true;
        QTest::newRow("2") << 2 << false;
        QTest::newRow("255") << 255 << false;
    }

    void onlyTheAnswerOneIsACamera()
    {
        QFETCH(int, answer);
        QFETCH(bool, isCamera);
        kit::Operator user;
        user.sdk.answer("camera.connect", answer);
        findPort(user);
        user.click("connectDeviceButton");
        QCOMPARE(kit::usable(user), isCamera ? kit::connected() : kit::disconnected());
        QCOMPARE(user.newLog().contains(QStringLiteral("No camera connected")), !isCamera);
        QCOMPARE(user.sdk.count("camera.getVersions"), isCamera ? 1 : 0);
    }

    void aCameraThatDoesNotAnswerIsLoggedAndGivenBack()
    {
        kit::Operator user;
        user.sdk.answer("camera.connect", 0);
        findPort(user);
        user.click("connectDeviceButton");
        QStringList sequence;
        for (const recording::Entry& entry : user.sdk.entries()) {
            if (entry.operation == "log" ||
                !QString::fromStdString(entry.operation).contains(QLatin1String(".get"))) {
                sequence.append(QString::fromStdString(entry.text()));
            }
        }
        QCOMPARE(sequence,
                 kit::lines({"log 2: ALTERNATIVE SERIAL PORT : ttyUSB0", "sdk.createSerialLink()",
                             "link.openCamera(\"ttyUSB0\")", "camera.connect(context)",
                             "log 2: No camera connected", "link.closeCamera(camera 1)",
                             "sdk.releaseSerialLink(link 1)"}));
    }

    void aFailedReadLeavesTheWindowAsItWasAndTheLinkOpen()
    {
        kit::Operator user;
        user.sdk.camera.versions = 0;
        findPort(user);
        user.expectBox(unableToConnectBox("ttyUSB0"));
        user.click("connectDeviceButton");
        QCOMPARE(user.boxesAwaited(), 0);
        QCOMPARE(kit::usable(user), kit::portsFound());
        QCOMPARE(user.newLog(),
                 kit::lines({"ALTERNATIVE SERIAL PORT : ttyUSB0", "Start reading camera parameters",
                             "End Read camera parameters : COM Error"}));
        QCOMPARE(user.calls(), kit::lines({"sdk.createSerialLink()", "link.openCamera(\"ttyUSB0\")",
                                           "camera.connect(context)"}));
    }

    void connectCanBePressedAgainAfterAFailedRead()
    {
        kit::Operator user;
        user.sdk.answerCall("camera.getVersions", 1, 0);
        findPort(user);
        user.expectBox(unableToConnectBox("ttyUSB0"));
        user.click("connectDeviceButton");
        user.click("connectDeviceButton");
        QCOMPARE(kit::usable(user), kit::connected());
        user.click("TestPatternButton");
        QCOMPARE(numberOfTheLastCallee(user, "camera.setTestPattern"), 2);
    }

    void aPortThatWentBetweenScanAndConnectIsNoticedByTheMonitoring()
    {
        kit::Operator user;
        findPort(user);
        user.ports.unplug(QStringLiteral("ttyUSB0"));
        user.click("connectDeviceButton");
        QCOMPARE(kit::usable(user), kit::connected());
        user.expectBox(kit::noPortBox());
        user.hurry();
        QTRY_COMPARE(user.boxesAwaited(), 0);
        QTRY_COMPARE(kit::usable(user), kit::disconnected());
    }

    // ---- expert mode

    void theExpertParametersAreReadOnlyWhenTheModeIsExactlyOne_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<bool>("tab");
        QTest::addColumn<bool>("read");
        QTest::newRow("0") << 0 << false << false;
        QTest::newRow("1") << 1 << true << true;
        QTest::newRow("2") << 2 << true << false;
        QTest::newRow("255") << 255 << true << false;
    }

    void theExpertParametersAreReadOnlyWhenTheModeIsExactlyOne()
    {
        QFETCH(int, mode);
        QFETCH(bool, tab);
        QFETCH(bool, read);
        kit::Operator user;
        user.sdk.configuration.expertMode = static_cast<std::uint8_t>(mode);
        findPort(user);
        user.click("connectDeviceButton");
        QCOMPARE(user.find<QTabWidget>("tabWidget").count(), tab ? 6 : 5);
        QCOMPARE(user.newLog().contains(QStringLiteral("Start reading camera expert parameters")),
                 read);
        QCOMPARE(user.sdk.count("camera.getGsk"), read ? 1 : 0);
    }

    void theExpertParametersAreReadAfterTheUserParameters()
    {
        kit::Operator user;
        user.sdk.configuration.expertMode = 1;
        findPort(user);
        user.click("connectDeviceButton");
        const QStringList log = user.newLog();
        QCOMPARE(log.indexOf(QStringLiteral("Start reading camera expert parameters")),
                 log.indexOf(QStringLiteral("End reading camera parameters")) + 1);
        QCOMPARE(log.last(), QStringLiteral("End reading camera expert parameters"));
    }

    void theExpertParametersAreReadEvenWhenTheUserParametersCouldNotBe()
    {
        kit::Operator user;
        user.sdk.configuration.expertMode = 1;
        user.sdk.camera.versions = 0;
        user.sdk.camera.tint = 11;
        findPort(user);
        user.expectBox(unableToConnectBox("ttyUSB0"));
        user.click("connectDeviceButton");
        const QStringList log = user.newLog();
        QCOMPARE(log.indexOf(QStringLiteral("Start reading camera expert parameters")),
                 log.indexOf(QStringLiteral("End Read camera parameters : COM Error")) + 1);
        QCOMPARE(user.sliderValue("tintSlider"), 11);
        QCOMPARE(kit::usable(user), kit::portsFound());
    }

    // ---- the way back

    void disconnectGivesCameraAndLinkBackAndLocksTheParameters()
    {
        kit::Operator user;
        user.connectCamera();
        user.click("disconnectDeviceButton");
        QCOMPARE(kit::usable(user), kit::disconnected());
        QCOMPARE(user.calls(),
                 kit::lines({"link.closeCamera(camera 1)", "sdk.releaseSerialLink(link 1)"}));
        QCOMPARE(user.newLog(), QStringList());
    }

    void theTimerStopsBetweenClosingTheCameraAndReleasingTheLink()
    {
        kit::Operator user;
        user.connectCamera();
        bool runsAtClose = false;
        bool runsAtRelease = true;
        QStringList usableAtRelease;
        user.sdk.whenCalled("link.closeCamera", [&] { runsAtClose = user.monitoring(); });
        user.sdk.whenCalled("sdk.releaseSerialLink", [&] {
            runsAtRelease = user.monitoring();
            usableAtRelease = kit::usable(user);
        });
        user.click("disconnectDeviceButton");
        QVERIFY(runsAtClose);
        QVERIFY(!runsAtRelease);
        QStringList lockedStill = kit::connected();
        lockedStill.removeLast();
        QCOMPARE(usableAtRelease, lockedStill);
    }

    void aNewConnectionUsesANewLinkAndItsCamera()
    {
        kit::Operator user;
        user.connectCamera();
        user.click("disconnectDeviceButton");
        user.click("connectDeviceButton");
        QCOMPARE(kit::usable(user), kit::connected());
        user.click("TestPatternButton");
        QCOMPARE(numberOfTheLastCallee(user, "camera.setTestPattern"), 2);
        user.forget();
        user.click("disconnectDeviceButton");
        QCOMPARE(user.calls(),
                 kit::lines({"link.closeCamera(camera 2)", "sdk.releaseSerialLink(link 2)"}));
    }

    void thePortListAndTheChoiceOutliveADisconnection()
    {
        kit::Operator user;
        user.ports.plug(QStringLiteral("ttyUSB0"));
        user.ports.plug(QStringLiteral("ttyUSB1"));
        user.click("scanDeviceButton");
        user.choose("selectDeviceComboBox", "ttyUSB1");
        user.click("connectDeviceButton");
        user.click("disconnectDeviceButton");
        QCOMPARE(user.text("selectDeviceComboBox"), QStringLiteral("ttyUSB1"));
    }

    void aDisconnectionLeavesTheCameraKnown()
    {
        kit::Operator user;
        user.sdk.freesWhatIsClosed = false;
        user.connectCamera();
        user.click("disconnectDeviceButton");
        user.forget();
        invoke(user, "gammaUserSendCommand");
        QCOMPARE(user.calls(), kit::lines({"camera.setGamma(65536)"}));
        QCOMPARE(numberOfTheLastCallee(user, "camera.setGamma"), 1);
    }

    void anAttemptThatFindsNoCameraForgetsTheOldOne()
    {
        kit::Operator user;
        user.connectCamera();
        user.click("disconnectDeviceButton");
        user.sdk.answer("link.openCamera", 0);
        user.expectBox(kit::invalidCommunicationBox());
        user.click("connectDeviceButton");
        user.forget();
        invoke(user, "gammaUserSendCommand");
        QCOMPARE(user.calls(), QStringList());
    }

    void withoutALinkADisconnectionTouchesOnlyTheWindow()
    {
        kit::Operator user;
        user.start();
        user.forget();
        invoke(user, "disconnectDevice");
        QCOMPARE(user.calls(), QStringList());
        QCOMPARE(kit::usable(user), kit::disconnected());
    }

    void aLinkIsGivenBackOnce_data()
    {
        QTest::addColumn<bool>("clears");
        QTest::newRow("the library clears the pointer") << true;
        QTest::newRow("the library leaves the pointer") << false;
    }

    void aLinkIsGivenBackOnce()
    {
        QFETCH(bool, clears);
        kit::Operator user;
        user.sdk.releaseClearsLink = clears;
        user.connectCamera();
        user.click("disconnectDeviceButton");
        user.forget();
        invoke(user, "disconnectDevice");
        QCOMPARE(user.calls(), QStringList());
    }
};

TAVREL_TEST_MAIN(TestConnection)
#include "tst_connection.moc"
