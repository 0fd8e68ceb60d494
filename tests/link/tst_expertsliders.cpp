// SPDX-License-Identifier: MIT
// Ranges and values of the four expert controls, taken from the SDK configuration.
#include "tests/kit/operator.h"

#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QSlider>

#include <limits>

namespace {

using Configuration = ombrix_sdk::ISdkConfiguration;

struct Row {
    const char* name;
    const char* slider;
    const char* spinBox;
    std::int32_t Configuration::*value;
    std::int32_t Configuration::*minimum;
    std::int32_t Configuration::*maximum;
    bool spinBoxHasLimits;
};

const Row rows[] = {
    {"GSK", "gskSlider", "gskEdit", &Configuration::gskValue, &Configuration::gskMin,
     &Configuration::gskMax, true},
    {"GFID", "gfidSlider", "gfidEdit", &Configuration::gfidValue, &Configuration::gfidMin,
     &Configuration::gfidMax, true},
    {"GMS", "gmsSlider", "gmsEdit", &Configuration::gmsValue, &Configuration::gmsMin,
     &Configuration::gmsMax, false},
    {"TINT", "tintSlider", "tintEdit", &Configuration::tintValue, &Configuration::tintMin,
     &Configuration::tintMax, true},
};

constexpr double gmsFormMaximum = 4294967296.0;

void addRows()
{
    QTest::addColumn<int>("index");
    int index = 0;
    for (const Row& row : rows) {
        QTest::newRow(row.name) << index++;
    }
}

const Row& row()
{
    QFETCH(int, index);
    return rows[index];
}

} // namespace

class TestExpertSliders : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aFreshWindowShowsTheConfiguredValueAndLimits_data() { addRows(); }
    void aFreshWindowShowsTheConfiguredValueAndLimits()
    {
        kit::Operator user;
        Configuration& configuration = user.sdk.configurationObject();
        configuration.*row().minimum = 100;
        configuration.*row().maximum = 900;
        configuration.*row().value = 345;
        const auto& slider = user.find<QSlider>(row().slider);
        QCOMPARE(slider.minimum(), 100);
        QCOMPARE(slider.maximum(), 900);
        QCOMPARE(slider.value(), 345);
        const auto& spinBox = user.find<QDoubleSpinBox>(row().spinBox);
        QCOMPARE(spinBox.minimum(), row().spinBoxHasLimits ? 100.0 : 0.0);
        QCOMPARE(spinBox.maximum(), row().spinBoxHasLimits ? 900.0 : gmsFormMaximum);
        QCOMPARE(spinBox.value(), 345.0);
    }

    void everySliderStandsLevelWithTheSameSteps_data() { addRows(); }
    void everySliderStandsLevelWithTheSameSteps()
    {
        kit::Operator user;
        const auto& slider = user.find<QSlider>(row().slider);
        QCOMPARE(slider.orientation(), Qt::Horizontal);
        QCOMPARE(slider.tickInterval(), 1);
        QCOMPARE(slider.singleStep(), 1);
        QCOMPARE(slider.pageStep(), 10);
        QCOMPARE(user.find<QDoubleSpinBox>(row().spinBox).singleStep(), 1.0);
    }

    void aConnectionSetsEverythingUpAgain_data() { addRows(); }
    void aConnectionSetsEverythingUpAgain()
    {
        kit::Operator user;
        user.start();
        auto& slider = user.find<QSlider>(row().slider);
        auto& spinBox = user.find<QDoubleSpinBox>(row().spinBox);
        slider.setEnabled(false);
        slider.setOrientation(Qt::Vertical);
        slider.setTickInterval(5);
        slider.setSingleStep(5);
        slider.setPageStep(5);
        spinBox.setSingleStep(5);
        Configuration& configuration = user.sdk.configurationObject();
        configuration.*row().minimum = -7;
        configuration.*row().maximum = 70;
        configuration.*row().value = 7;
        user.connectCamera();
        QVERIFY(slider.isEnabled());
        QCOMPARE(slider.orientation(), Qt::Horizontal);
        QCOMPARE(slider.tickInterval(), 1);
        QCOMPARE(slider.singleStep(), 1);
        QCOMPARE(slider.pageStep(), 10);
        QCOMPARE(slider.minimum(), -7);
        QCOMPARE(slider.maximum(), 70);
        QCOMPARE(slider.value(), 7);
        QCOMPARE(spinBox.minimum(), row().spinBoxHasLimits ? -7.0 : 0.0);
        QCOMPARE(spinBox.maximum(), row().spinBoxHasLimits ? 70.0 : gmsFormMaximum);
        QCOMPARE(spinBox.value(), 7.0);
        QCOMPARE(spinBox.singleStep(), 1.0);
    }

    void aFailedReadOfTheUserParametersSetsThemUpAllTheSame()
    {
        kit::Operator user;
        user.ports.plug(QStringLiteral("ttyUSB0"));
        user.click("scanDeviceButton");
        user.sdk.camera.versions = 0;
        user.sdk.configurationObject().tintValue = 17;
        user.expectBox({.title = "Camera not connected", .text = "Unable to connect to ttyUSB0"});
        user.click("connectDeviceButton");
        QCOMPARE(user.sliderValue("tintSlider"), 17);
    }

    void aCameraThatDoesNotAnswerLeavesThemAlone()
    {
        kit::Operator user;
        user.ports.plug(QStringLiteral("ttyUSB0"));
        user.click("scanDeviceButton");
        user.sdk.answer("camera.connect", 0);
        user.sdk.configurationObject().tintValue = 17;
        user.click("connectDeviceButton");
        QCOMPARE(user.sliderValue("tintSlider"), 5);
    }

    void aValueAboveItsMaximumIsClampedExceptInTheGmsBox_data() { addRows(); }
    void aValueAboveItsMaximumIsClampedExceptInTheGmsBox()
    {
        kit::Operator user;
        Configuration& configuration = user.sdk.configurationObject();
        configuration.*row().minimum = 0;
        configuration.*row().maximum = 50;
        configuration.*row().value = 60;
        QCOMPARE(user.sliderValue(row().slider), 50);
        QCOMPARE(user.find<QDoubleSpinBox>(row().spinBox).value(),
                 row().spinBoxHasLimits ? 50.0 : 60.0);
        user.connectCamera();
        QCOMPARE(user.sliderValue(row().slider), 50);
        QCOMPARE(user.find<QDoubleSpinBox>(row().spinBox).value(),
                 row().spinBoxHasLimits ? 50.0 : 60.0);
    }

    void aValueBelowItsMinimumIsRaised_data() { addRows(); }
    void aValueBelowItsMinimumIsRaised()
    {
        kit::Operator user;
        Configuration& configuration = user.sdk.configurationObject();
        configuration.*row().minimum = 10;
        configuration.*row().maximum = 50;
        configuration.*row().value = 5;
        QCOMPARE(user.sliderValue(row().slider), 10);
        QCOMPARE(user.find<QDoubleSpinBox>(row().spinBox).value(),
                 row().spinBoxHasLimits ? 10.0 : 5.0);
    }

    void limitsTooFarApartForASliderEndItEarlier_data() { addRows(); }
    void limitsTooFarApartForASliderEndItEarlier()
    {
        kit::Operator user;
        Configuration& configuration = user.sdk.configurationObject();
        configuration.*row().minimum = -1;
        configuration.*row().maximum = std::numeric_limits<std::int32_t>::max();
        user.sdk.configuration.expertMode = 1;
        user.connectCamera();
        user.showTab("Expert");
        auto& slider = user.find<QSlider>(row().slider);
        QCOMPARE(slider.minimum(), -1);
        QCOMPARE(slider.maximum(), std::numeric_limits<int>::max() - 1);
        // Painting places the handle, which Qt cannot do on a longer scale.
        QVERIFY(!slider.grab().isNull());
    }

    void theWidestLimitsFit_data() { addRows(); }
    void theWidestLimitsFit()
    {
        kit::Operator user;
        Configuration& configuration = user.sdk.configurationObject();
        configuration.*row().minimum = 0;
        configuration.*row().maximum = std::numeric_limits<std::int32_t>::max();
        configuration.*row().value = std::numeric_limits<std::int32_t>::max();
        QCOMPARE(user.sliderValue(row().slider), std::numeric_limits<int>::max());
        QCOMPARE(user.find<QDoubleSpinBox>(row().spinBox).value(), 2147483647.0);
    }

    void theFourPairsAreSetUpInTheirOrder()
    {
        kit::Operator user;
        user.start();
        QStringList order;
        for (const Row& pair : rows) {
            connect(&user.find<QSlider>(pair.slider), &QSlider::valueChanged, this,
                    [&order, &pair] { order.append(QString::fromLatin1(pair.name)); });
            user.sdk.configurationObject().*pair.maximum = 100;
            user.sdk.configurationObject().*pair.value = 77;
        }
        user.connectCamera();
        // A slider may move to and fro until its spin box has the new range as well.
        order.removeDuplicates();
        QCOMPARE(order, kit::lines({"GSK", "GFID", "GMS", "TINT"}));
    }

    void settingThemUpSendsNothingToTheCamera()
    {
        kit::Operator user;
        user.ports.plug(QStringLiteral("ttyUSB0"));
        user.click("scanDeviceButton");
        for (const Row& pair : rows) {
            user.sdk.configurationObject().*pair.maximum = 100;
            user.sdk.configurationObject().*pair.value = 77;
        }
        user.click("connectDeviceButton");
        for (const char* const operation :
             {"camera.setGsk", "camera.setGfid", "camera.setGms", "camera.setTint"}) {
            QCOMPARE(user.sdk.count(operation), 0);
        }
    }

    void inExpertModeTheCamerasValuesWin()
    {
        kit::Operator user;
        user.sdk.configuration.expertMode = 1;
        user.sdk.configurationObject().tintValue = 5;
        user.sdk.camera.tint = 9;
        user.connectCamera();
        QCOMPARE(user.sliderValue("tintSlider"), 9);
    }
};

TAVREL_TEST_MAIN(TestExpertSliders)
#include "tst_expertsliders.moc"
