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

/// Opens a file for replacement as a whole; where the folder allows no second file, in place.
bool openForReplacement(QSaveFile& file)
{
    file.setDirectWriteFallback(true);
    return file.open(QIODevice::WriteOnly);
}

/// Puts the new file in the old one's place, unless a part of it is missing. A write that runs out
/// of room in the middle reports no error, only fewer bytes, and the commit does not tell whether
/// the bytes that were still in the buffer found room.
void finishReplacement(QSaveFile& file, bool complete)
{
    if (!complete || !file.flush()) {
        file.cancelWriting();
    }
    file.commit();
}

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
    QSaveFile to(nativeName(destination));
    if (!openForReplacement(to)) {
        return false;
    }
    const QByteArray content = from.readAll();
    finishReplacement(to,
                      from.error() == QFileDevice::NoError && to.write(content) == content.size());
    return true;
}

void writeMap(const cv::Mat& map, const std::string& path)
{
    QSaveFile file(nativeName(path));
    if (!openForReplacement(file)) {
        return;
    }
    bool complete = true;
    for (int row = 0; row < map.rows; ++row) {
        complete = file.write(map.ptr<char>(row), map.cols) == map.cols && complete;
    }
    finishReplacement(file, complete);
}

void writeNewMap(const cv::Mat& map, const std::string& path)
{
    if (!QFileInfo::exists(nativeName(path))) {
        writeMap(map, path);
    }
}

} // namespace tavrel::bpr
