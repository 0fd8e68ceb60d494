// SPDX-License-Identifier: MIT
#include "tour/report.h"

#include "tour/palette.h"
#include "tour/sight.h"

#include <QtCore/QFile>
#include <QtCore/QRegularExpression>

#include <algorithm>
#include <iomanip>
#include <iostream>
#include <utility>

namespace tour {

namespace {

QString fileName(const QString& text)
{
    QString name = text.toLower();
    name.replace(QRegularExpression(QStringLiteral("[^a-z0-9]+")), QStringLiteral("-"));
    return name;
}

} // namespace

Report::Report(const QString& path)
    : folder(path), journal(qEnvironmentVariable("TAVREL_SIMULATOR_JOURNAL"))
{
    folder.mkpath(QStringLiteral("."));
}

void Report::beginChapter(const QString& title)
{
    chapter = title;
    std::cout << title.toStdString() << "\n" << std::flush;
}

void Report::beginStep(const QString& title)
{
    steps.emplace_back();
    step().chapter = chapter;
    step().title = title;
    std::cout << "  " << std::setw(2) << steps.size() << "  " << title.toStdString() << std::flush;
}

void Report::endStep()
{
    collectCalls();
    if (step().failure.isEmpty()) {
        std::cout << "\n" << std::flush;
    } else {
        std::cout << "\n     FAILED: " << step().failure.toStdString() << "\n" << std::flush;
    }
    QFile log(path(QStringLiteral("event-log.txt")));
    if (log.open(QIODevice::WriteOnly | QIODevice::Append)) {
        for (const QString& line : std::as_const(step().log)) {
            log.write(line.toUtf8() + '\n');
        }
    }
}

void Report::collectCalls()
{
    QFile file(journal);
    if (journal.isEmpty() || !file.open(QIODevice::ReadOnly) || !file.seek(journalSeen)) {
        return;
    }
    const QString calls = QString::fromUtf8(file.readAll());
    journalSeen = file.pos();
    step().calls = calls.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

void Report::addPicture(const QImage& image, const QString& caption, const QVector<Click>& clicks,
                        const QString& name)
{
    QString file = name;
    if (file.isEmpty()) {
        file = QStringLiteral("%1-%2-%3")
                   .arg(steps.size(), 2, 10, QLatin1Char('0'))
                   .arg(step().pictures.size() + 1)
                   .arg(fileName(step().title));
    }
    file += QStringLiteral(".png");
    constexpr int smallest = 0; // of the file, not of its quality: PNG loses nothing
    if (!withPalette(image).save(path(file), "PNG", smallest)) {
        throw Failure(QStringLiteral("%1 cannot be written").arg(file));
    }
    const QStringList actions = step().actions.mid(step().picturedActions);
    step().picturedActions += static_cast<int>(actions.size());
    step().pictures.push_back({file, caption, actions, image.size(), clicks});
}

int Report::failures() const
{
    return static_cast<int>(std::count_if(
        steps.begin(), steps.end(), [](const Step& each) { return !each.failure.isEmpty(); }));
}

} // namespace tour
