// SPDX-License-Identifier: MIT
// The Expert tab: its four values, and reading and applying the tab as a whole.
#include "app/mainwindow.h"
#include "link/connectionwatch.h"
#include "params/expertvalues.h"
#include "params/group.h"

#include <QtWidgets/QMessageBox>

using ombrix_sdk::OmbrixSdk;
using tavrel::ExpertValue;
using tavrel::lowWord;
namespace expert = tavrel::expert;

void MainWindow::sendExpertValue(const ExpertValue& value)
{
    if (!mayCommand()) {
        return;
    }
    const std::uint32_t sent = lowWord((ui->*value.mirrored.spinBox)->value());
    reportResult((camera->*value.set)(sent), std::string("Set ") + value.name + " value");
}

void MainWindow::gskSendCommand()
{
    sendExpertValue(expert::gsk);
}

void MainWindow::gfiSendCommand()
{
    sendExpertValue(expert::gfid);
}

void MainWindow::gmsSendCommand()
{
    sendExpertValue(expert::gms);
}

void MainWindow::tintSendCommand()
{
    sendExpertValue(expert::tint);
}

void MainWindow::ReadParamsExpert()
{
    if (!mayCommand()) {
        return;
    }
    appendLog("Start reading camera expert parameters");
    // Asked for on every read, so that the SDK can bring its configuration up to date first.
    OmbrixSdk::get_instance()->getConfiguration();

    for (const ExpertValue* value : tavrel::expertValues) {
        const std::uint32_t read = (camera->*value->get)();
        (ui->*value->mirrored.slider)->setValue(tavrel::saturatedInt(std::uint64_t{read}));
        (ui->*value->mirrored.spinBox)->setValue(read);
        appendLog(std::string(value->name) + " value = " + std::to_string(read));
    }
    readGroup(tavrel::Group::Expert);
    appendLog("End reading camera expert parameters");
}

void MainWindow::ApplyParamsExpert()
{
    appendLog("Start applying camera expert parameters");
    ombrix_sdk::IOmbrixSdk* sdk = OmbrixSdk::get_instance();
    if (camera != nullptr) {
        // TINT goes before GMS.
        for (const ExpertValue* value :
             {&expert::gsk, &expert::gfid, &expert::tint, &expert::gms}) {
            sendExpertValue(*value);
        }
        bprControlChanged();
        offsetControlChanged();
        gainControlChanged();
        reportResult(sendCameraBaudRate(), "Set Mavlink baud rate value");
        // The answer to the baud rate alone decides, as the link stands or falls with it.
        if (lastResult == 0) {
            const tavrel::ConnectionWatch watch(endedConnections);
            QMessageBox::warning(this, QString(),
                                 tr("Problem transmitting expert parameters values\n"),
                                 QMessageBox::Ok);
            if (watch.connectionEnded()) {
                return;
            }
        } else {
            sdk->saveConfiguration();
        }
    } else {
        ombrix_sdk::ISdkConfiguration* configuration = sdk->getConfiguration();
        configuration->gskValue = ui->gskSlider->value();
        configuration->gfidValue = ui->gfidSlider->value();
        configuration->tintValue = ui->tintSlider->value();
        // Its spin box holds more than its slider can.
        configuration->gmsValue = static_cast<std::int32_t>(lowWord(ui->gmsEdit->value()));
    }
    appendLog("End applying camera expert parameters");
}
