// SPDX-License-Identifier: MIT
// The checkable buttons that switch the camera's features on and off.
#pragma once

#include "params/group.h"
#include "params/switches.h"
#include "ui_mainwindow.h"

namespace tavrel {

/// The two captions of a checkable button.
struct Captions {
    const char* on;
    const char* off;
};

struct SwitchButton : Switch {
    Group group;
    QPushButton* Ui_MainWindow::*button;
    Captions captions;
    const char* label; ///< begins the log line of a read
    const char* onWord;
    const char* offWord;
    const char* ok; ///< log line of an accepted command
    const char* ko; ///< log line of a refused command
};

/// Brings a button's caption in line with its check state, but only from exactly the opposite
/// caption.
void alignCaption(QPushButton& button, const Captions& captions);

namespace switchbutton {

#define SWITCH(group, name, word, get, set, button, caption, label, on, off, ok, ko, handler)      \
    inline constexpr SwitchButton name{feature::name,                                              \
                                       Group::group,                                               \
                                       &Ui_MainWindow::button,                                     \
                                       {caption ": Activated", caption ": Deactivated"},           \
                                       label,                                                      \
                                       on,                                                         \
                                       off,                                                        \
                                       ok,                                                         \
                                       ko};
#include "params/switches.def"

} // namespace switchbutton

/// All of them, in the order in which a read shows those of a group.
inline constexpr const SwitchButton* switchButtons[] = {
#define SWITCH(group, name, ...) &switchbutton::name,
#include "params/switches.def"
};

} // namespace tavrel
