// SPDX-License-Identifier: MIT
#include "app/mainwindow.h"
#include "app/platform.h"
#include "bpr/files.h"
#include "bpr/pause.h"
#include "bpr/table.h"

#include <QtWidgets/QMessageBox>

#include <memory>

namespace bpr = tavrel::bpr;

namespace {

/// A camera whose table ends at record 1 is waited for until the operator ends the program: a table
/// of fewer than two bad pixels must not silently replace a working copy.
void waitForRecord()
{
    // The flag is volatile because a loop without visible effects may be removed.
    for (volatile bool waiting = true; waiting;) {
        tavrel::platform::blockThread(std::chrono::seconds(1));
    }
}

} // namespace

void MainWindow::readBprTable()
{
    const tavrel::MonitoringPause pause(*timer);
    if (camera == nullptr) {
        showNotConnected();
        return;
    }

    auto region = std::make_unique<bpr::Region>();
    const std::int32_t status = camera->readTableData(bpr::regionOffset, bpr::regionLength,
                                                      bpr::readTableId, region->data());
    if (status != 0) {
        region.reset();
        QMessageBox::about(
            this, tr("BPR table"),
            QStringLiteral("BPR table not read correctly (error code = %1)").arg(status));
        return;
    }
    const bpr::DecodedTable table = bpr::decodeTable(*region);
    if (table.stalls) {
        waitForRecord();
    }
    region.reset();
    if (table.count > bpr::badPixelLimit) {
        QMessageBox::about(this, tr("BPR table"), tr("Too many bad pixels found"));
        return;
    }

    const std::string fileName = bpr::bprFileName(camera->getSerialNumber());
    const std::string backupPath = bpr::pathInFolder(bpr::backupFolder, fileName);
    if (!bpr::fileExists(backupPath)) {
        bpr::writeNewMap(table.map, backupPath);
        appendLog("Backup table written to " + tavrel::platform::utf8(backupPath));
    }
    const std::string workingPath = bpr::pathInFolder(bpr::workingFolder, fileName);
    bpr::writeMap(table.map, workingPath);
    appendLog("Table written to " + tavrel::platform::utf8(workingPath));
    appendLog("Table containing : " + std::to_string(table.count) + " Bad Pixels");
}
