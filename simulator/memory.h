// SPDX-License-Identifier: MIT
// What the cameras and the SDK keep on disk: one text file per camera, its table region, and the
// saved configuration, in one folder. Off without a folder.
#pragma once

#include "simulator/configurationvalues.h"
#include "simulator/folderlock.h"
#include "simulator/parameters.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <cstdint>

namespace simulator {

class Log;

class Memory {
public:
    explicit Memory(Log& messages) : log(messages) {}

    /// Makes the folder where it is missing. When that fails, or another process has the folder,
    /// the memory stays off: two that write into it would undo each other's changes. An empty path
    /// switches it off.
    void setFolder(const QString& path);
    /// Empty while the memory is off.
    [[nodiscard]] const QString& folderInUse() const { return folder; }
    /// Deletes what is kept of a camera.
    void forgetCamera(std::uint32_t serialNumber);
    void forgetConfiguration();

    /// Puts what the camera kept into the values and the table. False when it kept no values. A
    /// damaged file is set aside, and what it held stays as it is.
    bool loadCamera(std::uint32_t serialNumber, ParameterValues& values, QByteArray& table);
    void saveCamera(std::uint32_t serialNumber, const ParameterValues& values);
    void saveTable(std::uint32_t serialNumber, const QByteArray& table);

    void loadConfiguration(ConfigurationValues& values);
    void saveConfiguration(const ConfigurationValues& values);

private:
    [[nodiscard]] QString cameraFile(std::uint32_t serialNumber) const;
    [[nodiscard]] QString tableFile(std::uint32_t serialNumber) const;
    [[nodiscard]] QString configurationFile() const;
    void forget(const QString& path);
    void save(const QString& path, const QByteArray& content);
    void reportDamage(const QString& path, const QString& reason);

    Log& log;
    QString folder;
    FolderLock lock;
};

} // namespace simulator
