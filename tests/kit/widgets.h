// SPDX-License-Identifier: MIT
// Where the widgets of a window are and what they show, for everybody who works it: the tests, the
// monkey, the tour, and the session of the packed Windows program. Needs no test to run.
#pragma once

#include <QtCore/QPoint>
#include <QtCore/QRect>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtWidgets/QWidget>

#include <optional>

class QDialog;
class QPlainTextEdit;
class QSlider;
class QTabWidget;
class QTimer;

namespace widgets {

/// The widget of the window with this object name; null when there is none of this type, or more
/// than one.
template<typename Widget> Widget* find(const QWidget& window, const QString& name)
{
    const auto found = window.findChildren<Widget*>(name);
    return found.size() == 1 ? found.first() : nullptr;
}

/// The window's only timer, which is that of the monitoring.
QTimer& timer(const QWidget& window);

// ---- places, in the widget's own coordinates

/// Where to click: the middle, the mark of a check box, the text of a spin box.
QPoint place(const QWidget& widget);
/// Where the handle of a slider stands when the slider has this value.
QRect handle(const QSlider& slider, int value);
/// Where to press the only button of a message box, or the first of a dialog; none when it has no
/// button.
std::optional<QPoint> button(const QDialog& dialog);
/// The index of the tab with this title, or -1.
int tab(const QTabWidget& tabs, const QString& title);

// ---- what is shown

/// Caption of a button, text of a label, spin box, combo box or text pane; none for others.
std::optional<QString> text(const QWidget& widget);
/// The lines of the log pane.
QStringList lines(const QPlainTextEdit& pane);

} // namespace widgets
