// SPDX-License-Identifier: MIT
#include "tests/kit/operator.h"

#include "tests/kit/failure.h"
#include "tests/kit/wheel.h"
#include "tests/kit/widgets.h"

#include <QtCore/QDir>
#include <QtCore/QTimer>
#include <QtGui/QWindow>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QAbstractSpinBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QSlider>
#include <QtWidgets/QTabBar>
#include <QtWidgets/QTabWidget>

#include <algorithm>

namespace kit {

namespace {

/// The calls' paths are the system's bytes.
QStringList toLines(const std::vector<std::string>& texts)
{
    QStringList list;
    for (const std::string& text : texts) {
        list.append(QString::fromLocal8Bit(text.c_str()));
    }
    return list;
}

} // namespace

void prepareProcess()
{
    // Where the variable is already set, the one who set it wants to look at the window.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    qputenv("LC_ALL", "C.UTF-8");
    qputenv("QT_FONT_DPI", "96");
    qputenv("QT_STYLE_OVERRIDE", "Fusion");
    qputenv("QT_LOGGING_RULES", "");
    QLocale::setDefault(QLocale::c());
}

Operator::Operator() : sdk(recording::Sdk::instance()), startDirectory(QDir::currentPath())
{
    sdk.reset();
    if (!temporary.isValid() || !QDir::setCurrent(temporary.path())) {
        fail(QStringLiteral("no temporary directory"));
    }
}

Operator::~Operator()
{
    boxes.settle();
    close();
    warnings.settle();
    QDir::setCurrent(startDirectory);
}

void Operator::start(const Place& place)
{
    const CalledFrom here(place);
    mainWindow = std::make_unique<MainWindow>();
    mainWindow->show();
    activate();
}

MainWindow& Operator::window()
{
    if (!mainWindow) {
        start();
    }
    return *mainWindow;
}

void Operator::close()
{
    if (mainWindow) {
        mainWindow->close();
    }
    mainWindow.reset();
}

void Operator::endSession()
{
    mainWindow.reset();
}

void Operator::activate(const Place& place)
{
    const CalledFrom here(place);
    QApplication::setActiveWindow(&window());
    if (!QTest::qWaitForWindowActive(&window())) {
        fail(QStringLiteral("the window does not become active"));
    }
}

void Operator::connectCamera(const Place& place)
{
    const CalledFrom here(place);
    if (ports.plugged().isEmpty()) {
        ports.plug(QStringLiteral("ttyUSB0"));
    }
    click("scanDeviceButton");
    click("connectDeviceButton");
    if (!enabled("disconnectDeviceButton")) {
        fail(QStringLiteral("no connection came about; the log says:\n") +
             log().join(QLatin1Char('\n')));
    }
    forget();
}

QTimer& Operator::timer()
{
    return widgets::timer(window());
}

void Operator::hurry()
{
    timer().setInterval(10);
}

bool Operator::monitoring()
{
    return timer().isActive();
}

QWidget* Operator::findWidget(const char* name, const char* type,
                              const std::function<bool(QWidget&)>& fits)
{
    const auto found = window().findChildren<QWidget*>(QLatin1String(name));
    if (found.size() != 1) {
        fail(QStringLiteral("%1 widgets are called %2").arg(found.size()).arg(QLatin1String(name)));
        return nullptr;
    }
    if (!fits(*found.first())) {
        fail(QStringLiteral("%1 is no %2").arg(QLatin1String(name), QLatin1String(type)));
        return nullptr;
    }
    return found.first();
}

QWidget& Operator::widget(const char* name, const Place& place)
{
    const CalledFrom here(place);
    return find<QWidget>(name);
}

bool Operator::reach(QWidget& target)
{
    for (QWidget* page = &target; page != nullptr; page = page->parentWidget()) {
        auto* const tabs = page->parentWidget() == nullptr
                               ? nullptr
                               : qobject_cast<QTabWidget*>(page->parentWidget()->parentWidget());
        const int index = tabs == nullptr ? -1 : tabs->indexOf(page);
        if (index >= 0 && index != tabs->currentIndex()) {
            showTab(tabs->tabText(index).toUtf8().constData());
        }
    }
    if (!target.isVisible() || !target.isEnabled()) {
        fail(QStringLiteral("%1 cannot be used: visible %2, enabled %3")
                 .arg(target.objectName())
                 .arg(target.isVisible())
                 .arg(target.isEnabled()));
        return false;
    }
    if (QApplication::activeModalWidget() == nullptr && !window().isActiveWindow()) {
        activate();
    }
    return true;
}

void Operator::clickAt(QWidget& target, QPoint position)
{
    const QPoint inWindow = target.mapTo(&window(), position);
    const QWidget* const hit = window().childAt(inWindow);
    if (hit != &target && !target.isAncestorOf(hit)) {
        fail(QStringLiteral("%1 is covered").arg(target.objectName()));
        return;
    }
    QTest::mouseClick(window().windowHandle(), Qt::LeftButton, Qt::NoModifier, inWindow);
}

void Operator::focus(QWidget& target)
{
    if (reach(target)) {
        target.setFocus(Qt::TabFocusReason);
    }
}

void Operator::click(const char* name, const Place& place)
{
    const CalledFrom here(place);
    QWidget& target = widget(name);
    if (!reach(target)) {
        return;
    }
    clickAt(target, widgets::place(target));
}

void Operator::showTab(const char* title, const Place& place)
{
    const CalledFrom here(place);
    auto& tabs = find<QTabWidget>("tabWidget");
    const int index = widgets::tab(tabs, QLatin1String(title));
    if (index < 0) {
        fail(QStringLiteral("there is no tab %1").arg(QLatin1String(title)));
        return;
    }
    QTabBar* const bar = tabs.tabBar();
    if (reach(*bar)) {
        clickAt(*bar, bar->tabRect(index).center());
    }
    if (tabs.currentIndex() != index) {
        fail(QStringLiteral("the tab %1 does not come to the front").arg(QLatin1String(title)));
    }
}

void Operator::type(const char* name, const char* text, Qt::Key finish, const Place& place)
{
    const CalledFrom here(place);
    auto& spinBox = find<QAbstractSpinBox>(name);
    if (!reach(spinBox)) {
        return;
    }
    if (!spinBox.hasFocus()) {
        clickAt(spinBox, widgets::place(spinBox));
    }
    QWindow* const target = window().windowHandle();
    QTest::keyClick(target, Qt::Key_A, Qt::ControlModifier);
    for (const char* character = text; *character != '\0'; ++character) {
        QTest::keyClick(target, *character);
    }
    if (finish != Qt::Key_unknown) {
        QTest::keyClick(target, finish);
    }
}

void Operator::press(const char* name, Qt::Key key, Qt::KeyboardModifiers modifiers,
                     const Place& place)
{
    const CalledFrom here(place);
    QWidget& target = widget(name);
    if (!target.hasFocus()) {
        focus(target);
    }
    QTest::keyClick(window().windowHandle(), key, modifiers);
}

void Operator::wheel(const char* name, int steps, const Place& place)
{
    const CalledFrom here(place);
    QWidget& target = widget(name);
    if (!reach(target)) {
        return;
    }
    turnWheel(window(), target.mapTo(&window(), target.rect().center()), steps);
}

int Operator::drag(const char* name, int value, const Place& place)
{
    const CalledFrom here(place);
    auto& slider = find<QSlider>(name);
    if (!reach(slider)) {
        return slider.value();
    }
    const QRect from = widgets::handle(slider, slider.sliderPosition());
    const QPoint way = widgets::handle(slider, value).topLeft() - from.topLeft();
    const QPoint start = slider.mapTo(&window(), from.center());
    dragPosition = start + way;
    QWindow* const target = window().windowHandle();
    QTest::mousePress(target, Qt::LeftButton, Qt::NoModifier, start);
    QTest::mouseMove(target, start + way / 2);
    QTest::mouseMove(target, dragPosition);
    return slider.value();
}

void Operator::release()
{
    QTest::mouseRelease(window().windowHandle(), Qt::LeftButton, Qt::NoModifier, dragPosition);
}

int Operator::dragAndRelease(const char* name, int value, const Place& place)
{
    const CalledFrom here(place);
    const int reached = drag(name, value);
    release();
    return reached;
}

void Operator::choose(const char* name, const char* entry, const Place& place)
{
    const CalledFrom here(place);
    auto& combo = find<QComboBox>(name);
    const int index = combo.findText(QLatin1String(entry));
    if (index < 0) {
        fail(QStringLiteral("%1 has no entry %2").arg(QLatin1String(name), QLatin1String(entry)));
        return;
    }
    click(name);
    if (!combo.view()->isVisible()) {
        fail(QStringLiteral("%1 does not open").arg(QLatin1String(name)));
        return;
    }
    QWindow* const list = combo.view()->window()->windowHandle();
    const int row = combo.view()->currentIndex().row();
    const Qt::Key direction = row < index ? Qt::Key_Down : Qt::Key_Up;
    for (int step = std::abs(index - row); step > 0; --step) {
        QTest::keyClick(list, direction);
    }
    QTest::keyClick(list, Qt::Key_Return);
    if (combo.currentIndex() != index) {
        fail(QStringLiteral("%1 does not take %2").arg(QLatin1String(name), QLatin1String(entry)));
    }
}

Lines Operator::log()
{
    return widgets::lines(find<QPlainTextEdit>("logView"));
}

Lines Operator::newLog()
{
    return QStringList(log().mid(logMark));
}

void Operator::markLog()
{
    logMark = static_cast<int>(log().size());
}

QString Operator::text(const char* name, const Place& place)
{
    const CalledFrom here(place);
    const auto shown = widgets::text(widget(name));
    if (!shown) {
        fail(QStringLiteral("%1 shows no text").arg(QLatin1String(name)));
    }
    return shown.value_or(QString());
}

bool Operator::checked(const char* name, const Place& place)
{
    const CalledFrom here(place);
    const auto* const button = qobject_cast<QAbstractButton*>(&widget(name));
    if (button == nullptr) {
        fail(QStringLiteral("%1 is no button").arg(QLatin1String(name)));
    }
    return button != nullptr && button->isChecked();
}

bool Operator::enabled(const char* name, const Place& place)
{
    const CalledFrom here(place);
    return widget(name).isEnabled();
}

int Operator::sliderValue(const char* name, const Place& place)
{
    const CalledFrom here(place);
    return find<QSlider>(name).value();
}

Lines Operator::calls(recording::Show show)
{
    return toLines(sdk.calls(show));
}

Lines Operator::journal()
{
    QStringList texts;
    for (const recording::Entry& entry : sdk.entries()) {
        if (entry.operation != "OmbrixSdk.get_instance") {
            texts.append(QString::fromStdString(entry.text()));
        }
    }
    return texts;
}

void Operator::forget()
{
    sdk.clearJournal();
    markLog();
}

void Operator::rest()
{
    widget("AboutButton").setFocus(Qt::OtherFocusReason);
    forget();
}

void Operator::expectBox(Box box, const Place& place)
{
    boxes.expect(std::move(box), place);
}

int Operator::boxesAwaited() const
{
    return boxes.awaited();
}

void Operator::expectWarning(const QString& message, const Place& place)
{
    warnings.expect(message, place);
}

QString Operator::directory() const
{
    return temporary.path();
}

} // namespace kit
