// SPDX-License-Identifier: MIT
#include "tests/simulator/table.h"

#include <QtCore/QtEndian>

#include <algorithm>

namespace table {
namespace {

constexpr int width = 640;
constexpr int mapSize = 307200;
constexpr int regionSize = 8192;
constexpr int recordSize = 8;
constexpr int indexShift = 43;
constexpr quint64 replacementBits = (quint64{1} << indexShift) - 1;

int signedTwelveBits(quint64 bits)
{
    const int value = static_cast<int>(bits & 0xFFFU);
    return value >= 0x800 ? value - 0x1000 : value;
}

} // namespace

Reading read(const QByteArray& region)
{
    Reading reading;
    for (int record = 0; record < regionSize / recordSize; ++record) {
        const auto word = qFromLittleEndian<quint64>(region.constData() + record * recordSize);
        const quint64 index = word >> indexShift;
        if (index > mapSize || (index == 0 && record > 0)) {
            reading.stalls = record == 1;
            break;
        }
        ++reading.count;
        if (index < mapSize) {
            reading.pixels.append(static_cast<int>(index));
            reading.replacements.append(word & replacementBits);
        }
    }
    return reading;
}

QByteArray asSent(const QByteArray& tableFile)
{
    QByteArray region(regionSize, '\0');
    for (int index = 0; index < region.size(); ++index) {
        if (index < tableFile.size()) {
            region[index] = tableFile[index];
        } else if (index > tableFile.size()) {
            region[index] = '\xFF';
        }
    }
    return region;
}

QByteArray mapOf(const QVector<int>& pixels)
{
    QByteArray map(mapSize, '\0');
    for (const int pixel : pixels) {
        map[pixel] = '\1';
    }
    return map;
}

QVector<int> pixelsOf(const QByteArray& map)
{
    QVector<int> pixels;
    for (int index = 0; index < map.size(); ++index) {
        if (map.at(index) == '\1') {
            pixels.append(index);
        }
    }
    return pixels;
}

QVector<int> replacementPixels(int pixel, quint64 replacement)
{
    if ((replacement >> 24U & 1U) != 0) {
        return {pixel + signedTwelveBits(replacement) +
                width * signedTwelveBits(replacement >> 12U)};
    }
    QVector<int> pixels;
    for (int place = 0; place < 24; ++place) {
        if ((replacement >> place & 1U) != 0) {
            // The pixel itself is left out of the square of 25.
            const int square = place < 12 ? place : place + 1;
            pixels.append(pixel + (square / 5 - 2) * width + square % 5 - 2);
        }
    }
    return pixels;
}

} // namespace table
