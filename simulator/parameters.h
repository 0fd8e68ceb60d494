// SPDX-License-Identifier: MIT
// Everything that a simulated camera holds as a number. The one table serves the settings file, the
// memory and the camera itself.
#pragma once

#include "simulator/fields.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace simulator {

enum class Parameter : std::size_t {
    SerialNumber,
    SensorSerialNumber,
    FirmwareVersion,
    FpgaVersion,
    NineHertz,
    Mipi,
    SensorTemperature,
    FpgaTemperature,
    OperatingMinutes,
    Startups,
    BaudRate,
    Gsk,
    Gfid,
    Gms,
    Tint,
    BprCorrection,
    OffsetCorrection,
    GainCorrection,
    HorizontalFlip,
    VerticalFlip,
    VignettingCorrection,
    ColumnCorrection,
    TestPattern,
    Bt656SdiOutput,
    ParallelOutput,
    MipiOutput,
    FrameRate,
    VideoOutput,
    EdgeType,
    EdgeGain,
    EdgeFirstThreshold,
    EdgeSecondThreshold,
    ZoomFactor,
    ZoomXCenter,
    ZoomYCenter,
    ZoomMethod,
    ZoomXResolution,
    ZoomYResolution,
    ContrastType,
    ColorLut,
    AhcBlackGainLimit,
    AhcWhiteGainLimit,
    LutTemporalFilter,
    Gamma,
    Clhe,
    Polarity,
    NucControl,
    ShutterClosed,
    // Four coordinates of each region, in the order of the region indexes.
    Roi0IncX1,
    Roi0IncX2,
    Roi0IncY1,
    Roi0IncY2,
    Roi0ExcX1,
    Roi0ExcX2,
    Roi0ExcY1,
    Roi0ExcY2,
    Roi1IncX1,
    Roi1IncX2,
    Roi1IncY1,
    Roi1IncY2,
    Roi1ExcX1,
    Roi1ExcX2,
    Roi1ExcY1,
    Roi1ExcY2,
    // In the order of the region indexes; the first region is always on.
    Roi0ExcEnabled,
    Roi1IncEnabled,
    Roi1ExcEnabled,
    Count
};

constexpr std::size_t parameterCount = static_cast<std::size_t>(Parameter::Count);

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

enum class Coordinate : std::size_t { X1, X2, Y1, Y2 };

constexpr std::uint32_t regionCount = 4;

/// The parameter of a region's coordinate. region: 0 to 3.
Parameter regionCoordinate(std::uint32_t region, Coordinate coordinate);

/// The parameter that switches a region on. region: 1 to 3.
Parameter regionSwitch(std::uint32_t region);

} // namespace simulator
