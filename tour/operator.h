// SPDX-License-Identifier: MIT
// The operator: works the window by pointer and keyboard, looks at what it shows, and expects.
// An expectation that does not come true in time throws Failure.
#pragma once

#include "tour/input.h"
#include "tour/report.h"
#include "tour/witness.h"

#include <QtCore/QPoint>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QVector>

#include <chrono>
#include <functional>
#include <utility>
#include <vector>

namespace tour {

/// Words for the operator; literals are UTF-8.
class Text : public QString {
public:
    Text(const char* utf8) : QString(QString::fromUtf8(utf8)) {}
    Text(const QString& text) : QString(text) {}
};

class Operator {
public:
    /// pace: the time that the pointer takes from place to place, for a person to follow.
    Operator(Report& report, std::chrono::milliseconds pace);

    /// The steps that follow belong to this chapter.
    void chapter(const Text& title) { report.beginChapter(title); }

    /// Carries out one step: whatever it throws becomes its failure, a box that it leaves open and
    /// a refusal that it does not expect are failures too. Ends with a picture.
    void step(const Text& title, const std::function<void()>& actions);

    // ---- hands; widgets by their object names

    void click(const Text& name);
    void showTab(const Text& title);
    /// Replaces what a spin box holds and finishes with the Tab key.
    void type(const Text& name, const Text& text);
    void choose(const Text& combo, const Text& entry);
    /// The same, with a picture of the open list.
    void chooseInPicture(const Text& combo, const Text& entry, const Text& caption);
    /// Drags a slider's handle to the place of value and lets go; returns the value reached, which
    /// differs where a pixel is wider than a step.
    int drag(const Text& slider, int value);
    void pointAt(const Text& name);
    /// Has the window manager close the dialog that is open.
    void closeDialog();
    void closeMainWindow();
    /// Tells in the report what was done outside of the window.
    void tell(const Text& action);

    // ---- eyes

    /// What a widget shows now.
    QString read(const Text& name);

    /// Waits for a box with this title and text, takes its picture and presses its button.
    void answerBox(const Text& title, const Text& text);
    /// Waits for lines of the event log, in this order; other lines may stand between them.
    void expectLog(const std::vector<Text>& lines);
    /// One line that begins so; returns the rest of it.
    QString expectLogBeginning(const Text& beginning);
    void expectText(const Text& name, const Text& text);
    void expectSlider(const Text& name, int value);
    void expectChecked(const Text& name, bool checked);
    void expectEnabled(const Text& name, bool enabled);
    void expectConnected(bool connected);
    void expectToolTip();
    /// A dialog is open that has this text among its labels.
    void expectDialog(const Text& label);
    /// Waits until the condition, which is asked in the GUI thread, holds.
    void expect(const Text& what, const std::function<bool()>& condition,
                std::chrono::milliseconds patience = std::chrono::seconds(5));

    /// A picture of the window and everything in front of it.
    void picture(const Text& caption, const Text& name = QString());

private:
    void movePointer(QPoint position);
    void closeActiveWindow();
    void press(QPoint position);
    /// The place will be marked in the next picture, as one of the latest action.
    void mark(QPoint position);
    void markAndPress(QPoint position);
    void open(const QString& combo);
    void pick(const QString& combo, const QString& entry);
    void waitForWindow();
    void waitFor(const QString& what, const std::function<bool()>& condition,
                 std::chrono::milliseconds patience = std::chrono::seconds(5));
    void park();
    /// Waits until the screen shows the same for a while; returns what, and where.
    std::pair<QImage, QRect> stillScreen();
    void collectLog();
    void expectLogLine(const QString& what, const std::function<bool(const QString&)>& isIt);
    void tidyUp();

    Report& report;
    Input input;
    const Witness* witness; ///< belongs to the GUI thread
    std::chrono::milliseconds pace;
    QPoint pointer;
    QVector<Click> clicks; ///< since the last picture, on the screen
    int logSeen = 0;       ///< lines of the pane that the report has
    int logExpected = 0;   ///< lines of the step that were expected so far
    QStringList refusals;  ///< lines ending in KO that were expected
    bool pictureIsCurrent = false;
};

} // namespace tour
