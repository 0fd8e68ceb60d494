// SPDX-License-Identifier: MIT
#include "ctl/map.h"

#include "bpr/storage.h"
#include "ctl/failure.h"
#include "ctl/replace.h"

#include <QtCore/QBuffer>
#include <QtCore/QFileInfo>
#include <QtGui/QImage>

#include <algorithm>

namespace tavrel::ctl {

namespace {

bool isPicture(const QString& file)
{
    const QByteArray beginning("\x89PNG\r\n\x1a\n");
    QFile opened;
    return bpr::openForReading(opened, file.toLocal8Bit().toStdString()) &&
           opened.read(beginning.size()) == beginning;
}

} // namespace

Map::Map(const QString& file)
{
    const auto refuse = [&](const QString& why) {
        throw Failure(Status::Usage, file + QLatin1String(": ") + why);
    };
    QFile opened;
    if (!bpr::openForReading(opened, file.toLocal8Bit().toStdString())) {
        refuse(QStringLiteral("cannot be read"));
    }
    if (opened.size() != qint64{bpr::pixelCount}) {
        refuse(QStringLiteral("is no map: it has %1 bytes, a map has %2")
                   .arg(opened.size())
                   .arg(bpr::pixelCount));
    }
    bytes = opened.readAll();
    if (bytes.size() != bpr::pixelCount) {
        refuse(QStringLiteral("cannot be read to its end"));
    }
    for (const char byte : bytes) {
        if (byte != 0 && byte != 1) {
            refuse(QStringLiteral("is no map: it has bytes other than 0 and 1"));
        }
    }
}

std::vector<std::vector<Pixel>> clustersOf(const Map& map)
{
    std::vector<std::vector<Pixel>> clusters;
    std::vector<bool> seen(std::size_t{bpr::pixelCount});
    const auto take = [&](Pixel pixel) {
        const auto index = std::size_t{bpr::width} * static_cast<std::size_t>(pixel.y) +
                           static_cast<std::size_t>(pixel.x);
        const bool isNew = map.isBad(pixel.x, pixel.y) && !seen[index];
        seen[index] = true;
        return isNew;
    };
    for (int y = 0; y < bpr::height; ++y) {
        for (int x = 0; x < bpr::width; ++x) {
            if (!take({x, y})) {
                continue;
            }
            std::vector<Pixel> cluster{{x, y}};
            for (std::size_t next = 0; next < cluster.size(); ++next) {
                const Pixel middle = cluster[next];
                for (int row = std::max(middle.y - 1, 0);
                     row <= std::min(middle.y + 1, bpr::height - 1); ++row) {
                    for (int column = std::max(middle.x - 1, 0);
                         column <= std::min(middle.x + 1, bpr::width - 1); ++column) {
                        if (take({column, row})) {
                            cluster.push_back({column, row});
                        }
                    }
                }
            }
            clusters.push_back(std::move(cluster));
        }
    }
    std::stable_sort(clusters.begin(), clusters.end(),
                     [](const auto& one, const auto& other) { return one.size() > other.size(); });
    return clusters;
}

std::vector<int> badLines(const Map& map)
{
    std::vector<int> lines;
    for (int y = 0; y < bpr::height; ++y) {
        int x = 0;
        while (x < bpr::width && map.isBad(x, y)) {
            ++x;
        }
        if (x == bpr::width) {
            lines.push_back(y);
        }
    }
    return lines;
}

std::vector<int> badColumns(const Map& map)
{
    std::vector<int> columns;
    for (int x = 0; x < bpr::width; ++x) {
        int y = 0;
        while (y < bpr::height && map.isBad(x, y)) {
            ++y;
        }
        if (y == bpr::height) {
            columns.push_back(x);
        }
    }
    return columns;
}

void drawMap(const Map& first, const Map* second, const QString& file)
{
    const auto colour = [&](int x, int y) {
        const bool one = first.isBad(x, y);
        const bool other = second != nullptr ? second->isBad(x, y) : one;
        if (one && other) {
            return qRgb(255, 255, 255);
        }
        return one ? qRgb(255, 0, 0) : other ? qRgb(0, 255, 0) : qRgb(0, 0, 0);
    };
    QImage image(bpr::width, bpr::height, QImage::Format_RGB32);
    for (int y = 0; y < bpr::height; ++y) {
        for (int x = 0; x < bpr::width; ++x) {
            image.setPixel(x, y, colour(x, y));
        }
    }
    // A map in its place would be lost.
    if (QFileInfo(file).isFile() && !isPicture(file)) {
        throw Failure(
            Status::Usage,
            file + QStringLiteral(": is there already and is no PNG picture; it is left as it is"));
    }
    QBuffer content;
    content.open(QIODevice::WriteOnly);
    if (!image.save(&content, "PNG")) {
        throw Failure(Status::Usage, QStringLiteral("PNG pictures cannot be made here"));
    }
    replaceFile(file, content.data());
}

} // namespace tavrel::ctl
