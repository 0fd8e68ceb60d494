// SPDX-License-Identifier: MIT
// The working copy: restored from the backup when it is missing, and reset to it on request.
#include "app/mainwindow.h"
#include "bpr/files.h"

#include <QtCore/QFile>
#include <QtWidgets/QMessageBox>

namespace bpr = tavrel::bpr;

namespace {

QString shown(const std::string& path)
{
    return QFile::decodeName(path.c_str());
}

} // namespace

bool MainWindow::ensureWorkingCopy(const std::string& workingPath, const std::string& backupPath)
{
    if (bpr::fileExists(workingPath)) {
        return true;
    }
    if (!bpr::fileExists(backupPath)) {
        QMessageBox::about(this, tr("BP table"), tr("No BP table file found."));
        return false;
    }
    if (!bpr::copyFile(backupPath, workingPath)) {
        QMessageBox::about(this, tr("BP table"),
                           tr("Unable to use the backup BP table (%1). No BP table file found.")
                               .arg(shown(backupPath)));
        return false;
    }
    return true;
}

void MainWindow::resetBprTable()
{
    if (camera == nullptr) {
        showNotConnected();
        return;
    }
    const std::string fileName = bpr::bprFileName(camera->getSerialNumber());
    const std::string workingPath = bpr::pathInFolder(bpr::workingFolder, fileName);
    const std::string backupPath = bpr::pathInFolder(bpr::backupFolder, fileName);
    if (!bpr::fileExists(backupPath)) {
        QMessageBox::about(this, tr("BP table"),
                           tr("No backup BP table file found (%1).").arg(shown(backupPath)));
    } else if (!bpr::copyFile(backupPath, workingPath)) {
        QMessageBox::about(this, tr("BP table"),
                           tr("Unable to use the backup BP table (%1).").arg(shown(backupPath)));
    } else {
        appendLog("BP table reset succeed.");
    }
}
