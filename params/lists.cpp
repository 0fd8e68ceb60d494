// SPDX-License-Identifier: MIT
// Settings chosen from a list: video output, frame rate, contrast type, colours, edge correction.
// The camera is written at every change of the index, whoever made it.
#include "app/mainwindow.h"
#include "params/conversions.h"
#include "params/framerate.h"
#include "params/switchbuttons.h"
#include "ui_mainwindow.h"

using tavrel::lowByte;
using tavrel::lowWord;

void MainWindow::onVideoOutputCBChanged()
{
    if (!mayCommand()) {
        return;
    }
    reportResult(camera->setVideoOutput(lowByte(ui->VideoOutputCB->currentIndex())),
                 "Set VIDEO OUTPUT value");
}

void MainWindow::onFrameRateCBChanged()
{
    if (!mayCommand()) {
        return;
    }
    const std::uint8_t hertz = tavrel::frameRateAt(ui->frameRateCB->currentIndex());
    // A rate that was just read from the camera is not sent back to it.
    if (camera->getFrameRate() == hertz) {
        return;
    }
    reportResult(camera->setFrameRate(hertz), "Set FRAME RATE value");
    // A camera that is asked for another rate drops its test pattern, whatever it answers.
    ui->TestPatternButton->setChecked(false);
    ui->TestPatternButton->setText(QLatin1String(tavrel::switchbutton::testPattern.captions.off));
}

void MainWindow::onContrastTypeEditChanged()
{
    if (!mayCommand()) {
        return;
    }
    reportResult(camera->configureContrastType(lowByte(ui->contrastTypeEdit->currentIndex())),
                 "Configure contrast type");
}

void MainWindow::onLutColorEditChanged()
{
    if (!mayCommand()) {
        return;
    }
    reportResult(camera->setColorLut(lowByte(ui->lutColorEdit->currentIndex())),
                 "Set COLOR LUT value");
}

void MainWindow::onEdgeCorrectionCBChanged()
{
    if (!mayCommand()) {
        return;
    }
    reportResult(camera->configureEdgeCorrection(lowByte(ui->EdgeCorrectionCB->currentIndex()),
                                                 lowWord(ui->sharpeningGainEdit->value()),
                                                 lowWord(ui->SharpeningTHEdit->value())),
                 "Configure EDGE CORRECTION");
}
