// SPDX-License-Identifier: MIT
// A list writes to the camera at every change, so the wheel must not change one in passing.
#pragma once

class QEvent;
class QObject;
class QWidget;

namespace tavrel {

/// Whether this is the wheel over a list of the window that has no focus. The event is ignored then
/// and must go no further. The application's events have to pass here: by the time they reach the
/// list, the wheel has given it the focus.
bool isWheelBesideFocus(const QWidget& window, const QObject* watched, QEvent& event);

} // namespace tavrel
