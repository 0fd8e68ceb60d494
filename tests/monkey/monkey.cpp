// SPDX-License-Identifier: MIT
#include "tests/monkey/monkey.h"

#include "tests/kit/wheel.h"
#include "tests/kit/widgets.h"
#include "tests/monkey/hostile_sdk.h"

#include <QtCore/QTimer>
#include <QtGui/QWindow>
#include <QtTest/QTest>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QAbstractSpinBox>
#include <QtWidgets/QApplication>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDialog>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QSlider>
#include <QtWidgets/QTabBar>
#include <QtWidgets/QTabWidget>

#include <algorithm>
#include <array>
#include <chrono>

namespace monkey {

namespace {

/// The automatic correction blocks for more than a second, as long as all other actions of a while.
constexpr int actionsBetweenLongNucs = 5000;
/// The timer is moved by hand, so that a run is the same on a slow machine.
constexpr std::chrono::hours never{24};
constexpr int deepest = 3;

constexpr std::array portNames = {"ttyUSB0", "ttyUSB1", "ttyUSB2"};

constexpr std::array keys = {
    Qt::Key_Tab,    Qt::Key_Backtab, Qt::Key_Return, Qt::Key_Enter,    Qt::Key_Escape,
    Qt::Key_Up,     Qt::Key_Down,    Qt::Key_Left,   Qt::Key_Right,    Qt::Key_PageUp,
    Qt::Key_Home,   Qt::Key_End,     Qt::Key_Space,  Qt::Key_PageDown, Qt::Key_Backspace,
    Qt::Key_Delete, Qt::Key_F4,      Qt::Key_Menu,   Qt::Key_9,        Qt::Key_Minus,
};

constexpr std::array letters = {Qt::Key_A, Qt::Key_C, Qt::Key_V, Qt::Key_X, Qt::Key_Z};

} // namespace

struct Monkey::Action {
    unsigned weight; ///< how often, relative to the others
    const char* name;
    void (Monkey::*run)();
};

// clang-format off
const Monkey::Action Monkey::actions[] = {
    {16, "press a button",      &Monkey::pressAButton},
    { 6, "click anywhere",      &Monkey::clickAnywhere},
    { 8, "drag a slider",       &Monkey::dragASlider},
    { 8, "turn the wheel",      &Monkey::turnTheWheel},
    {14, "type a number",       &Monkey::typeANumber},
    {12, "press keys",          &Monkey::pressKeys},
    { 8, "open a list",         &Monkey::openAList},
    { 8, "change the tab",      &Monkey::changeTab},
    { 6, "let a second pass",   &Monkey::letASecondPass},
    { 3, "plug or unplug",      &Monkey::plugOrUnplug},
    {10, "go online",           &Monkey::goOnline},
    { 1, "go offline",          &Monkey::goOffline},
    { 1, "change the port",     &Monkey::changeThePort},
    { 1, "resize the window",   &Monkey::resizeTheWindow},
    { 1, "clear the log",       &Monkey::clearTheLog},
    { 1, "call by slot name",   &Monkey::callBySlotName},
};
// clang-format on

Monkey::Monkey(std::uint64_t seed) : draw(seed)
{
    qApp->installEventFilter(this);
}

Monkey::~Monkey()
{
    qApp->removeEventFilter(this);
}

void Monkey::sitDownAt(MainWindow& mainWindow)
{
    window = &mainWindow;
}

void Monkey::act()
{
    --untilLongNuc;
    if (!window->isActiveWindow()) {
        QApplication::setActiveWindow(window);
    }
    std::size_t total = 0;
    for (const Action& action : actions) {
        total += action.weight;
    }
    std::size_t drawn = draw.below(total);
    auto chosen = std::begin(actions);
    while (drawn >= chosen->weight) {
        drawn -= chosen->weight;
        ++chosen;
    }
    latest = QLatin1String(chosen->name);
    (this->*chosen->run)();
    QCoreApplication::processEvents();
    leaveLists();
    if (QApplication::activeModalWidget() != nullptr) {
        trouble = QStringLiteral("a box is still open");
    }
    if (timer().isActive()) {
        timer().setInterval(never);
    }
}

// ---- actions

void Monkey::pressAButton()
{
    if (auto* const button = reachable<QAbstractButton>()) {
        latest += QLatin1String(": ") + button->objectName();
        click(anyPointOf(*button));
    }
}

void Monkey::clickAnywhere()
{
    static constexpr std::array buttons = {Qt::LeftButton, Qt::LeftButton, Qt::RightButton,
                                           Qt::MiddleButton};
    const QPoint position = anyPointOf(*window);
    const Qt::MouseButton button = draw.oneOf(buttons);
    latest += QStringLiteral(": button %1 at %2, %3")
                  .arg(static_cast<int>(button))
                  .arg(position.x())
                  .arg(position.y());
    click(position, button);
    if (draw.oneIn(4) && mayPress(window->childAt(position))) {
        QTest::mouseDClick(&surface(), Qt::LeftButton, Qt::NoModifier, position);
    }
}

void Monkey::dragASlider()
{
    auto* const slider = reachable<QSlider>();
    if (slider == nullptr) {
        return;
    }
    latest += QLatin1String(": ") + slider->objectName();
    const auto somewhere = [&] {
        return draw.oneIn(4) ? anyPointOf(*window) : anyPointOf(*slider);
    };
    QTest::mousePress(&surface(), Qt::LeftButton, Qt::NoModifier, anyPointOf(*slider));
    for (int move = draw.between(0, 3); move > 0; --move) {
        QTest::mouseMove(&surface(), somewhere());
    }
    if (draw.oneIn(8)) {
        letASecondPass();
    } else if (draw.oneIn(16)) {
        pullTheAdapter();
    }
    QTest::mouseRelease(&surface(), Qt::LeftButton, Qt::NoModifier, somewhere());
}

void Monkey::turnTheWheel()
{
    auto* const target = reachable<QWidget>();
    if (target == nullptr) {
        return;
    }
    latest += QLatin1String(": ") + target->objectName();
    const QPoint position = anyPointOf(*target);
    const int steps = draw.between(-5, 5);
    kit::turnWheel(*window, position, steps, draw.oneIn(8) ? Qt::ControlModifier : Qt::NoModifier);
}

void Monkey::typeANumber()
{
    auto* const spinBox = reachable<QAbstractSpinBox>();
    if (spinBox == nullptr) {
        return;
    }
    static constexpr char characters[] = "00112345678999..,--+eE ax";
    static constexpr std::array finishes = {Qt::Key_Tab, Qt::Key_Return, Qt::Key_Enter,
                                            Qt::Key_Escape};
    latest += QLatin1String(": ") + spinBox->objectName();
    click(anyPointOf(*spinBox));
    // Typing goes to the spin box or not at all: a blank elsewhere would press a button.
    if (!spinBox->hasFocus()) {
        return;
    }
    if (!draw.oneIn(4)) {
        key(Qt::Key_A, Qt::ControlModifier);
    }
    QString text;
    for (int length = draw.between(0, draw.oneIn(8) ? 40 : 6); length > 0; --length) {
        text += QLatin1Char(characters[draw.below(sizeof characters - 1)]);
    }
    latest += QStringLiteral(" \"%1\"").arg(text);
    QTest::keyClicks(spinBox, text);
    if (draw.oneIn(16)) {
        pullTheAdapter();
        return;
    }
    if (!draw.oneIn(5)) {
        key(draw.oneOf(finishes));
    }
}

void Monkey::pressKeys()
{
    for (int count = draw.between(1, 4); count > 0; --count) {
        if (draw.oneIn(8)) {
            key(draw.oneOf(letters), Qt::ControlModifier);
        } else {
            key(draw.oneOf(keys), draw.oneIn(8) ? Qt::ShiftModifier : Qt::NoModifier);
        }
    }
}

void Monkey::openAList()
{
    auto* const list = reachable<QComboBox>();
    if (list == nullptr) {
        return;
    }
    latest += QLatin1String(": ") + list->objectName();
    click(anyPointOf(*list));
    if (draw.oneIn(8)) {
        letASecondPass();
    }
}

void Monkey::changeTab()
{
    auto* const bar = widgets::find<QTabWidget>(*window, QStringLiteral("tabWidget"))->tabBar();
    if (bar->isEnabled() && bar->count() > 0) {
        const QPoint center = bar->tabRect(draw.between(0, bar->count() - 1)).center();
        click(bar->mapTo(window, center));
    }
}

void Monkey::letASecondPass()
{
    latest += QLatin1String(timer().isActive() ? " (tick)" : " (no tick)");
    if (timer().isActive()) {
        QMetaObject::invokeMethod(window, "monitoringSystem");
    }
}

/// The port of the connection goes, and the window notices.
void Monkey::pullTheAdapter()
{
    const QString name =
        widgets::find<QComboBox>(*window, QStringLiteral("selectDeviceComboBox"))->currentText();
    if (!timer().isActive() || !ports.plugged().contains(name)) {
        return;
    }
    latest += QStringLiteral(" (%1 pulled)").arg(name);
    ++pulled;
    ports.unplug(name);
    letASecondPass();
}

void Monkey::plugOrUnplug()
{
    const QString name = QLatin1String(draw.oneOf(portNames));
    latest += QLatin1String(": ") + name;
    if (ports.plugged().contains(name)) {
        ports.unplug(name);
    } else {
        ports.plug(name);
    }
}

void Monkey::goOnline()
{
    if (ports.plugged().isEmpty()) {
        plugOrUnplug();
    }
    clickOn("scanDeviceButton");
    clickOn("connectDeviceButton");
}

void Monkey::goOffline()
{
    clickOn("disconnectDeviceButton");
}

void Monkey::changeThePort()
{
    plugOrUnplug();
    letASecondPass();
}

void Monkey::resizeTheWindow()
{
    window->resize(draw.between(1, 2000), draw.between(1, 1600));
}

void Monkey::clearTheLog()
{
    clickOn("clearLogButton");
}

void Monkey::callBySlotName()
{
    static constexpr std::array slotNames = {"ApplyParamsUser", "ApplyParamsExpert",
                                             "ReadParamsExpert"};
    const char* const name = draw.oneOf(slotNames);
    if (hostile::cameraClosed()) {
        return;
    }
    latest += QLatin1String(": ") + QLatin1String(name);
    QMetaObject::invokeMethod(window, name);
}

// ---- hands

template<typename Widget> Widget* Monkey::reachable()
{
    QList<Widget*> candidates = window->findChildren<Widget*>();
    candidates.erase(std::remove_if(candidates.begin(), candidates.end(),
                                    [](const Widget* widget) {
                                        return !widget->isVisible() || !widget->isEnabled() ||
                                               widget->isWindow() ||
                                               widget->visibleRegion().isEmpty();
                                    }),
                     candidates.end());
    return candidates.isEmpty() ? nullptr : draw.oneOf(candidates);
}

/// A point of the widget that can be seen, in the window's coordinates.
QPoint Monkey::anyPointOf(const QWidget& widget)
{
    QRect seen = widget.visibleRegion().boundingRect();
    if (seen.isEmpty()) {
        seen = QRect(0, 0, 1, 1);
    }
    const QPoint position(draw.between(seen.left(), seen.right()),
                          draw.between(seen.top(), seen.bottom()));
    const QPoint inWindow = widget.mapTo(window, position);
    return {std::clamp(inWindow.x(), 0, window->width() - 1),
            std::clamp(inWindow.y(), 0, window->height() - 1)};
}

void Monkey::click(QPoint position, Qt::MouseButton button)
{
    if (mayPress(window->childAt(position))) {
        QTest::mouseClick(&surface(), button, Qt::NoModifier, position);
    }
}

bool Monkey::clickOn(const char* name)
{
    auto* const button = widgets::find<QAbstractButton>(*window, QLatin1String(name));
    if (!button->isEnabled() || button->visibleRegion().isEmpty()) {
        return false;
    }
    click(anyPointOf(*button));
    return true;
}

void Monkey::key(Qt::Key code, Qt::KeyboardModifiers modifiers)
{
    if (mayPress(QApplication::focusWidget())) {
        QTest::keyClick(&surface(), code, modifiers);
    }
}

/// Keeps the correction that blocks rare.
bool Monkey::mayPress(const QWidget* widget)
{
    if (widget == nullptr || widget->objectName() != QLatin1String("autoNucPB")) {
        return true;
    }
    if (untilLongNuc > 0) {
        return false;
    }
    untilLongNuc = actionsBetweenLongNucs;
    return true;
}

QTimer& Monkey::timer()
{
    return widgets::timer(*window);
}

QWindow& Monkey::surface()
{
    return *window->windowHandle();
}

// ---- boxes, menus and lists

bool Monkey::eventFilter(QObject* watched, QEvent* event)
{
    // Both run an event loop of their own; only a queued call can get them out of it.
    if (event->type() == QEvent::Show &&
        (qobject_cast<QDialog*>(watched) != nullptr || qobject_cast<QMenu*>(watched) != nullptr)) {
        QMetaObject::invokeMethod(this, &Monkey::attend, Qt::QueuedConnection);
    }
    if (event->type() == QEvent::Hide && qobject_cast<QMenu*>(watched) != nullptr) {
        endLoopOf(*qobject_cast<QMenu*>(watched));
    }
    return QObject::eventFilter(watched, event);
}

/// A menu that opens takes the focus from a region's box, and the box about the region then hides
/// the menu before its event loop runs. Nothing ends that loop any more; an operator does not
/// notice, but the action would never return. Repeats itself until the menu is gone: a loop that
/// does not run yet cannot be ended.
void Monkey::endLoopOf(QMenu& menu)
{
    const QPointer<QMenu> hidden = &menu;
    QTimer::singleShot(std::chrono::milliseconds(1), this, [hidden] {
        if (!hidden.isNull() && !hidden->isVisible()) {
            QHideEvent again;
            QCoreApplication::sendEvent(hidden, &again);
        }
    });
}

void Monkey::attend()
{
    leaveLists();
    auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    // One pair of hands: a second one would press the button that the first holds down.
    if (dialog == nullptr || attended.contains(dialog)) {
        return;
    }
    ++answered;
    inspect(*dialog);
    const QPointer<QDialog> guarded = dialog;
    attended.push(dialog);
    if (attended.size() <= deepest) {
        meddle(*dialog);
    }
    if (!guarded.isNull() && guarded->isVisible()) {
        closeBox(*guarded);
    }
    attended.pop();
    // Under Wine this may run before the box's event loop does, which then would go on forever: the
    // box is brought up again.
    QTimer::singleShot(std::chrono::milliseconds(1), this, [guarded] {
        if (!guarded.isNull() && !guarded->isVisible()) {
            guarded->show();
        }
    });
    // The one below had its turn while this one was on top.
    if (QApplication::activeModalWidget() != nullptr) {
        QMetaObject::invokeMethod(this, &Monkey::attend, Qt::QueuedConnection);
    }
}

/// What may happen while a box is open.
void Monkey::meddle(QDialog& dialog)
{
    switch (draw.below(7)) {
    case 0:
        letASecondPass();
        break;
    case 1:
        changeThePort();
        break;
    case 2:
        QTest::keyClick(dialog.windowHandle(), Qt::Key_Tab);
        break;
    case 3:
        // Behind the box: it must not get through.
        click(anyPointOf(*window));
        break;
    case 4:
        pullTheAdapter();
        break;
    default:
        break;
    }
}

void Monkey::inspect(const QDialog& dialog)
{
    const auto* const box = qobject_cast<const QMessageBox*>(&dialog);
    if (box != nullptr && (box->text().isEmpty() || box->standardButtons() != QMessageBox::Ok)) {
        trouble = QStringLiteral("a box without a text or with other buttons: \"%1\" / \"%2\"")
                      .arg(box->windowTitle(), box->text());
    }
}

void Monkey::closeBox(QDialog& dialog)
{
    const auto button = widgets::button(dialog);
    switch (button ? draw.below(3) : 1 + draw.below(2)) {
    case 0:
        QTest::mouseClick(dialog.windowHandle(), Qt::LeftButton, Qt::NoModifier, *button);
        break;
    case 1:
        QTest::keyClick(dialog.windowHandle(), Qt::Key_Escape);
        break;
    default:
        dialog.close();
        break;
    }
    // A key that found the box inactive was lost, as it would be for a person; and while the right
    // button is still held down from opening a menu, a click presses the box's button without
    // letting it go, and the first Escape only does that.
    for (int attempt = 0; attempt < 2 && dialog.isVisible(); ++attempt) {
        dialog.activateWindow();
        QTest::keyClick(dialog.windowHandle(), Qt::Key_Escape);
    }
    if (dialog.isVisible()) {
        trouble = QStringLiteral("the box \"%1\" does not close").arg(dialog.windowTitle());
        dialog.close();
    }
}

/// Strikes a key in a list or menu. The press may end it; its window is gone then, and the release
/// goes nowhere.
void Monkey::strike(QWidget& list, Qt::Key key)
{
    const QPointer<QWindow> surface = list.windowHandle();
    QTest::keyPress(surface, key);
    if (!surface.isNull() && surface->isVisible()) {
        QTest::keyRelease(surface, key);
    }
}

void Monkey::leaveLists()
{
    static constexpr std::array inside = {Qt::Key_Up, Qt::Key_Down, Qt::Key_Home, Qt::Key_End};
    constexpr int mostLists = 5;
    for (int attempt = 0; attempt < mostLists; ++attempt) {
        QPointer<QWidget> list = QApplication::activePopupWidget();
        if (list.isNull()) {
            return;
        }
        // The entries of a menu are Qt's own; a list's entries are the tool's.
        const bool menu = qobject_cast<QMenu*>(list) != nullptr;
        for (int moves = menu ? 0 : draw.between(0, 3); moves > 0 && !list.isNull(); --moves) {
            strike(*list, draw.oneOf(inside));
        }
        if (!list.isNull() && list->isVisible()) {
            strike(*list, menu || draw.oneIn(3) ? Qt::Key_Escape : Qt::Key_Return);
        }
    }
    if (QWidget* const list = QApplication::activePopupWidget()) {
        trouble = QStringLiteral("the list %1 \"%2\" does not close")
                      .arg(QLatin1String(list->metaObject()->className()), list->objectName());
        list->close();
    }
}

} // namespace monkey
