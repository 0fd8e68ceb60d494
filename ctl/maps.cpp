// SPDX-License-Identifier: MIT
// Looking at maps of bad pixels.
#include "ctl/map.h"
#include "ctl/tasks.h"

#include <QtCore/QJsonArray>

#include <algorithm>
#include <optional>

namespace tavrel::ctl {

namespace {

void number(Answer& answer, std::vector<QStringList>& rows, const char* name, const char* key,
            std::size_t value)
{
    rows.push_back({QLatin1String(name), QString::number(value)});
    answer.json.insert(QLatin1String(key), static_cast<double>(value));
}

void numbers(Answer& answer, std::vector<QStringList>& rows, const char* name, const char* key,
             const std::vector<int>& values)
{
    QJsonArray array;
    QStringList texts;
    for (const int value : values) {
        array.append(value);
        texts.append(QString::number(value));
    }
    rows.push_back({QLatin1String(name),
                    texts.isEmpty() ? QStringLiteral("none") : texts.join(QLatin1String(", "))});
    answer.json.insert(QLatin1String(key), array);
}

void draw(const Request& request, Answer& answer, const Map& first, const Map* second)
{
    if (!request.picture.isEmpty()) {
        drawMap(first, second, request.picture);
        answer.json.insert(QStringLiteral("picture"), request.picture);
    }
}

} // namespace

Status showMap(const Request& request, Answer& answer)
{
    constexpr std::size_t most = 5;
    const Map map(request.words.first());
    const auto clusters = clustersOf(map);
    std::size_t count = 0;
    QJsonArray largest;
    QStringList texts;
    for (const std::vector<Pixel>& cluster : clusters) {
        count += cluster.size();
        if (cluster.size() > 1 && static_cast<std::size_t>(largest.size()) < most) {
            const Pixel first = cluster.front();
            largest.append(
                QJsonObject{{QStringLiteral("x"), first.x},
                            {QStringLiteral("y"), first.y},
                            {QStringLiteral("pixels"), static_cast<int>(cluster.size())}});
            texts.append(
                QStringLiteral("%1 at x %2, y %3").arg(cluster.size()).arg(first.x).arg(first.y));
        }
    }
    const auto groups = static_cast<std::size_t>(std::count_if(
        clusters.begin(), clusters.end(), [](const auto& cluster) { return cluster.size() > 1; }));
    std::vector<QStringList> rows;
    number(answer, rows, "bad pixels", "count", count);
    number(answer, rows, "clusters", "clusters", groups);
    rows.push_back({QStringLiteral("largest clusters"),
                    texts.isEmpty() ? QStringLiteral("none") : texts.join(QLatin1String("; "))});
    answer.json.insert(QStringLiteral("largestClusters"), largest);
    numbers(answer, rows, "whole rows", "rows", badLines(map));
    numbers(answer, rows, "whole columns", "columns", badColumns(map));
    draw(request, answer, map, nullptr);
    answer.table(rows);
    return Status::Done;
}

Status compareMaps(const Request& request, Answer& answer)
{
    const Map first(request.words.first());
    const Map second(request.words.last());
    std::size_t both = 0;
    std::size_t onlyFirst = 0;
    std::size_t onlySecond = 0;
    for (int y = 0; y < bpr::height; ++y) {
        for (int x = 0; x < bpr::width; ++x) {
            const bool one = first.isBad(x, y);
            const bool other = second.isBad(x, y);
            both += static_cast<std::size_t>(one && other);
            onlyFirst += static_cast<std::size_t>(one && !other);
            onlySecond += static_cast<std::size_t>(other && !one);
        }
    }
    std::vector<QStringList> rows;
    number(answer, rows, "bad in both", "both", both);
    number(answer, rows, "bad in the first only", "onlyFirst", onlyFirst);
    number(answer, rows, "bad in the second only", "onlySecond", onlySecond);
    draw(request, answer, first, &second);
    answer.table(rows);
    return onlyFirst + onlySecond == 0 ? Status::Done : Status::Differs;
}

} // namespace tavrel::ctl
