// SPDX-License-Identifier: MIT
#include "app/mainwindow.h"
#include "app/platform.h"
#include "bpr/pause.h"
#include "bpr/transfer.h"

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
    const bpr::CameraTable read = bpr::fetchTable(*camera);
    if (read.table.stalls) {
        waitForRecord();
    }
    if (read.refusal) {
        showRefusal(*read.refusal);
        return;
    }
    bpr::storeTable(read.table, bpr::MapFiles(camera->getSerialNumber()),
                    [this](const std::string& line) { appendLog(line); });
}
