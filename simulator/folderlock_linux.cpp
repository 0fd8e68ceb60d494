// SPDX-License-Identifier: MIT
#include "simulator/folderlock.h"

#include <QtCore/QFile>

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace simulator {

// The folder itself is locked: a lock file would outlive a process that is killed, and a folder
// may forbid new files.
bool FolderLock::take(const QString& folder)
{
    giveBack();
    const int descriptor = open(QFile::encodeName(folder).constData(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0) {
        return true;
    }
    held = {nullptr, [descriptor](void*) {
                close(descriptor);
            }};
    if (flock(descriptor, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK) {
        return true;
    }
    giveBack();
    return false;
}

} // namespace simulator
