// SPDX-License-Identifier: MIT
// The seven user values that have a slider and a spin box: coupling and sending.
#include "app/mainwindow.h"
#include "params/conversions.h"
#include "params/mirroredpair.h"

namespace {

using Ui = Ui_MainWindow;
using tavrel::DecimalPair;
using tavrel::IntegerPair;
using tavrel::lowByte;
using tavrel::lowWord;
using tavrel::mirrorToSlider;
using tavrel::mirrorToSpinBox;

// clang-format off
//                                     slider                       spin box                 units/step  steps/unit  offset
constexpr DecimalPair gammaPair         {&Ui::gammaSlider,             &Ui::gammaEdit,           {0.1,        10.0,       0.5}};
constexpr DecimalPair clhePair          {&Ui::clheSlider,              &Ui::clheEdit,            {1.0,        1.0,        0.0}};
constexpr DecimalPair sharpeningPair    {&Ui::sharpeningGainSlider,    &Ui::sharpeningGainEdit,  {0.1,        10.0,       0.0}};
constexpr DecimalPair sharpeningTHPair  {&Ui::SharpeningTHSlider,      &Ui::SharpeningTHEdit,    {0.1,        10.0,       0.0}};
constexpr IntegerPair ahcBlackLimitPair {&Ui::AhcBlackGainLimSlider,   &Ui::AhcBlackGainLimSpin};
constexpr IntegerPair ahcWhiteLimitPair {&Ui::AhcWhiteGainLimSlider,   &Ui::AhcWhiteGainLimSpin};
constexpr IntegerPair tempoFilterPair   {&Ui::TempoFilterSlider,       &Ui::TempoFilterSpin};
// clang-format on

} // namespace

void MainWindow::GammaUserSliderChanged(int value)
{
    mirrorToSpinBox(*ui, gammaPair, value);
}

void MainWindow::GammaUserValueChanged(double value)
{
    mirrorToSlider(*ui, gammaPair, value);
}

void MainWindow::ClheUserSliderChanged(int value)
{
    mirrorToSpinBox(*ui, clhePair, value);
}

void MainWindow::ClheUserValueChanged(double value)
{
    mirrorToSlider(*ui, clhePair, value);
}

void MainWindow::SharpeningUserSliderChanged(int value)
{
    mirrorToSpinBox(*ui, sharpeningPair, value);
}

void MainWindow::SharpeningUserValueChanged(double value)
{
    mirrorToSlider(*ui, sharpeningPair, value);
}

void MainWindow::SharpeningTHSliderChanged(int value)
{
    mirrorToSpinBox(*ui, sharpeningTHPair, value);
}

void MainWindow::SharpeningTHValueChanged(double value)
{
    mirrorToSlider(*ui, sharpeningTHPair, value);
}

void MainWindow::AhcBlackGainlimSliderChanged(int value)
{
    mirrorToSpinBox(*ui, ahcBlackLimitPair, value);
}

void MainWindow::AhcBlackGainLimSpinValueChanged(int value)
{
    mirrorToSlider(*ui, ahcBlackLimitPair, value);
}

void MainWindow::AhcWhiteGainlimSliderChanged(int value)
{
    mirrorToSpinBox(*ui, ahcWhiteLimitPair, value);
}

void MainWindow::AhcWhiteGainLimSpinValueChanged(int value)
{
    mirrorToSlider(*ui, ahcWhiteLimitPair, value);
}

void MainWindow::TempoFilterSliderChanged(int value)
{
    mirrorToSpinBox(*ui, tempoFilterPair, value);
}

void MainWindow::TempoFiltSpinValueChanged(int value)
{
    mirrorToSlider(*ui, tempoFilterPair, value);
}

void MainWindow::gammaUserSendCommand()
{
    if (!mayCommand()) {
        return;
    }
    reportResult(camera->setGamma(tavrel::fixedPoint(ui->gammaEdit->value())), "Set GAMMA value");
}

void MainWindow::clheSendCommand()
{
    if (!mayCommand()) {
        return;
    }
    reportResult(camera->setClhe(lowWord(ui->clheEdit->value())), "Set CLHE value");
}

void MainWindow::sharpeningSendCommand()
{
    // Gain and threshold travel with the correction type in one command.
    onEdgeCorrectionCBChanged();
}

void MainWindow::ahcGainSendCommand()
{
    if (!mayCommand()) {
        return;
    }
    reportResult(camera->setAhcGainsLimitation(lowByte(ui->AhcBlackGainLimSpin->value()),
                                               lowByte(ui->AhcWhiteGainLimSpin->value())),
                 "Set AHC GAINS LIMITATION values");
}

void MainWindow::tempoFilterSendCommand()
{
    if (!mayCommand()) {
        return;
    }
    reportResult(camera->setLutTemporalFilter(lowByte(ui->TempoFilterSpin->value())),
                 "Set LUT TEMPORAL FILTER value");
}
