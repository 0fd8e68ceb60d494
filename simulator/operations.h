// SPDX-License-Identifier: MIT
// The operations of the boundary that can take time or go wrong: as plans, the journal and the
// latency know them.
#pragma once

#include <QtCore/QString>

#include <array>
#include <cstddef>
#include <cstdint>

namespace simulator {

enum class Operation : std::size_t {
    // Of the SDK and the link.
    GetCommunicationType,
    SaveConfiguration,
    OpenCamera,
    // Of the camera.
    Connect,
    GetVersions,
    Refresh,
    GetRoiX1,
    GetRoiX2,
    GetRoiY1,
    GetRoiY2,
    GetSerialNumber,
    GetSensorSerialNumber,
    GetTemperatures,
    GetOperatingTime,
    GetGsk,
    SetGsk,
    SetGfid,
    SetGms,
    GetGfid,
    GetGms,
    GetTint,
    SetTint,
    GetBprCorrection,
    SetBprCorrection,
    GetOffsetCorrection,
    SetOffsetCorrection,
    GetGainCorrection,
    SetGainCorrection,
    GetHorizontalFlip,
    SetHorizontalFlip,
    GetVerticalFlip,
    SetVerticalFlip,
    GetVignettingCorrection,
    SetVignettingCorrection,
    GetColumnCorrection,
    SetColumnCorrection,
    SetTestPattern,
    GetTestPattern,
    SetBt656SdiOutput,
    GetBt656SdiOutput,
    SetParallelOutput,
    GetParallelOutput,
    SetMipiOutput,
    GetMipiOutput,
    SetFrameRate,
    GetFrameRate,
    SetVideoOutput,
    GetVideoOutput,
    SetBaudRate,
    ConfigureEdgeCorrection,
    GetEdgeCorrection,
    ConfigureZoom,
    GetZoom,
    GetZoomResolution,
    ConfigureZoomResolution,
    GetContrastType,
    ConfigureContrastType,
    SetColorLut,
    GetColorLut,
    GetAhcGainsLimitation,
    SetAhcGainsLimitation,
    GetLutTemporalFilter,
    SetLutTemporalFilter,
    ReadTableData,
    WriteTableData,
    LoadBadPixelList,
    AddBadPixels,
    RemoveBadPixels,
    GetGamma,
    SetGamma,
    GetClhe,
    SetClhe,
    GetPolarity,
    SetPolarity,
    SetRoiX1,
    SetRoiX2,
    SetRoiY1,
    SetRoiY2,
    RequestNuc,
    SetNucControl,
    GetNucControl,
    SetShutterPosition,
    GetShutterPosition,
    Count
};

constexpr Operation firstCameraOperation = Operation::Connect;
constexpr std::size_t operationCount = static_cast<std::size_t>(Operation::Count);

struct OperationFacts {
    Operation operation;
    const char* name;
    bool overTheLink; ///< needs the camera's answer; the others are the library's own work
    int sent;         ///< bytes of the request without its frame
    int received;     ///< bytes of the answer without its frame
};

/// The row of every operation, in the order of the enumeration.
const std::array<OperationFacts, operationCount>& operationTable();

const OperationFacts& factsOf(Operation operation);

QString nameOf(Operation operation);

/// Time in microseconds that the operation's bytes need at the baud rate, frames included.
qint64 timeOnTheLink(Operation operation, std::uint32_t baudRate);

} // namespace simulator
