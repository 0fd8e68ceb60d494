// SPDX-License-Identifier: MIT
#include "simulator/parameters.h"

namespace simulator {
namespace {

constexpr double anyWord = 4294967295.0;

constexpr std::array<ParameterFacts, parameterCount> parameterRows = {{
// clang-format off
#define PARAMETER(key, kind, initial, lowest, highest, retention)                                  \
    {Parameter::key, {#key, Kind::kind, initial}, lowest, highest, Retention::retention},
// clang-format on
#include "simulator/parameters.def"
}};

constexpr Parameter later(Parameter first, std::size_t steps)
{
    return static_cast<Parameter>(static_cast<std::size_t>(first) + steps);
}

} // namespace

const std::array<ParameterFacts, parameterCount>& parameterTable()
{
    return parameterRows;
}

const ParameterFacts& factsOf(Parameter parameter)
{
    return parameterRows[static_cast<std::size_t>(parameter)];
}

ParameterValues initialParameters()
{
    ParameterValues values{};
    for (const ParameterFacts& row : parameterRows) {
        values[static_cast<std::size_t>(row.parameter)] = row.field.initial;
    }
    return values;
}

Parameter regionCoordinate(std::uint32_t region, Coordinate coordinate)
{
    return later(Parameter::roi0IncX1,
                 4 * std::size_t{region} + static_cast<std::size_t>(coordinate));
}

Parameter regionSwitch(std::uint32_t region)
{
    return later(Parameter::roi0ExcEnabled, std::size_t{region} - 1);
}

} // namespace simulator
