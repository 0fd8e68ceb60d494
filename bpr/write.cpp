// SPDX-License-Identifier: MIT
#include "app/mainwindow.h"
#include "app/platform.h"
#include "bpr/files.h"
#include "bpr/pause.h"
#include "bpr/storage.h"
#include "bpr/table.h"

#include <QtWidgets/QMessageBox>

#include <algorithm>
#include <memory>
#include <vector>

namespace bpr = tavrel::bpr;

namespace {

/// The treatment's result, in the current directory.
constexpr char replacementFile[] = "replbp.bin";

struct LoadedRegion {
    std::unique_ptr<bpr::Region> region; ///< null when the file cannot be sent
    const char* refusal = nullptr;
};

/// The region to send: the file's bytes, one zero byte, and 0xFF up to the end.
LoadedRegion loadReplacementFile()
{
    constexpr std::uint8_t fill = 0xFF;
    QFile file;
    if (!bpr::openForReading(file, replacementFile)) {
        return {nullptr, QT_TRANSLATE_NOOP("MainWindow", "Unable to open replbp.bin")};
    }
    const qint64 size = file.size();
    if (size == 0) {
        return {nullptr, QT_TRANSLATE_NOOP("MainWindow", "replbp.bin file size is NULL")};
    }
    auto region = std::make_unique<bpr::Region>();
    // A longer file is refused, because a table that was cut off must not reach a camera.
    if (size > qint64{bpr::regionLength} ||
        file.read(reinterpret_cast<char*>(region->data()), size) != size) {
        return {nullptr, QT_TRANSLATE_NOOP("MainWindow", "Unable to read replbp.bin")};
    }
    if (size + 1 < qint64{bpr::regionLength}) {
        std::fill(region->begin() + size + 1, region->end(), fill);
    }
    return {std::move(region), nullptr};
}

} // namespace

void MainWindow::writeBprTable()
{
    const tavrel::MonitoringPause pause(*timer);
    if (camera == nullptr) {
        showNotConnected();
        return;
    }
    const std::string fileName = bpr::bprFileName(camera->getSerialNumber());
    const std::string workingPath = bpr::pathInFolder(bpr::workingFolder, fileName);
    if (!ensureWorkingCopy(workingPath, bpr::pathInFolder(bpr::backupFolder, fileName))) {
        return;
    }

    std::vector<ombrix_sdk::ReplacementEntry> list;
    int height = bpr::height;
    int width = bpr::width;
    camera->loadBadPixelList(workingPath, list, height, width);
    appendLog("Bad pixels found " + std::to_string(list.size()) + " < " +
              std::to_string(bpr::badPixelLimit));
    if (list.size() > std::size_t{bpr::badPixelLimit}) {
        // The text leaves the number out; a translation may show it.
        const QString text = tr("Can't write this BPR table into camera, too many bad pixels.");
        QMessageBox::about(this, tr("Treatment issue"),
                           text.contains(QLatin1String("%1")) ? text.arg(list.size()) : text);
        return;
    }

    LoadedRegion loaded = loadReplacementFile();
    if (loaded.region == nullptr) {
        QMessageBox::about(this, tr("BP table"), tr(loaded.refusal));
        return;
    }
    const ombrix_sdk::Flag written = camera->writeTableData(
        bpr::regionOffset, bpr::regionLength, bpr::writeTableId, loaded.region->data());
    loaded.region.reset();
    if (written == 0) {
        QMessageBox::about(this, tr("BP table"), tr("BP table not written correctly"));
        return;
    }
    appendLog("BPR table " + tavrel::platform::utf8(workingPath) + " correctly written.");
}
