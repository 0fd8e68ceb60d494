// SPDX-License-Identifier: MIT
// What the tests of the bad pixel table know about its files.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QString>
#include <QtCore/QTemporaryDir>

#include <initializer_list>

namespace tablefiles {

inline constexpr int mapSize = 640 * 480;

/// A new folder, which is the current one for as long as it lives.
class WorkFolder {
public:
    WorkFolder()
    {
        if (!folder.isValid() || !QDir::setCurrent(folder.path())) {
            qFatal("no temporary folder");
        }
    }
    ~WorkFolder() { QDir::setCurrent(QDir::tempPath()); }
    WorkFolder(const WorkFolder&) = delete;
    WorkFolder& operator=(const WorkFolder&) = delete;

    [[nodiscard]] QString path() const { return folder.path(); }
    bool remove() { return folder.remove(); }

private:
    QTemporaryDir folder;
};

/// A map file with these pixels declared bad.
inline QByteArray mapOf(std::initializer_list<int> badPixels)
{
    QByteArray map(mapSize, '\0');
    for (const int pixel : badPixels) {
        map[pixel] = '\1';
    }
    return map;
}

/// Where the tool keeps the table of the recording camera, or of another one.
inline QString working(const QString& serial = QStringLiteral("4711"))
{
    return QStringLiteral("bpr/bpr_SN%1.bin").arg(serial);
}
inline QString backup(const QString& serial = QStringLiteral("4711"))
{
    return QStringLiteral("bprBackup/bpr_SN%1.bin").arg(serial);
}

/// The path as the tool composes and shows it.
inline QString full(const QString& path)
{
    return QDir::toNativeSeparators(QDir::currentPath() + QLatin1Char('/') + path);
}

inline void put(const QString& path, const QByteArray& content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
        qFatal("%s cannot be prepared", qPrintable(path));
    }
}

/// A null array when the file cannot be read.
inline QByteArray content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QByteArray("").append(file.readAll()) : QByteArray();
}

/// All entries of a folder, hidden ones too: a write must not leave other files behind.
inline QStringList entries(const QString& folder)
{
    return QDir(folder).entryList(
        QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
}

} // namespace tablefiles
