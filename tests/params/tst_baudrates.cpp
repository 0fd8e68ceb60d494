// SPDX-License-Identifier: MIT
// The two baud rates: the one of the next link, and the one at which the camera itself talks.
#include "tests/kit/operator.h"

class TestBaudRates : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // ---- the link

    void theLinkRateIsToldToTheSdkAndNothingElseHappens_data()
    {
        QTest::addColumn<bool>("connected");
        QTest::newRow("not connected") << false;
        QTest::newRow("connected") << true;
    }

    void theLinkRateIsToldToTheSdkAndNothingElseHappens()
    {
        QFETCH(bool, connected);
        kit::Operator user;
        if (connected) {
            user.connectCamera();
        }
        user.window();
        user.forget();
        user.choose("BaudRateConnectCB", "9600");
        user.choose("BaudRateConnectCB", "115200");
        QCOMPARE(user.calls(),
                 kit::lines({"config.setBaudRate(9600)", "config.setBaudRate(115200)"}));
        QCOMPARE(user.newLog(), QStringList());
        QCOMPARE(user.enabled("disconnectDeviceButton"), connected);
    }

    void choosingTheSameLinkRateAgainTellsNothing()
    {
        kit::Operator user;
        user.window();
        user.forget();
        user.choose("BaudRateConnectCB", "115200");
        QCOMPARE(user.calls(), QStringList());
    }

    void theWindowStartsWithTheLinkRateOfTheConfiguration_data()
    {
        QTest::addColumn<int>("configured");
        QTest::addColumn<QString>("shown");
        QTest::newRow("9600") << 9600 << QStringLiteral("9600");
        QTest::newRow("115200") << 115200 << QStringLiteral("115200");
        QTest::newRow("not in the list") << 57600 << QStringLiteral("115200");
    }

    void theWindowStartsWithTheLinkRateOfTheConfiguration()
    {
        QFETCH(int, configured);
        QFETCH(QString, shown);
        kit::Operator user;
        user.sdk.configuration.baudRate = configured;
        QCOMPARE(user.text("BaudRateConnectCB"), shown);
    }

    void theLinkRateCanAlwaysBeChosen()
    {
        kit::Operator user;
        QVERIFY(user.enabled("BaudRateConnectCB"));
        user.connectCamera();
        QVERIFY(user.enabled("BaudRateConnectCB"));
        user.click("disconnectDeviceButton");
        QVERIFY(user.enabled("BaudRateConnectCB"));
    }

    // ---- the camera

    void theCameraRateIsSentWithItsPermanence_data()
    {
        QTest::addColumn<QByteArray>("rate");
        QTest::addColumn<bool>("permanent");
        QTest::addColumn<bool>("accepted");
        for (const char* const rate : {"9600", "115200", "230400", "460800", "921600"}) {
            for (const bool permanent : {false, true}) {
                for (const bool accepted : {false, true}) {
                    QTest::addRow("%s %s, %s", rate, permanent ? "permanent" : "temporary",
                                  accepted ? "accepted" : "refused")
                        << QByteArray(rate) << permanent << accepted;
                }
            }
        }
    }

    void theCameraRateIsSentWithItsPermanence()
    {
        QFETCH(QByteArray, rate);
        QFETCH(bool, permanent);
        QFETCH(bool, accepted);
        kit::Operator user;
        connectExpert(user);
        user.choose("BaudRateCB", rate);
        if (permanent) {
            user.click("PermanentButton");
        }
        QCOMPARE(user.calls(), QStringList());
        user.sdk.answer("camera.setBaudRate", accepted ? 1 : 0);
        user.click("applyBaudrateBP");
        QCOMPARE(user.calls(),
                 QStringList(QStringLiteral("camera.setBaudRate(%1, %2)")
                                 .arg(QLatin1String(rate), permanent ? QStringLiteral("true")
                                                                     : QStringLiteral("false"))));
        QCOMPARE(user.newLog(), accepted ? kit::lines({"Set baud rate value OK"})
                                         : kit::lines({"Set baud rate value KO"}));
        // The link keeps its own rate.
        QCOMPARE(user.text("BaudRateConnectCB"), QStringLiteral("115200"));
    }

    // The tabs are locked then, so no mouse and no key gets there: the slot is reached by name.
    void withoutACameraNoRateIsSentOrLogged()
    {
        kit::Operator user;
        user.window();
        user.forget();
        QVERIFY(QMetaObject::invokeMethod(&user.window(), "changeCameraBaudRate"));
        QCOMPARE(user.calls(recording::Show::Everything), QStringList());
        QCOMPARE(user.newLog(), QStringList());
    }

    void everyClickTurnsPermanenceOver()
    {
        kit::Operator user;
        connectExpert(user);
        QCOMPARE(permanence(user), QStringLiteral("Not Permanent, off"));
        user.click("PermanentButton");
        QCOMPARE(permanence(user), QStringLiteral("Permanent, on"));
        user.click("PermanentButton");
        QCOMPARE(permanence(user), QStringLiteral("Not Permanent, off"));
        QCOMPARE(user.calls(), QStringList());
        QCOMPARE(user.newLog(), QStringList());
    }

private:
    static void connectExpert(kit::Operator& user)
    {
        user.sdk.configuration.expertMode = 1;
        user.connectCamera();
        user.showTab("Expert");
        user.rest();
    }

    static QString permanence(kit::Operator& user)
    {
        return user.text("PermanentButton") +
               (user.checked("PermanentButton") ? QStringLiteral(", on") : QStringLiteral(", off"));
    }
};

TAVREL_TEST_MAIN(TestBaudRates)
#include "tst_baudrates.moc"
