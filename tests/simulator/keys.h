// SPDX-License-Identifier: MIT
// Every key of the settings file, with a value unlike the built-in one and what the program then
// sees through the boundary.
#pragma once

#include "tests/simulator/scene.h"

#include <QtCore/QVector>

#include <functional>

namespace keys {

struct Key {
    const char* name;
    const char* text;                           ///< a value that is not the built-in one
    const char* seen;                           ///< what read answers then
    std::function<QString(scene::Scene&)> read; ///< what the program sees
};

/// Keys of a camera's section that hold a number.
QVector<Key> ofCamera();
/// Keys of [configuration] that hold a number.
QVector<Key> ofConfiguration();
/// Names of the other keys: of [simulator], and those that hold texts.
QStringList others();

} // namespace keys
