// SPDX-License-Identifier: MIT
// The mouse wheel, as the window system turns it.
#pragma once

#include <QtGui/QWheelEvent>
#include <QtGui/QWindow>
#include <QtTest/QTest>
#include <QtWidgets/QWidget>

namespace kit {

/// position: in the window; positive steps turn away from the operator.
inline void turnWheel(QWidget& window, QPoint position, int steps,
                      Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    constexpr int eighthsOfDegreePerStep = 120;
    QWheelEvent event(position, window.mapToGlobal(position), QPoint(),
                      QPoint(0, steps * eighthsOfDegreePerStep), Qt::NoButton, modifiers,
                      Qt::NoScrollPhase, false);
    // As from the window system: only such an event can bring the focus along.
    QSpontaneKeyEvent::setSpontaneous(&event);
    QCoreApplication::instance()->notify(window.windowHandle(), &event);
}

} // namespace kit
