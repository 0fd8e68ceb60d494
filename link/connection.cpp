// SPDX-License-Identifier: MIT
#include "app/mainwindow.h"
#include "link/connectionwatch.h"
#include "link/monitoring.h"
#include "params/expertvalues.h"
#include "ui_mainwindow.h"

#include <QtCore/QScopedValueRollback>
#include <QtCore/QTimer>
#include <QtWidgets/QMessageBox>

#include <algorithm>
#include <limits>
#include <string_view>
#include <utility>

using ombrix_sdk::OmbrixSdk;

namespace {

/// The end of a slider's range. Where minimum and maximum lie more than 31 bits apart, Qt cannot
/// place the handle and divides by zero.
std::int32_t sliderEnd(std::int32_t minimum, std::int32_t maximum)
{
    constexpr std::int64_t widest = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(std::min<std::int64_t>(maximum, minimum + widest));
}

} // namespace

void MainWindow::connectDevice()
{
    selectedPort = ui->selectDeviceComboBox->currentText();
    if (!openCameraLink(selectedPort.toStdString())) {
        return;
    }
    // Only this one byte means that a camera answered; 2 or 255 do not.
    if (camera->connect(connectionContext) != 1) {
        appendLog("No camera connected");
        disconnectDevice();
        return;
    }
    const tavrel::ConnectionWatch watch(endedConnections);
    if (readCameraParameters()) {
        ui->scanDeviceButton->setEnabled(false);
        ui->selectDeviceComboBox->setEnabled(false);
        ui->connectDeviceButton->setEnabled(false);
        ui->disconnectDeviceButton->setEnabled(true);
        ui->resetParamButtonUser->setEnabled(true);
        ui->readParamButtonUser->setEnabled(true);
        ui->tabWidget->setEnabled(true);
        timer->start(tavrel::monitoringInterval);
    }
    if (watch.connectionEnded()) {
        return;
    }
    // A failed read leaves the link open, so that the operator can press Connect again; the expert
    // values are shown in either case.
    setupExpertSliders();
    if (OmbrixSdk::get_instance()->getConfiguration()->isExpertModeEnabled() == 1) {
        ReadParamsExpert();
    }
}

bool MainWindow::openCameraLink(std::string port)
{
    const auto refuse = [this] {
        QMessageBox::about(this, tr("Invalid communication"), tr("Select an other serial port"));
        return false;
    };

    const char* const type = OmbrixSdk::get_instance()->getConfiguration()->getCommunicationType();
    if (type == nullptr || std::string_view(type) != "UART") {
        return refuse();
    }
    portName = std::move(port);
    appendLog("ALTERNATIVE SERIAL PORT : " + portName);
    link = OmbrixSdk::get_instance()->createSerialLink();
    camera = link->openCamera(portName.c_str());
    return camera != nullptr || refuse();
}

void MainWindow::disconnectDevice()
{
    // What locking the widgets sets off (an edit that ends, a slider that is let go) must not reach
    // a closed camera.
    const QScopedValueRollback<bool> whileDisconnecting(disconnecting, true);
    if (link != nullptr) {
        link->closeCamera(camera);
        ++endedConnections;
    }
    timer->stop();
    if (link != nullptr) {
        OmbrixSdk::get_instance()->releaseSerialLink(&link);
        // Released is released, whether or not the library cleared the pointer.
        link = nullptr;
    }
    ui->scanDeviceButton->setEnabled(true);
    ui->selectDeviceComboBox->setEnabled(true);
    ui->connectDeviceButton->setEnabled(true);
    ui->disconnectDeviceButton->setEnabled(false);
    ui->resetParamButtonUser->setEnabled(false);
    ui->readParamButtonUser->setEnabled(false);
    ui->tabWidget->setEnabled(false);
}

void MainWindow::setupExpertSliders()
{
    const ombrix_sdk::ISdkConfiguration* configuration =
        OmbrixSdk::get_instance()->getConfiguration();
    for (const tavrel::ExpertValue* value : tavrel::expertValues) {
        QSlider* slider = ui->*value->mirrored.slider;
        const std::int32_t minimum = configuration->*value->minimum;
        slider->setRange(minimum, sliderEnd(minimum, configuration->*value->maximum));
        slider->setEnabled(true);
        slider->setOrientation(Qt::Horizontal);
        slider->setTickInterval(1);
        slider->setSingleStep(1);
        slider->setPageStep(10);
        slider->setValue(configuration->*value->configured);

        QDoubleSpinBox* spinBox = ui->*value->mirrored.spinBox;
        if (value->hasLimits) {
            spinBox->setRange(configuration->*value->minimum, configuration->*value->maximum);
        }
        spinBox->setValue(configuration->*value->configured);
        spinBox->setSingleStep(1.0);
    }
}

void MainWindow::showNotConnected()
{
    QMessageBox::about(this, tr("Camera not connected"),
                       tr("Unable to connect to %1").arg(QString::fromStdString(portName)));
}
