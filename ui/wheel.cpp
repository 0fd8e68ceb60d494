// SPDX-License-Identifier: MIT
#include "ui/wheel.h"

#include <QtGui/QWheelEvent>
#include <QtGui/QWindow>
#include <QtWidgets/QComboBox>

namespace tavrel {

bool isWheelBesideFocus(const QWidget& window, const QObject* watched, QEvent& event)
{
    if (event.type() != QEvent::Wheel) {
        return false;
    }
    const QObject* target = watched;
    if (watched == window.windowHandle()) {
        target = window.childAt(static_cast<QWheelEvent&>(event).position().toPoint());
    }
    const auto* const list = qobject_cast<const QComboBox*>(target);
    if (list == nullptr || list->window() != &window || list->hasFocus()) {
        return false;
    }
    event.ignore();
    return true;
}

} // namespace tavrel
