// SPDX-License-Identifier: MIT
#include "simulator/folderlock.h"

#include <QtCore/QDir>
#include <QtCore/QLockFile>

namespace simulator {

/// Windows keeps the file to its process and takes it away with it.
struct FolderLock::Held {
    explicit Held(const QString& folder)
        : file(QDir(folder).filePath(QStringLiteral("in-use.lock")))
    {
        file.setStaleLockTime(0);
    }

    QLockFile file;
};

FolderLock::FolderLock() = default;
FolderLock::~FolderLock() = default;

bool FolderLock::take(const QString& folder)
{
    held = std::make_unique<Held>(folder);
    if (held->file.tryLock() || held->file.error() != QLockFile::LockFailedError) {
        return true;
    }
    giveBack();
    return false;
}

void FolderLock::giveBack()
{
    held.reset();
}

} // namespace simulator
