// SPDX-License-Identifier: MIT
// Two rates, kept apart: the one at which the SDK opens the next link, and the one at which the
// camera itself talks.
#include "app/mainwindow.h"
#include "ui_mainwindow.h"

void MainWindow::ChangeBaudRate()
{
    ombrix_sdk::OmbrixSdk::get_instance()->getConfiguration()->setBaudRate(
        ui->BaudRateConnectCB->currentText().toInt());
}

ombrix_sdk::Flag MainWindow::sendCameraBaudRate()
{
    return camera->setBaudRate(ui->BaudRateCB->currentText().toUInt(),
                               ui->PermanentButton->isChecked());
}

void MainWindow::changeCameraBaudRate()
{
    if (!mayCommand()) {
        return;
    }
    reportResult(sendCameraBaudRate(), "Set baud rate value");
}

void MainWindow::changePermanentButtonText()
{
    ui->PermanentButton->setText(ui->PermanentButton->isChecked()
                                     ? QStringLiteral("Permanent")
                                     : QStringLiteral("Not Permanent"));
}
