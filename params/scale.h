// SPDX-License-Identifier: MIT
// The arithmetic between a slider's steps and the value that they stand for.
#pragma once

#include "params/conversions.h"

#include <cmath>

namespace tavrel {

/// value = step x unitsPerStep + offset.
struct Scale {
    double unitsPerStep;
    double stepsPerUnit; ///< 1 / unitsPerStep, kept apart because 0.1 has no exact double
    double offset;

    [[nodiscard]] constexpr double toValue(int step) const { return step * unitsPerStep + offset; }

    /// Nearest step, halves away from zero.
    [[nodiscard]] int toStep(double value) const
    {
        return saturatedInt(std::round((value - offset) * stepsPerUnit));
    }
};

inline constexpr Scale wholeSteps{1.0, 1.0, 0.0};
inline constexpr Scale tenths{0.1, 10.0, 0.0};
inline constexpr Scale gammaSteps{0.1, 10.0, 0.5};

} // namespace tavrel
