// SPDX-License-Identifier: MIT
// The right to write into a folder, which one process has at a time.
#pragma once

#include <QtCore/QString>

#include <memory>

namespace simulator {

/// Is given back with the object, or by the system when the process ends in whatever way.
class FolderLock {
public:
    FolderLock() = default;
    ~FolderLock() = default;
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

    /// False when another process has the folder. True also where the system cannot tell. What is
    /// held is given back before.
    bool take(const QString& folder);
    void giveBack() { held.reset(); }

private:
    std::shared_ptr<void> held; ///< its deleter gives the folder back
};

} // namespace simulator
