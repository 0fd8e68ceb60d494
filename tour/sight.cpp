// SPDX-License-Identifier: MIT
#include "tour/sight.h"

#include "tests/kit/widgets.h"

#include <QtGui/QScreen>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QApplication>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QSlider>
#include <QtWidgets/QTabBar>

namespace tour::sight {

namespace {

/// The place on the screen of a point in a widget that the pointer can reach there.
QPoint reachable(const QWidget& target, QPoint position)
{
    const QString name = target.objectName();
    if (!target.isVisible() || !target.isEnabled()) {
        throw Failure(name + QStringLiteral(" cannot be used"));
    }
    const QPoint onScreen = target.mapToGlobal(position);
    const QWidget* const hit = QApplication::widgetAt(onScreen);
    if (hit != &target && !target.isAncestorOf(hit)) {
        throw Failure(name + QStringLiteral(" is covered"));
    }
    return onScreen;
}

} // namespace

QWidget* mainWindow()
{
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (qobject_cast<QMainWindow*>(window) != nullptr && window->isVisible()) {
            return window;
        }
    }
    return nullptr;
}

QWidget& widget(const QString& name)
{
    const QWidget* const window = mainWindow();
    auto* const found = window == nullptr ? nullptr : widgets::find<QWidget>(*window, name);
    if (found == nullptr) {
        throw Failure(name + QStringLiteral(" is not there"));
    }
    return *found;
}

QTabWidget& tabs()
{
    return find<QTabWidget>(QStringLiteral("tabWidget"));
}

QPoint place(const QString& name)
{
    const QWidget& target = widget(name);
    return reachable(target, widgets::place(target));
}

QPoint tabPlace(const QString& title)
{
    const QTabWidget& all = tabs();
    const int index = widgets::tab(all, title);
    if (index < 0) {
        throw Failure(QStringLiteral("there is no tab %1").arg(title));
    }
    return reachable(*all.tabBar(), all.tabBar()->tabRect(index).center());
}

QPoint handlePlace(const QString& slider, int value)
{
    const auto& target = find<QSlider>(slider);
    return reachable(target, widgets::handle(target, value).center());
}

QPoint entryPlace(const QString& combo, const QString& entry)
{
    const auto& box = find<QComboBox>(combo);
    const int row = box.findText(entry);
    if (row < 0) {
        throw Failure(QStringLiteral("%1 has no entry %2").arg(combo, entry));
    }
    const QAbstractItemView* const list = box.view();
    if (!list->isVisible()) {
        return {};
    }
    const QModelIndex index = box.model()->index(row, box.modelColumn(), box.rootModelIndex());
    return list->viewport()->mapToGlobal(list->visualRect(index).center());
}

QString text(const QString& name)
{
    const auto shown = widgets::text(widget(name));
    if (!shown) {
        throw Failure(name + QStringLiteral(" shows no text"));
    }
    return *shown;
}

QString callName(const QString& name)
{
    const auto* const button = qobject_cast<const QAbstractButton*>(&widget(name));
    return button == nullptr || button->text().isEmpty()
               ? name
               : QStringLiteral("“%1”").arg(button->text());
}

QStringList logLines()
{
    return widgets::lines(find<QPlainTextEdit>(QStringLiteral("logView")));
}

QDialog* openDialog()
{
    auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    return dialog != nullptr && dialog->isVisible() ? dialog : nullptr;
}

QRect shownArea()
{
    QRect area;
    for (const QWidget* const window : QApplication::topLevelWidgets()) {
        if (window->isVisible()) {
            area |= window->frameGeometry();
        }
    }
    return area;
}

QRect screen()
{
    return QGuiApplication::primaryScreen()->geometry();
}

QImage picture(QRect area)
{
    const QRect visible = area.intersected(screen());
    constexpr WId wholeScreen = 0;
    return QGuiApplication::primaryScreen()
        ->grabWindow(wholeScreen, visible.x(), visible.y(), visible.width(), visible.height())
        .toImage()
        .convertToFormat(QImage::Format_RGB32);
}

} // namespace tour::sight
