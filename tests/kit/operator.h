// SPDX-License-Identifier: MIT
// An operator at the real main window, for tests. The window is the tool's own, shown without a
// display, against the recording SDK and real port discovery; what the operator does are mouse and
// key events, what the operator sees is what the widgets show.
//
// clang-format off
//     #include "tests/kit/operator.h"
//
//     class TestGamma : public QObject {
//         Q_OBJECT
//     private Q_SLOTS:
//         void aFinishedEditSendsSixteenBitFixedPoint()
//         {
//             kit::Operator user;             // fresh SDK, no ports, own directory
//             user.sdk.camera.gamma = 65536;  // what the camera will report
//             user.connectCamera();           // plug, scan, connect; then an empty journal
//             user.type("gammaEdit", "1.3");  // real keys, then Tab
//             QCOMPARE(user.calls(), kit::lines({"camera.setGamma(85196)"}));
//             QCOMPARE(user.newLog(), kit::lines({"Set GAMMA value OK"}));
//         }
//     };
//     TAVREL_TEST_MAIN(TestGamma)
//     #include "tst_gamma.moc"
// clang-format on
//
// Boxes: announce the box before the action that opens it. The operator looks at it inside its own
// event loop, compares kind, title, text and buttons, and answers by a click. A box that was not
// announced is closed and fails the test; an announced box that never came fails it as well.
//     user.expectBox({kit::Box::Warning, "", "Error on processing the NUC request"});
//     user.click("userNucRequest");
//
// The SDK: user.sdk is the control door of recording_sdk.h: answer("camera.setGamma", 0) refuses,
// camera.* and configuration.* are the values that getters report, whenCalled(...) runs code in the
// middle of a call. Set configuration values before the window exists, i.e. before the first
// window(), start() or connectCamera().
//
// Warnings of Qt fail the test unless expectWarning() announced them, and announced ones must come.
// A helper that cannot do what it is asked (absent, hidden or disabled widget) fails the test at
// the line that called it and goes on, so a test reports the first thing that went wrong.
#pragma once

#include "app/mainwindow.h"
#include "tests/kit/boxes.h"
#include "tests/kit/failure.h"
#include "tests/kit/lines.h"
#include "tests/kit/ports.h"
#include "tests/kit/recording_sdk.h"
#include "tests/kit/warnings.h"

#include <QtCore/QPoint>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

#include <functional>
#include <memory>
#include <vector>

class QTimer;

namespace kit {

/// Fixes language, font size, style and platform, whatever the machine says. Called by
/// TAVREL_TEST_MAIN before the application object exists.
void prepareProcess();

class Operator {
public:
    Operator();
    /// Ends the session: boxes or warnings that never came, or came unannounced, fail the test.
    ~Operator();
    Operator(const Operator&) = delete;
    Operator& operator=(const Operator&) = delete;

    recording::Sdk& sdk; ///< the control door of the recording SDK
    Ports ports;         ///< no serial port at first

    // ---- the window

    /// Builds and shows the window; window() does so when it was not done yet.
    void start(const Place& place = Place::current());
    MainWindow& window();
    /// Closes the window and destroys it, as the end of the program does.
    void close();
    /// Destroys the window while it is still shown, as when the desktop's session ends.
    void endSession();
    /// Makes the window the active one, which it no longer is after a box was closed.
    void activate(const Place& place = Place::current());

    /// Plugs a port when there is none, presses "Scan Devices" and "Connect" and requires that the
    /// window shows the connected state; then empties the journal and marks the log.
    void connectCamera(const Place& place = Place::current());
    /// Lets the monitoring timer tick every 10 ms instead of once a second, from now on and until
    /// it is started again.
    void hurry();
    /// Whether the monitoring timer runs.
    bool monitoring();
    /// The window's only timer.
    QTimer& timer();

    /// The widget with this object name; fails the test when there is none of this type.
    template<typename Widget> Widget& find(const char* name, const Place& place = Place::current());
    /// Any widget by its object name.
    QWidget& widget(const char* name, const Place& place = Place::current());

    // ---- input: real events, sent to the window and not to the widget

    /// Clicks the middle of a widget (the mark of a check box), after bringing its tab to the
    /// front.
    void click(const char* name, const Place& place = Place::current());
    /// Selects what a spin box holds, types the text and finishes with the key; Key_unknown: not.
    /// Enter in a spin box whose handler opens a box finishes the edit twice, Tab once.
    void type(const char* name, const char* text, Qt::Key finish = Qt::Key_Tab,
              const Place& place = Place::current());
    /// Presses a key while the widget has the focus.
    void press(const char* name, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
               const Place& place = Place::current());
    /// Turns the mouse wheel over a widget; positive steps turn away from the operator.
    void wheel(const char* name, int steps, const Place& place = Place::current());
    /// Drags a slider's handle to the place of value, without letting go; returns the value
    /// reached, which differs where a pixel is wider than a step.
    int drag(const char* name, int value, const Place& place = Place::current());
    /// Lets the mouse button go where the drag ended.
    void release();
    /// drag and release.
    int dragAndRelease(const char* name, int value, const Place& place = Place::current());
    /// Opens a combo box, walks to the entry and takes it; one index change at most.
    void choose(const char* name, const char* entry, const Place& place = Place::current());
    /// Brings the tab with this title to the front by a click on it.
    void showTab(const char* title, const Place& place = Place::current());

    // ---- what the operator sees

    /// The lines of the log pane, without the empty one after the last line feed.
    Lines log();
    /// The lines since the last markLog(), or all.
    Lines newLog();
    void markLog();
    /// Caption of a button, text of a label, spin box, combo box or text pane.
    QString text(const char* name, const Place& place = Place::current());
    bool checked(const char* name, const Place& place = Place::current());
    bool enabled(const char* name, const Place& place = Place::current());
    int sliderValue(const char* name, const Place& place = Place::current());

    // ---- what the SDK saw

    /// The calls since the last clearJournal(), without getters unless asked for.
    Lines calls(recording::Show show = recording::Show::Commands);
    /// All calls and log records since then, in order: "camera.setGamma(144179)", "log 2: text".
    /// How often the root object is fetched does not matter; it is left out.
    Lines journal();
    /// Empties the journal and marks the log.
    void forget();
    /// Takes the focus off every editor, then forget(). A spin box that loses the focus finishes an
    /// edit even when nothing was typed, so after a Tab the next action would send one more value.
    void rest();

    // ---- boxes and warnings

    void expectBox(Box box, const Place& place = Place::current());
    /// How many announced boxes have not come yet.
    [[nodiscard]] int boxesAwaited() const;
    void expectWarning(const QString& message, const Place& place = Place::current());

    // ---- the process

    /// Where the process stands while this operator works: a new, empty directory.
    [[nodiscard]] QString directory() const;

private:
    QWidget* findWidget(const char* name, const char* type,
                        const std::function<bool(QWidget&)>& fits);
    bool reach(QWidget& widget);
    void clickAt(QWidget& widget, QPoint position);
    void focus(QWidget& widget);

    Warnings warnings;
    Boxes boxes;
    QString startDirectory;
    QTemporaryDir temporary;
    std::unique_ptr<MainWindow> mainWindow;
    int logMark = 0;
    std::vector<std::unique_ptr<QWidget>> substitutes; ///< for widgets that were not found
    QPoint dragPosition;
};

template<typename Widget> Widget& Operator::find(const char* name, const Place& place)
{
    const CalledFrom here(place);
    QWidget* const found =
        findWidget(name, Widget::staticMetaObject.className(),
                   [](QWidget& widget) { return qobject_cast<Widget*>(&widget) != nullptr; });
    if (found != nullptr) {
        return *qobject_cast<Widget*>(found);
    }
    auto substitute = std::make_unique<Widget>();
    Widget& reference = *substitute;
    substitutes.push_back(std::move(substitute));
    return reference;
}

} // namespace kit

/// main() of a test program whose class is TestObject.
#define TAVREL_TEST_MAIN(TestObject)                                                               \
    int main(int argc, char* argv[])                                                               \
    {                                                                                              \
        kit::prepareProcess();                                                                     \
        QApplication application(argc, argv);                                                      \
        TestObject test;                                                                           \
        return QTest::qExec(&test, argc, argv);                                                    \
    }
