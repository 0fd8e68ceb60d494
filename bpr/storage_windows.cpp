// SPDX-License-Identifier: MIT
#include "bpr/storage.h"

#include <QtCore/QDateTime>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QString>

#include <windows.h>

namespace tavrel::bpr {

namespace {

/// A number follows.
constexpr char unfinishedName[] = ".tavrel-unfinished-map-";

QString nativeName(const std::string& path)
{
    return QFile::decodeName(path.c_str());
}

const wchar_t* wide(const QString& path)
{
    return reinterpret_cast<const wchar_t*>(path.utf16());
}

/// Where a new file has to come so that this path leads to it.
QString endOfLinks(const std::string& path)
{
    constexpr int mostLinks = 40;
    QFileInfo end(nativeName(path));
    for (int links = 0; links < mostLinks && end.isSymLink(); ++links) {
        end.setFile(end.symLinkTarget());
    }
    return end.absoluteFilePath();
}

/// A file that a program has open cannot be removed. At its beginning and before it comes to its
/// place it is closed for a moment, so a fresh one is never removed.
void removeAbandoned(const QString& folder)
{
    constexpr qint64 freshSeconds = 60;
    const QFileInfoList files =
        QDir(folder).entryInfoList({QLatin1String(unfinishedName) + QLatin1Char('*')},
                                   QDir::Files | QDir::Hidden | QDir::System);
    for (const QFileInfo& file : files) {
        bool isNumber = false;
        (void)file.fileName().mid(int{sizeof unfinishedName} - 1).toUInt(&isNumber);
        if (isNumber && file.lastModified().secsTo(QDateTime::currentDateTime()) > freshSeconds) {
            QFile::remove(file.filePath());
        }
    }
}

} // namespace

bool openForReading(QFile& file, const std::string& path)
{
    file.setFileName(nativeName(path));
    return file.open(QIODevice::ReadOnly);
}

Access openForWriting(QFile& file, const std::string& path)
{
    file.setFileName(nativeName(path));
    if (file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly | QIODevice::Unbuffered)) {
        return Access::Granted;
    }
    return QFileInfo::exists(file.fileName()) ? Access::Refused : Access::Missing;
}

bool reserve(QFile& file, qint64 size)
{
    return size <= file.size() || file.resize(size);
}

bool flushToDisk(QFile& file)
{
    // Flushing by one handle takes along what was written by another one.
    HANDLE const opened =
        CreateFileW(wide(QDir::toNativeSeparators(file.fileName())), GENERIC_WRITE,
                    FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr);
    const bool flushed = opened != INVALID_HANDLE_VALUE && FlushFileBuffers(opened) != 0;
    CloseHandle(opened);
    return flushed;
}

struct Successor::Place {
    QString end;
    QString unfinished; ///< empty when there is none
};

Successor::Successor() = default;

Successor::~Successor()
{
    file.close();
    if (place != nullptr && !place->unfinished.isEmpty()) {
        QFile::remove(place->unfinished);
    }
}

Successor::Opened Successor::open(const std::string& path)
{
    constexpr int mostNames = 1000;
    place = std::make_unique<Place>();
    place->end = endOfLinks(path);
    const QString folder = QFileInfo(place->end).path();
    removeAbandoned(folder);
    for (int number = 0; number < mostNames; ++number) {
        const QString name =
            folder + QLatin1Char('/') + QLatin1String(unfinishedName) + QString::number(number);
        HANDLE const created = CreateFileW(wide(QDir::toNativeSeparators(name)), GENERIC_WRITE, 0,
                                           nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
        if (created != INVALID_HANDLE_VALUE) {
            CloseHandle(created);
            place->unfinished = name;
            file.setFileName(name);
            const bool opened =
                file.open(QIODevice::WriteOnly | QIODevice::ExistingOnly | QIODevice::Unbuffered);
            return opened ? Opened::Yes : Opened::No;
        }
        const DWORD error = GetLastError();
        if (error != ERROR_FILE_EXISTS) {
            const bool closed = error == ERROR_ACCESS_DENIED || error == ERROR_WRITE_PROTECT;
            return closed ? Opened::FolderIsClosed : Opened::No;
        }
    }
    return Opened::No;
}

QFile& Successor::content()
{
    return file;
}

void Successor::inherit(QFile&)
{
    // Rights come from the folder; a file that may not be written never has a successor.
}

Successor::Placed Successor::takePlace()
{
    file.close();
    if (MoveFileExW(wide(QDir::toNativeSeparators(place->unfinished)),
                    wide(QDir::toNativeSeparators(place->end)), MOVEFILE_REPLACE_EXISTING) != 0) {
        place->unfinished.clear();
        return Placed::Yes;
    }
    const DWORD error = GetLastError();
    const bool held = error == ERROR_ACCESS_DENIED || error == ERROR_SHARING_VIOLATION ||
                      error == ERROR_LOCK_VIOLATION;
    return held ? Placed::PlaceIsHeld : Placed::No;
}

} // namespace tavrel::bpr
