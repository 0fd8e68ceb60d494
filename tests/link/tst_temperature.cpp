// SPDX-License-Identifier: MIT
// The temperature boxes of the information bar.
#include "link/temperature.h"
#include "tests/link/connectionstate.h"

#include <QtWidgets/QPlainTextEdit>

#include <limits>

namespace {

/// Shows the camera's temperatures once more, as a tick of the monitoring does.
void refresh(kit::Operator& user)
{
    QVERIFY(QMetaObject::invokeMethod(&user.window(), "getTemperature"));
}

} // namespace

class TestTemperature : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void milliKelvinBecomeDegreesCelsius_data()
    {
        QTest::addColumn<float>("milliKelvin");
        QTest::addColumn<QString>("text");
        QTest::newRow("freezing") << 273000.0F << QStringLiteral("0 C");
        QTest::newRow("room") << 298000.0F << QStringLiteral("25 C");
        QTest::newRow("body") << 310500.0F << QStringLiteral("37.5 C");
        QTest::newRow("frost") << 263000.0F << QStringLiteral("-10 C");
        QTest::newRow("six digits") << 300123.456F << QStringLiteral("27.1235 C");
        QTest::newRow("the true zero of the scale") << 273150.0F << QStringLiteral("0.15 C");
        QTest::newRow("absolute zero") << 0.0F << QStringLiteral("-273 C");
        QTest::newRow("one step") << 273001.0F << QStringLiteral("0.001 C");
        QTest::newRow("tiny") << 273000.03125F << QStringLiteral("3.125e-05 C");
        QTest::newRow("hot") << 1e9F << QStringLiteral("999727 C");
        QTest::newRow("very hot") << 2e9F << QStringLiteral("1.99973e+06 C");
        // In double precision these two would round the other way.
        QTest::newRow("single precision down") << 335920.25F << QStringLiteral("62.9202 C");
        QTest::newRow("single precision up") << 276600.125F << QStringLiteral("3.60013 C");
    }

    void milliKelvinBecomeDegreesCelsius()
    {
        QFETCH(float, milliKelvin);
        QFETCH(QString, text);
        QCOMPARE(tavrel::temperatureText(milliKelvin), text);
    }

    void aReadingThatIsNoNumberDoesNoHarm()
    {
        QCOMPARE(tavrel::temperatureText(std::numeric_limits<float>::quiet_NaN()),
                 QStringLiteral("nan C"));
        QCOMPARE(tavrel::temperatureText(-std::numeric_limits<float>::infinity()),
                 QStringLiteral("-inf C"));
    }

    void theSensorAndTheFpgaHaveTheirOwnBoxes()
    {
        kit::Operator user;
        user.sdk.camera.temperatures = {298000.0F, 310500.0F};
        user.connectCamera();
        QCOMPARE(user.text("SensorTempTextEdit"), QStringLiteral("25 C"));
        QCOMPARE(user.text("FpgaTempTextEdit"), QStringLiteral("37.5 C"));
    }

    void aNewReadingReplacesTheOldOne()
    {
        kit::Operator user;
        user.connectCamera();
        user.sdk.camera.temperatures = {299000.0F, 311500.0F};
        refresh(user);
        QCOMPARE(user.text("SensorTempTextEdit"), QStringLiteral("26 C"));
        QCOMPARE(user.text("FpgaTempTextEdit"), QStringLiteral("38.5 C"));
    }

    void theFpgaBoxIsRefreshedFirst()
    {
        kit::Operator user;
        user.connectCamera();
        QStringList order;
        for (const char* const name : {"SensorTempTextEdit", "FpgaTempTextEdit"}) {
            connect(&user.find<QPlainTextEdit>(name), &QPlainTextEdit::textChanged, this,
                    [&order, name] { order.append(QString::fromLatin1(name)); });
        }
        refresh(user);
        order.removeDuplicates();
        QCOMPARE(order, kit::lines({"FpgaTempTextEdit", "SensorTempTextEdit"}));
    }

    void nothingIsLogged()
    {
        kit::Operator user;
        user.connectCamera();
        refresh(user);
        user.sdk.answer("camera.getTemperatures", 0);
        refresh(user);
        QCOMPARE(user.newLog(), QStringList());
        QVERIFY(user.sdk.records().empty());
    }

    void readingTheParametersRefreshesTheTemperaturesOnce()
    {
        kit::Operator user;
        user.connectCamera();
        user.timer().stop();
        user.forget();
        user.sdk.camera.temperatures = {263000.0F, 273000.0F};
        user.click("readParamButtonUser");
        QCOMPARE(user.sdk.count("camera.getTemperatures"), 1);
        QCOMPARE(user.text("SensorTempTextEdit"), QStringLiteral("-10 C"));
        QCOMPARE(user.text("FpgaTempTextEdit"), QStringLiteral("0 C"));
    }

    void aFailedReadingStopsTheMonitoringAndLeavesTheBoxes()
    {
        kit::Operator user;
        user.connectCamera();
        user.sdk.camera.temperatures = {299000.0F, 311500.0F};
        user.sdk.answer("camera.getTemperatures", 0);
        refresh(user);
        QVERIFY(!user.monitoring());
        QCOMPARE(user.text("SensorTempTextEdit"), QStringLiteral("25 C"));
        QCOMPARE(user.text("FpgaTempTextEdit"), QStringLiteral("37.5 C"));
    }

    void aSuccessfulReadingThatFillsNothingShowsZeroKelvin()
    {
        kit::Operator user;
        user.connectCamera();
        user.sdk.withholdOutput("camera.getTemperatures");
        refresh(user);
        QCOMPARE(user.text("SensorTempTextEdit"), QStringLiteral("-273 C"));
        QCOMPARE(user.text("FpgaTempTextEdit"), QStringLiteral("-273 C"));
    }

    void aReadingThatFailsDuringTheConnectionDoesNotKeepTheTimerFromStarting()
    {
        kit::Operator user;
        user.sdk.answerCall("camera.getTemperatures", 1, 0);
        user.connectCamera();
        QVERIFY(user.monitoring());
        QCOMPARE(user.text("SensorTempTextEdit"), QString());
    }

    void aReadingThatFailsDuringReadStopsTheMonitoring()
    {
        kit::Operator user;
        user.connectCamera();
        user.sdk.answer("camera.getTemperatures", 0);
        user.click("readParamButtonUser");
        QVERIFY(!user.monitoring());
    }

    void theLastTemperaturesStayAfterADisconnection()
    {
        kit::Operator user;
        user.connectCamera();
        user.click("disconnectDeviceButton");
        QCOMPARE(user.text("SensorTempTextEdit"), QStringLiteral("25 C"));
    }

    void theOperatorCannotWriteIntoTheBoxes()
    {
        kit::Operator user;
        user.connectCamera();
        user.press("SensorTempTextEdit", Qt::Key_5);
        QCOMPARE(user.text("SensorTempTextEdit"), QStringLiteral("25 C"));
    }
};

TAVREL_TEST_MAIN(TestTemperature)
#include "tst_temperature.moc"
