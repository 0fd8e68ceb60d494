// SPDX-License-Identifier: MIT
// What the tour leaves behind: steps, pictures and the event log, in a folder.
#pragma once

#include <QtCore/QDir>
#include <QtCore/QPoint>
#include <QtCore/QSize>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QVector>
#include <QtGui/QImage>

#include <vector>

namespace tour {

/// A place that the pointer clicked.
struct Click {
    QPoint place;
    int action; ///< of the step's actions, counted from 1
};

struct Picture {
    QString file;
    QString caption;
    QStringList actions; ///< what the operator did since the picture before
    QSize size;
    QVector<Click> clicks; ///< places in the picture
};

struct Step {
    QString chapter;
    QString title;
    QStringList actions; ///< what the operator did
    QStringList log;     ///< the event log's new lines
    QStringList calls;   ///< what reached the SDK, where the simulator tells
    std::vector<Picture> pictures;
    int picturedActions = 0; ///< how many actions the pictures show so far
    QString failure;         ///< empty when the step had its expected effect
};

class Report {
public:
    /// Starts a report in the folder, which is made if need be.
    explicit Report(const QString& folder);

    void beginChapter(const QString& title);
    void beginStep(const QString& title);
    Step& step() { return steps.back(); }
    /// The step is over: says how it went on standard output and keeps its lines.
    void endStep();

    /// Saves a picture of the step. name: of the file, without its suffix; empty: made of the
    /// step's number and title.
    void addPicture(const QImage& image, const QString& caption, const QVector<Click>& clicks,
                    const QString& name = {});

    [[nodiscard]] const std::vector<Step>& allSteps() const { return steps; }
    [[nodiscard]] int failures() const;
    [[nodiscard]] QString path(const QString& file) const { return folder.filePath(file); }

private:
    void collectCalls();

    QDir folder;
    QString chapter;
    QString journal; ///< the simulator's journal of calls; empty when it keeps none
    qint64 journalSeen = 0;
    std::vector<Step> steps;
};

} // namespace tour
