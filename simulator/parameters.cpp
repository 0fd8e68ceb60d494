// SPDX-License-Identifier: MIT
#include "simulator/parameters.h"

#include "simulator/rows.h"

namespace simulator {
namespace {

using P = Parameter;
using K = Kind;
constexpr Retention factory = Retention::Factory;
constexpr Retention kept = Retention::Kept;
constexpr Retention lost = Retention::Lost;
constexpr double anyWord = 4294967295.0;
constexpr double gammaOne = 65536;

// clang-format off
constexpr std::array<ParameterFacts, parameterCount> parameterRows = {{
    // parameter               key                     kind         initial   accepted         power loss
    {P::SerialNumber,         {"serialNumber",         K::Word,     20417},   0, anyWord,      factory},
    {P::SensorSerialNumber,   {"sensorSerialNumber",   K::Word,     730155},  0, anyWord,      factory},
    {P::FirmwareVersion,      {"firmwareVersion",      K::Version,  0x142},   0, 0xFFF,        factory},
    {P::FpgaVersion,          {"fpgaVersion",          K::Version,  0x207},   0, 0xFFF,        factory},
    {P::NineHertz,            {"nineHertz",            K::Switch,   0},       0, 1,            factory},
    {P::Mipi,                 {"mipi",                 K::Switch,   1},       0, 1,            factory},
    {P::SensorTemperature,    {"sensorTemperature",    K::Single,   304500},  0, anyWord,      factory},
    {P::FpgaTemperature,      {"fpgaTemperature",      K::Single,   318250},  0, anyWord,      factory},
    {P::OperatingMinutes,     {"operatingMinutes",     K::Word,     5263},    0, anyWord,      kept},
    {P::Startups,             {"startups",             K::Word,     118},     0, anyWord,      kept},
    {P::BaudRate,             {"baudRate",             K::Word,     115200},  0, anyWord,      kept},
    {P::Gsk,                  {"gsk",                  K::Word,     6},       0, 4095,         kept},
    {P::Gfid,                 {"gfid",                 K::Word,     320},     0, 4095,         kept},
    {P::Gms,                  {"gms",                  K::Word,     24},      0, 4095,         kept},
    {P::Tint,                 {"tint",                 K::Word,     12},      0, 4095,         kept},
    {P::BprCorrection,        {"bprCorrection",        K::Switch,   1},       0, 1,            kept},
    {P::OffsetCorrection,     {"offsetCorrection",     K::Switch,   1},       0, 1,            kept},
    {P::GainCorrection,       {"gainCorrection",       K::Switch,   1},       0, 1,            kept},
    {P::HorizontalFlip,       {"horizontalFlip",       K::Switch,   0},       0, 1,            kept},
    {P::VerticalFlip,         {"verticalFlip",         K::Switch,   0},       0, 1,            kept},
    {P::VignettingCorrection, {"vignettingCorrection", K::Switch,   1},       0, 1,            kept},
    {P::ColumnCorrection,     {"columnCorrection",     K::Switch,   1},       0, 1,            kept},
    {P::TestPattern,          {"testPattern",          K::Switch,   0},       0, 1,            lost},
    {P::Bt656SdiOutput,       {"bt656SdiOutput",       K::Switch,   1},       0, 1,            kept},
    {P::ParallelOutput,       {"parallelOutput",       K::Switch,   0},       0, 1,            kept},
    {P::MipiOutput,           {"mipiOutput",           K::Switch,   0},       0, 1,            kept},
    {P::FrameRate,            {"frameRate",            K::Byte,     60},      9, 60,           kept},
    {P::VideoOutput,          {"videoOutput",          K::Byte,     8},       0, 8,            kept},
    {P::EdgeType,             {"edgeType",             K::Byte,     1},       0, 2,            kept},
    {P::EdgeGain,             {"edgeGain",             K::Word,     40},      0, 1024,         kept},
    {P::EdgeFirstThreshold,   {"edgeFirstThreshold",   K::Word,     15},      0, 255,          kept},
    {P::EdgeSecondThreshold,  {"edgeSecondThreshold",  K::Word,     55},      0, anyWord,      kept},
    {P::ZoomFactor,           {"zoomFactor",           K::Single,   1},       1, 8,            kept},
    {P::ZoomXCenter,          {"zoomXCenter",          K::Whole,    320},     0, 640,          kept},
    {P::ZoomYCenter,          {"zoomYCenter",          K::Whole,    240},     0, 480,          kept},
    {P::ZoomMethod,           {"zoomMethod",           K::Byte,     1},       0, 1,            kept},
    {P::ZoomXResolution,      {"zoomXResolution",      K::Word,     720},     10, 1024,        kept},
    {P::ZoomYResolution,      {"zoomYResolution",      K::Word,     576},     10, 768,         kept},
    {P::ContrastType,         {"contrastType",         K::Byte,     0},       0, 1,            kept},
    {P::ColorLut,             {"colorLut",             K::Byte,     0},       0, 7,            kept},
    {P::AhcBlackGainLimit,    {"ahcBlackGainLimit",    K::Byte,     20},      0, 100,          kept},
    {P::AhcWhiteGainLimit,    {"ahcWhiteGainLimit",    K::Byte,     80},      0, 100,          kept},
    {P::LutTemporalFilter,    {"lutTemporalFilter",    K::Byte,     4},       0, 8,            kept},
    {P::Gamma,                {"gamma",                K::Fixed,    gammaOne}, 32768, 163840,  kept},
    {P::Clhe,                 {"clhe",                 K::Word,     2500},    0, 30000,        kept},
    {P::Polarity,             {"polarity",             K::Switch,   0},       0, 1,            kept},
    {P::NucControl,           {"nucControl",           K::Switch,   1},       0, 1,            kept},
    {P::ShutterClosed,        {"shutterClosed",        K::Switch,   0},       0, 1,            lost},
    {P::Roi0IncX1,            {"roi0IncX1",            K::Word,     5},       0, 639,          kept},
    {P::Roi0IncX2,            {"roi0IncX2",            K::Word,     635},     0, 639,          kept},
    {P::Roi0IncY1,            {"roi0IncY1",            K::Word,     5},       0, 479,          kept},
    {P::Roi0IncY2,            {"roi0IncY2",            K::Word,     475},     0, 479,          kept},
    {P::Roi0ExcX1,            {"roi0ExcX1",            K::Word,     10},      0, 639,          kept},
    {P::Roi0ExcX2,            {"roi0ExcX2",            K::Word,     630},     0, 639,          kept},
    {P::Roi0ExcY1,            {"roi0ExcY1",            K::Word,     10},      0, 479,          kept},
    {P::Roi0ExcY2,            {"roi0ExcY2",            K::Word,     60},      0, 479,          kept},
    {P::Roi1IncX1,            {"roi1IncX1",            K::Word,     160},     0, 639,          kept},
    {P::Roi1IncX2,            {"roi1IncX2",            K::Word,     480},     0, 639,          kept},
    {P::Roi1IncY1,            {"roi1IncY1",            K::Word,     120},     0, 479,          kept},
    {P::Roi1IncY2,            {"roi1IncY2",            K::Word,     360},     0, 479,          kept},
    {P::Roi1ExcX1,            {"roi1ExcX1",            K::Word,     280},     0, 639,          kept},
    {P::Roi1ExcX2,            {"roi1ExcX2",            K::Word,     360},     0, 639,          kept},
    {P::Roi1ExcY1,            {"roi1ExcY1",            K::Word,     200},     0, 479,          kept},
    {P::Roi1ExcY2,            {"roi1ExcY2",            K::Word,     280},     0, 479,          kept},
    {P::Roi0ExcEnabled,       {"roi0ExcEnabled",       K::Switch,   0},       0, 1,            kept},
    {P::Roi1IncEnabled,       {"roi1IncEnabled",       K::Switch,   1},       0, 1,            kept},
    {P::Roi1ExcEnabled,       {"roi1ExcEnabled",       K::Switch,   0},       0, 1,            kept},
}};
// clang-format on

static_assert(followTheEnumeration<&ParameterFacts::parameter>(parameterRows));

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
    return later(Parameter::Roi0IncX1,
                 4 * std::size_t{region} + static_cast<std::size_t>(coordinate));
}

Parameter regionSwitch(std::uint32_t region)
{
    return later(Parameter::Roi0ExcEnabled, std::size_t{region} - 1);
}

} // namespace simulator
