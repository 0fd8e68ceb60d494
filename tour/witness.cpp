// SPDX-License-Identifier: MIT
#include "tour/witness.h"

#include <QtCore/QEvent>

namespace tour {

Witness::Witness(QObject* application) : QObject(application)
{
    application->installEventFilter(this);
}

bool Witness::eventFilter(QObject* receiver, QEvent* event)
{
    // A window hands the event on to its widgets, where it would be counted again.
    if (receiver->isWindowType() && event->type() == QEvent::MouseButtonRelease) {
        ++count;
    }
    return false;
}

} // namespace tour
