// The operator: works the window by pointer and keyboard, looks at what it shows, and expects.
// An expectation that does not come true in time throws Failure.
#pragma once

#include "tour/report.h"
#include "tour/xserver.h"

#include <QtCore/QPoint>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QVector>

#include <chrono>
#include <functional>

namespace tour {

class Operator {
public:
    /// ownScreen: nothing else is on the screen, so that it may be given a background.
    Operator(Report& report, bool ownScreen);

    /// The steps that follow belong to this chapter.
    void chapter(const QString& title) { report.beginChapter(title); }

    /// Carries out one step: whatever it throws becomes its failure, a box that it leaves open and
    /// a refusal that it does not expect are failures too. Ends with a picture.
    void step(const QString& title, const std::function<void()>& actions);

    // ---- hands; widgets by their object names

    void click(const QString& name);
    void showTab(const QString& title);
    /// Replaces what a spin box holds and finishes with the Tab key.
    void type(const QString& name, const QString& text);
    void openList(const QString& combo);
    /// Takes an entry of an open combo box.
    void take(const QString& combo, const QString& entry);
    void choose(const QString& combo, const QString& entry);
    /// Drags a slider's handle to the place of value and lets go.
    void drag(const QString& slider, int value);
    void pointAt(const QString& name);
    /// Closes the dialog that is open by its window frame.
    void closeDialog();
    void closeMainWindow();
    /// Tells in the report what was done outside of the window.
    void tell(const QString& action);

    // ---- eyes

    /// Waits for a box with this title and text, takes its picture and presses its button.
    void answerBox(const QString& title, const QString& text);
    /// Waits for lines of the event log, in this order; other lines may stand between them.
    void expectLog(const QStringList& lines);
    /// One line that begins so.
    void expectLogBeginning(const QString& beginning);
    void expectText(const QString& name, const QString& text);
    void expectChecked(const QString& name, bool checked);
    void expectEnabled(const QString& name, bool enabled);
    void expectConnected(bool connected);
    /// Waits until the condition, which is asked in the GUI thread, holds.
    void expect(const QString& what, const std::function<bool()>& condition,
                std::chrono::milliseconds patience = std::chrono::seconds(5));

    /// A picture of the window and everything in front of it.
    void picture(const QString& caption, const QString& name = {});

private:
    void clickAt(QPoint position);
    void waitForWindow();
    void waitFor(const QString& what, const std::function<bool()>& condition,
                 std::chrono::milliseconds patience = std::chrono::seconds(5));
    void park();
    void collectLog();
    void expectLogLine(const QString& what, const std::function<bool(const QString&)>& isIt);
    void tidyUp();

    Report& report;
    XServer xServer;
    QVector<QPoint> clicks; ///< since the last picture, on the screen
    int logSeen = 0;        ///< lines of the pane that the report has
    int logExpected = 0;    ///< lines of the step that were expected so far
    QStringList refusals;   ///< lines ending in KO that were expected
    bool pictureIsCurrent = false;
};

} // namespace tour
