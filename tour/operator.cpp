// SPDX-License-Identifier: MIT
#include "tour/operator.h"

#include "tour/gui.h"
#include "tour/sight.h"

#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QSlider>
#include <QtWidgets/QToolTip>

#include <algorithm>
#include <thread>
#include <utility>

namespace tour {

namespace {

using std::chrono::milliseconds;

/// How often a condition is looked at.
constexpr milliseconds glance{15};
/// A picture is taken when the screen shows the same for so long.
constexpr milliseconds stillness{70};

QString quoted(const QString& text)
{
    return QStringLiteral("“%1”").arg(text);
}

} // namespace

Operator::Operator(Report& itsReport, milliseconds itsPace)
    : report(itsReport), witness(inGui([] { return new Witness(qApp); })), pace(itsPace)
{}

void Operator::step(const Text& title, const std::function<void()>& actions)
{
    report.beginStep(title);
    logExpected = 0;
    refusals.clear();
    clicks.clear();
    pictureIsCurrent = false;
    try {
        actions();
        collectLog();
        for (const QString& line : std::as_const(report.step().log)) {
            if (line.endsWith(QLatin1String(" KO")) && !refusals.contains(line)) {
                throw Failure(QStringLiteral("unexpected: ") + line);
            }
        }
        if (inGui([] { return sight::openDialog() != nullptr; })) {
            throw Failure(QStringLiteral("an unexpected box is open"));
        }
        if (!pictureIsCurrent) {
            picture(QString());
        }
    } catch (const std::exception& failure) {
        report.step().failure = QString::fromUtf8(failure.what());
        picture(QStringLiteral("What the screen showed then"));
        tidyUp();
        collectLog();
    }
    report.endStep();
}

void Operator::tidyUp()
{
    const auto somethingIsOpen = [] {
        return sight::openDialog() != nullptr || QApplication::activePopupWidget() != nullptr;
    };
    constexpr int patience = 50;
    for (int attempt = 0; attempt < patience && inGui(somethingIsOpen); ++attempt) {
        input.strike("Escape");
        std::this_thread::sleep_for(stillness);
    }
}

void Operator::movePointer(QPoint position)
{
    constexpr int steps = 25;
    for (int step = 1; step < steps && pace > milliseconds::zero(); ++step) {
        input.movePointer(pointer + (position - pointer) * step / steps);
        std::this_thread::sleep_for(pace / steps);
    }
    input.movePointer(position);
    pointer = position;
}

void Operator::press(QPoint position)
{
    pictureIsCurrent = false;
    const int before = inGui([&] { return witness->releases(); });
    movePointer(position);
    input.pressButton();
    input.releaseButton();
    expect("the program receives the click", [&] { return witness->releases() > before; });
}

void Operator::mark(QPoint position)
{
    clicks.append({position, static_cast<int>(report.step().actions.size())});
}

void Operator::markAndPress(QPoint position)
{
    mark(position);
    press(position);
}

void Operator::waitForWindow()
{
    // After a box was closed, the window manager gives the focus back in its own time.
    expect(QStringLiteral("the window is active"), [] {
        const QWidget* const window = sight::mainWindow();
        return window != nullptr && window->isActiveWindow();
    });
}

void Operator::park()
{
    movePointer(inGui(sight::screen).bottomRight());
}

void Operator::click(const Text& name)
{
    waitForWindow();
    tell(QStringLiteral("Click ") + inGui([&] { return sight::callName(name); }));
    markAndPress(inGui([&] { return sight::place(name); }));
}

void Operator::showTab(const Text& title)
{
    waitForWindow();
    tell(QStringLiteral("Open the tab ") + quoted(title));
    markAndPress(inGui([&] { return sight::tabPlace(title); }));
    expect(QStringLiteral("the tab %1 is in front").arg(title), [&] {
        const QTabWidget& tabs = sight::tabs();
        return tabs.tabText(tabs.currentIndex()) == title;
    });
}

void Operator::type(const Text& name, const Text& text)
{
    waitForWindow();
    tell(QStringLiteral("Type %1 into %2").arg(text, name));
    markAndPress(inGui([&] { return sight::place(name); }));
    const auto hasFocus = [&] {
        return sight::widget(name).hasFocus();
    };
    expect(name + QStringLiteral(" has the keyboard"), hasFocus);
    input.strike("ctrl+a");
    input.type(text);
    input.strike("Tab");
    expect(name + QStringLiteral(" lets go of the keyboard"),
           [&] { return !hasFocus() || sight::openDialog() != nullptr; });
}

void Operator::choose(const Text& combo, const Text& entry)
{
    waitForWindow();
    tell(QStringLiteral("Choose %1 in %2").arg(quoted(entry), combo));
    open(combo);
    pick(combo, entry);
}

void Operator::chooseInPicture(const Text& combo, const Text& entry, const Text& caption)
{
    waitForWindow();
    tell(QStringLiteral("Open the list ") + combo);
    open(combo);
    tell(QStringLiteral("Choose ") + quoted(entry));
    mark(inGui([&] { return sight::entryPlace(combo, entry); }));
    picture(caption);
    pick(combo, entry);
}

void Operator::open(const QString& combo)
{
    markAndPress(inGui([&] { return sight::place(combo); }));
    expect(combo + QStringLiteral(" is open"),
           [&] { return !sight::entryPlace(combo, sight::text(combo)).isNull(); });
}

void Operator::pick(const QString& combo, const QString& entry)
{
    press(inGui([&] { return sight::entryPlace(combo, entry); }));
    expect(QStringLiteral("%1 takes %2").arg(combo, entry), [&] {
        return sight::text(combo) == entry && QApplication::activePopupWidget() == nullptr;
    });
}

int Operator::drag(const Text& slider, int value)
{
    waitForWindow();
    tell(QStringLiteral("Drag %1 to %2").arg(slider).arg(value));
    const QPoint from =
        inGui([&] { return sight::handlePlace(slider, sight::find<QSlider>(slider).value()); });
    const QPoint to = inGui([&] { return sight::handlePlace(slider, value); });
    mark(from);
    mark(to);
    pictureIsCurrent = false;
    movePointer(from);
    input.pressButton();
    movePointer((from + to) / 2);
    movePointer(to);
    const auto isDown = [&] {
        return sight::find<QSlider>(slider).isSliderDown();
    };
    expect(slider + QStringLiteral(" is dragged"), [&] {
        const auto& dragged = sight::find<QSlider>(slider);
        return isDown() && sight::handlePlace(slider, dragged.value()) == to;
    });
    input.releaseButton();
    expect(slider + QStringLiteral(" is released"), [&] { return !isDown(); });
    return inGui([&] { return sight::find<QSlider>(slider).value(); });
}

void Operator::pointAt(const Text& name)
{
    waitForWindow();
    tell(QStringLiteral("Rest the pointer on ") + inGui([&] { return sight::callName(name); }));
    pictureIsCurrent = false;
    movePointer(inGui([&] { return sight::place(name); }));
}

void Operator::closeDialog()
{
    tell(QStringLiteral("Close the dialog"));
    pictureIsCurrent = false;
    expect(QStringLiteral("the dialog is active"), [] {
        const QDialog* const dialog = sight::openDialog();
        return dialog != nullptr && dialog->isActiveWindow();
    });
    closeActiveWindow();
    expect(QStringLiteral("the dialog is closed"), [] { return sight::openDialog() == nullptr; });
}

void Operator::closeMainWindow()
{
    waitForWindow();
    closeActiveWindow();
}

void Operator::closeActiveWindow()
{
    input.strike("alt+F4");
}

void Operator::tell(const Text& action)
{
    report.step().actions.append(action);
}

QString Operator::read(const Text& name)
{
    return inGui([&] { return sight::text(name); });
}

void Operator::answerBox(const Text& title, const Text& text)
{
    expect(QStringLiteral("the box “%1” / “%2” appears").arg(title, text), [&] {
        const auto* const box = qobject_cast<QMessageBox*>(sight::openDialog());
        return box != nullptr && box->isActiveWindow() && box->windowTitle() == title &&
               box->text() == text;
    });
    const auto button = [] {
        const auto* const box = qobject_cast<QMessageBox*>(sight::openDialog());
        return box == nullptr ? nullptr : box->buttons().constFirst();
    };
    tell(QStringLiteral("Answer the box with ") +
         inGui([&] { return quoted(button()->text().remove(QLatin1Char('&'))); }));
    // The window manager moves a new window to its place when it likes.
    stillScreen();
    const QPoint place = inGui([&] { return button()->mapToGlobal(button()->rect().center()); });
    mark(place);
    picture(title.isEmpty() ? QStringLiteral("The box that it answers with")
                            : QStringLiteral("The box %1").arg(quoted(title)));
    press(place);
    expect(QStringLiteral("the box is closed"), [] { return sight::openDialog() == nullptr; });
}

void Operator::collectLog()
{
    const QStringList lines = inGui(sight::logLines);
    if (lines.size() < logSeen) {
        logSeen = 0; // cleared since
    }
    report.step().log.append(lines.mid(logSeen));
    logSeen = static_cast<int>(lines.size());
}

void Operator::expectLogLine(const QString& what, const std::function<bool(const QString&)>& isIt)
{
    waitFor(QStringLiteral("the event log says: ") + what, [&] {
        collectLog();
        const QStringList& log = report.step().log;
        for (int index = logExpected; index < log.size(); ++index) {
            if (isIt(log.at(index))) {
                logExpected = index + 1;
                return true;
            }
        }
        return false;
    });
}

void Operator::expectLog(const std::vector<Text>& lines)
{
    for (const Text& line : lines) {
        if (line.endsWith(QLatin1String(" KO"))) {
            refusals.append(line);
        }
        expectLogLine(line, [&](const QString& logged) { return logged == line; });
    }
}

QString Operator::expectLogBeginning(const Text& beginning)
{
    QString rest;
    expectLogLine(beginning + QStringLiteral("..."), [&](const QString& logged) {
        rest = logged.mid(beginning.size());
        return logged.startsWith(beginning);
    });
    return rest;
}

void Operator::expectText(const Text& name, const Text& text)
{
    expect(QStringLiteral("%1 shows %2").arg(name, text),
           [&] { return sight::text(name) == text; });
}

void Operator::expectSlider(const Text& name, int value)
{
    expect(QStringLiteral("%1 stands at %2").arg(name).arg(value),
           [&] { return sight::find<QSlider>(name).value() == value; });
}

void Operator::expectChecked(const Text& name, bool checked)
{
    expect(name + (checked ? QStringLiteral(" is checked") : QStringLiteral(" is not checked")),
           [&] { return sight::find<QAbstractButton>(name).isChecked() == checked; });
}

void Operator::expectEnabled(const Text& name, bool enabled)
{
    expect(name + (enabled ? QStringLiteral(" can be used") : QStringLiteral(" is greyed")),
           [&] { return sight::widget(name).isEnabled() == enabled; });
}

void Operator::expectToolTip()
{
    expect(QStringLiteral("a tip appears"), [] { return QToolTip::isVisible(); });
}

void Operator::expectConnected(bool connected)
{
    for (const char* const name :
         {"scanDeviceButton", "selectDeviceComboBox", "connectDeviceButton"}) {
        expectEnabled(name, !connected);
    }
    for (const char* const name :
         {"disconnectDeviceButton", "resetParamButtonUser", "readParamButtonUser", "tabWidget"}) {
        expectEnabled(name, connected);
    }
}

void Operator::expectDialog(const Text& label)
{
    expect(QStringLiteral("a dialog says “%1”").arg(label), [&] {
        const QDialog* const dialog = sight::openDialog();
        const auto labels = dialog == nullptr ? QList<QLabel*>() : dialog->findChildren<QLabel*>();
        return std::any_of(labels.begin(), labels.end(),
                           [&](const QLabel* each) { return each->text() == label; });
    });
}

void Operator::expect(const Text& what, const std::function<bool()>& condition,
                      milliseconds patience)
{
    waitFor(
        what, [&] { return inGui(condition); }, patience);
}

void Operator::waitFor(const QString& what, const std::function<bool()>& condition,
                       milliseconds patience)
{
    const auto end = std::chrono::steady_clock::now() + patience;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) {
            throw Failure(QStringLiteral("not so: ") + what);
        }
        std::this_thread::sleep_for(glance);
    }
}

std::pair<QImage, QRect> Operator::stillScreen()
{
    QRect area;
    QImage image;
    waitFor(QStringLiteral("the screen is still"), [&] {
        const QRect areaBefore = std::exchange(area, inGui(sight::shownArea));
        const QImage before = std::exchange(image, inGui([&] { return sight::picture(area); }));
        std::this_thread::sleep_for(stillness);
        return areaBefore == area && before == image;
    });
    return {image, area};
}

void Operator::picture(const Text& caption, const Text& name)
{
    // What opens only under the pointer stays open.
    if (!inGui(
            [] { return QApplication::activePopupWidget() != nullptr || QToolTip::isVisible(); })) {
        park();
    }
    const auto [image, area] = stillScreen();
    const QPoint corner = area.intersected(inGui(sight::screen)).topLeft();
    for (Click& click : clicks) {
        click.place -= corner;
    }
    report.addPicture(image, caption, std::exchange(clicks, {}), name);
    pictureIsCurrent = true;
}

} // namespace tour
