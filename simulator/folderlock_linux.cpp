// SPDX-License-Identifier: MIT
#include "simulator/folderlock.h"

#include <QtCore/QFile>

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace simulator {

/// The folder itself is locked: a lock file would outlive a process that is killed, and a folder
/// may forbid new files.
struct FolderLock::Held {
    explicit Held(const QString& folder)
        : descriptor(open(QFile::encodeName(folder).constData(), O_RDONLY | O_CLOEXEC))
    {}
    ~Held()
    {
        if (descriptor >= 0) {
            close(descriptor);
        }
    }
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;

    const int descriptor;
};

FolderLock::FolderLock() = default;
FolderLock::~FolderLock() = default;

bool FolderLock::take(const QString& folder)
{
    held = std::make_unique<Held>(folder);
    if (flock(held->descriptor, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK) {
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
