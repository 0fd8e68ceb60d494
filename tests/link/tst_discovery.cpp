// SPDX-License-Identifier: MIT
// Listing the serial ports.
#include "tests/link/connectionstate.h"

#include <QtWidgets/QComboBox>

namespace {

QStringList entries(const QComboBox& combo)
{
    QStringList texts;
    for (int index = 0; index < combo.count(); ++index) {
        texts.append(combo.itemText(index));
    }
    return texts;
}

} // namespace

class TestDiscovery : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aScanListsEveryPortInTheSystemsOrder()
    {
        kit::Operator user;
        user.ports.plug(QStringLiteral("ttyUSB1"));
        user.ports.plug(QStringLiteral("ttyACM0"));
        user.ports.plug(QStringLiteral("ttyUSB0"));
        user.click("scanDeviceButton");
        const auto& list = user.find<QComboBox>("selectDeviceComboBox");
        QCOMPARE(entries(list), user.ports.plugged());
        QCOMPARE(list.currentIndex(), 0);
    }

    void anEntryCarriesNeitherIconNorData()
    {
        kit::Operator user;
        user.ports.plug(QStringLiteral("ttyUSB0"));
        user.click("scanDeviceButton");
        const auto& list = user.find<QComboBox>("selectDeviceComboBox");
        QVERIFY(list.itemIcon(0).isNull());
        QVERIFY(!list.itemData(0).isValid());
    }

    void portsThatAreFoundUnlockConnect()
    {
        kit::Operator user;
        user.ports.plug(QStringLiteral("ttyUSB0"));
        user.start();
        QCOMPARE(kit::usable(user), kit::afterStart());
        user.click("scanDeviceButton");
        QCOMPARE(kit::usable(user), kit::portsFound());
    }

    void scanningTwiceListsEachPortOnce()
    {
        kit::Operator user;
        user.ports.plug(QStringLiteral("ttyUSB0"));
        user.ports.plug(QStringLiteral("ttyUSB1"));
        user.click("scanDeviceButton");
        user.click("scanDeviceButton");
        QCOMPARE(entries(user.find<QComboBox>("selectDeviceComboBox")),
                 kit::lines({"ttyUSB0", "ttyUSB1"}));
    }

    void aNewScanFollowsWhatIsPlugged()
    {
        kit::Operator user;
        user.ports.plug(QStringLiteral("ttyUSB0"));
        user.click("scanDeviceButton");
        user.ports.unplug(QStringLiteral("ttyUSB0"));
        user.ports.plug(QStringLiteral("ttyUSB5"));
        user.click("scanDeviceButton");
        QCOMPARE(entries(user.find<QComboBox>("selectDeviceComboBox")), kit::lines({"ttyUSB5"}));
    }

    void aScanSpeaksNeitherToTheSdkNorToTheLog()
    {
        kit::Operator user;
        user.ports.plug(QStringLiteral("ttyUSB0"));
        user.start();
        user.forget();
        user.click("scanDeviceButton");
        QVERIFY(user.sdk.entries().empty());
        QCOMPARE(user.log(), QStringList());
    }

    void noPortGivesAWarningAndUnlocksNothing()
    {
        kit::Operator user;
        user.start();
        user.expectBox(kit::noPortBox());
        user.click("scanDeviceButton");
        QCOMPARE(user.boxesAwaited(), 0);
        QCOMPARE(kit::usable(user), kit::afterStart());
        QCOMPARE(entries(user.find<QComboBox>("selectDeviceComboBox")), QStringList());
    }

    void theListIsEmptyBeforeTheWarningAppears()
    {
        kit::Operator user;
        user.ports.plug(QStringLiteral("ttyUSB0"));
        user.click("scanDeviceButton");
        user.ports.unplug(QStringLiteral("ttyUSB0"));
        kit::Box box = kit::noPortBox();
        QStringList whileOpen = {QStringLiteral("not looked at")};
        box.whileOpen = [&](QDialog&) {
            whileOpen = entries(user.find<QComboBox>("selectDeviceComboBox"));
        };
        user.expectBox(box);
        user.click("scanDeviceButton");
        QCOMPARE(whileOpen, QStringList());
    }

    void noPortAnyMoreLeavesTheButtonsAsTheyWere()
    {
        kit::Operator user;
        user.ports.plug(QStringLiteral("ttyUSB0"));
        user.click("scanDeviceButton");
        user.ports.unplug(QStringLiteral("ttyUSB0"));
        user.expectBox(kit::noPortBox());
        user.click("scanDeviceButton");
        QCOMPARE(kit::usable(user), kit::portsFound());
    }

    void aScanWorksAgainAfterTheWarning()
    {
        kit::Operator user;
        user.expectBox(kit::noPortBox());
        user.click("scanDeviceButton");
        user.ports.plug(QStringLiteral("ttyUSB0"));
        user.click("scanDeviceButton");
        QCOMPARE(kit::usable(user), kit::portsFound());
    }
};

TAVREL_TEST_MAIN(TestDiscovery)
#include "tst_discovery.moc"
