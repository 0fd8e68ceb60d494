// SPDX-License-Identifier: MIT
#include "tour/palette.h"

#include <QtCore/QHash>
#include <QtCore/QVector>

#include <algorithm>
#include <utility>

namespace tour {

namespace {

constexpr int paletteSize = 256;

/// Colours that share the upper bits of red, green and blue.
QRgb groupOf(QRgb colour)
{
    constexpr QRgb upperBits = 0xf8f8f8;
    return colour & upperBits;
}

struct Group {
    qint64 pixels = 0;
    qint64 red = 0; ///< sums
    qint64 green = 0;
    qint64 blue = 0;

    [[nodiscard]] QRgb average() const
    {
        return qRgb(static_cast<int>(red / pixels), static_cast<int>(green / pixels),
                    static_cast<int>(blue / pixels));
    }
};

int distance(QRgb left, QRgb right)
{
    const int red = qRed(left) - qRed(right);
    const int green = qGreen(left) - qGreen(right);
    const int blue = qBlue(left) - qBlue(right);
    return red * red + green * green + blue * blue;
}

QHash<QRgb, Group> groupsOf(const QImage& picture)
{
    QHash<QRgb, Group> groups;
    for (int y = 0; y < picture.height(); ++y) {
        const auto* const line = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        for (int x = 0; x < picture.width(); ++x) {
            Group& group = groups[groupOf(line[x])];
            ++group.pixels;
            group.red += qRed(line[x]);
            group.green += qGreen(line[x]);
            group.blue += qBlue(line[x]);
        }
    }
    return groups;
}

} // namespace

QImage withPalette(const QImage& picture)
{
    const QHash<QRgb, Group> groups = groupsOf(picture);
    QVector<QRgb> byFrequency = groups.keys().toVector();
    std::sort(byFrequency.begin(), byFrequency.end(), [&](QRgb left, QRgb right) {
        return std::pair(groups[right].pixels, left) < std::pair(groups[left].pixels, right);
    });

    QVector<QRgb> palette;
    QHash<QRgb, int> indexes;
    for (const QRgb group : std::as_const(byFrequency)) {
        const QRgb colour = groups[group].average();
        if (palette.size() < paletteSize) {
            indexes[group] = static_cast<int>(palette.size());
            palette.append(colour);
            continue;
        }
        const auto nearest =
            std::min_element(palette.begin(), palette.end(), [&](QRgb left, QRgb right) {
                return distance(left, colour) < distance(right, colour);
            });
        indexes[group] = static_cast<int>(std::distance(palette.begin(), nearest));
    }

    QImage small(picture.size(), QImage::Format_Indexed8);
    small.setColorTable(palette);
    for (int y = 0; y < picture.height(); ++y) {
        const auto* const from = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        uchar* const to = small.scanLine(y);
        for (int x = 0; x < picture.width(); ++x) {
            to[x] = static_cast<uchar>(indexes.value(groupOf(from[x])));
        }
    }
    return small;
}

} // namespace tour
