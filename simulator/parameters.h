// SPDX-License-Identifier: MIT
// What a simulated camera holds as a number, and what may become of it.
#pragma once

#include "simulator/fields.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace simulator {

enum class Parameter : std::size_t {
#define PARAMETER(key, kind, initial, lowest, highest, retention) key,
#include "simulator/parameters.def"
    count
};

constexpr std::size_t parameterCount = static_cast<std::size_t>(Parameter::count);

/// What happens to a value when the camera loses its power.
enum class Retention {
    Factory, ///< fixed when the camera was made: never changes, not in the memory
    Kept,    ///< as it was last set
    Lost,    ///< back to what the settings say
};

struct ParameterFacts {
    Parameter parameter;
    Field field;
    double lowest; ///< what the camera accepts from an operation
    double highest;
    Retention retention;
};

using ParameterValues = std::array<double, parameterCount>;

/// The row of every parameter, in the order of the enumeration.
const std::array<ParameterFacts, parameterCount>& parameterTable();

const ParameterFacts& factsOf(Parameter parameter);

/// The values of the built-in camera.
ParameterValues initialParameters();

enum class Coordinate : std::size_t { x1, x2, y1, y2 };

constexpr std::uint32_t regionCount = 4;

/// The parameter of a region's coordinate. region: 0 to 3.
Parameter regionCoordinate(std::uint32_t region, Coordinate coordinate);

/// The parameter that switches a region on. region: 1 to 3.
Parameter regionSwitch(std::uint32_t region);

} // namespace simulator
