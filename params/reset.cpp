// SPDX-License-Identifier: MIT
// Applying every user parameter at once, and putting the SDK's defaults back.
#include "app/mainwindow.h"
#include "link/connectionwatch.h"
#include "params/conversions.h"
#include "params/framerate.h"
#include "params/regions.h"

using ombrix_sdk::ISdkConfiguration;
using tavrel::saturatedInt;

namespace {

using Ui = Ui_MainWindow;
using Configuration = ISdkConfiguration;

struct CoordinateDefault {
    QSpinBox* Ui::*spinBox;
    double (Configuration::*get)();
};

struct EnableDefault {
    QCheckBox* Ui::*checkBox;
    ombrix_sdk::Flag (Configuration::*get)();
};

// clang-format off
constexpr CoordinateDefault roi0Inclusive[] = {
    {&Ui::Roi0IncX1, &Configuration::getDefaultRoi0IncX1},
    {&Ui::Roi0IncY1, &Configuration::getDefaultRoi0IncY1},
    {&Ui::Roi0IncX2, &Configuration::getDefaultRoi0IncX2},
    {&Ui::Roi0IncY2, &Configuration::getDefaultRoi0IncY2},
};

constexpr EnableDefault roi0ExclusiveEnable{&Ui::roi0ExcEnable, &Configuration::getDefaultRoi0ExcEnable};
constexpr CoordinateDefault roi0Exclusive[] = {
    {&Ui::Roi0ExcX1, &Configuration::getDefaultRoi0ExcX1},
    {&Ui::Roi0ExcX2, &Configuration::getDefaultRoi0ExcX2},
    {&Ui::Roi0ExcY1, &Configuration::getDefaultRoi0ExcY1},
    {&Ui::Roi0ExcY2, &Configuration::getDefaultRoi0ExcY2},
};

constexpr EnableDefault roi1InclusiveEnable{&Ui::roi1IncEnable, &Configuration::getDefaultRoi1IncEnable};
constexpr CoordinateDefault roi1Inclusive[] = {
    {&Ui::Roi1IncX1, &Configuration::getDefaultRoi1IncX1},
    {&Ui::Roi1IncX2, &Configuration::getDefaultRoi1IncX2},
    {&Ui::Roi1IncY1, &Configuration::getDefaultRoi1IncY1},
    {&Ui::Roi1IncY2, &Configuration::getDefaultRoi1IncY2},
};

constexpr EnableDefault roi1ExclusiveEnable{&Ui::roi1ExcEnable, &Configuration::getDefaultRoi1ExcEnable};
constexpr CoordinateDefault roi1Exclusive[] = {
    {&Ui::Roi1ExcX1, &Configuration::getDefaultRoi1ExcX1},
    {&Ui::Roi1ExcX2, &Configuration::getDefaultRoi1ExcX2},
    {&Ui::Roi1ExcY1, &Configuration::getDefaultRoi1ExcY1},
    {&Ui::Roi1ExcY2, &Configuration::getDefaultRoi1ExcY2},
};
// clang-format on

template<std::size_t size>
void resetRegion(const Ui& ui, Configuration& configuration,
                 const CoordinateDefault (&coordinates)[size])
{
    for (const CoordinateDefault& coordinate : coordinates) {
        (ui.*coordinate.spinBox)->setValue(saturatedInt((configuration.*coordinate.get)()));
    }
}

template<std::size_t size>
void resetRegion(const Ui& ui, Configuration& configuration, const EnableDefault& enable,
                 const CoordinateDefault (&coordinates)[size])
{
    (ui.*enable.checkBox)->setChecked((configuration.*enable.get)() != 0);
    resetRegion(ui, configuration, coordinates);
}

} // namespace

void MainWindow::ApplyParamsUser()
{
    ombrix_sdk::IOmbrixSdk* sdk = ombrix_sdk::OmbrixSdk::get_instance();
    const tavrel::ConnectionWatch watch(endedConnections);
    appendLog("Start applying camera parameters");
    onFrameRateCBChanged();
    onVignettingCorrectionButtonClicked();
    onColumnCorrectionButtonClicked();
    onTestPatternButtonClicked();
    onVideoOutputCBChanged();
    onSdiOutputButtonClicked();
    onParallelOutputButtonClicked();
    onMipiOutputButtonClicked();
    onPolarityButtonClicked();
    gammaUserSendCommand();
    for (int region = 0; region < static_cast<int>(tavrel::regions.size()); ++region) {
        for (const auto send :
             {&MainWindow::x1RoiUserValueChanged, &MainWindow::x2RoiUserValueChanged,
              &MainWindow::y1RoiUserValueChanged, &MainWindow::y2RoiUserValueChanged}) {
            (this->*send)(region);
            // A note about a region is open as long as the operator likes.
            if (watch.connectionEnded()) {
                return;
            }
        }
    }
    onContrastTypeEditChanged();
    onLutColorEditChanged();
    clheSendCommand();
    tempoFilterSendCommand();
    ahcGainSendCommand();
    onConfigureZoomResolutionClicked();
    onConfigureZoomClicked();
    onHorizontalFlipButtonClicked();
    onEdgeCorrectionCBChanged();
    sdk->saveConfiguration();
    appendLog("End applying camera parameters");
}

void MainWindow::ResetParamsUser()
{
    Configuration& defaults = *ombrix_sdk::OmbrixSdk::get_instance()->getConfiguration();

    // A default outside the list becomes 25 Hz here, while a read shows it as 9 Hz.
    constexpr int fallbackRate = 1;
    ui->frameRateCB->setCurrentIndex(
        tavrel::frameRateIndex(defaults.getDefaultFrameRate(), fallbackRate));

    resetRegion(*ui, defaults, roi0Inclusive);
    resetRegion(*ui, defaults, roi0ExclusiveEnable, roi0Exclusive);
    resetRegion(*ui, defaults, roi1InclusiveEnable, roi1Inclusive);
    resetRegion(*ui, defaults, roi1ExclusiveEnable, roi1Exclusive);

    ui->polarityButton->setChecked(defaults.getDefaultPolarity() != 0);
    ui->factorZoomEdit->setValue(static_cast<double>(defaults.getDefaultZoomFactor()));
    ui->methodZoomEdit->setCurrentIndex(defaults.getDefaultZoomMethod());
    ui->xCenterZoomEdit->setValue(defaults.getDefaultZoomXCenter());
    ui->yCenterZoomEdit->setValue(defaults.getDefaultZoomYCenter());
    ui->xResolutionZoomEdit->setValue(defaults.getDefaultZoomXResolution());
    ui->yResolutionZoomEdit->setValue(defaults.getDefaultZoomYResolution());

    // A reset always ends on the region contrast, whatever the default was.
    ui->contrastTypeEdit->setCurrentIndex(defaults.getDefaultContrastType());
    ui->contrastTypeEdit->setCurrentText(QStringLiteral("CLHE (ROI)"));
    ui->lutColorEdit->setCurrentIndex(defaults.getDefaultColorLut());

    // Both flips land on the one button of this tab; the vertical default has the last word.
    ui->horizontalFlipButton->setChecked(defaults.getDefaultHorizontalFlip() != 0);
    ui->horizontalFlipButton->setChecked(defaults.getDefaultVerticalFlip() != 0);

    ui->VignettingCorrectionButton->setChecked(defaults.getDefaultVignettingCorrection() != 0);
    ui->ColumnCorrectionButton->setChecked(defaults.getDefaultColumnCorrection() != 0);
    ui->EdgeCorrectionCB->setCurrentIndex(defaults.getDefaultEdgeCorrection());
    ui->sharpeningGainEdit->setValue(defaults.getDefaultSharpeningGain());
    ui->SharpeningTHEdit->setValue(defaults.getDefaultSharpeningThreshold());
    ui->VideoOutputCB->setCurrentIndex(defaults.getDefaultVideoOutput());
    ui->sdiOutputButton->setChecked(defaults.getDefaultBt656SdiOutput() != 0);
    ui->parallelOutputButton->setChecked(defaults.getDefaultParallelOutput() != 0);
    ui->mipiOutputButton->setChecked(defaults.getDefaultMipiOutput() != 0);
    ui->TestPatternButton->setChecked(defaults.getDefaultTestPattern() != 0);
    ui->TempoFilterSpin->setValue(defaults.getDefaultTemporalFilter());
    ui->AhcBlackGainLimSpin->setValue(defaults.getDefaultAhcBlackGainLimit());
    ui->AhcWhiteGainLimSpin->setValue(defaults.getDefaultAhcWhiteGainLimit());

    ApplyParamsUser();
}
