// SPDX-License-Identifier: MIT
// Knows when the program has received a click. A window manager may hold a click back for a while
// and let keys pass by it, so that typing has to wait for the click before it.
#pragma once

#include <QtCore/QObject>

namespace tour {

/// Lives in the GUI thread as a child of the application.
class Witness : public QObject {
public:
    explicit Witness(QObject* application);

    /// How many times a mouse button was let go in any window so far.
    [[nodiscard]] int releases() const { return count; }

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    int count = 0;
};

} // namespace tour
