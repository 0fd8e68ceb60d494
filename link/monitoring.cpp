// SPDX-License-Identifier: MIT
#include "app/mainwindow.h"
#include "link/temperature.h"
#include "ui_mainwindow.h"

#include <QtCore/QTimer>

#include <algorithm>

void MainWindow::monitoringSystem()
{
    availablePorts = QSerialPortInfo::availablePorts();
    const bool present = std::any_of(
        availablePorts.cbegin(), availablePorts.cend(),
        [this](const QSerialPortInfo& port) { return port.portName() == selectedPort; });
    if (present) {
        getTemperature();
        return;
    }
    // The scan shows what is left; with no port at all it says so in a box.
    disconnectDevice();
    scanDevice();
}

void MainWindow::getTemperature()
{
    // A table operation refused for want of a camera starts the monitoring all the same.
    if (camera == nullptr) {
        return;
    }
    ombrix_sdk::Temperatures temperatures{};
    lastResult = camera->getTemperatures(&temperatures);
    if (lastResult == 0) {
        timer->stop();
        return;
    }
    const auto show = [](QPlainTextEdit* field, float milliKelvin) {
        field->clear();
        field->insertPlainText(tavrel::temperatureText(milliKelvin));
    };
    show(ui->FpgaTempTextEdit, temperatures.fpga);
    show(ui->SensorTempTextEdit, temperatures.sensor);
}
