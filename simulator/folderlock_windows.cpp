// SPDX-License-Identifier: MIT
#include "simulator/folderlock.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QDir>
#include <QtCore/qt_windows.h>

namespace simulator {

/// A mutex named after the folder: a lock file would stand in the way of whoever removes the
/// folder, and Windows takes a mutex away with its process.
struct FolderLock::Held {
    explicit Held(const QString& folder)
        : mutex(CreateMutexW(nullptr, FALSE,
                             reinterpret_cast<const wchar_t*>(nameFor(folder).utf16()))),
          isNew(GetLastError() != ERROR_ALREADY_EXISTS)
    {}
    ~Held()
    {
        if (mutex != nullptr) {
            CloseHandle(mutex);
        }
    }
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;

    static QString nameFor(const QString& folder)
    {
        // Windows tells no case apart, and its own separator is not allowed in a name.
        const QByteArray path = QDir(folder).canonicalPath().toLower().toUtf8();
        const QByteArray hash = QCryptographicHash::hash(path, QCryptographicHash::Sha256).toHex();
        return QStringLiteral("Local\\ombrix-simulator-") + QString::fromLatin1(hash);
    }

    const HANDLE mutex;
    const bool isNew;
};

FolderLock::FolderLock() = default;
FolderLock::~FolderLock() = default;

bool FolderLock::take(const QString& folder)
{
    held.reset();
    held = std::make_unique<Held>(folder);
    if (held->isNew) {
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
