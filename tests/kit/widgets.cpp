// SPDX-License-Identifier: MIT
#include "tests/kit/widgets.h"

#include <QtCore/QTimer>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QAbstractSpinBox>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDialog>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QSlider>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOptionButton>
#include <QtWidgets/QStyleOptionSlider>
#include <QtWidgets/QTabWidget>

namespace widgets {

QTimer& timer(const QWidget& window)
{
    const auto timers = window.findChildren<QTimer*>(QString(), Qt::FindDirectChildrenOnly);
    if (timers.size() != 1) {
        qFatal("the window has %d timers", static_cast<int>(timers.size()));
    }
    return *timers.first();
}

QPoint place(const QWidget& widget)
{
    QPoint position = widget.rect().center();
    if (const auto* const box = qobject_cast<const QCheckBox*>(&widget)) {
        QStyleOptionButton option;
        option.initFrom(box);
        return box->style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, box).center();
    }
    if (qobject_cast<const QAbstractSpinBox*>(&widget) != nullptr) {
        position.setX(widget.width() / 3); // away from the arrows
    }
    return position;
}

QRect handle(const QSlider& slider, int value)
{
    struct Access : QSlider {
        using QSlider::initStyleOption;
    };
    QStyleOptionSlider option;
    (slider.*&Access::initStyleOption)(&option);
    option.sliderPosition = value;
    option.sliderValue = value;
    return slider.style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle,
                                          &slider);
}

std::optional<QPoint> button(const QDialog& dialog)
{
    const auto buttons = dialog.findChildren<QAbstractButton*>();
    if (buttons.isEmpty()) {
        return std::nullopt;
    }
    return buttons.first()->mapTo(&dialog, buttons.first()->rect().center());
}

int tab(const QTabWidget& tabs, const QString& title)
{
    for (int index = 0; index < tabs.count(); ++index) {
        if (tabs.tabText(index) == title) {
            return index;
        }
    }
    return -1;
}

std::optional<QString> text(const QWidget& widget)
{
    if (const auto* const button = qobject_cast<const QAbstractButton*>(&widget)) {
        return button->text();
    }
    if (const auto* const label = qobject_cast<const QLabel*>(&widget)) {
        return label->text();
    }
    if (const auto* const spinBox = qobject_cast<const QAbstractSpinBox*>(&widget)) {
        return spinBox->text();
    }
    if (const auto* const combo = qobject_cast<const QComboBox*>(&widget)) {
        return combo->currentText();
    }
    if (const auto* const pane = qobject_cast<const QPlainTextEdit*>(&widget)) {
        return pane->toPlainText();
    }
    return std::nullopt;
}

QStringList lines(const QPlainTextEdit& pane)
{
    QStringList all = pane.toPlainText().split(QLatin1Char('\n'));
    // Each line brings its own line feed, so what follows the last one is no line yet.
    if (all.last().isEmpty()) {
        all.removeLast();
    }
    return all;
}

} // namespace widgets
