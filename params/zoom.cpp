// SPDX-License-Identifier: MIT
#include "app/mainwindow.h"
#include "params/conversions.h"
#include "ui_mainwindow.h"

void MainWindow::onConfigureZoomResolutionClicked()
{
    if (!mayCommand()) {
        return;
    }
    reportResult(camera->configureZoomResolution(
                     static_cast<std::uint32_t>(ui->xResolutionZoomEdit->value()),
                     static_cast<std::uint32_t>(ui->yResolutionZoomEdit->value())),
                 "Configure ZOOM RESOLUTION");
}

void MainWindow::onConfigureZoomClicked()
{
    if (!mayCommand()) {
        return;
    }
    ombrix_sdk::Zoom zoom{};
    zoom.factor = static_cast<float>(ui->factorZoomEdit->value());
    zoom.xCenter = ui->xCenterZoomEdit->value();
    zoom.yCenter = ui->yCenterZoomEdit->value();
    zoom.method = tavrel::lowByte(ui->methodZoomEdit->currentIndex());
    reportResult(camera->configureZoom(&zoom), "Configure Zoom");
}
