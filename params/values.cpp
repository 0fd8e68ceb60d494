// SPDX-License-Identifier: MIT
// The values that have a slider and a spin box: coupling and sending.
#include "params/values.h"

#include "app/mainwindow.h"
#include "params/mirroredpair.h"

namespace pair = tavrel::pair;
namespace value = tavrel::value;
using tavrel::lowByte;

#define SLOT_PAIR(name, Number, slider, spinBox, scale, moved, changed, send)                      \
    void MainWindow::moved(int step)                                                               \
    {                                                                                              \
        mirrorToSpinBox(*ui, pair::name, step);                                                    \
    }                                                                                              \
    void MainWindow::changed(Number number)                                                        \
    {                                                                                              \
        mirrorToSlider(*ui, pair::name, number);                                                   \
    }
#include "params/values.def"

void MainWindow::sendValue(const tavrel::Value& value, double number)
{
    if (!mayCommand()) {
        return;
    }
    reportResult(value.set(*camera, number), value.command);
}

void MainWindow::gammaUserSendCommand()
{
    sendValue(value::gamma, ui->gammaEdit->value());
}

void MainWindow::clheSendCommand()
{
    sendValue(value::clhe, ui->clheEdit->value());
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
    sendValue(value::temporalFilter, ui->TempoFilterSpin->value());
}
