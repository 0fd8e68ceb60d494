// SPDX-License-Identifier: MIT
#include "bpr/transfer.h"

#include "app/platform.h"
#include "bpr/storage.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace tavrel::bpr {

namespace {

constexpr char mapTitle[] = QT_TRANSLATE_NOOP("MainWindow", "BP table");
constexpr char tableTitle[] = QT_TRANSLATE_NOOP("MainWindow", "BPR table");

/// The treatment's result, in the current directory.
constexpr char replacementFile[] = "replbp.bin";

QString shown(const std::string& path)
{
    return QFile::decodeName(path.c_str());
}

struct LoadedRegion {
    std::unique_ptr<Region> region; ///< null when the file cannot be sent
    const char* refusal = nullptr;
};

/// The region to send: the file's bytes, one zero byte, and 0xFF up to the end.
LoadedRegion loadReplacementFile()
{
    constexpr std::uint8_t fill = 0xFF;
    QFile file;
    if (!openForReading(file, replacementFile)) {
        return {nullptr, QT_TRANSLATE_NOOP("MainWindow", "Unable to open replbp.bin")};
    }
    const qint64 size = file.size();
    if (size == 0) {
        return {nullptr, QT_TRANSLATE_NOOP("MainWindow", "replbp.bin file size is NULL")};
    }
    auto region = std::make_unique<Region>();
    // A longer file is refused, because a table that was cut off must not reach a camera.
    if (size > qint64{regionLength} ||
        file.read(reinterpret_cast<char*>(region->data()), size) != size) {
        return {nullptr, QT_TRANSLATE_NOOP("MainWindow", "Unable to read replbp.bin")};
    }
    if (size + 1 < qint64{regionLength}) {
        std::fill(region->begin() + size + 1, region->end(), fill);
    }
    return {std::move(region), nullptr};
}

} // namespace

QString withArgument(const QString& text, const QString& argument)
{
    return text.contains(QLatin1String("%1")) ? text.arg(argument) : text;
}

CameraTable fetchTable(ombrix_sdk::ICamera& camera)
{
    const auto region = std::make_unique<Region>();
    const std::int32_t status =
        camera.readTableData(regionOffset, regionLength, readTableId, region->data());
    if (status != 0) {
        return {{},
                Refusal{tableTitle, "BPR table not read correctly (error code = %1)",
                        QString::number(status), false, true}};
    }
    CameraTable result{decodeTable(*region), noRefusal};
    if (result.table.count > badPixelLimit) {
        result.refusal = Refusal{tableTitle,
                                 QT_TRANSLATE_NOOP("MainWindow", "Too many bad pixels found"),
                                 {},
                                 true,
                                 true};
    }
    return result;
}

void storeTable(const DecodedTable& table, const MapFiles& files, const Log& log)
{
    const std::string backupPath = files.backup();
    if (!fileExists(backupPath)) {
        writeNewMap(table.map, backupPath);
        log("Backup table written to " + platform::utf8(backupPath));
    }
    const std::string workingPath = files.working();
    writeMap(table.map, workingPath);
    log("Table written to " + platform::utf8(workingPath));
    log("Table containing : " + std::to_string(table.count) + " Bad Pixels");
}

std::optional<Refusal> ensureWorkingCopy(const MapFiles& files)
{
    const std::string workingPath = files.working();
    if (fileExists(workingPath)) {
        return noRefusal;
    }
    const std::string backupPath = files.backup();
    if (!fileExists(backupPath)) {
        return Refusal{mapTitle, QT_TRANSLATE_NOOP("MainWindow", "No BP table file found.")};
    }
    if (!copyFile(backupPath, workingPath)) {
        return Refusal{
            mapTitle,
            QT_TRANSLATE_NOOP("MainWindow",
                              "Unable to use the backup BP table (%1). No BP table file found."),
            shown(backupPath)};
    }
    return noRefusal;
}

std::optional<Refusal> writeTable(ombrix_sdk::ICamera& camera, const MapFiles& files,
                                  const Log& log)
{
    if (auto refusal = ensureWorkingCopy(files)) {
        return refusal;
    }
    const std::string workingPath = files.working();
    std::vector<ombrix_sdk::ReplacementEntry> list;
    int mapHeight = height;
    int mapWidth = width;
    camera.loadBadPixelList(workingPath, list, mapHeight, mapWidth);
    log("Bad pixels found " + std::to_string(list.size()) + " < " + std::to_string(badPixelLimit));
    if (list.size() > std::size_t{badPixelLimit}) {
        // The text leaves the number out; a translation may show it.
        return Refusal{
            QT_TRANSLATE_NOOP("MainWindow", "Treatment issue"),
            QT_TRANSLATE_NOOP("MainWindow",
                              "Can't write this BPR table into camera, too many bad pixels."),
            QString::number(list.size())};
    }

    LoadedRegion loaded = loadReplacementFile();
    if (loaded.region == nullptr) {
        return Refusal{mapTitle, loaded.refusal};
    }
    const ombrix_sdk::Flag written =
        camera.writeTableData(regionOffset, regionLength, writeTableId, loaded.region->data());
    if (written == 0) {
        return Refusal{mapTitle,
                       QT_TRANSLATE_NOOP("MainWindow", "BP table not written correctly"),
                       {},
                       true,
                       true};
    }
    log("BPR table " + platform::utf8(workingPath) + " correctly written.");
    return noRefusal;
}

std::optional<Refusal> resetTable(const MapFiles& files, const Log& log)
{
    const std::string workingPath = files.working();
    const std::string backupPath = files.backup();
    if (!fileExists(backupPath)) {
        return Refusal{mapTitle,
                       QT_TRANSLATE_NOOP("MainWindow", "No backup BP table file found (%1)."),
                       shown(backupPath)};
    }
    if (!copyFile(backupPath, workingPath)) {
        return Refusal{mapTitle,
                       QT_TRANSLATE_NOOP("MainWindow", "Unable to use the backup BP table (%1)."),
                       shown(backupPath)};
    }
    log("BP table reset succeed.");
    return noRefusal;
}

} // namespace tavrel::bpr
