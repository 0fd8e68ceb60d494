// SPDX-License-Identifier: MIT
#include "tour/sight.h"

#include <QtGui/QScreen>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QAbstractSpinBox>
#include <QtWidgets/QApplication>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QSlider>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOptionButton>
#include <QtWidgets/QStyleOptionSlider>
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
    auto* const found = window == nullptr ? nullptr : window->findChild<QWidget*>(name);
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
    QPoint position = target.rect().center();
    if (const auto* const box = qobject_cast<const QCheckBox*>(&target)) {
        QStyleOptionButton option;
        option.initFrom(box);
        position =
            box->style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, box).center();
    } else if (qobject_cast<const QAbstractSpinBox*>(&target) != nullptr) {
        // The middle of the text, away from the arrows.
        position.setX(target.width() / 3);
    }
    return reachable(target, position);
}

QPoint tabPlace(const QString& title)
{
    const QTabWidget& all = tabs();
    for (int index = 0; index < all.count(); ++index) {
        if (all.tabText(index) == title) {
            return reachable(*all.tabBar(), all.tabBar()->tabRect(index).center());
        }
    }
    throw Failure(QStringLiteral("there is no tab %1").arg(title));
}

QPoint handlePlace(const QString& slider, int value)
{
    struct Access : QSlider {
        using QSlider::initStyleOption;
    };
    auto& target = find<QSlider>(slider);
    QStyleOptionSlider option;
    (target.*&Access::initStyleOption)(&option);
    option.sliderPosition = value;
    option.sliderValue = value;
    return reachable(
        target, target.style()
                    ->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, &target)
                    .center());
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
    const QWidget& shown = widget(name);
    if (const auto* const button = qobject_cast<const QAbstractButton*>(&shown)) {
        return button->text();
    }
    if (const auto* const label = qobject_cast<const QLabel*>(&shown)) {
        return label->text();
    }
    if (const auto* const box = qobject_cast<const QAbstractSpinBox*>(&shown)) {
        return box->text();
    }
    if (const auto* const combo = qobject_cast<const QComboBox*>(&shown)) {
        return combo->currentText();
    }
    if (const auto* const pane = qobject_cast<const QPlainTextEdit*>(&shown)) {
        return pane->toPlainText();
    }
    throw Failure(name + QStringLiteral(" shows no text"));
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
    QStringList lines = text(QStringLiteral("logView")).split(QLatin1Char('\n'));
    // Each line brings its own line feed, so what follows the last one is no line yet.
    lines.removeLast();
    return lines;
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
