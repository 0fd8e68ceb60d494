// SPDX-License-Identifier: MIT
#include "bpr/files.h"

#include "app/platform.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QSaveFile>

#include <opencv2/core/mat.hpp>

namespace tavrel::bpr {

namespace {

QString nativeName(const std::string& path)
{
    return QFile::decodeName(path.c_str());
}

/// A file that is replaced as a whole: another one is written beside it and then takes its place.
/// Where none can take it (closed folder, device, mount point), the file itself is written over.
class Replacement {
public:
    explicit Replacement(const QString& name) : beside(name), inPlace(name) {}

    /// Whether there is somewhere to write; changes nothing yet.
    bool open()
    {
        const QFileInfo old(inPlace.fileName());
        const bool replaceable = !old.exists() || old.isFile();
        return (replaceable && beside.open(QIODevice::WriteOnly)) || openInPlace();
    }

    void write(const QByteArray& content)
    {
        if (inPlace.isOpen() || !writeBeside(content)) {
            writeInPlace(content);
        }
    }

private:
    /// Not emptied, so that a full disk still has the old content's room for the new one.
    bool openInPlace() { return inPlace.open(QIODevice::ReadWrite | QIODevice::ExistingOnly); }

    void writeInPlace(const QByteArray& content)
    {
        if (inPlace.write(content) == content.size() && inPlace.flush()) {
            inPlace.resize(content.size());
        }
    }

    /// False when the file is open for writing in place instead.
    bool writeBeside(const QByteArray& content)
    {
        // A write that runs out of room in the middle reports no error, only fewer bytes, and the
        // commit does not tell whether the bytes that were still in the buffer found room.
        if (beside.write(content) != content.size() || !beside.flush()) {
            beside.cancelWriting();
        }
        return beside.commit() || beside.error() != QFileDevice::RenameError || !openInPlace();
    }

    QSaveFile beside;
    QFile inPlace;
};

} // namespace

std::string bprFileName(std::uint32_t serial)
{
    return "bpr_SN" + std::to_string(serial) + ".bin";
}

std::string pathInFolder(const char* folder, const std::string& fileName)
{
    return platform::currentDirectory() + platform::pathSeparator + folder +
           platform::pathSeparator + fileName;
}

bool fileExists(const std::string& path)
{
    return QFile(nativeName(path)).open(QIODevice::ReadOnly);
}

bool copyFile(const std::string& source, const std::string& destination)
{
    QFile from(nativeName(source));
    if (!from.open(QIODevice::ReadOnly)) {
        return false;
    }
    Replacement to(nativeName(destination));
    if (!to.open()) {
        return false;
    }
    const QByteArray content = from.readAll();
    if (from.error() == QFileDevice::NoError) {
        to.write(content);
    }
    return true;
}

void writeMap(const cv::Mat& map, const std::string& path)
{
    Replacement file(nativeName(path));
    if (file.open()) {
        // A map lies in one piece, line after line: nothing is copied before it is written.
        file.write(QByteArray::fromRawData(map.ptr<char>(), static_cast<int>(map.total())));
    }
}

void writeNewMap(const cv::Mat& map, const std::string& path)
{
    if (!QFileInfo::exists(nativeName(path))) {
        writeMap(map, path);
    }
}

} // namespace tavrel::bpr
