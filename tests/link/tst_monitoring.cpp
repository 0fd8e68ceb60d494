// SPDX-License-Identifier: MIT
// Watching port and temperatures while a camera is connected.
#include "tests/link/connectionstate.h"

#include <QtWidgets/QComboBox>

namespace {

constexpr char nucRequestText[] = "Error on processing the NUC request";

/// Connects through ttyUSB0 while a second port stays plugged all the time.
void connectWithASecondPort(kit::Operator& user)
{
    user.ports.plug(QStringLiteral("ttyUSB0"));
    user.ports.plug(QStringLiteral("ttyUSB1"));
    user.connectCamera();
}

bool isDisconnected(kit::Operator& user)
{
    return kit::usable(user) == kit::disconnected();
}

} // namespace

class TestMonitoring : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theTemperaturesAreReadOnceASecond()
    {
        kit::Operator user;
        user.connectCamera();
        QCOMPARE(user.sdk.count("camera.getTemperatures"), 0);
        QCOMPARE(user.timer().interval(), 1000);
        user.sdk.camera.temperatures = {283000.0F, 293000.0F};
        QTRY_COMPARE(user.text("SensorTempTextEdit"), QStringLiteral("10 C"));
        QCOMPARE(user.sdk.count("camera.getTemperatures"), 1);
    }

    void everyTickReadsTheTemperaturesAgain()
    {
        kit::Operator user;
        user.connectCamera();
        user.hurry();
        QTRY_VERIFY(user.sdk.count("camera.getTemperatures") >= 3);
        QCOMPARE(kit::usable(user), kit::connected());
        QCOMPARE(user.calls(), QStringList());
        QCOMPARE(user.newLog(), QStringList());
    }

    void thePulledAdapterDisconnectsAndTheRestIsListed()
    {
        kit::Operator user;
        connectWithASecondPort(user);
        user.ports.unplug(QStringLiteral("ttyUSB0"));
        QTRY_VERIFY(isDisconnected(user));
        QCOMPARE(user.calls(),
                 kit::lines({"link.closeCamera(camera 1)", "sdk.releaseSerialLink(link 1)"}));
        const auto& list = user.find<QComboBox>("selectDeviceComboBox");
        QCOMPARE(list.count(), 1);
        QCOMPARE(list.currentText(), QStringLiteral("ttyUSB1"));
        QCOMPARE(user.newLog(), QStringList());
    }

    void thePulledLastAdapterDisconnectsAndTheScanFindsNothing()
    {
        kit::Operator user;
        user.connectCamera();
        user.ports.unplug(QStringLiteral("ttyUSB0"));
        QStringList behindTheBox;
        kit::Box box = kit::noPortBox();
        box.whileOpen = [&](QDialog&) {
            behindTheBox = kit::usable(user);
        };
        user.expectBox(box);
        QTRY_COMPARE(user.boxesAwaited(), 0);
        QTRY_VERIFY(isDisconnected(user));
        // The camera was let go before the operator is told.
        QCOMPARE(behindTheBox, kit::disconnected());
        QCOMPARE(user.calls(),
                 kit::lines({"link.closeCamera(camera 1)", "sdk.releaseSerialLink(link 1)"}));
        QCOMPARE(user.find<QComboBox>("selectDeviceComboBox").count(), 0);
    }

    void noTemperatureIsReadThroughAPortThatIsGone()
    {
        kit::Operator user;
        connectWithASecondPort(user);
        user.ports.unplug(QStringLiteral("ttyUSB0"));
        user.hurry();
        QTRY_VERIFY(isDisconnected(user));
        QCOMPARE(user.sdk.count("camera.getTemperatures"), 0);
    }

    void otherPortsMayComeAndGo()
    {
        kit::Operator user;
        connectWithASecondPort(user);
        user.ports.unplug(QStringLiteral("ttyUSB1"));
        user.ports.plug(QStringLiteral("ttyACM0"));
        user.hurry();
        QTRY_VERIFY(user.sdk.count("camera.getTemperatures") >= 2);
        QCOMPARE(kit::usable(user), kit::connected());
    }

    void thePortIsFoundWhereverItStandsInTheList()
    {
        kit::Operator user;
        user.ports.plug(QStringLiteral("ttyUSB0"));
        user.ports.plug(QStringLiteral("ttyUSB1"));
        user.ports.plug(QStringLiteral("ttyUSB2"));
        user.click("scanDeviceButton");
        user.choose("selectDeviceComboBox", "ttyUSB2");
        user.click("connectDeviceButton");
        user.hurry();
        user.forget();
        QTRY_VERIFY(user.sdk.count("camera.getTemperatures") >= 2);
        QCOMPARE(kit::usable(user), kit::connected());
    }

    void aPortWhoseNameOnlyBeginsAlikeIsAnotherPort()
    {
        kit::Operator user;
        user.ports.plug(QStringLiteral("ttyUSB1"));
        user.ports.plug(QStringLiteral("ttyUSB10"));
        user.connectCamera();
        user.ports.unplug(QStringLiteral("ttyUSB1"));
        user.hurry();
        QTRY_VERIFY(isDisconnected(user));
    }

    void theMonitoringStopsWithTheConnection()
    {
        kit::Operator user;
        user.connectCamera();
        user.click("disconnectDeviceButton");
        QVERIFY(!user.monitoring());
    }

    void afterAFailedReadingAPulledPortIsNotNoticed()
    {
        kit::Operator user;
        user.connectCamera();
        user.sdk.answer("camera.getTemperatures", 0);
        user.hurry();
        QTRY_VERIFY(!user.monitoring());
        user.ports.unplug(QStringLiteral("ttyUSB0"));
        QStringList stillConnected = kit::connected();
        stillConnected.removeLast();
        QCOMPARE(kit::usable(user), stillConnected);
        QCOMPARE(user.sdk.count("camera.getTemperatures"), 1);
        QCOMPARE(user.calls(), QStringList());
    }

    void aNewConnectionStartsTheMonitoringAgain()
    {
        kit::Operator user;
        user.connectCamera();
        user.sdk.answerCall("camera.getTemperatures", 1, 0);
        user.hurry();
        QTRY_VERIFY(!user.monitoring());
        user.click("disconnectDeviceButton");
        user.click("connectDeviceButton");
        QCOMPARE(kit::usable(user), kit::connected());
        QCOMPARE(user.timer().interval(), 1000);
    }

    // ---- the timer goes on behind a box

    void theMonitoringGoesOnBehindABox()
    {
        kit::Operator user;
        user.connectCamera();
        user.hurry();
        user.sdk.answer("camera.requestNuc", 0);
        bool ticked = false;
        user.expectBox(
            {.kind = kit::Box::Warning, .text = nucRequestText, .whileOpen = [&](QDialog&) {
                 user.forget();
                 ticked =
                     QTest::qWaitFor([&] { return user.sdk.count("camera.getTemperatures") >= 2; });
             }});
        user.click("userNucRequest");
        QVERIFY(ticked);
        QCOMPARE(kit::usable(user), kit::connected());
    }

    void aPortPulledBehindABoxDisconnectsBehindIt()
    {
        kit::Operator user;
        connectWithASecondPort(user);
        user.hurry();
        user.sdk.answer("camera.requestNuc", 0);
        bool noticed = false;
        user.expectBox(
            {.kind = kit::Box::Warning, .text = nucRequestText, .whileOpen = [&](QDialog&) {
                 user.ports.unplug(QStringLiteral("ttyUSB0"));
                 noticed = QTest::qWaitFor([&] { return isDisconnected(user); });
             }});
        user.click("userNucRequest");
        QVERIFY(noticed);
        QCOMPARE(kit::usable(user), kit::disconnected());
        QCOMPARE(user.calls(), kit::lines({"camera.requestNuc(0)", "link.closeCamera(camera 1)",
                                           "sdk.releaseSerialLink(link 1)"}));
    }

    void theLastPortPulledBehindABoxPutsTheWarningOnTop()
    {
        kit::Operator user;
        user.connectCamera();
        user.hurry();
        user.sdk.answer("camera.requestNuc", 0);
        bool noticed = false;
        user.expectBox(
            {.kind = kit::Box::Warning, .text = nucRequestText, .whileOpen = [&](QDialog&) {
                 user.ports.unplug(QStringLiteral("ttyUSB0"));
                 noticed = QTest::qWaitFor([&] { return isDisconnected(user); });
             }});
        user.expectBox(kit::noPortBox());
        user.click("userNucRequest");
        QVERIFY(noticed);
        QCOMPARE(user.boxesAwaited(), 0);
        QCOMPARE(kit::usable(user), kit::disconnected());
    }

    void aPortPulledBehindTheAboutDialogDisconnects()
    {
        kit::Operator user;
        connectWithASecondPort(user);
        user.hurry();
        user.expectBox({.kind = kit::Box::Dialog,
                        .title = "About",
                        .whileOpen =
                            [&](QDialog&) {
                                user.ports.unplug(QStringLiteral("ttyUSB0"));
                                QVERIFY(QTest::qWaitFor([&] { return isDisconnected(user); }));
                            },
                        .answer = kit::Box::Frame});
        user.click("AboutButton");
        QCOMPARE(kit::usable(user), kit::disconnected());
    }

    void aPortPulledDuringATableReadIsNoticedAfterwards()
    {
        kit::Operator user;
        connectWithASecondPort(user);
        user.sdk.whenCalled("camera.readTableData",
                            [&] { user.ports.unplug(QStringLiteral("ttyUSB0")); });
        user.click("readBPRTableButton");
        QCOMPARE(kit::usable(user), kit::connected());
        QTRY_VERIFY(isDisconnected(user));
    }
};

TAVREL_TEST_MAIN(TestMonitoring)
#include "tst_monitoring.moc"
