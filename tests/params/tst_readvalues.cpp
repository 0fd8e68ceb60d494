// SPDX-License-Identifier: MIT
// The read value by value: what each widget shows, what the log says and what is sent back.
#include "tests/params/switchrows.h"

#include <QtWidgets/QComboBox>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSpinBox>

#include <limits>

namespace {

using State = recording::CameraState;

constexpr std::uint32_t largest = std::numeric_limits<std::uint32_t>::max();

// clang-format off
struct RegionRow {
    const char* name;
    const char* enable; ///< null: always included
    const char* x1;
    const char* y1;
    const char* x2;
    const char* y2;
};

constexpr RegionRow regionRows[] = {
    {"ROI0 inclusive", nullptr,         "Roi0IncX1", "Roi0IncY1", "Roi0IncX2", "Roi0IncY2"},
    {"ROI0 exclusive", "roi0ExcEnable", "Roi0ExcX1", "Roi0ExcY1", "Roi0ExcX2", "Roi0ExcY2"},
    {"ROI1 inclusive", "roi1IncEnable", "Roi1IncX1", "Roi1IncY1", "Roi1IncX2", "Roi1IncY2"},
    {"ROI1 exclusive", "roi1ExcEnable", "Roi1ExcX1", "Roi1ExcY1", "Roi1ExcX2", "Roi1ExcY2"},
};
// clang-format on

void read(kit::Operator& user)
{
    user.forget();
    user.click("readParamButtonUser");
}

/// What a read sends when it changes no list.
QStringList nothing()
{
    return kit::lines({"camera.refresh()"});
}

QStringList sentBack(const char* call)
{
    return nothing() << QString::fromLatin1(call);
}

QStringList newLines(kit::Operator& user, const char* part)
{
    return user.newLog().filter(QLatin1String(part), Qt::CaseInsensitive);
}

} // namespace

class TestReadValues : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aSwitchShowsAndLogsTheCamerasState_data()
    {
        QTest::addColumn<int>("row");
        QTest::addColumn<int>("state");
        for (int row = 0; row < int(std::size(switchrows::rows)); ++row) {
            for (const int state : {0, 1, 2, 128, 255}) {
                QTest::addRow("%s reported as %d", switchrows::rows[row].button, state)
                    << row << state;
            }
        }
    }

    void aSwitchShowsAndLogsTheCamerasState()
    {
        QFETCH(int, row);
        QFETCH(int, state);
        const switchrows::Row& feature = switchrows::rows[row];
        const bool on = state != 0;
        kit::Operator user;
        user.sdk.configuration.expertMode = 1;
        user.sdk.camera.*feature.state = on ? 0 : 1;
        user.connectCamera();
        user.find<QPushButton>(feature.button).setText(QStringLiteral("a foreign caption"));
        user.sdk.camera.*feature.state = static_cast<std::uint8_t>(state);
        user.forget();
        user.click(feature.read());
        QCOMPARE(user.checked(feature.button), on);
        QCOMPARE(user.text(feature.button), feature.shown(on));
        QVERIFY2(user.newLog().contains(QLatin1String(feature.label) +
                                        QLatin1String(on ? feature.wordOn : feature.wordOff)),
                 qPrintable(user.newLog().join(QLatin1Char('\n'))));
        // Nothing is sent back; a read of the user's parameters has the camera refresh them.
        QCOMPARE(user.calls().filter(QStringLiteral("camera.set")), QStringList());
    }

    void aListShowsTheCamerasEntryAndSendsItBack_data()
    {
        QTest::addColumn<QByteArray>("comboBox");
        QTest::addColumn<QByteArray>("getter");
        QTest::addColumn<int>("reported");
        QTest::addColumn<int>("index");
        QTest::addColumn<QString>("sent");
        QTest::addColumn<QStringList>("logged");
        const auto rows = [](const char* comboBox, const char* getter, const char* setter,
                             const char* okLine, const char* label,
                             std::initializer_list<const char*> texts, int outside) {
            int index = 0;
            const auto add = [&](int reported, int shown, const char* text) {
                QTest::addRow("%s %d", comboBox, reported)
                    << QByteArray(comboBox) << QByteArray(getter) << reported << shown
                    << QStringLiteral("%1(%2)").arg(QLatin1String(setter)).arg(shown & 0xFF)
                    << kit::lines({okLine}) +
                           QStringList(QLatin1String(label) + QLatin1String(text));
            };
            for (const char* const text : texts) {
                add(index, index, text);
                ++index;
            }
            // Nothing stands at a place outside the list.
            add(outside, -1, "");
        };
        rows("VideoOutputCB", "camera.getVideoOutput", "camera.setVideoOutput",
             "Set VIDEO OUTPUT value OK", "Video output = ",
             {"RAW", "NUC", "COLUMN CORRECTION", "VIGNETTING CORRECTION", "EDGE ENHANCEMENT",
              "LUT CORRECTION", "RESERVED", "ZOOM", "BT656"},
             200);
        rows("lutColorEdit", "camera.getColorLut", "camera.setColorLut", "Set COLOR LUT value OK",
             "Color Lut = ",
             {"GREYSCALE", "IRON", "HOT", "RAINBOW", "NCAR", "CUBEHELIX", "COOLWARM",
              "GREYSCALE YCbCr"},
             99);
    }

    void aListShowsTheCamerasEntryAndSendsItBack()
    {
        QFETCH(QByteArray, comboBox);
        QFETCH(QByteArray, getter);
        QFETCH(int, reported);
        QFETCH(int, index);
        QFETCH(QString, sent);
        QFETCH(QStringList, logged);
        kit::Operator user;
        user.sdk.answer(getter.constData(), reported == 1 ? 2 : 1);
        user.connectCamera();
        user.sdk.answer(getter.constData(), reported);
        read(user);
        QCOMPARE(user.find<QComboBox>(comboBox).currentIndex(), index);
        QCOMPARE(user.calls(), nothing() << sent);
        const auto start = user.newLog().indexOf(logged.first());
        QCOMPARE(user.newLog().mid(start, 2), logged);
    }

    void theLutMethodIsLoggedInWordsOfItsOwn_data()
    {
        QTest::addColumn<int>("before");
        QTest::addColumn<int>("reported");
        QTest::addColumn<int>("index");
        QTest::addColumn<QString>("sent");
        QTest::addColumn<QString>("logged");
        const QString roi = QStringLiteral("Contrast type = CLHE (ROI)");
        const QString local = QStringLiteral("Contrast type = CLAHE (LOCAL)");
        QTest::newRow("0") << 1 << 0 << 0 << QStringLiteral("camera.configureContrastType(0)")
                           << roi;
        QTest::newRow("1") << 0 << 1 << 1 << QStringLiteral("camera.configureContrastType(1)")
                           << local;
        QTest::newRow("5") << 0 << 5 << -1 << QStringLiteral("camera.configureContrastType(255)")
                           << local;
        QTest::newRow("255") << 1 << 255 << -1
                             << QStringLiteral("camera.configureContrastType(255)") << local;
    }

    void theLutMethodIsLoggedInWordsOfItsOwn()
    {
        QFETCH(int, before);
        QFETCH(int, reported);
        QFETCH(int, index);
        QFETCH(QString, sent);
        QFETCH(QString, logged);
        kit::Operator user;
        user.sdk.camera.contrastType = static_cast<std::uint8_t>(before);
        user.connectCamera();
        user.sdk.camera.contrastType = static_cast<std::uint8_t>(reported);
        read(user);
        QCOMPARE(user.find<QComboBox>("contrastTypeEdit").currentIndex(), index);
        QCOMPARE(user.calls(), nothing() << sent);
        QCOMPARE(newLines(user, "contrast type"), kit::lines({"Configure contrast type OK"})
                                                      << logged);
    }

    void aKnownFrameRateIsShownAndNotSentBack_data()
    {
        QTest::addColumn<int>("hertz");
        QTest::addColumn<QString>("shown");
        for (const int hertz : {9, 25, 30, 50, 60}) {
            QTest::addRow("%d Hz", hertz) << hertz << QStringLiteral("%1Hz").arg(hertz);
        }
    }

    void aKnownFrameRateIsShownAndNotSentBack()
    {
        QFETCH(int, hertz);
        QFETCH(QString, shown);
        kit::Operator user;
        user.sdk.camera.frameRate = hertz == 60 ? 30 : 60;
        user.connectCamera();
        user.sdk.camera.frameRate = static_cast<std::uint8_t>(hertz);
        user.sdk.camera.testPattern = 1;
        read(user);
        QCOMPARE(user.text("frameRateCB"), shown);
        QCOMPARE(user.calls(), nothing());
        QCOMPARE(newLines(user, "frame rate"),
                 QStringList(QStringLiteral("Frame rate = ") + shown));
        QVERIFY(user.checked("TestPatternButton"));
    }

    void anUnknownFrameRateIsShownAsTheSlowestAndCorrected_data() { unknownRates(); }
    void anUnknownFrameRateIsShownAsTheSlowestAndCorrected()
    {
        QFETCH(int, hertz);
        kit::Operator user;
        user.sdk.camera.frameRate = 60;
        user.connectCamera();
        user.sdk.camera.frameRate = static_cast<std::uint8_t>(hertz);
        user.sdk.camera.testPattern = 1;
        read(user);
        QCOMPARE(user.text("frameRateCB"), QStringLiteral("9Hz"));
        QCOMPARE(user.calls(), sentBack("camera.setFrameRate(9)"));
        QCOMPARE(newLines(user, "frame rate"),
                 kit::lines({"Set FRAME RATE value OK", "Frame rate = 9Hz"}));
        // The correction resets the button that the same read had just checked.
        QVERIFY(user.newLog().contains(QStringLiteral("Test pattern value = Enabled")));
        QVERIFY(!user.checked("TestPatternButton"));
        QCOMPARE(user.text("TestPatternButton"), QStringLiteral("Test Pattern: Deactivated"));
    }

    void anUnknownFrameRateIsLeftAloneWhereTheSlowestIsShownAlready_data() { unknownRates(); }
    void anUnknownFrameRateIsLeftAloneWhereTheSlowestIsShownAlready()
    {
        QFETCH(int, hertz);
        kit::Operator user;
        user.connectCamera();
        user.sdk.camera.frameRate = static_cast<std::uint8_t>(hertz);
        read(user);
        QCOMPARE(user.calls(), nothing());
        QCOMPARE(newLines(user, "frame rate"), kit::lines({"Frame rate = 9Hz"}));
    }

    void gammaIsReadFromFixedPoint_data()
    {
        QTest::addColumn<quint32>("reported");
        QTest::addColumn<QString>("logged");
        QTest::addColumn<int>("slider");
        QTest::addColumn<QString>("edit");
        const auto add = [](const char* name, quint32 reported, const char* logged, int slider,
                            const char* edit) {
            QTest::newRow(name) << reported << QString::fromLatin1(logged) << slider
                                << QString::fromLatin1(edit);
        };
        add("2.2", 144179, "2.2", 17, "2.2");
        add("1", 65536, "1", 5, "1.0");
        add("smallest shown", 32768, "0.5", 0, "0.5");
        add("largest shown", 163840, "2.5", 20, "2.5");
        add("a half step goes up", 49152, "0.75", 3, "0.8");
        add("below", 0, "0", 0, "0.5");
        add("above", 196608, "3", 20, "2.5");
        add("largest word", largest, "65536", 20, "2.5");
        // 300.0005 on the way through single precision loses its last digit.
        add("single precision", 19660833, "300", 20, "2.5");
    }

    void gammaIsReadFromFixedPoint()
    {
        QFETCH(quint32, reported);
        QFETCH(QString, logged);
        QFETCH(int, slider);
        QFETCH(QString, edit);
        kit::Operator user;
        user.sdk.camera.gamma = 98304; // 1.5
        user.connectCamera();
        user.sdk.camera.gamma = reported;
        read(user);
        QCOMPARE(newLines(user, "gamma"), QStringList(QStringLiteral("Gamma value = ") + logged));
        QCOMPARE(user.sliderValue("gammaSlider"), slider);
        QCOMPARE(user.text("gammaEdit"), edit);
        QCOMPARE(user.calls(), nothing());
    }

    void aRegionIsShownWithItsEnableBox_data()
    {
        QTest::addColumn<int>("region");
        QTest::addColumn<quint32>("x1");
        QTest::addColumn<bool>("enabledBefore");
        QTest::addColumn<bool>("enabled");
        for (int region = 0; region < 4; ++region) {
            for (const bool before : {true, false}) {
                const auto add = [&](quint32 x1) {
                    QTest::addRow("%s, X1 %u, %s before", regionRows[region].name, x1,
                                  before ? "on" : "off")
                        << region << x1 << before << (x1 != 0);
                };
                add(0);
                add(1);
                add(321);
                add(largest);
            }
        }
    }

    void aRegionIsShownWithItsEnableBox()
    {
        QFETCH(int, region);
        QFETCH(quint32, x1);
        QFETCH(bool, enabledBefore);
        QFETCH(bool, enabled);
        const RegionRow& row = regionRows[region];
        const auto index = static_cast<std::size_t>(region);
        kit::Operator user;
        user.sdk.camera.regions[index].x1 = enabledBefore ? 9 : 0;
        user.connectCamera();
        user.sdk.camera.regions[index] = {x1, 433, 44, 255};
        read(user);
        const QString name = QLatin1String(row.name);
        QCOMPARE(newLines(user, row.name),
                 (QStringList{name + QStringLiteral(" X1 value = %1").arg(x1),
                              name + QStringLiteral(" Y1 value = 44"),
                              name + QStringLiteral(" X2 value = 433"),
                              name + QStringLiteral(" Y2 value = 255")}));
        QCOMPARE(user.text(row.x1), QString::number(qBound(5U, x1, 635U)));
        QCOMPARE(user.text(row.y1), QStringLiteral("44"));
        QCOMPARE(user.text(row.x2), QStringLiteral("433"));
        QCOMPARE(user.text(row.y2), QStringLiteral("255"));
        if (row.enable != nullptr) {
            QCOMPARE(user.checked(row.enable), enabled);
        }
        // The first region is always included; the others are edited only while they are enabled.
        for (const char* const spinBox : {row.x1, row.y1, row.x2, row.y2}) {
            QCOMPARE(user.enabled(spinBox), row.enable == nullptr || enabled);
        }
        QVERIFY(user.checked("checkBox"));
        QVERIFY(!user.enabled("checkBox"));
        QCOMPARE(user.calls(), nothing());
    }

    void regionsBeyondTheFieldsAreShownAtTheirEndsAndLoggedAsTheyAre_data()
    {
        QTest::addColumn<quint32>("reported");
        QTest::addColumn<QString>("xShown");
        QTest::addColumn<QString>("yShown");
        const QString low = QStringLiteral("5");
        QTest::newRow("zero") << quint32{0} << low << low;
        QTest::newRow("beyond an image")
            << quint32{700} << QStringLiteral("635") << QStringLiteral("475");
        QTest::newRow("negative as a signed number")
            << quint32{0x80000000} << QStringLiteral("635") << QStringLiteral("475");
        QTest::newRow("largest") << quint32{largest} << QStringLiteral("635")
                                 << QStringLiteral("475");
    }

    void regionsBeyondTheFieldsAreShownAtTheirEndsAndLoggedAsTheyAre()
    {
        QFETCH(quint32, reported);
        QFETCH(QString, xShown);
        QFETCH(QString, yShown);
        kit::Operator user;
        user.connectCamera();
        user.sdk.camera.regions.fill({reported, reported, reported, reported});
        read(user);
        for (const RegionRow& row : regionRows) {
            QCOMPARE(user.text(row.x1), xShown);
            QCOMPARE(user.text(row.x2), xShown);
            QCOMPARE(user.text(row.y1), yShown);
            QCOMPARE(user.text(row.y2), yShown);
        }
        QCOMPARE(newLines(user, "ROI").filter(QStringLiteral(" value = %1").arg(reported)).size(),
                 16);
    }

    void clheIsShownAsFarAsItsSliderGoes_data()
    {
        QTest::addColumn<quint32>("before");
        QTest::addColumn<quint32>("reported");
        QTest::addColumn<QString>("logged");
        QTest::addColumn<int>("slider");
        QTest::addColumn<QString>("edit");
        const auto add = [](const char* name, quint32 before, quint32 reported, const char* logged,
                            int slider, const char* edit) {
            QTest::newRow(name) << before << reported << QString::fromLatin1(logged) << slider
                                << QString::fromLatin1(edit);
        };
        add("zero", 2000, 0, "0", 0, "0");
        add("in between", 2000, 4321, "4321", 4321, "4321");
        add("the slider's end", 2000, 10000, "10000", 10000, "10000");
        add("one beyond", 2000, 10001, "10001", 10000, "10000");
        add("beyond, at the end already", 10000, 20000, "20000", 10000, "10000");
        add("six digits", 2000, 123456, "123456", 10000, "10000");
        add("seven digits", 2000, 1234567, "1.23457e+06", 10000, "10000");
        add("beyond an int", 2000, 2147483648, "2.14748e+09", 10000, "10000");
        add("largest", 2000, largest, "4.29497e+09", 10000, "10000");
    }

    void clheIsShownAsFarAsItsSliderGoes()
    {
        QFETCH(quint32, before);
        QFETCH(quint32, reported);
        QFETCH(QString, logged);
        QFETCH(int, slider);
        QFETCH(QString, edit);
        kit::Operator user;
        user.sdk.camera.clhe = before;
        user.connectCamera();
        user.sdk.camera.clhe = reported;
        read(user);
        QCOMPARE(newLines(user, "CLHE value"),
                 QStringList(QStringLiteral("CLHE value = ") + logged));
        QCOMPARE(user.sliderValue("clheSlider"), slider);
        QCOMPARE(user.text("clheEdit"), edit);
        QCOMPARE(user.calls(), nothing());
    }

    // A slider that does not move says nothing to its spin box.
    void clheKeepsWhatTheOperatorTypedWhereTheSliderNeedNotMove_data()
    {
        QTest::addColumn<quint32>("reported");
        QTest::newRow("the slider's end") << quint32{10000};
        QTest::newRow("beyond it") << quint32{15000};
    }

    void clheKeepsWhatTheOperatorTypedWhereTheSliderNeedNotMove()
    {
        QFETCH(quint32, reported);
        kit::Operator user;
        user.sdk.camera.clhe = 10000;
        user.connectCamera();
        // Only the first digit changes, so the value never passes the slider's range on its way.
        user.press("clheEdit", Qt::Key_Home);
        user.press("clheEdit", Qt::Key_Right, Qt::ShiftModifier);
        user.press("clheEdit", Qt::Key_2);
        QCOMPARE(user.text("clheEdit"), QStringLiteral("20000"));
        user.rest();
        user.sdk.camera.clhe = reported;
        read(user);
        QCOMPARE(user.sliderValue("clheSlider"), 10000);
        QCOMPARE(user.text("clheEdit"), QStringLiteral("20000"));
        QCOMPARE(newLines(user, "CLHE value"),
                 QStringList(QStringLiteral("CLHE value = %1").arg(reported)));
    }

    void theTemporalFilterIsShownAndLogged_data()
    {
        QTest::addColumn<int>("reported");
        QTest::addColumn<int>("shown");
        QTest::newRow("0") << 0 << 0;
        QTest::newRow("8") << 8 << 8;
        QTest::newRow("beyond") << 9 << 8;
        QTest::newRow("largest") << 255 << 8;
    }

    void theTemporalFilterIsShownAndLogged()
    {
        QFETCH(int, reported);
        QFETCH(int, shown);
        kit::Operator user;
        user.connectCamera();
        user.sdk.camera.lutTemporalFilter = static_cast<std::uint8_t>(reported);
        read(user);
        QCOMPARE(user.text("TempoFilterSpin"), QString::number(shown));
        QCOMPARE(user.sliderValue("TempoFilterSlider"), shown);
        QVERIFY(user.newLog().contains(QStringLiteral("LUT temporal filter = %1").arg(reported)));
        QCOMPARE(user.calls(), nothing());
    }

    void theAhcLimitsAreShownAndLogged_data()
    {
        QTest::addColumn<int>("black");
        QTest::addColumn<int>("white");
        QTest::newRow("smallest") << 0 << 0;
        QTest::newRow("in between") << 61 << 72;
        QTest::newRow("ends") << 100 << 100;
        QTest::newRow("beyond") << 101 << 255;
    }

    void theAhcLimitsAreShownAndLogged()
    {
        QFETCH(int, black);
        QFETCH(int, white);
        kit::Operator user;
        user.connectCamera();
        user.sdk.camera.ahcGains = {static_cast<std::uint8_t>(black),
                                    static_cast<std::uint8_t>(white)};
        read(user);
        QCOMPARE(user.text("AhcBlackGainLimSpin"), QString::number(qMin(black, 100)));
        QCOMPARE(user.text("AhcWhiteGainLimSpin"), QString::number(qMin(white, 100)));
        QCOMPARE(user.sliderValue("AhcBlackGainLimSlider"), qMin(black, 100));
        QCOMPARE(user.sliderValue("AhcWhiteGainLimSlider"), qMin(white, 100));
        QCOMPARE(newLines(user, "AHC"),
                 (QStringList{QStringLiteral("AHC black gain limitation = %1").arg(black),
                              QStringLiteral("AHC white gain limitation = %1").arg(white)}));
        QCOMPARE(user.calls(), nothing());
    }

    // 2 and 255 are success for a command; for this read only 1 is.
    void theAhcLimitsCountOnlyWhenTheAnswerIsExactlyOne_data()
    {
        QTest::addColumn<int>("answer");
        for (const int answer : {0, 2, 255}) {
            QTest::addRow("answered %d", answer) << answer;
        }
    }

    void theAhcLimitsCountOnlyWhenTheAnswerIsExactlyOne()
    {
        QFETCH(int, answer);
        kit::Operator user;
        user.connectCamera();
        user.sdk.camera.ahcGains = {61, 72};
        user.sdk.answer("camera.getAhcGainsLimitation", answer);
        read(user);
        QCOMPARE(user.text("AhcBlackGainLimSpin"), QStringLiteral("10"));
        QCOMPARE(user.text("AhcWhiteGainLimSpin"), QStringLiteral("20"));
        QCOMPARE(newLines(user, "AHC"), kit::lines({"AHC gain limitation read error"}));
    }

    void ahcLimitsThatAreNeverWrittenReadAsZero()
    {
        kit::Operator user;
        user.connectCamera();
        user.sdk.withholdOutput("camera.getAhcGainsLimitation");
        read(user);
        QCOMPARE(newLines(user, "AHC"),
                 kit::lines({"AHC black gain limitation = 0", "AHC white gain limitation = 0"}));
        QCOMPARE(user.text("AhcBlackGainLimSpin"), QStringLiteral("0"));
        QCOMPARE(user.text("AhcWhiteGainLimSpin"), QStringLiteral("0"));
    }

    void theZoomIsShown_data()
    {
        QTest::addColumn<float>("factor");
        QTest::addColumn<int>("method");
        QTest::addColumn<int>("xCenter");
        QTest::addColumn<int>("yCenter");
        QTest::addColumn<QString>("logged");
        QTest::addColumn<QStringList>("shown");
        constexpr int most = std::numeric_limits<int>::max();
        constexpr int least = std::numeric_limits<int>::min();
        QTest::newRow("in between") << 2.5F << 1 << 101 << 202 << QStringLiteral("2.5")
                                    << kit::lines({"2.500", "Bilinear", "101", "202"});
        QTest::newRow("smallest") << 1.0F << 0 << 0 << 0 << QStringLiteral("1")
                                  << kit::lines({"1.000", "Nearest", "0", "0"});
        QTest::newRow("largest") << 8.0F << 1 << 640 << 480 << QStringLiteral("8")
                                 << kit::lines({"8.000", "Bilinear", "640", "480"});
        QTest::newRow("six digits") << 3.3333333F << 1 << 640 << 480 << QStringLiteral("3.33333")
                                    << kit::lines({"3.333", "Bilinear", "640", "480"});
        QTest::newRow("above") << 100.0F << 7 << 641 << 481 << QStringLiteral("100")
                               << kit::lines({"8.000", "", "640", "480"});
        QTest::newRow("far above") << 1.0e30F << 255 << most << most << QStringLiteral("1e+30")
                                   << kit::lines({"8.000", "", "640", "480"});
        QTest::newRow("below") << -0.25F << 0 << -1 << least << QStringLiteral("-0.25")
                               << kit::lines({"1.000", "Nearest", "0", "0"});
    }

    void theZoomIsShown()
    {
        QFETCH(float, factor);
        QFETCH(int, method);
        QFETCH(int, xCenter);
        QFETCH(int, yCenter);
        QFETCH(QString, logged);
        QFETCH(QStringList, shown);
        kit::Operator user;
        user.connectCamera();
        user.sdk.camera.zoom = {factor, xCenter, yCenter, static_cast<std::uint8_t>(method)};
        read(user);
        QCOMPARE((QStringList{user.text("factorZoomEdit"), user.text("methodZoomEdit"),
                              user.text("xCenterZoomEdit"), user.text("yCenterZoomEdit")}),
                 shown);
        QCOMPARE(newLines(user, "ZOOM factor"),
                 QStringList(QStringLiteral("ZOOM factor value = ") + logged));
        QCOMPARE(user.calls(), nothing());
    }

    void theZoomResolutionIsShown_data()
    {
        QTest::addColumn<quint32>("x");
        QTest::addColumn<quint32>("y");
        QTest::addColumn<QStringList>("shown");
        QTest::newRow("in between") << quint32{800} << quint32{600} << kit::lines({"800", "600"});
        QTest::newRow("below") << quint32{0} << quint32{9} << kit::lines({"10", "10"});
        QTest::newRow("above") << quint32{1025} << quint32{769} << kit::lines({"1024", "768"});
        QTest::newRow("beyond an int")
            << quint32{2147483648} << quint32{largest} << kit::lines({"1024", "768"});
    }

    void theZoomResolutionIsShown()
    {
        QFETCH(quint32, x);
        QFETCH(quint32, y);
        QFETCH(QStringList, shown);
        kit::Operator user;
        user.connectCamera();
        user.sdk.camera.zoomResolution = {x, y};
        read(user);
        QCOMPARE((QStringList{user.text("xResolutionZoomEdit"), user.text("yResolutionZoomEdit")}),
                 shown);
        QCOMPARE(newLines(user, "zoom resolution"),
                 (QStringList{QStringLiteral("X zoom resolution = %1").arg(x),
                              QStringLiteral("Y zoom resolution = %1").arg(y)}));
        QCOMPARE(user.calls(), nothing());
    }

    void theEdgeCorrectionIsShownAndLogged_data()
    {
        QTest::addColumn<quint32>("gain");
        QTest::addColumn<quint32>("threshold");
        QTest::addColumn<int>("gainSlider");
        QTest::addColumn<QString>("gainEdit");
        QTest::addColumn<int>("thresholdSlider");
        QTest::addColumn<QString>("thresholdEdit");
        const auto add = [](const char* name, quint32 gain, quint32 threshold, int gainSlider,
                            const char* gainEdit, int thresholdSlider, const char* thresholdEdit) {
            QTest::newRow(name) << gain << threshold << gainSlider << QString::fromLatin1(gainEdit)
                                << thresholdSlider << QString::fromLatin1(thresholdEdit);
        };
        add("in between", 33, 44, 330, "33.0", 440, "44.0");
        add("smallest", 0, 0, 0, "0.0", 0, "0.0");
        add("largest", 1024, 200, 10240, "1024.0", 2000, "200.0");
        add("above", 1025, 201, 10240, "1024.0", 2000, "200.0");
        add("tenfold just beyond an int", 214748365, 214748365, 10240, "1024.0", 2000, "200.0");
        add("tenfold beyond 32 bits", 429496730, 429496730, 10240, "1024.0", 2000, "200.0");
        add("largest words", largest, largest, 10240, "1024.0", 2000, "200.0");
    }

    void theEdgeCorrectionIsShownAndLogged()
    {
        QFETCH(quint32, gain);
        QFETCH(quint32, threshold);
        QFETCH(int, gainSlider);
        QFETCH(QString, gainEdit);
        QFETCH(int, thresholdSlider);
        QFETCH(QString, thresholdEdit);
        kit::Operator user;
        user.connectCamera();
        user.sdk.camera.edgeCorrection = {0, gain, threshold, 90};
        read(user);
        QCOMPARE(user.sliderValue("sharpeningGainSlider"), gainSlider);
        QCOMPARE(user.text("sharpeningGainEdit"), gainEdit);
        QCOMPARE(user.sliderValue("SharpeningTHSlider"), thresholdSlider);
        QCOMPARE(user.text("SharpeningTHEdit"), thresholdEdit);
        QCOMPARE(edgeLines(user), edgeText(0, gain, 50, 90));
        QCOMPARE(user.calls(), nothing());
    }

    void theFirstThresholdIsLoggedAsTheSecondLessForty_data()
    {
        QTest::addColumn<quint32>("second");
        QTest::addColumn<quint32>("first");
        QTest::newRow("above") << quint32{100} << quint32{60};
        QTest::newRow("equal") << quint32{40} << quint32{0};
        QTest::newRow("one below") << quint32{39} << quint32{largest};
        QTest::newRow("30") << quint32{30} << quint32{4294967286};
        QTest::newRow("zero") << quint32{0} << quint32{4294967256};
        QTest::newRow("largest") << quint32{largest} << quint32{4294967255};
    }

    void theFirstThresholdIsLoggedAsTheSecondLessForty()
    {
        QFETCH(quint32, second);
        QFETCH(quint32, first);
        kit::Operator user;
        user.connectCamera();
        user.sdk.camera.edgeCorrection = {0, 33, 44, second};
        read(user);
        QCOMPARE(edgeLines(user), edgeText(0, 33, first, second));
        QCOMPARE(user.text("SharpeningTHEdit"), QStringLiteral("44.0"));
    }

    void anEdgeCorrectionTypeIsSentBackWithTheOldGainAndThreshold_data()
    {
        QTest::addColumn<int>("reported");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<QString>("sent");
        QTest::newRow("Sharpening") << 1 << QStringLiteral("Sharpening")
                                    << QStringLiteral("camera.configureEdgeCorrection(1, 10, 20)");
        QTest::newRow("Contouring") << 2 << QStringLiteral("Contouring")
                                    << QStringLiteral("camera.configureEdgeCorrection(2, 10, 20)");
        QTest::newRow("outside the list")
            << 7 << QString() << QStringLiteral("camera.configureEdgeCorrection(255, 10, 20)");
    }

    void anEdgeCorrectionTypeIsSentBackWithTheOldGainAndThreshold()
    {
        QFETCH(int, reported);
        QFETCH(QString, shown);
        QFETCH(QString, sent);
        kit::Operator user;
        user.connectCamera();
        const auto type = static_cast<std::uint8_t>(reported);
        user.sdk.camera.edgeCorrection = {type, 33, 44, 90};
        read(user);
        QCOMPARE(user.calls(), nothing() << sent);
        QCOMPARE(user.text("EdgeCorrectionCB"), shown);
        QCOMPARE(user.text("sharpeningGainEdit"), QStringLiteral("33.0"));
        QCOMPARE(user.text("SharpeningTHEdit"), QStringLiteral("44.0"));
        QCOMPARE(edgeLines(user), edgeText(type, 33, 50, 90));
    }

    // The camera's own record changes with the type that is sent back in the middle of the read.
    void anEdgeCorrectionInTheCamerasOwnRecordIsShownAsItWasRead()
    {
        kit::Operator user;
        user.connectCamera();
        user.sdk.camera.edgeCorrectionFromInside = true;
        user.sdk.camera.edgeCorrection = {2, 33, 44, 90};
        read(user);
        QCOMPARE(user.calls(), sentBack("camera.configureEdgeCorrection(2, 10, 20)"));
        QCOMPARE(user.sdk.camera.edgeCorrection.gain, 10U);
        QCOMPARE(user.text("sharpeningGainEdit"), QStringLiteral("33.0"));
        QCOMPARE(user.text("SharpeningTHEdit"), QStringLiteral("44.0"));
        QCOMPARE(edgeLines(user), edgeText(2, 33, 50, 90));
    }

    void anEdgeCorrectionThatIsNeverWrittenReadsAsZero_data()
    {
        QTest::addColumn<bool>("withoutRecord");
        QTest::newRow("no record") << true;
        QTest::newRow("the area as it was") << false;
    }

    void anEdgeCorrectionThatIsNeverWrittenReadsAsZero()
    {
        QFETCH(bool, withoutRecord);
        kit::Operator user;
        user.connectCamera();
        if (withoutRecord) {
            user.sdk.answer("camera.getEdgeCorrection", 0);
        } else {
            user.sdk.withholdOutput("camera.getEdgeCorrection");
        }
        read(user);
        QCOMPARE(user.text("EdgeCorrectionCB"), QStringLiteral("None"));
        QCOMPARE(user.text("sharpeningGainEdit"), QStringLiteral("0.0"));
        QCOMPARE(user.text("SharpeningTHEdit"), QStringLiteral("0.0"));
        QCOMPARE(edgeLines(user), edgeText(0, 0, 4294967256, 0));
        QCOMPARE(user.newLog().last(), QStringLiteral("End reading camera parameters"));
    }

private:
    static void unknownRates()
    {
        QTest::addColumn<int>("hertz");
        for (const int hertz : {0, 1, 24, 61, 255}) {
            QTest::addRow("%d Hz", hertz) << hertz;
        }
    }

    /// The last lines of a read, those of the edge correction.
    static QStringList edgeLines(kit::Operator& user)
    {
        const QStringList log = user.newLog();
        return log.mid(log.size() - 5, 4);
    }

    static QStringList edgeText(quint32 type, quint32 gain, quint32 first, quint32 second)
    {
        return {QStringLiteral("Correction type = %1").arg(type),
                QStringLiteral("Correction gain = %1").arg(gain),
                QStringLiteral("First threshold = %1").arg(first),
                QStringLiteral("Second threshold = %1").arg(second)};
    }
};

TAVREL_TEST_MAIN(TestReadValues)
#include "tst_readvalues.moc"
