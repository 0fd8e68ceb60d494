// SPDX-License-Identifier: MIT
#include "simulator/operations.h"

#include "simulator/rows.h"

namespace simulator {
namespace {

using O = Operation;

// clang-format off
constexpr std::array<OperationFacts, operationCount> operationRows = {{
    {O::GetCommunicationType,    "getCommunicationType",    false, 0, 0},
    {O::SaveConfiguration,       "saveConfiguration",       false, 0, 0},
    {O::OpenCamera,              "openCamera",              true,  0, 4},
    {O::Connect,                 "connect",                 true,  0, 1},
    {O::GetVersions,             "getVersions",             true,  0, 4},
    {O::Refresh,                 "refresh",                 true,  0, 1},
    {O::GetRoiX1,                "getRoiX1",                true,  1, 4},
    {O::GetRoiX2,                "getRoiX2",                true,  1, 4},
    {O::GetRoiY1,                "getRoiY1",                true,  1, 4},
    {O::GetRoiY2,                "getRoiY2",                true,  1, 4},
    {O::GetSerialNumber,         "getSerialNumber",         true,  0, 4},
    {O::GetSensorSerialNumber,   "getSensorSerialNumber",   true,  0, 4},
    {O::GetTemperatures,         "getTemperatures",         true,  0, 8},
    {O::GetOperatingTime,        "getOperatingTime",        true,  0, 8},
    {O::GetGsk,                  "getGsk",                  true,  0, 4},
    {O::SetGsk,                  "setGsk",                  true,  4, 1},
    {O::SetGfid,                 "setGfid",                 true,  4, 1},
    {O::SetGms,                  "setGms",                  true,  4, 1},
    {O::GetGfid,                 "getGfid",                 true,  0, 4},
    {O::GetGms,                  "getGms",                  true,  0, 4},
    {O::GetTint,                 "getTint",                 true,  0, 4},
    {O::SetTint,                 "setTint",                 true,  4, 1},
    {O::GetBprCorrection,        "getBprCorrection",        true,  0, 1},
    {O::SetBprCorrection,        "setBprCorrection",        true,  1, 1},
    {O::GetOffsetCorrection,     "getOffsetCorrection",     true,  0, 1},
    {O::SetOffsetCorrection,     "setOffsetCorrection",     true,  1, 1},
    {O::GetGainCorrection,       "getGainCorrection",       true,  0, 1},
    {O::SetGainCorrection,       "setGainCorrection",       true,  1, 1},
    {O::GetHorizontalFlip,       "getHorizontalFlip",       true,  0, 1},
    {O::SetHorizontalFlip,       "setHorizontalFlip",       true,  1, 1},
    {O::GetVerticalFlip,         "getVerticalFlip",         true,  0, 1},
    {O::SetVerticalFlip,         "setVerticalFlip",         true,  1, 1},
    {O::GetVignettingCorrection, "getVignettingCorrection", true,  0, 1},
    {O::SetVignettingCorrection, "setVignettingCorrection", true,  1, 1},
    {O::GetColumnCorrection,     "getColumnCorrection",     true,  0, 1},
    {O::SetColumnCorrection,     "setColumnCorrection",     true,  1, 1},
    {O::SetTestPattern,          "setTestPattern",          true,  1, 1},
    {O::GetTestPattern,          "getTestPattern",          true,  0, 1},
    {O::SetBt656SdiOutput,       "setBt656SdiOutput",       true,  1, 1},
    {O::GetBt656SdiOutput,       "getBt656SdiOutput",       true,  0, 1},
    {O::SetParallelOutput,       "setParallelOutput",       true,  1, 1},
    {O::GetParallelOutput,       "getParallelOutput",       true,  0, 1},
    {O::SetMipiOutput,           "setMipiOutput",           true,  1, 1},
    {O::GetMipiOutput,           "getMipiOutput",           true,  0, 1},
    {O::SetFrameRate,            "setFrameRate",            true,  1, 1},
    {O::GetFrameRate,            "getFrameRate",            true,  0, 1},
    {O::SetVideoOutput,          "setVideoOutput",          true,  1, 1},
    {O::GetVideoOutput,          "getVideoOutput",          true,  0, 1},
    {O::SetBaudRate,             "setBaudRate",             true,  5, 1},
    {O::ConfigureEdgeCorrection, "configureEdgeCorrection", true,  9, 1},
    {O::GetEdgeCorrection,       "getEdgeCorrection",       true,  0, 13},
    {O::ConfigureZoom,           "configureZoom",           true,  13, 1},
    {O::GetZoom,                 "getZoom",                 true,  0, 13},
    {O::GetZoomResolution,       "getZoomResolution",       true,  0, 8},
    {O::ConfigureZoomResolution, "configureZoomResolution", true,  8, 1},
    {O::GetContrastType,         "getContrastType",         true,  0, 1},
    {O::ConfigureContrastType,   "configureContrastType",   true,  1, 1},
    {O::SetColorLut,             "setColorLut",             true,  1, 1},
    {O::GetColorLut,             "getColorLut",             true,  0, 1},
    {O::GetAhcGainsLimitation,   "getAhcGainsLimitation",   true,  0, 2},
    {O::SetAhcGainsLimitation,   "setAhcGainsLimitation",   true,  2, 1},
    {O::GetLutTemporalFilter,    "getLutTemporalFilter",    true,  0, 1},
    {O::SetLutTemporalFilter,    "setLutTemporalFilter",    true,  1, 1},
    {O::ReadTableData,           "readTableData",           true,  9, 8192},
    {O::WriteTableData,          "writeTableData",          true,  8201, 1},
    {O::LoadBadPixelList,        "loadBadPixelList",        false, 0, 0},
    {O::AddBadPixels,            "addBadPixels",            false, 0, 0},
    {O::RemoveBadPixels,         "removeBadPixels",         false, 0, 0},
    {O::GetGamma,                "getGamma",                true,  0, 4},
    {O::SetGamma,                "setGamma",                true,  4, 1},
    {O::GetClhe,                 "getClhe",                 true,  0, 4},
    {O::SetClhe,                 "setClhe",                 true,  4, 1},
    {O::GetPolarity,             "getPolarity",             true,  0, 1},
    {O::SetPolarity,             "setPolarity",             true,  1, 1},
    {O::SetRoiX1,                "setRoiX1",                true,  8, 1},
    {O::SetRoiX2,                "setRoiX2",                true,  8, 1},
    {O::SetRoiY1,                "setRoiY1",                true,  8, 1},
    {O::SetRoiY2,                "setRoiY2",                true,  8, 1},
    {O::RequestNuc,              "requestNuc",              true,  1, 1},
    {O::SetNucControl,           "setNucControl",           true,  1, 1},
    {O::GetNucControl,           "getNucControl",           true,  0, 1},
    {O::SetShutterPosition,      "setShutterPosition",      true,  1, 1},
    {O::GetShutterPosition,      "getShutterPosition",      true,  0, 1},
}};
// clang-format on

static_assert(followTheEnumeration<&OperationFacts::operation>(operationRows));

constexpr int frameBytes = 12;  ///< head and checksum around every request and every answer
constexpr int bitsPerByte = 10; ///< eight data bits between a start and a stop bit

} // namespace

const std::array<OperationFacts, operationCount>& operationTable()
{
    return operationRows;
}

const OperationFacts& factsOf(Operation operation)
{
    return operationRows[static_cast<std::size_t>(operation)];
}

QString nameOf(Operation operation)
{
    return QString::fromLatin1(factsOf(operation).name);
}

qint64 timeOnTheLink(Operation operation, std::uint32_t baudRate)
{
    const OperationFacts& facts = factsOf(operation);
    if (!facts.overTheLink || baudRate == 0) {
        return 0;
    }
    const qint64 bytes = frameBytes + facts.sent + frameBytes + facts.received;
    return bytes * bitsPerByte * 1'000'000 / baudRate;
}

} // namespace simulator
