// SPDX-License-Identifier: MIT
// The bad pixels of a sensor: the map file that the tool keeps and the table that the camera keeps.
#pragma once

#include "sdk/ombrix_sdk.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <cstdint>
#include <optional>
#include <vector>

namespace simulator {

constexpr int sensorWidth = 640;
constexpr int sensorHeight = 480;
constexpr int pixelCount = sensorWidth * sensorHeight;
constexpr int badPixelLimit = 1024;
constexpr int tableLength = 8192; ///< bytes of the camera's table region
constexpr std::uint32_t wholeLineOrColumn = 0xFFFFFFFF;

/// One byte per pixel, line by line: 0 good, 1 bad.
class BadPixelMap {
public:
    BadPixelMap() : bytes(pixelCount, '\0') {}

    /// The map in the file, or nothing and the reason why the file is no map.
    static std::optional<BadPixelMap> load(const QString& path, QString* reason);
    /// Replaces the file, whole or not at all where the folder allows it.
    [[nodiscard]] bool save(const QString& path, QString* reason) const;

    [[nodiscard]] bool isBad(int x, int y) const;
    [[nodiscard]] bool isBad(int index) const { return bytes.at(index) != '\0'; }
    /// The first bad pixel from this index on, or -1.
    [[nodiscard]] int nextBad(int from) const
    {
        return static_cast<int>(bytes.indexOf('\1', from));
    }
    void setBad(int index, bool bad) { bytes[index] = bad ? '\1' : '\0'; }
    [[nodiscard]] int count() const { return static_cast<int>(bytes.count('\1')); }

private:
    explicit BadPixelMap(QByteArray content) : bytes(std::move(content)) {}

    QByteArray bytes;
};

/// The pixels that a pair of coordinates stands for, as indexes; empty when it stands for none.
std::vector<int> pixelsAt(std::uint32_t x, std::uint32_t y);

/// Declares or undeclares the pixels in the map file. Refused, with the reason, when the file is no
/// map, when there is no such pixel, when declaring would leave more than badPixelLimit bad pixels,
/// and when there is nothing to undeclare.
bool declareBadPixels(const QString& path, std::uint32_t x, std::uint32_t y, QString* reason);
bool undeclareBadPixels(const QString& path, std::uint32_t x, std::uint32_t y, QString* reason);

/// One entry per bad pixel, by ascending index, of a map of at most badPixelLimit bad pixels. An
/// entry is a table record:
///
///   bits 43 to 63  index of the bad pixel, y * 640 + x
///   bits 25 to 42  0
///   bit 24         how bits 0 to 23 are read
///   bits 0 to 23   bit 24 is 0: the neighbours whose mean replaces the pixel, one bit per pixel of
///                  the 5 x 5 square around it, line by line from the upper left, the pixel itself
///                  left out. They are the good ones of the eight next to it or, when there is
///                  none, of the sixteen around those.
///                  bit 24 is 1: the square holds no good pixel. A good one on the nearest ring
///                  that has one replaces the pixel: bits 0 to 11 hold its distance in x, bits 12
///                  to 23 in y, both as twelve bits of two's complement.
std::vector<ombrix_sdk::ReplacementEntry> treat(const BadPixelMap& map);

/// The entries in camera format, in such a way that every reader comes to an end: a reader takes
/// the first record even with index 0 and expects a second one. A single entry is therefore
/// followed by a record with the index just past the last pixel, which is read, counted and marks
/// nothing; and no entry at all gives one record whose index is no pixel's.
/// Takes at most badPixelLimit entries.
QByteArray encodeTable(const std::vector<ombrix_sdk::ReplacementEntry>& entries);

/// Treats the map file: the entries into list, the table into "replbp.bin" in the current
/// directory. When the map is unusable, not of this height and width, or holds more than
/// badPixelLimit bad pixels, the answer is false with the reason and no "replbp.bin" stays behind,
/// because whatever it held would be taken for this map's table. The list then holds an entry for
/// each bad pixel there is.
bool treatMapFile(const QString& path, int height, int width,
                  std::vector<ombrix_sdk::ReplacementEntry>& list, QString* reason);

/// Whether the word names a way in which a treatment can go wrong: "missing", "empty" or "long" for
/// what becomes of "replbp.bin", or a number of entries for the list.
bool isTreatmentFault(const QString& word);
/// Leaves behind what such a treatment leaves; an empty word is "missing".
void spoilTreatment(const QString& word, std::vector<ombrix_sdk::ReplacementEntry>& list);

/// The table as it stands in the camera's region: followed by one 0x00 and filled with 0xFF.
QByteArray fillRegion(const QByteArray& table);

/// The bad pixels of a camera fresh from the factory: a few single ones, a pair and a small
/// cluster, the same for the same serial number.
BadPixelMap factoryBadPixels(std::uint32_t serialNumber);

} // namespace simulator
