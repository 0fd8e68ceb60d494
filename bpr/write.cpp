// SPDX-License-Identifier: MIT
// What goes out: the working copy to the camera, the backup over the working copy, and the box that
// tells why an operation has ended.
#include "app/mainwindow.h"
#include "bpr/pause.h"
#include "bpr/transfer.h"

#include <QtWidgets/QMessageBox>

namespace bpr = tavrel::bpr;

void MainWindow::showRefusal(const bpr::Refusal& refusal)
{
    const QString text =
        refusal.textIsTranslated ? tr(refusal.text) : QString::fromLatin1(refusal.text);
    QMessageBox::about(this, tr(refusal.title), bpr::withArgument(text, refusal.argument));
}

void MainWindow::writeBprTable()
{
    const tavrel::MonitoringPause pause(*timer);
    if (camera == nullptr) {
        showNotConnected();
        return;
    }
    const auto refusal = bpr::writeTable(*camera, bpr::MapFiles(camera->getSerialNumber()),
                                         [this](const std::string& line) { appendLog(line); });
    if (refusal) {
        showRefusal(*refusal);
    }
}

void MainWindow::resetBprTable()
{
    if (camera == nullptr) {
        showNotConnected();
        return;
    }
    const auto refusal = bpr::resetTable(bpr::MapFiles(camera->getSerialNumber()),
                                         [this](const std::string& line) { appendLog(line); });
    if (refusal) {
        showRefusal(*refusal);
    }
}
