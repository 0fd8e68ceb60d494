// SPDX-License-Identifier: MIT
// A map of bad pixels as a file, without a camera.
#pragma once

#include "bpr/table.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <vector>

namespace tavrel::ctl {

class Map {
public:
    /// Reads a map file; throws when it is none.
    explicit Map(const QString& file);

    [[nodiscard]] bool isBad(int x, int y) const { return bytes[y * bpr::width + x] != '\0'; }

private:
    QByteArray bytes;
};

struct Pixel {
    int x;
    int y;
};

/// Bad pixels that touch each other, corners included; the largest group first.
std::vector<std::vector<Pixel>> clustersOf(const Map& map);

/// Lines and columns of which every pixel is bad.
std::vector<int> badLines(const Map& map);
std::vector<int> badColumns(const Map& map);

/// Draws a map, or what differs from a second one, into a PNG file; throws when it cannot, or when
/// another file than a PNG picture is there.
/// Bad in both white; in the first only red; in the second only green.
void drawMap(const Map& first, const Map* second, const QString& file);

} // namespace tavrel::ctl
