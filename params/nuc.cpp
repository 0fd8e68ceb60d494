// SPDX-License-Identifier: MIT
// One-shot NUC requests and the shutter.
#include "app/mainwindow.h"
#include "app/platform.h"
#include "link/connectionwatch.h"
#include "params/shutter.h"
#include "params/switchbuttons.h"
#include "ui_mainwindow.h"

#include <QtWidgets/QMessageBox>

namespace {

constexpr tavrel::Captions shutterCaptions{"Shutter closed", "Shutter opened"};

/// What the camera needs to close the shutter, correct and open it again.
constexpr std::chrono::milliseconds automaticNucDuration{1600};

} // namespace

void MainWindow::requestNuc(bool automatic)
{
    if (!mayCommand()) {
        return;
    }
    lastResult = camera->requestNuc(automatic ? 1 : 0);
    if (lastResult == 0) {
        QMessageBox::warning(this, QString(), tr("Error on processing the NUC request"),
                             QMessageBox::Ok);
        return;
    }
    ui->nucEnablingButton->setChecked(true);
    ui->nucEnablingButton->setText(QLatin1String(tavrel::switchbutton::nuc.captions.on));
    appendLog("NUC applied");
}

void MainWindow::ApplyNucRequest()
{
    requestNuc(false);
}

void MainWindow::AutoNucRequest()
{
    const tavrel::ConnectionWatch watch(endedConnections);
    requestNuc(true);
    if (watch.connectionEnded()) {
        return;
    }
    tavrel::platform::blockThread(automaticNucDuration);
    readShutterPosition();
}

void MainWindow::shutterPositionChanged()
{
    if (!mayCommand()) {
        return;
    }
    const ombrix_sdk::Flag result = camera->setShutterPosition(ui->shutterCtrlPB->isChecked());
    if (result != 0) {
        tavrel::alignCaption(*ui->shutterCtrlPB, shutterCaptions);
    }
    reportResult(result, "Set shutter position");
    if (result == 0) {
        // A refused shutter is shown as open, whatever was asked for.
        ui->shutterCtrlPB->setChecked(false);
    }
}

void MainWindow::readShutterPosition()
{
    if (!mayCommand()) {
        return;
    }
    const tavrel::ShutterPosition position = tavrel::readShutter(*camera);
    lastResult = position.result;
    if (lastResult == 0) {
        appendLog("Unable to get shutter position");
        return;
    }
    const char* const caption = position.closed ? shutterCaptions.on : shutterCaptions.off;
    ui->shutterCtrlPB->setChecked(position.closed);
    ui->shutterCtrlPB->setText(QLatin1String(caption));
    appendLog(caption);
}
