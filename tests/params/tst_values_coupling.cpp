// SPDX-License-Identifier: MIT
// The eleven pairs of a slider and a spin box: each widget follows the other in its own scale.
#include "tests/kit/operator.h"

#include <QtGui/QClipboard>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QSlider>

namespace {

/// A connected camera, the Expert tab in reach, and no editor with the focus.
void connectCamera(kit::Operator& user)
{
    user.sdk.configuration.expertMode = 1;
    user.connectCamera();
    user.rest();
}

/// Replaces what a spin box holds in one go, so that it takes no value in between.
void paste(kit::Operator& user, const char* spinBox, const char* text)
{
    QApplication::clipboard()->setText(QLatin1String(text));
    user.press(spinBox, Qt::Key_A, Qt::ControlModifier);
    user.press(spinBox, Qt::Key_V, Qt::ControlModifier);
}

QStringList call(const char* text)
{
    return kit::lines({text});
}

} // namespace

class TestValuesCoupling : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theSpinBoxFollowsTheSlider_data()
    {
        QTest::addColumn<QByteArray>("slider");
        QTest::addColumn<QByteArray>("spinBox");
        QTest::addColumn<int>("position");
        QTest::addColumn<QString>("shown");
        const auto add = [](const char* slider, const char* spinBox, int position,
                            const char* shown) {
            QTest::addRow("%s at %d", slider, position) << QByteArray(slider) << QByteArray(spinBox)
                                                        << position << QString::fromLatin1(shown);
        };
        add("gammaSlider", "gammaEdit", 0, "0.5");
        add("gammaSlider", "gammaEdit", 1, "0.6");
        add("gammaSlider", "gammaEdit", 8, "1.3");
        add("gammaSlider", "gammaEdit", 17, "2.2");
        add("gammaSlider", "gammaEdit", 20, "2.5");
        add("clheSlider", "clheEdit", 0, "0");
        add("clheSlider", "clheEdit", 4321, "4321");
        add("clheSlider", "clheEdit", 10000, "10000");
        add("sharpeningGainSlider", "sharpeningGainEdit", 0, "0.0");
        add("sharpeningGainSlider", "sharpeningGainEdit", 107, "10.7");
        add("sharpeningGainSlider", "sharpeningGainEdit", 10240, "1024.0");
        add("SharpeningTHSlider", "SharpeningTHEdit", 0, "0.0");
        add("SharpeningTHSlider", "SharpeningTHEdit", 1999, "199.9");
        add("SharpeningTHSlider", "SharpeningTHEdit", 2000, "200.0");
        add("AhcBlackGainLimSlider", "AhcBlackGainLimSpin", 0, "0");
        add("AhcBlackGainLimSlider", "AhcBlackGainLimSpin", 37, "37");
        add("AhcBlackGainLimSlider", "AhcBlackGainLimSpin", 100, "100");
        add("AhcWhiteGainLimSlider", "AhcWhiteGainLimSpin", 0, "0");
        add("AhcWhiteGainLimSlider", "AhcWhiteGainLimSpin", 63, "63");
        add("AhcWhiteGainLimSlider", "AhcWhiteGainLimSpin", 100, "100");
        add("TempoFilterSlider", "TempoFilterSpin", 0, "0");
        add("TempoFilterSlider", "TempoFilterSpin", 5, "5");
        add("TempoFilterSlider", "TempoFilterSpin", 8, "8");
        add("gskSlider", "gskEdit", 1, "1");
        add("gskSlider", "gskEdit", 3, "3");
        add("gfidSlider", "gfidEdit", 0, "0");
        add("gfidSlider", "gfidEdit", 77, "77");
        add("gfidSlider", "gfidEdit", 1000, "1000");
        add("gmsSlider", "gmsEdit", 0, "0");
        add("gmsSlider", "gmsEdit", 50, "50");
        add("tintSlider", "tintEdit", 0, "0");
        add("tintSlider", "tintEdit", 20, "20");
    }

    void theSpinBoxFollowsTheSlider()
    {
        QFETCH(QByteArray, slider);
        QFETCH(QByteArray, spinBox);
        QFETCH(int, position);
        QFETCH(QString, shown);
        kit::Operator user;
        connectCamera(user);
        QVERIFY(user.sliderValue(slider) != position);
        user.find<QSlider>(slider).setValue(position);
        QCOMPARE(user.text(spinBox), shown);
        QCOMPARE(user.sliderValue(slider), position);
        QCOMPARE(user.calls(), QStringList());
        QCOMPARE(user.newLog(), QStringList());
    }

    void theSliderFollowsWhatIsTyped_data()
    {
        QTest::addColumn<QByteArray>("spinBox");
        QTest::addColumn<QByteArray>("slider");
        QTest::addColumn<QByteArray>("typed");
        QTest::addColumn<int>("position");
        const auto add = [](const char* spinBox, const char* slider, const char* typed,
                            int position) {
            QTest::addRow("%s in %s", typed, spinBox)
                << QByteArray(spinBox) << QByteArray(slider) << QByteArray(typed) << position;
        };
        add("gammaEdit", "gammaSlider", "0.5", 0);
        add("gammaEdit", "gammaSlider", "1.3", 8);
        add("gammaEdit", "gammaSlider", "2.2", 17);
        add("gammaEdit", "gammaSlider", "2.5", 20);
        add("clheEdit", "clheSlider", "4321", 4321);
        add("clheEdit", "clheSlider", "10000", 10000);
        add("sharpeningGainEdit", "sharpeningGainSlider", "10.7", 107);
        add("sharpeningGainEdit", "sharpeningGainSlider", "1024", 10240);
        add("SharpeningTHEdit", "SharpeningTHSlider", "10.7", 107);
        add("SharpeningTHEdit", "SharpeningTHSlider", "200", 2000);
        add("AhcBlackGainLimSpin", "AhcBlackGainLimSlider", "100", 100);
        add("AhcWhiteGainLimSpin", "AhcWhiteGainLimSlider", "99", 99);
        add("TempoFilterSpin", "TempoFilterSlider", "8", 8);
        add("gskEdit", "gskSlider", "3", 3);
        add("gfidEdit", "gfidSlider", "1000", 1000);
        add("gmsEdit", "gmsSlider", "17", 17);
        add("tintEdit", "tintSlider", "20", 20);
    }

    void theSliderFollowsWhatIsTyped()
    {
        QFETCH(QByteArray, spinBox);
        QFETCH(QByteArray, slider);
        QFETCH(QByteArray, typed);
        QFETCH(int, position);
        kit::Operator user;
        connectCamera(user);
        QVERIFY(user.sliderValue(slider) != position);
        user.type(spinBox, typed, Qt::Key_unknown);
        QCOMPARE(user.sliderValue(slider), position);
        QCOMPARE(user.find<QAbstractSpinBox>(spinBox).text().toDouble(), typed.toDouble());
        QCOMPARE(user.calls(), QStringList());
    }

    // Every gamma of one decimal has a place of its own on the slider, whatever binary makes of it.
    void everyGammaHasItsPlaceOnTheSlider()
    {
        kit::Operator user;
        connectCamera(user);
        auto& slider = user.find<QSlider>("gammaSlider");
        auto& spinBox = user.find<QDoubleSpinBox>("gammaEdit");
        for (int position = 0; position <= 20; ++position) {
            spinBox.setValue((position + 5) / 10.0);
            QCOMPARE(slider.value(), position);
        }
        for (int position = 20; position >= 0; --position) {
            slider.setValue(position);
            QCOMPARE(spinBox.value(), (position + 5) / 10.0);
        }
    }

    void aValueBetweenTwoStepsGoesToTheNearestHalvesAwayFromZero_data()
    {
        QTest::addColumn<QByteArray>("slot");
        QTest::addColumn<QByteArray>("slider");
        QTest::addColumn<double>("value");
        QTest::addColumn<int>("position");
        const auto add = [](const char* slot, const char* slider, double value, int position) {
            QTest::addRow("%s %g", slot, value)
                << QByteArray(slot) << QByteArray(slider) << value << position;
        };
        add("GammaUserValueChanged", "gammaSlider", 0.75, 3); // 2.5 steps above 0.5
        add("GammaUserValueChanged", "gammaSlider", 0.74, 2);
        add("GammaUserValueChanged", "gammaSlider", 1.84, 13);
        add("ClheUserValueChanged", "clheSlider", 2.5, 3);
        add("ClheUserValueChanged", "clheSlider", 2.25, 2);
        add("SharpeningUserValueChanged", "sharpeningGainSlider", 0.25, 3);
        add("SharpeningUserValueChanged", "sharpeningGainSlider", 0.24, 2);
        add("SharpeningTHValueChanged", "SharpeningTHSlider", 0.25, 3);
        add("SharpeningTHValueChanged", "SharpeningTHSlider", 0.24, 2);
        add("GSKExpertValueChanged", "gskSlider", -2.5, -3);
        add("GSKExpertValueChanged", "gskSlider", 2.5, 3);
        add("GFIDExpertValueChanged", "gfidSlider", -4.5, -5);
        add("GFIDExpertValueChanged", "gfidSlider", 4.5, 5);
        add("GFIDExpertValueChanged", "gfidSlider", 4.25, 4);
        add("GMSExpertValueChanged", "gmsSlider", -6.5, -7);
        add("GMSExpertValueChanged", "gmsSlider", 6.5, 7);
        add("TINTExpertValueChanged", "tintSlider", -8.5, -9);
        add("TINTExpertValueChanged", "tintSlider", 8.5, 9);
        add("TINTExpertValueChanged", "tintSlider", -8.25, -8);
    }

    void aValueBetweenTwoStepsGoesToTheNearestHalvesAwayFromZero()
    {
        QFETCH(QByteArray, slot);
        QFETCH(QByteArray, slider);
        QFETCH(double, value);
        QFETCH(int, position);
        kit::Operator user;
        auto& limits = user.sdk.configurationObject();
        limits.gskMin = limits.gfidMin = limits.gmsMin = limits.tintMin = -100;
        connectCamera(user);
        // The spin boxes themselves hold rounded values, so the slot is given the number directly.
        auto& partner = user.find<QSlider>(slider);
        const QSignalBlocker noWayBack(partner);
        QVERIFY(QMetaObject::invokeMethod(&user.window(), slot, Q_ARG(double, value)));
        QCOMPARE(partner.value(), position);
    }

    void aGammaOfTheCameraBetweenTwoStepsIsShownAtTheNearest()
    {
        kit::Operator user;
        user.sdk.camera.gamma = 49152; // 0.75
        connectCamera(user);
        QCOMPARE(user.sliderValue("gammaSlider"), 3);
        QCOMPARE(user.text("gammaEdit"), QStringLiteral("0.8"));
    }

    // ---- spin boxes that reach further than their sliders

    void aValueBeyondTheSliderIsCutBackWhenTheSliderHadToMove_data()
    {
        QTest::addColumn<QByteArray>("spinBox");
        QTest::addColumn<QByteArray>("slider");
        QTest::addColumn<QByteArray>("value");
        QTest::addColumn<int>("end");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<QByteArray>("sent");
        QTest::newRow("CLHE") << QByteArray("clheEdit") << QByteArray("clheSlider")
                              << QByteArray("20000") << 10000 << QStringLiteral("10000")
                              << QByteArray("camera.setClhe(10000)");
        QTest::newRow("CLHE, one more")
            << QByteArray("clheEdit") << QByteArray("clheSlider") << QByteArray("10001") << 10000
            << QStringLiteral("10000") << QByteArray("camera.setClhe(10000)");
        QTest::newRow("threshold")
            << QByteArray("SharpeningTHEdit") << QByteArray("SharpeningTHSlider")
            << QByteArray("254.9") << 2000 << QStringLiteral("200.0")
            << QByteArray("camera.configureEdgeCorrection(0, 10, 200)");
        QTest::newRow("GMS") << QByteArray("gmsEdit") << QByteArray("gmsSlider") << QByteArray("60")
                             << 50 << QStringLiteral("50") << QByteArray("camera.setGms(50)");
    }

    void aValueBeyondTheSliderIsCutBackWhenTheSliderHadToMove()
    {
        QFETCH(QByteArray, spinBox);
        QFETCH(QByteArray, slider);
        QFETCH(QByteArray, value);
        QFETCH(int, end);
        QFETCH(QString, shown);
        QFETCH(QByteArray, sent);
        kit::Operator user;
        connectCamera(user);
        QVERIFY(user.sliderValue(slider) < end);
        paste(user, spinBox, value);
        QCOMPARE(user.sliderValue(slider), end);
        QCOMPARE(user.text(spinBox), shown);
        user.press(spinBox, Qt::Key_Tab);
        QCOMPARE(user.calls(), call(sent));
    }

    void aValueBeyondTheSliderStaysWhenTheSliderStoodAtItsEnd_data()
    {
        QTest::addColumn<QByteArray>("spinBox");
        QTest::addColumn<QByteArray>("slider");
        QTest::addColumn<QByteArray>("value");
        QTest::addColumn<int>("end");
        QTest::addColumn<QByteArray>("sent");
        QTest::newRow("CLHE") << QByteArray("clheEdit") << QByteArray("clheSlider")
                              << QByteArray("20000") << 10000
                              << QByteArray("camera.setClhe(20000)");
        QTest::newRow("CLHE at its end")
            << QByteArray("clheEdit") << QByteArray("clheSlider") << QByteArray("30000") << 10000
            << QByteArray("camera.setClhe(30000)");
        QTest::newRow("threshold")
            << QByteArray("SharpeningTHEdit") << QByteArray("SharpeningTHSlider")
            << QByteArray("254.9") << 2000
            << QByteArray("camera.configureEdgeCorrection(0, 10, 254)");
        QTest::newRow("threshold at its end")
            << QByteArray("SharpeningTHEdit") << QByteArray("SharpeningTHSlider")
            << QByteArray("255.0") << 2000
            << QByteArray("camera.configureEdgeCorrection(0, 10, 255)");
        QTest::newRow("GMS") << QByteArray("gmsEdit") << QByteArray("gmsSlider") << QByteArray("60")
                             << 50 << QByteArray("camera.setGms(60)");
        QTest::newRow("GMS beyond an int")
            << QByteArray("gmsEdit") << QByteArray("gmsSlider") << QByteArray("4294967295") << 50
            << QByteArray("camera.setGms(4294967295)");
        // One more than 32 bits hold: the low 32 bits travel.
        QTest::newRow("GMS at its end")
            << QByteArray("gmsEdit") << QByteArray("gmsSlider") << QByteArray("4294967296") << 50
            << QByteArray("camera.setGms(0)");
    }

    void aValueBeyondTheSliderStaysWhenTheSliderStoodAtItsEnd()
    {
        QFETCH(QByteArray, spinBox);
        QFETCH(QByteArray, slider);
        QFETCH(QByteArray, value);
        QFETCH(int, end);
        QFETCH(QByteArray, sent);
        kit::Operator user;
        connectCamera(user);
        user.find<QSlider>(slider).setValue(end);
        paste(user, spinBox, value);
        QCOMPARE(user.sliderValue(slider), end);
        QCOMPARE(user.text(spinBox), QString::fromLatin1(value));
        user.press(spinBox, Qt::Key_Tab);
        QCOMPARE(user.text(spinBox), QString::fromLatin1(value));
        QCOMPARE(user.calls(), call(sent));
    }

    // Digit by digit the slider leaves its end, so the last digit finds it elsewhere.
    void aValueTypedDigitByDigitBeyondTheSliderIsCutBackFromAnywhere_data()
    {
        QTest::addColumn<int>("from");
        QTest::newRow("slider below its end") << 2500;
        QTest::newRow("slider at its end") << 10000;
    }

    void aValueTypedDigitByDigitBeyondTheSliderIsCutBackFromAnywhere()
    {
        QFETCH(int, from);
        kit::Operator user;
        connectCamera(user);
        user.find<QSlider>("clheSlider").setValue(from);
        user.type("clheEdit", "20000");
        QCOMPARE(user.sliderValue("clheSlider"), 10000);
        QCOMPARE(user.text("clheEdit"), QStringLiteral("10000"));
        QCOMPARE(user.calls(), call("camera.setClhe(10000)"));
    }

    void anArrowKeyInTheSpinBoxPassesTheEndOfTheSlider()
    {
        kit::Operator user;
        connectCamera(user);
        user.find<QSlider>("clheSlider").setValue(10000);
        user.press("clheEdit", Qt::Key_Up);
        QCOMPARE(user.text("clheEdit"), QStringLiteral("10001"));
        QCOMPARE(user.sliderValue("clheSlider"), 10000);
        user.press("clheEdit", Qt::Key_Tab);
        QCOMPARE(user.calls(), call("camera.setClhe(10001)"));
    }

    void aValueOfTheCameraBeyondTheSliderStopsAtItsEnd()
    {
        kit::Operator user;
        user.sdk.camera.clhe = 20000;
        user.sdk.camera.edgeCorrection.firstThreshold = 255;
        connectCamera(user);
        QCOMPARE(user.sliderValue("clheSlider"), 10000);
        QCOMPARE(user.text("clheEdit"), QStringLiteral("10000"));
        QCOMPARE(user.sliderValue("SharpeningTHSlider"), 2000);
        QCOMPARE(user.text("SharpeningTHEdit"), QStringLiteral("200.0"));
    }
};

TAVREL_TEST_MAIN(TestValuesCoupling)
#include "tst_values_coupling.moc"
