// SPDX-License-Identifier: MIT
// Every value with a slider and a spin box that the camera takes by itself, as the camera knows it.
#pragma once

#include "params/conversions.h"
#include "sdk/ombrix_sdk.h"

#include <cstdint>

namespace tavrel {

struct Value {
    const char* word; ///< its name on the command line
    double minimum;   ///< both ends of what its field takes
    double maximum;
    double (*get)(ombrix_sdk::ICamera& camera);
    ombrix_sdk::Flag (*set)(ombrix_sdk::ICamera& camera, double value);
    /// What the camera makes of a value; null: keeps whole numbers as they are.
    double (*held)(double value);
    const char* label;   ///< begins the log line of a read
    const char* command; ///< its log line, less OK and KO
};

inline ombrix_sdk::Flag send(ombrix_sdk::ICamera& camera,
                             ombrix_sdk::Flag (ombrix_sdk::ICamera::*set)(std::uint8_t),
                             double value)
{
    return (camera.*set)(lowByte(saturatedInt(value)));
}

inline ombrix_sdk::Flag send(ombrix_sdk::ICamera& camera,
                             ombrix_sdk::Flag (ombrix_sdk::ICamera::*set)(std::uint32_t),
                             double value)
{
    return (camera.*set)(lowWord(value));
}

/// The camera holds the number itself.
struct Whole {
    static double get(std::uint32_t held) { return held; }
    static double set(double value) { return value; }
    static constexpr double (*held)(double value) = nullptr;
};

/// The camera holds 16.16 fixed point.
struct FixedPoint {
    static double get(std::uint32_t held) { return fromFixedPoint(held); }
    static double set(double value) { return fixedPoint(value); }
    static double held(double value) { return fromFixedPoint(fixedPoint(value)); }
};

namespace value {

#define VALUE(group, name, word, minimum, maximum, Form, getter, setter, label, command)           \
    inline constexpr Value name{                                                                   \
        word,                                                                                      \
        minimum,                                                                                   \
        maximum,                                                                                   \
        [](ombrix_sdk::ICamera& camera) { return Form::get(camera.getter()); },                    \
        [](ombrix_sdk::ICamera& camera, double number) {                                           \
            return send(camera, &ombrix_sdk::ICamera::setter, Form::set(number));                  \
        },                                                                                         \
        Form::held,                                                                                \
        label,                                                                                     \
        command};
#include "params/values.def"

} // namespace value

} // namespace tavrel
