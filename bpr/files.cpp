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
    // What could only be read in part must not take the place of a whole file.
    if (from.error() == QFileDevice::NoError) {
        to.write(content);
        to.commit();
    }
    return true;
}

void writeMap(const cv::Mat& map, const std::string& path)
{
    QSaveFile file(nativeName(path));
    if (!openForReplacement(file)) {
        return;
    }
    for (int row = 0; row < map.rows; ++row) {
        file.write(map.ptr<char>(row), map.cols);
    }
    file.commit();
}

void writeNewMap(const cv::Mat& map, const std::string& path)
{
    if (!QFileInfo::exists(nativeName(path))) {
        writeMap(map, path);
    }
}

} // namespace tavrel::bpr
