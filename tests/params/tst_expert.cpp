// SPDX-License-Identifier: MIT
// The Expert tab as a whole: its limits from the configuration, reading it, and applying it.
#include "tests/kit/operator.h"

#include <QtCore/QTimer>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QSlider>
#include <QtWidgets/QTabWidget>

#include <array>

namespace {

struct Row {
    const char* name;
    const char* slider;
    const char* spinBox;
    std::int32_t ombrix_sdk::ISdkConfiguration::*value;
    std::int32_t ombrix_sdk::ISdkConfiguration::*minimum;
    std::int32_t ombrix_sdk::ISdkConfiguration::*maximum;
    std::uint32_t recording::CameraState::*state;
    bool spinBoxHasLimits;
};

using Configuration = ombrix_sdk::ISdkConfiguration;
using State = recording::CameraState;

// clang-format off
constexpr Row rows[] = {
    {"GSK", "gskSlider", "gskEdit", &Configuration::gskValue,
     &Configuration::gskMin, &Configuration::gskMax, &State::gsk, true},
    {"GFID", "gfidSlider", "gfidEdit", &Configuration::gfidValue,
     &Configuration::gfidMin, &Configuration::gfidMax, &State::gfid, true},
    {"GMS", "gmsSlider", "gmsEdit", &Configuration::gmsValue,
     &Configuration::gmsMin, &Configuration::gmsMax, &State::gms, false},
    {"TINT", "tintSlider", "tintEdit", &Configuration::tintValue,
     &Configuration::tintMin, &Configuration::tintMax, &State::tint, true},
};
// clang-format on

void everyRow()
{
    QTest::addColumn<const Row*>("row");
    for (const Row& row : rows) {
        QTest::newRow(row.name) << &row;
    }
}

/// Connects with the Expert tab in front and the monitoring off, so that no tick falls among the
/// calls.
void connectExpert(kit::Operator& user)
{
    user.sdk.configuration.expertMode = 1;
    user.connectCamera();
    user.window().findChild<QTimer*>(QString(), Qt::FindDirectChildrenOnly)->stop();
    user.showTab("Expert");
    user.rest();
}

void disconnectAndConnect(kit::Operator& user)
{
    user.click("disconnectDeviceButton");
    user.click("connectDeviceButton");
}

bool apply(kit::Operator& user)
{
    return QMetaObject::invokeMethod(&user.window(), "ApplyParamsExpert");
}

QString tabs(kit::Operator& user)
{
    QStringList titles;
    const auto& widget = user.find<QTabWidget>("tabWidget");
    for (int index = 0; index < widget.count(); ++index) {
        titles.append(widget.tabText(index));
    }
    return titles.join(QStringLiteral(", "));
}

const kit::Box transmissionProblem{.kind = kit::Box::Warning,
                                   .text = "Problem transmitting expert parameters values\n"};

} // namespace

Q_DECLARE_METATYPE(const Row*)

class TestExpert : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // ---- limits and values of the configuration

    void everyRowTakesItsLimitsStepsAndValueFromTheConfiguration_data() { everyRow(); }
    void everyRowTakesItsLimitsStepsAndValueFromTheConfiguration()
    {
        QFETCH(const Row*, row);
        kit::Operator user;
        Configuration& configuration = user.sdk.configurationObject();
        configuration.*row->minimum = -7;
        configuration.*row->maximum = 1234;
        configuration.*row->value = 321;
        const auto& slider = user.find<QSlider>(row->slider);
        QCOMPARE(slider.minimum(), -7);
        QCOMPARE(slider.maximum(), 1234);
        QCOMPARE(slider.value(), 321);
        QCOMPARE(slider.orientation(), Qt::Horizontal);
        QCOMPARE(slider.tickInterval(), 1);
        QCOMPARE(slider.singleStep(), 1);
        QCOMPARE(slider.pageStep(), 10);
        const auto& spinBox = user.find<QDoubleSpinBox>(row->spinBox);
        QCOMPARE(spinBox.minimum(), row->spinBoxHasLimits ? -7.0 : 0.0);
        QCOMPARE(spinBox.maximum(), row->spinBoxHasLimits ? 1234.0 : 4294967296.0);
        QCOMPARE(spinBox.value(), 321.0);
        QCOMPARE(spinBox.singleStep(), 1.0);
    }

    void aValueOutsideTheLimitsIsShownAtTheNearerOne_data()
    {
        QTest::addColumn<const Row*>("row");
        QTest::addColumn<int>("value");
        QTest::addColumn<int>("slider");
        QTest::addColumn<QString>("spinBox");
        for (const Row& row : rows) {
            const auto add = [&](const char* name, int value, int slider) {
                const QString spinBox =
                    QString::number(row.spinBoxHasLimits ? slider : qMax(value, 0));
                QTest::addRow("%s %s", row.name, name) << &row << value << slider << spinBox;
            };
            add("above", 60, 50);
            add("far above", 2147483647, 50);
            add("at the upper limit", 50, 50);
            add("at the lower limit", 10, 10);
            add("below", 9, 10);
            add("negative", -2147483647, 10);
        }
    }

    void aValueOutsideTheLimitsIsShownAtTheNearerOne()
    {
        QFETCH(const Row*, row);
        QFETCH(int, value);
        QFETCH(int, slider);
        QFETCH(QString, spinBox);
        kit::Operator user;
        Configuration& configuration = user.sdk.configurationObject();
        configuration.*row->minimum = 10;
        configuration.*row->maximum = 50;
        configuration.*row->value = value;
        QCOMPARE(user.sliderValue(row->slider), slider);
        QCOMPARE(user.text(row->spinBox), spinBox);
    }

    // Inverted limits leave the lower one as the only value.
    void equalOrInvertedLimitsLeaveOneValue_data()
    {
        QTest::addColumn<const Row*>("row");
        QTest::addColumn<int>("maximum");
        for (const Row& row : rows) {
            QTest::addRow("%s equal", row.name) << &row << 20;
            QTest::addRow("%s inverted", row.name) << &row << 10;
        }
    }

    void equalOrInvertedLimitsLeaveOneValue()
    {
        QFETCH(const Row*, row);
        QFETCH(int, maximum);
        kit::Operator user;
        Configuration& configuration = user.sdk.configurationObject();
        configuration.*row->minimum = 20;
        configuration.*row->maximum = maximum;
        configuration.*row->value = 15;
        user.sdk.camera.*row->state = 17;
        connectExpert(user);
        QCOMPARE(user.sliderValue(row->slider), 20);
        QCOMPARE(user.text(row->spinBox),
                 row->spinBoxHasLimits ? QStringLiteral("20") : QStringLiteral("17"));
    }

    void everyConnectionReadsTheConfigurationAgain_data() { everyRow(); }
    void everyConnectionReadsTheConfigurationAgain()
    {
        QFETCH(const Row*, row);
        kit::Operator user;
        user.connectCamera();
        Configuration& configuration = user.sdk.configurationObject();
        configuration.*row->minimum = 100;
        configuration.*row->maximum = 200;
        configuration.*row->value = 150;
        disconnectAndConnect(user);
        QCOMPARE(user.find<QSlider>(row->slider).minimum(), 100);
        QCOMPARE(user.find<QSlider>(row->slider).maximum(), 200);
        QCOMPARE(user.sliderValue(row->slider), 150);
        QCOMPARE(user.text(row->spinBox), QStringLiteral("150"));
        QCOMPARE(user.find<QDoubleSpinBox>(row->spinBox).minimum(),
                 row->spinBoxHasLimits ? 100.0 : 0.0);
    }

    void everyConnectionSetsTheSlidersUpAgain_data() { everyRow(); }
    void everyConnectionSetsTheSlidersUpAgain()
    {
        QFETCH(const Row*, row);
        kit::Operator user;
        user.connectCamera();
        auto& slider = user.find<QSlider>(row->slider);
        slider.setEnabled(false);
        slider.setOrientation(Qt::Vertical);
        slider.setTickInterval(3);
        slider.setSingleStep(3);
        slider.setPageStep(3);
        auto& spinBox = user.find<QDoubleSpinBox>(row->spinBox);
        spinBox.setSingleStep(3.0);
        disconnectAndConnect(user);
        QVERIFY(slider.isEnabled());
        QCOMPARE(slider.orientation(), Qt::Horizontal);
        QCOMPARE(slider.tickInterval(), 1);
        QCOMPARE(slider.singleStep(), 1);
        QCOMPARE(slider.pageStep(), 10);
        QCOMPARE(spinBox.singleStep(), 1.0);
    }

    void whatTheOperatorLeftIsReplacedByTheConfigurationAtTheNextConnection()
    {
        kit::Operator user;
        connectExpert(user);
        user.dragAndRelease("tintSlider", 7);
        user.click("disconnectDeviceButton");
        user.sdk.configuration.expertMode = 0; // the camera's own values stay unread
        user.click("connectDeviceButton");
        QCOMPARE(user.sliderValue("tintSlider"), 5);
        QCOMPARE(user.text("tintEdit"), QStringLiteral("5"));
    }

    void theConfigurationIsSetUpEvenWhenTheParametersCouldNotBeRead()
    {
        kit::Operator user;
        user.window();
        user.sdk.camera.versions = 0;
        user.sdk.configurationObject().tintValue = 9;
        user.ports.plug(QStringLiteral("ttyUSB0"));
        user.click("scanDeviceButton");
        user.expectBox({.title = "Camera not connected", .text = "Unable to connect to ttyUSB0"});
        user.click("connectDeviceButton");
        QCOMPARE(user.text("tintEdit"), QStringLiteral("9"));
    }

    // ---- expert mode

    void onlyInExpertModeThereIsATabAndARead_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<bool>("tab");
        QTest::addColumn<int>("reads");
        QTest::newRow("off") << 0 << false << 0;
        QTest::newRow("on") << 1 << true << 1;
        // The tab takes any answer but no, the read nothing but yes.
        QTest::newRow("another byte") << 2 << true << 0;
    }

    void onlyInExpertModeThereIsATabAndARead()
    {
        QFETCH(int, mode);
        QFETCH(bool, tab);
        QFETCH(int, reads);
        kit::Operator user;
        user.sdk.configuration.expertMode = static_cast<std::uint8_t>(mode);
        const QString userTabs = QStringLiteral("Image Processing, LUT, Zoom, Edge, Bad Pixels");
        QCOMPARE(tabs(user), tab ? userTabs + QStringLiteral(", Expert") : userTabs);
        user.ports.plug(QStringLiteral("ttyUSB0"));
        user.click("scanDeviceButton");
        user.click("connectDeviceButton");
        QCOMPARE(user.log().count(QStringLiteral("Start reading camera expert parameters")), reads);
        for (const char* const operation :
             {"camera.getGsk", "camera.getGfid", "camera.getGms", "camera.getTint",
              "camera.getBprCorrection", "camera.getOffsetCorrection", "camera.getGainCorrection",
              "camera.getVerticalFlip"}) {
            QCOMPARE(user.sdk.count(operation), reads);
        }
    }

    void theExpertReadFollowsTheOtherEvenIfThatFailed()
    {
        kit::Operator user;
        user.sdk.configuration.expertMode = 1;
        user.sdk.camera.versions = 0;
        user.ports.plug(QStringLiteral("ttyUSB0"));
        user.click("scanDeviceButton");
        user.expectBox({.title = "Camera not connected", .text = "Unable to connect to ttyUSB0"});
        user.click("connectDeviceButton");
        const QStringList log = user.log();
        QCOMPARE(
            log.value(log.indexOf(QStringLiteral("End Read camera parameters : COM Error")) + 1),
            QStringLiteral("Start reading camera expert parameters"));
        QCOMPARE(log.last(), QStringLiteral("End reading camera expert parameters"));
    }

    // ---- reading

    void aReadShowsEveryValueAndSwitchInItsOrder_data()
    {
        QTest::addColumn<int>("answer");
        QTest::addColumn<QString>("word");
        QTest::addColumn<QString>("flipWord");
        QTest::newRow("all on") << 1 << QStringLiteral("Enabled") << QStringLiteral("Activated");
        QTest::newRow("all on, other bytes")
            << 170 << QStringLiteral("Enabled") << QStringLiteral("Activated");
        QTest::newRow("all off") << 0 << QStringLiteral("Disabled")
                                 << QStringLiteral("Deactivated");
    }

    void aReadShowsEveryValueAndSwitchInItsOrder()
    {
        QFETCH(int, answer);
        QFETCH(QString, word);
        QFETCH(QString, flipWord);
        kit::Operator user;
        connectExpert(user);
        user.sdk.camera.gsk = 3;
        user.sdk.camera.gfid = 77;
        user.sdk.camera.gms = 11;
        user.sdk.camera.tint = 13;
        user.sdk.camera.bprCorrection = user.sdk.camera.offsetCorrection =
            user.sdk.camera.gainCorrection = user.sdk.camera.verticalFlip =
                static_cast<std::uint8_t>(answer);
        user.click("readParamButtonExpert");
        QCOMPARE(user.journal(),
                 QStringList(
                     {QStringLiteral("log 2: Start reading camera expert parameters"),
                      QStringLiteral("sdk.getConfiguration()"), QStringLiteral("camera.getGsk()"),
                      QStringLiteral("log 2: GSK value = 3"), QStringLiteral("camera.getGfid()"),
                      QStringLiteral("log 2: GFID value = 77"), QStringLiteral("camera.getGms()"),
                      QStringLiteral("log 2: GMS value = 11"), QStringLiteral("camera.getTint()"),
                      QStringLiteral("log 2: TINT value = 13"),
                      QStringLiteral("camera.getBprCorrection()"),
                      QStringLiteral("log 2: BPR state = ") + word,
                      QStringLiteral("camera.getOffsetCorrection()"),
                      QStringLiteral("log 2: OFFSET state = ") + word,
                      QStringLiteral("camera.getGainCorrection()"),
                      QStringLiteral("log 2: GAIN state = ") + word,
                      QStringLiteral("camera.getVerticalFlip()"),
                      QStringLiteral("log 2: vertical flip = ") + flipWord,
                      QStringLiteral("log 2: End reading camera expert parameters")}));
        QStringList shown;
        for (const Row& row : rows) {
            shown << QString::number(user.sliderValue(row.slider)) << user.text(row.spinBox);
        }
        QCOMPARE(shown, kit::lines({"3", "3", "77", "77", "11", "11", "13", "13"}));
    }

    void aReadSetsEachSwitchByItself_data()
    {
        QTest::addColumn<QByteArray>("button");
        QTest::addColumn<QByteArray>("operation");
        QTest::addColumn<QString>("captionOn");
        QTest::addColumn<QString>("captionOff");
        const auto add = [](const char* button, const char* operation, const char* feature) {
            QTest::newRow(button) << QByteArray(button) << QByteArray(operation)
                                  << QString::fromLatin1(feature) + QStringLiteral(": Activated")
                                  << QString::fromLatin1(feature) + QStringLiteral(": Deactivated");
        };
        add("enableBprPB", "camera.getBprCorrection", "BPR Correction");
        add("enableOffsetPB", "camera.getOffsetCorrection", "Offset Correction");
        add("enableGainPB", "camera.getGainCorrection", "Gain Correction");
        add("verticalFlipButton", "camera.getVerticalFlip", "Vertical flip");
    }

    void aReadSetsEachSwitchByItself()
    {
        QFETCH(QByteArray, button);
        QFETCH(QByteArray, operation);
        QFETCH(QString, captionOn);
        QFETCH(QString, captionOff);
        kit::Operator user;
        connectExpert(user);
        QVERIFY(!user.checked(button));
        QCOMPARE(user.text(button), captionOff);
        user.sdk.answer(operation.toStdString(), 1);
        user.click("readParamButtonExpert");
        QVERIFY(user.checked(button));
        QCOMPARE(user.text(button), captionOn);
        user.sdk.answer(operation.toStdString(), 0);
        user.click("readParamButtonExpert");
        QVERIFY(!user.checked(button));
        QCOMPARE(user.text(button), captionOff);
        // Reading writes nothing back.
        QCOMPARE(user.calls(), QStringList());
    }

    void aValueOfTheCameraOutsideTheLimitsIsLoggedAsReadAndShownAtTheNearerOne_data()
    {
        QTest::addColumn<const Row*>("row");
        QTest::addColumn<quint32>("value");
        QTest::addColumn<int>("slider");
        for (const Row& row : rows) {
            const auto add = [&](quint32 value, int slider) {
                QTest::addRow("%s %u", row.name, value) << &row << value << slider;
            };
            add(0, 10);
            add(51, 50);
            add(2147483647U, 50);
            add(2147483648U, 50);
            add(4294967295U, 50);
        }
    }

    void aValueOfTheCameraOutsideTheLimitsIsLoggedAsReadAndShownAtTheNearerOne()
    {
        QFETCH(const Row*, row);
        QFETCH(quint32, value);
        QFETCH(int, slider);
        kit::Operator user;
        Configuration& configuration = user.sdk.configurationObject();
        configuration.*row->minimum = 10;
        configuration.*row->maximum = 50;
        configuration.*row->value = 30;
        user.sdk.camera.*row->state = 30;
        connectExpert(user);
        user.sdk.camera.*row->state = value;
        user.click("readParamButtonExpert");
        QCOMPARE(
            user.newLog().filter(QLatin1String(row->name) + QStringLiteral(" value")),
            QStringList(QStringLiteral("%1 value = %2").arg(QLatin1String(row->name)).arg(value)));
        QCOMPARE(user.sliderValue(row->slider), slider);
        // The spin box without limits shows what the camera has.
        QCOMPARE(user.text(row->spinBox),
                 row->spinBoxHasLimits ? QString::number(slider) : QString::number(value));
    }

    // ---- applying to the camera

    void anApplySendsTintBeforeGmsAndNoVerticalFlipThenSaves()
    {
        kit::Operator user;
        connectExpert(user);
        user.choose("BaudRateCB", "921600");
        user.click("PermanentButton");
        user.find<QDoubleSpinBox>("gskEdit").setValue(3);
        user.find<QDoubleSpinBox>("gfidEdit").setValue(77);
        user.find<QDoubleSpinBox>("gmsEdit").setValue(11);
        user.find<QDoubleSpinBox>("tintEdit").setValue(13);
        user.rest();
        QVERIFY(apply(user));
        QCOMPARE(user.journal(), allAccepted());
        QCOMPARE(user.newLog().size(), 10);
    }

    void oneRefusedStepChangesNothingButItsLine_data()
    {
        QTest::addColumn<QByteArray>("operation");
        QTest::addColumn<QString>("ok");
        QTest::addColumn<QString>("ko");
        const auto add = [](const char* operation, const char* name) {
            QTest::newRow(operation)
                << QByteArray(operation)
                << QStringLiteral("log 2: Set %1 value OK").arg(QLatin1String(name))
                << QStringLiteral("log 2: Set %1 value KO").arg(QLatin1String(name));
        };
        add("camera.setGsk", "GSK");
        add("camera.setGfid", "GFID");
        add("camera.setTint", "TINT");
        add("camera.setGms", "GMS");
        add("camera.setBprCorrection", "BPR correction");
        add("camera.setOffsetCorrection", "Offset correction");
        add("camera.setGainCorrection", "Gain correction");
    }

    void oneRefusedStepChangesNothingButItsLine()
    {
        QFETCH(QByteArray, operation);
        QFETCH(QString, ok);
        QFETCH(QString, ko);
        kit::Operator user;
        connectAndPrepare(user);
        user.sdk.answer(operation.toStdString(), 0);
        QVERIFY(apply(user));
        QStringList expected = allAccepted();
        QCOMPARE(expected.count(ok), 1);
        expected.replace(expected.indexOf(ok), ko);
        QCOMPARE(user.journal(), expected);
    }

    void aRefusedBaudRateAloneWarnsAndSavesNothing()
    {
        kit::Operator user;
        connectAndPrepare(user);
        user.sdk.answer("camera.setBaudRate", 0);
        user.expectBox(transmissionProblem);
        QVERIFY(apply(user));
        QStringList expected = allAccepted();
        expected.replaceInStrings(QStringLiteral("Set Mavlink baud rate value OK"),
                                  QStringLiteral("Set Mavlink baud rate value KO"));
        expected.removeOne(QStringLiteral("sdk.saveConfiguration()"));
        QCOMPARE(user.journal(), expected);
    }

    void anyByteButZeroIsSuccess()
    {
        kit::Operator user;
        connectAndPrepare(user);
        user.sdk.answerEveryCommand(254);
        QVERIFY(apply(user));
        QCOMPARE(user.journal(), allAccepted());
    }

    void everythingRefusedButTheBaudRateWarnsOfNothingAndSaves()
    {
        kit::Operator user;
        connectAndPrepare(user);
        user.sdk.answerEveryCommand(0);
        user.sdk.answer("camera.setBaudRate", 1);
        QVERIFY(apply(user));
        QCOMPARE(user.sdk.count("sdk.saveConfiguration"), 1);
        QCOMPARE(user.newLog(), allRefused("Set Mavlink baud rate value OK"));
    }

    void everythingRefusedWarnsOnceAndStillReachesTheEnd()
    {
        kit::Operator user;
        connectAndPrepare(user);
        user.sdk.answerEveryCommand(0);
        QStringList logBehindTheBox;
        kit::Box announced = transmissionProblem;
        announced.whileOpen = [&](QDialog&) {
            logBehindTheBox = user.newLog();
        };
        user.expectBox(announced);
        QVERIFY(apply(user));
        QCOMPARE(user.sdk.count("sdk.saveConfiguration"), 0);
        QCOMPARE(user.newLog(), allRefused("Set Mavlink baud rate value KO"));
        QCOMPARE(logBehindTheBox, user.newLog().mid(0, 9));
    }

    void anApplySendsTheSwitchesAsTheyStandAndAlignsTheirCaptions_data()
    {
        QTest::addColumn<bool>("accepted");
        QTest::newRow("accepted") << true;
        QTest::newRow("refused") << false;
    }

    void anApplySendsTheSwitchesAsTheyStandAndAlignsTheirCaptions()
    {
        QFETCH(bool, accepted);
        kit::Operator user;
        connectAndPrepare(user);
        // Refused clicks leave the marks on and the captions behind.
        user.sdk.answerEveryCommand(0);
        for (const char* const button : {"enableBprPB", "enableOffsetPB", "enableGainPB"}) {
            user.click(button);
        }
        user.forget();
        user.sdk.answerEveryCommand(accepted ? 1 : 0);
        user.sdk.answer("camera.setBaudRate", 1);
        QVERIFY(apply(user));
        QCOMPARE(user.calls().filter(QStringLiteral("Correction")),
                 kit::lines({"camera.setBprCorrection(true)", "camera.setOffsetCorrection(true)",
                             "camera.setGainCorrection(true)"}));
        const auto caption = [&](const char* feature) {
            return QLatin1String(feature) +
                   (accepted ? QStringLiteral(": Activated") : QStringLiteral(": Deactivated"));
        };
        QCOMPARE(user.text("enableBprPB"), caption("BPR Correction"));
        QCOMPARE(user.text("enableOffsetPB"), caption("Offset Correction"));
        QCOMPARE(user.text("enableGainPB"), caption("Gain Correction"));
    }

    void aGmsBeyondItsSliderIsAppliedFromItsBox_data()
    {
        QTest::addColumn<double>("shown");
        QTest::addColumn<QByteArray>("sent");
        QTest::newRow("beyond the slider") << 60.0 << QByteArray("camera.setGms(60)");
        QTest::newRow("beyond an int") << 4294967295.0 << QByteArray("camera.setGms(4294967295)");
        QTest::newRow("beyond 32 bits") << 4294967296.0 << QByteArray("camera.setGms(0)");
    }

    void aGmsBeyondItsSliderIsAppliedFromItsBox()
    {
        QFETCH(double, shown);
        QFETCH(QByteArray, sent);
        kit::Operator user;
        connectExpert(user);
        user.find<QSlider>("gmsSlider").setValue(50);
        user.find<QDoubleSpinBox>("gmsEdit").setValue(shown);
        QVERIFY(apply(user));
        QCOMPARE(user.calls().filter(QStringLiteral("setGms")), kit::lines({sent}));
    }

    // ---- applying without a camera

    void withoutACameraAReadAsksAndLogsNothing()
    {
        kit::Operator user;
        user.window();
        user.forget();
        QVERIFY(QMetaObject::invokeMethod(&user.window(), "ReadParamsExpert"));
        QCOMPARE(user.calls(recording::Show::Everything), QStringList());
        QCOMPARE(user.newLog(), QStringList());
    }

    void withoutACameraTheValuesGoIntoTheConfigurationAndNothingIsSaved()
    {
        kit::Operator user;
        user.sdk.configurationObject().tintMin = -10;
        user.find<QSlider>("gskSlider").setValue(3);
        user.find<QSlider>("gfidSlider").setValue(77);
        user.find<QSlider>("gmsSlider").setValue(11);
        user.find<QSlider>("tintSlider").setValue(-9);
        user.forget();
        QVERIFY(apply(user));
        QCOMPARE(user.journal(), kit::lines({"log 2: Start applying camera expert parameters",
                                             "sdk.getConfiguration()",
                                             "log 2: End applying camera expert parameters"}));
        QCOMPARE(configured(user), (std::array{3, 77, 11, -9}));
    }

    void withoutACameraGmsIsTakenFromItsBox_data()
    {
        QTest::addColumn<double>("shown");
        QTest::addColumn<int>("stored");
        QTest::newRow("beyond the slider") << 60.0 << 60;
        QTest::newRow("the largest int") << 2147483647.0 << 2147483647;
        QTest::newRow("beyond 32 bits") << 4294967296.0 << 0;
    }

    void withoutACameraGmsIsTakenFromItsBox()
    {
        QFETCH(double, shown);
        QFETCH(int, stored);
        kit::Operator user;
        user.find<QSlider>("gmsSlider").setValue(50);
        user.find<QDoubleSpinBox>("gmsEdit").setValue(shown);
        QVERIFY(apply(user));
        QCOMPARE(user.sdk.configurationObject().gmsValue, stored);
    }

    // The four fields that have limits hold the slider's value, even where the spin box shows
    // another.
    void withoutACameraTheOthersAreTakenFromTheirSliders()
    {
        kit::Operator user;
        user.window();
        for (const char* const spinBox : {"gskEdit", "gfidEdit", "tintEdit"}) {
            const QSignalBlocker noMirror(user.widget(spinBox));
            user.find<QDoubleSpinBox>(spinBox).setValue(1);
        }
        QVERIFY(apply(user));
        QCOMPARE(configured(user), (std::array{2, 300, 40, 5}));
    }

    void whatWasAppliedWithoutACameraIsShownAtTheNextConnection()
    {
        kit::Operator user;
        user.find<QSlider>("tintSlider").setValue(9);
        QVERIFY(apply(user));
        user.find<QSlider>("tintSlider").setValue(1);
        user.connectCamera();
        QCOMPARE(user.sliderValue("tintSlider"), 9);
        QCOMPARE(user.text("tintEdit"), QStringLiteral("9"));
    }

    void afterADisconnectionTheLastCameraIsStillTheOneThatIsAsked()
    {
        kit::Operator user;
        user.sdk.freesWhatIsClosed = false;
        connectExpert(user);
        user.click("disconnectDeviceButton");
        user.forget();
        QVERIFY(apply(user));
        QCOMPARE(user.calls().first(), QStringLiteral("camera.setGsk(2)"));
        QCOMPARE(user.sdk.configurationObject().gskValue, 2);
    }

private:
    /// The values and the baud rate of allAccepted(), and nothing in the journal.
    static void connectAndPrepare(kit::Operator& user)
    {
        user.sdk.camera.gsk = 3;
        user.sdk.camera.gfid = 77;
        user.sdk.camera.gms = 11;
        user.sdk.camera.tint = 13;
        connectExpert(user);
        user.choose("BaudRateCB", "921600");
        user.click("PermanentButton");
        user.rest();
    }

    static QStringList allAccepted()
    {
        return kit::lines(
            {"log 2: Start applying camera expert parameters", "camera.setGsk(3)",
             "log 2: Set GSK value OK", "camera.setGfid(77)", "log 2: Set GFID value OK",
             "camera.setTint(13)", "log 2: Set TINT value OK", "camera.setGms(11)",
             "log 2: Set GMS value OK", "camera.setBprCorrection(false)",
             "log 2: Set BPR correction value OK", "camera.setOffsetCorrection(false)",
             "log 2: Set Offset correction value OK", "camera.setGainCorrection(false)",
             "log 2: Set Gain correction value OK", "camera.setBaudRate(921600, true)",
             "log 2: Set Mavlink baud rate value OK", "sdk.saveConfiguration()",
             "log 2: End applying camera expert parameters"});
    }

    static QStringList allRefused(const char* baudRateLine)
    {
        return kit::lines({"Start applying camera expert parameters", "Set GSK value KO",
                           "Set GFID value KO", "Set TINT value KO", "Set GMS value KO",
                           "Set BPR correction value KO", "Set Offset correction value KO",
                           "Set Gain correction value KO", baudRateLine,
                           "End applying camera expert parameters"});
    }

    static std::array<int, 4> configured(kit::Operator& user)
    {
        const Configuration& configuration = user.sdk.configurationObject();
        return {configuration.gskValue, configuration.gfidValue, configuration.gmsValue,
                configuration.tintValue};
    }
};

TAVREL_TEST_MAIN(TestExpert)
#include "tst_expert.moc"
