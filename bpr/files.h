// SPDX-License-Identifier: MIT
// The files of the bad pixel table: one map per camera as working copy and as backup.
//
// Paths are the system's bytes, as the SDK takes them. Only regular files, and links to them, are
// opened. Map files are replaced as a whole: whatever interrupts a write, the old file or the new
// one is there. Only where the folder takes no new file, or no other file can take the place, the
// file is written over where it stands. A write does not tell whether it succeeded, as nothing can
// be done about it that the operator would not see in the next step; who has to know looks at the
// file afterwards.
#pragma once

#include <cstdint>
#include <string>

namespace cv {
class Mat;
}

namespace tavrel::bpr {

/// Names of the two folders in the current directory.
inline constexpr char workingFolder[] = "bpr";
inline constexpr char backupFolder[] = "bprBackup";

/// "bpr_SN", the serial number in decimal, ".bin".
std::string bprFileName(std::uint32_t serial);

/// Path of a file in a folder of the directory that is current now.
std::string pathInFolder(const char* folder, const std::string& fileName);

/// The two maps of one camera, in the directory that is current when they are asked for.
class MapFiles {
public:
    explicit MapFiles(std::uint32_t serial) : name(bprFileName(serial)) {}

    [[nodiscard]] std::string working() const { return pathInFolder(workingFolder, name); }
    [[nodiscard]] std::string backup() const { return pathInFolder(backupFolder, name); }

private:
    std::string name;
};

/// Whether the file can be opened for reading.
bool fileExists(const std::string& path);

/// Copies the whole content of a file over another one. True exactly when the source could be
/// opened for reading and the destination for writing; otherwise the destination is not touched.
bool copyFile(const std::string& source, const std::string& destination);

/// Writes a map line by line, one byte per pixel, over what is there.
void writeMap(const cv::Mat& map, const std::string& path);

/// Writes a map to a path where nothing is yet. A file that is there and only cannot be read stays
/// as it is: a backup cannot be had a second time.
void writeNewMap(const cv::Mat& map, const std::string& path);

/// Whether a file can be read and holds exactly this map.
bool holdsMap(const std::string& path, const cv::Mat& map);

/// Whether both files can be read and hold the same.
bool holdTheSame(const std::string& path, const std::string& otherPath);

} // namespace tavrel::bpr
