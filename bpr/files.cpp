// SPDX-License-Identifier: MIT
#include "bpr/files.h"

#include "app/platform.h"
#include "bpr/storage.h"

#include <opencv2/core/mat.hpp>

#include <algorithm>
#include <cstring>
#include <functional>
#include <vector>

namespace tavrel::bpr {

namespace {

using Taker = std::function<bool(const char* piece, qint64 size)>;

/// Hands a content over from its beginning, piece by piece. False when it cannot be read to its end
/// or a piece was not taken.
using Content = std::function<bool(const Taker&)>;

/// Large contents travel in pieces of this size, so that any size takes the same memory.
constexpr qint64 pieceSize = 1048576;

Content contentOf(QFile& source)
{
    return [&source](const Taker& take) {
        std::vector<char> piece(static_cast<std::size_t>(std::min(source.size() + 1, pieceSize)));
        qint64 size = 0;
        bool going = source.seek(0);
        while (going) {
            size = source.read(piece.data(), static_cast<qint64>(piece.size()));
            going = size > 0 && take(piece.data(), size);
        }
        return size <= 0 && source.error() == QFileDevice::NoError;
    };
}

Content contentOf(const cv::Mat& map)
{
    // A map lies in one piece, line after line.
    return [&map](const Taker& take) {
        return take(map.ptr<char>(), static_cast<qint64>(map.total()));
    };
}

bool isAllZero(const char* piece, qint64 size)
{
    return *piece == 0 && std::memcmp(piece, piece + 1, static_cast<std::size_t>(size - 1)) == 0;
}

/// Writes into an empty file. Whole pieces of zeros are left out, so that a file with holes does
/// not fill the disk.
bool writeNew(QFile& file, const Content& content)
{
    qint64 end = 0;
    const bool written = content([&](const char* piece, qint64 size) {
        end += size;
        return size == pieceSize && isAllZero(piece, size) ? file.seek(end)
                                                           : file.write(piece, size) == size;
    });
    return written && (end == file.size() || file.resize(end)) && flushToDisk(file);
}

/// Writes over what is there. Nothing is touched before the whole content was seen to be readable
/// and to have room.
void writeOver(QFile& file, const Content& content)
{
    qint64 end = 0;
    const bool readable = content([&end](const char*, qint64 size) {
        end += size;
        return true;
    });
    const auto write = [&file](const char* piece, qint64 size) {
        return file.write(piece, size) == size;
    };
    if (readable && reserve(file, end) && content(write)) {
        file.resize(end);
    }
    flushToDisk(file);
}

bool holds(const std::string& path, const Content& content)
{
    QFile file;
    if (!openForReading(file, path)) {
        return false;
    }
    std::vector<char> there;
    const bool same = content([&](const char* piece, qint64 size) {
        there.resize(static_cast<std::size_t>(size));
        return file.read(there.data(), size) == size &&
               std::equal(there.begin(), there.end(), piece);
    });
    return same && file.atEnd();
}

/// A file that is replaced as a whole: another one is written beside it and then takes its place.
/// The file itself is written over only where none can be made or none can take the place; where
/// another one merely failed, by a full disk for example, the old file stays.
class Replacement {
public:
    explicit Replacement(const std::string& file) : path(file) {}

    /// Whether the file can be written; changes nothing yet.
    bool open()
    {
        access = openForWriting(old, path);
        if (access == Access::Refused) {
            return false;
        }
        const Successor::Opened opened = successor.open(path);
        if (opened == Successor::Opened::Yes && access == Access::Granted) {
            successor.inherit(old);
        }
        return opened == Successor::Opened::Yes ||
               (opened == Successor::Opened::FolderIsClosed && access == Access::Granted);
    }

    /// Whether nothing was there.
    [[nodiscard]] bool isNew() const { return access == Access::Missing; }

    /// False when the file turned out not to be writable. A content that cannot be had, or that
    /// finds no room, leaves the old file and is not told.
    bool write(const Content& content)
    {
        if (!successor.content().isOpen()) {
            writeOver(old, content);
            return true;
        }
        if (!writeNew(successor.content(), content)) {
            return true;
        }
        old.close();
        if (successor.takePlace() != Successor::Placed::PlaceIsHeld) {
            return true;
        }
        if (openForWriting(old, path) != Access::Granted) {
            return false;
        }
        writeOver(old, content);
        return true;
    }

private:
    const std::string& path;
    Access access = Access::Refused;
    QFile old;
    Successor successor;
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
    QFile file;
    return openForReading(file, path);
}

bool copyFile(const std::string& source, const std::string& destination)
{
    QFile from;
    if (!openForReading(from, source)) {
        return false;
    }
    Replacement to(destination);
    return to.open() && to.write(contentOf(from));
}

void writeMap(const cv::Mat& map, const std::string& path)
{
    Replacement file(path);
    if (file.open()) {
        file.write(contentOf(map));
    }
}

void writeNewMap(const cv::Mat& map, const std::string& path)
{
    Replacement file(path);
    if (file.open() && file.isNew()) {
        file.write(contentOf(map));
    }
}

bool holdsMap(const std::string& path, const cv::Mat& map)
{
    return holds(path, contentOf(map));
}

bool holdTheSame(const std::string& path, const std::string& otherPath)
{
    QFile other;
    return openForReading(other, otherPath) && holds(path, contentOf(other));
}

} // namespace tavrel::bpr
