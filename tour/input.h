// SPDX-License-Identifier: MIT
// Pointer and keyboard of the present X display: the program receives what a person's hands would
// have made.
#pragma once

#include <QtCore/QPoint>
#include <QtCore/QString>

#include <memory>

struct xdo;

namespace tour {

class Input {
public:
    /// Throws std::runtime_error when the display of the environment cannot be reached.
    Input();

    void movePointer(QPoint position);
    void pressButton();
    void releaseButton();
    /// Presses keys together and lets them go, by their X names: "ctrl+a", "Tab".
    void strike(const char* keys);
    void type(const QString& text);

private:
    struct Release {
        void operator()(xdo* display) const;
    };
    std::unique_ptr<xdo, Release> display;
};

} // namespace tour
