// SPDX-License-Identifier: MIT
#include "app/mainwindow.h"
#include "ui_mainwindow.h"

#include <QtWidgets/QMessageBox>

#include <utility>

void MainWindow::scanDevice()
{
    availablePorts = QSerialPortInfo::availablePorts();
    ui->selectDeviceComboBox->clear();
    if (availablePorts.isEmpty()) {
        QMessageBox::warning(this, QString(),
                             tr("No COM port found!\nPlease, plug a COM port ans scan again."),
                             QMessageBox::Ok);
        return;
    }
    for (const QSerialPortInfo& port : std::as_const(availablePorts)) {
        ui->selectDeviceComboBox->addItem(port.portName());
    }
    ui->connectDeviceButton->setEnabled(true);
    ui->selectDeviceComboBox->setEnabled(true);
}
