// SPDX-License-Identifier: MIT
#include "simulator/badpixels.h"

#include "simulator/files.h"
#include "simulator/random.h"

#include <QtCore/QFile>
#include <QtCore/QtEndian>

#include <algorithm>
#include <cstdlib>

namespace simulator {
namespace {

using ombrix_sdk::ReplacementEntry;

constexpr unsigned indexShift = 43;
constexpr std::uint64_t singleReplacement = std::uint64_t{1} << 24U;
constexpr unsigned distanceBits = 12;
constexpr std::uint64_t distanceMask = (std::uint64_t{1} << distanceBits) - 1;
constexpr std::uint64_t indexPastTheMap = pixelCount;
constexpr std::uint64_t endOfTable = ~std::uint64_t{0};
// Words of a plan.
const QLatin1String missingFile("missing");
const QLatin1String emptyFile("empty");
const QLatin1String longFile("long");

const QLatin1String tableFile("replbp.bin"); // in the current directory

bool onSensor(int x, int y)
{
    return x >= 0 && x < sensorWidth && y >= 0 && y < sensorHeight;
}

bool isGood(const BadPixelMap& map, int x, int y)
{
    return onSensor(x, y) && !map.isBad(x, y);
}

int ringOf(int dx, int dy)
{
    return std::max(std::abs(dx), std::abs(dy));
}

/// The bits of the good neighbours on the ring with this distance, 1 or 2, in the 5 x 5 square.
std::uint64_t goodNeighbours(const BadPixelMap& map, int x, int y, int ring)
{
    std::uint64_t mask = 0;
    unsigned bit = 0;
    for (int dy = -2; dy <= 2; ++dy) {
        for (int dx = -2; dx <= 2; ++dx) {
            if (dx == 0 && dy == 0) {
                continue;
            }
            if (ringOf(dx, dy) == ring && isGood(map, x + dx, y + dy)) {
                mask |= std::uint64_t{1} << bit;
            }
            ++bit;
        }
    }
    return mask;
}

/// The replacement by the nearest good pixel beyond the square.
std::uint64_t nearestGood(const BadPixelMap& map, int x, int y)
{
    for (int ring = 3; ring < sensorWidth; ++ring) {
        std::uint64_t found = 0;
        int shortest = 0;
        for (int dy = -ring; dy <= ring; ++dy) {
            // Between its first and last line a ring has only two pixels per line.
            const int step = std::abs(dy) == ring ? 1 : 2 * ring;
            for (int dx = -ring; dx <= ring; dx += step) {
                const int distance = dx * dx + dy * dy;
                if (isGood(map, x + dx, y + dy) && (found == 0 || distance < shortest)) {
                    shortest = distance;
                    found = singleReplacement | (static_cast<std::uint64_t>(dx) & distanceMask) |
                            ((static_cast<std::uint64_t>(dy) & distanceMask) << distanceBits);
                }
            }
        }
        if (found != 0) {
            return found;
        }
    }
    return singleReplacement; // there is no good pixel: it stays as it is
}

std::uint64_t replacementOf(const BadPixelMap& map, int x, int y)
{
    for (const int ring : {1, 2}) {
        if (const std::uint64_t mask = goodNeighbours(map, x, y, ring)) {
            return mask;
        }
    }
    return nearestGood(map, x, y);
}

void appendRecord(QByteArray& table, std::uint64_t word)
{
    const auto bytes = qToLittleEndian<quint64>(word);
    table.append(reinterpret_cast<const char*>(&bytes), sizeof bytes);
}

} // namespace

std::optional<BadPixelMap> BadPixelMap::load(const QString& path, QString* reason)
{
    std::optional<QByteArray> content = readFile(path, pixelCount, reason);
    if (!content) {
        return std::nullopt;
    }
    const auto foreign = std::find_if(content->cbegin(), content->cend(),
                                      [](char byte) { return byte != '\0' && byte != '\1'; });
    if (foreign != content->cend()) {
        *reason = QStringLiteral("its byte %1 is neither 0 nor 1")
                      .arg(std::distance(content->cbegin(), foreign));
        return std::nullopt;
    }
    return BadPixelMap(*std::move(content));
}

bool BadPixelMap::save(const QString& path, QString* reason) const
{
    return writeFile(path, bytes, reason);
}

bool BadPixelMap::isBad(int x, int y) const
{
    return isBad(y * sensorWidth + x);
}

std::vector<int> pixelsAt(std::uint32_t x, std::uint32_t y)
{
    const bool line = x == wholeLineOrColumn;
    const bool column = y == wholeLineOrColumn;
    if ((line && column) || (!line && x >= sensorWidth) || (!column && y >= sensorHeight)) {
        return {};
    }
    const int first =
        (column ? 0 : static_cast<int>(y)) * sensorWidth + (line ? 0 : static_cast<int>(x));
    const int step = column ? sensorWidth : 1;
    const int length = line ? sensorWidth : column ? sensorHeight : 1;
    std::vector<int> pixels;
    pixels.reserve(static_cast<std::size_t>(length));
    for (int number = 0; number < length; ++number) {
        pixels.push_back(first + number * step);
    }
    return pixels;
}

namespace {

/// Loads the map for an edit of the pixels at the coordinates.
std::optional<BadPixelMap> mapForEdit(const QString& path, const std::vector<int>& pixels,
                                      QString* reason)
{
    if (pixels.empty()) {
        *reason = QStringLiteral("there is no such pixel");
        return std::nullopt;
    }
    return BadPixelMap::load(path, reason);
}

} // namespace

bool declareBadPixels(const QString& path, std::uint32_t x, std::uint32_t y, QString* reason)
{
    const std::vector<int> pixels = pixelsAt(x, y);
    std::optional<BadPixelMap> map = mapForEdit(path, pixels, reason);
    if (!map) {
        return false;
    }
    for (const int pixel : pixels) {
        map->setBad(pixel, true);
    }
    if (map->count() > badPixelLimit) {
        *reason = QStringLiteral("it would leave %1 bad pixels, and %2 are the most")
                      .arg(map->count())
                      .arg(badPixelLimit);
        return false;
    }
    return map->save(path, reason);
}

bool undeclareBadPixels(const QString& path, std::uint32_t x, std::uint32_t y, QString* reason)
{
    const std::vector<int> pixels = pixelsAt(x, y);
    std::optional<BadPixelMap> map = mapForEdit(path, pixels, reason);
    if (!map) {
        return false;
    }
    const int before = map->count();
    for (const int pixel : pixels) {
        map->setBad(pixel, false);
    }
    if (map->count() == before) {
        *reason = QStringLiteral("no bad pixel is declared there");
        return false;
    }
    return map->save(path, reason);
}

std::vector<ReplacementEntry> treat(const BadPixelMap& map)
{
    std::vector<ReplacementEntry> entries;
    for (int index = map.nextBad(0); index >= 0; index = map.nextBad(index + 1)) {
        const std::uint64_t replacement =
            replacementOf(map, index % sensorWidth, index / sensorWidth);
        entries.push_back({(static_cast<std::uint64_t>(index) << indexShift) | replacement});
    }
    return entries;
}

QByteArray encodeTable(const std::vector<ReplacementEntry>& entries)
{
    QByteArray table;
    for (const ReplacementEntry& entry : entries) {
        appendRecord(table, entry.word);
    }
    if (entries.empty()) {
        appendRecord(table, endOfTable);
    } else if (entries.size() == 1) {
        appendRecord(table, indexPastTheMap << indexShift);
    }
    return table;
}

namespace {

/// Takes away what would pass for a new table; where the folder forbids that, its content.
void discardTableFile()
{
    if (QFile::exists(tableFile) && !QFile::remove(tableFile)) {
        QFile::resize(tableFile, 0);
    }
}

} // namespace

bool treatMapFile(const QString& path, int height, int width, std::vector<ReplacementEntry>& list,
                  QString* reason)
{
    list.clear();
    discardTableFile();
    if (height != sensorHeight || width != sensorWidth) {
        *reason = QStringLiteral("the sensor has %1 lines of %2 pixels, not %3 of %4")
                      .arg(sensorHeight)
                      .arg(sensorWidth)
                      .arg(height)
                      .arg(width);
        return false;
    }
    const std::optional<BadPixelMap> map = BadPixelMap::load(path, reason);
    if (!map) {
        return false;
    }
    if (const int count = map->count(); count > badPixelLimit) {
        list.resize(static_cast<std::size_t>(count));
        *reason = QStringLiteral("it holds %1 bad pixels, and %2 are the most")
                      .arg(count)
                      .arg(badPixelLimit);
        return false;
    }
    list = treat(*map);
    return writeFile(tableFile, encodeTable(list), reason);
}

bool isTreatmentFault(const QString& word)
{
    bool isNumber = false;
    const int entries = word.toInt(&isNumber);
    return word == missingFile || word == emptyFile || word == longFile ||
           (isNumber && entries >= 0 && entries <= pixelCount);
}

void spoilTreatment(const QString& word, std::vector<ReplacementEntry>& list)
{
    list.assign(static_cast<std::size_t>(word.toInt()), ReplacementEntry{});
    discardTableFile();
    QString reason;
    if (word == emptyFile) {
        writeFile(tableFile, {}, &reason);
    } else if (word == longFile) {
        writeFile(tableFile, QByteArray(tableLength + 1, '\xFF'), &reason);
    }
}

QByteArray fillRegion(const QByteArray& table)
{
    QByteArray region = table;
    if (region.size() < tableLength) {
        region.append('\0');
    }
    return region.leftJustified(tableLength, '\xFF', true);
}

BadPixelMap factoryBadPixels(std::uint32_t serialNumber)
{
    constexpr int singlePixels = 31;
    BadPixelMap map;
    Random random(serialNumber);
    for (int placed = 0; placed < singlePixels;) {
        const int index = random.below(pixelCount);
        placed += map.isBad(index) ? 0 : 1;
        map.setBad(index, true);
    }
    const int pair = random.below(sensorHeight) * sensorWidth + random.below(sensorWidth - 1);
    map.setBad(pair, true);
    map.setBad(pair + 1, true);
    const int cluster =
        random.below(sensorHeight - 1) * sensorWidth + random.below(sensorWidth - 1);
    for (const int step : {0, 1, sensorWidth, sensorWidth + 1}) {
        map.setBad(cluster + step, true);
    }
    return map;
}

} // namespace simulator
