// SPDX-License-Identifier: MIT
#include "simulator/folderlock.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QDir>
#include <QtCore/qt_windows.h>

namespace simulator {
namespace {

QString mutexName(const QString& folder)
{
    // Windows tells no case apart, and its own separator is not allowed in a name.
    const QByteArray path = QDir(folder).canonicalPath().toLower().toUtf8();
    const QByteArray hash = QCryptographicHash::hash(path, QCryptographicHash::Sha256).toHex();
    return QStringLiteral("Local\\ombrix-simulator-") + QString::fromLatin1(hash);
}

} // namespace

// A mutex named after the folder: a lock file would stand in the way of whoever removes the
// folder, and Windows takes a mutex away with its process.
bool FolderLock::take(const QString& folder)
{
    giveBack();
    const QString name = mutexName(folder);
    const HANDLE mutex =
        CreateMutexW(nullptr, FALSE, reinterpret_cast<const wchar_t*>(name.utf16()));
    const bool isNew = GetLastError() != ERROR_ALREADY_EXISTS;
    if (mutex == nullptr) {
        return true;
    }
    held = {mutex, [](void* handle) {
                CloseHandle(handle);
            }};
    if (!isNew) {
        giveBack();
    }
    return isNew;
}

} // namespace simulator
