// SPDX-License-Identifier: MIT
#include "simulator/camera.h"

#include "simulator/badpixels.h"
#include "simulator/files.h"
#include "simulator/simulator.h"

#include <algorithm>
#include <cstring>

namespace simulator {
namespace {

using ombrix_sdk::AhcGainsLimitation;
using ombrix_sdk::EdgeCorrection;
using ombrix_sdk::OperatingTime;
using ombrix_sdk::ReplacementEntry;
using ombrix_sdk::Temperatures;
using ombrix_sdk::Zoom;
using ombrix_sdk::ZoomResolution;
using O = Operation;
using P = Parameter;

constexpr Flag refused = 0;
constexpr std::uint8_t connected = 1;

constexpr std::uint32_t tableOffset = 4096;
constexpr std::uint8_t tableIdForReading = 9;
constexpr std::uint8_t tableIdForWriting = 8;

// Answers of readTableData.
constexpr std::int32_t tableRead = 0;
constexpr std::int32_t noAnswer = -1;
constexpr std::int32_t wrongRequest = -2;

Flag asFlag(bool success)
{
    return success ? 1 : 0;
}

/// The same for an operation on a file; tells the log why it was refused, because the program
/// cannot know.
Flag asFlag(bool success, Operation operation, const std::string& path, const QString& reason)
{
    if (!success) {
        Simulator::instance().log().notice(
            QStringLiteral("%1 %2: %3").arg(nameOf(operation), pathFromBytes(path), reason));
    }
    return asFlag(success);
}

/// True; or false, with a line in the log, when the program passed a null pointer.
bool isGiven(Operation operation, const void* pointer)
{
    if (pointer == nullptr) {
        Simulator::instance().log().misuse(
            QStringLiteral("%1 with a null pointer").arg(nameOf(operation)));
    }
    return pointer != nullptr;
}

bool isRegion(Operation operation, std::uint32_t region)
{
    if (region >= regionCount) {
        Simulator::instance().log().misuse(
            QStringLiteral("%1 of region %2").arg(nameOf(operation)).arg(region));
    }
    return region < regionCount;
}

bool isTableRegion(Operation operation, std::uint32_t offset, std::uint32_t length,
                   std::uint8_t tableId, std::uint8_t expectedId)
{
    const bool right = offset == tableOffset && length == tableLength && tableId == expectedId;
    if (!right) {
        Simulator::instance().log().misuse(
            QStringLiteral("%1 of offset %2, length %3, table %4; there is offset %5, length %6, "
                           "table %7")
                .arg(nameOf(operation))
                .arg(offset)
                .arg(length)
                .arg(tableId)
                .arg(tableOffset)
                .arg(tableLength)
                .arg(expectedId));
    }
    return right;
}

} // namespace

Camera::Camera(Device& openedDevice, std::uint32_t linkBaudRate)
    : device(openedDevice), serialNumber(openedDevice.get<std::uint32_t>(P::SerialNumber)),
      baudRate(linkBaudRate)
{}

QString Camera::name() const
{
    return QStringLiteral("camera %1").arg(serialNumber);
}

Camera::Passage Camera::enter(Operation operation)
{
    Simulator& simulator = Simulator::instance();
    if (!open) {
        simulator.log().misuse(
            QStringLiteral("%1 on a camera that is closed").arg(nameOf(operation)));
        return {.note = QStringLiteral("closed")};
    }
    const Verdict verdict = simulator.judge(operation);
    const bool reached = simulator.reach(&device, baudRate, operation, verdict);
    if (!reached) {
        return {.note = Simulator::noteOf(reached, verdict)};
    }
    return {.carryOut = verdict.carryOut,
            .value = verdict.value,
            .word = verdict.word,
            .note = Simulator::noteOf(reached, verdict)};
}

void Camera::leave(Operation operation, const QStringList& arguments, const QString& answer,
                   const QString& note)
{
    Simulator::instance().journal().write(
        {name(), nameOf(operation), arguments, answer, filled, note});
}

template<typename Result, typename Action, typename... Arguments>
Result Camera::perform(Operation operation, Result failure, Action action,
                       const Arguments&... arguments)
{
    filled.clear();
    const Passage passage = enter(operation);
    Result result = passage.carryOut ? action() : failure;
    if (passage.value) {
        result = static_cast<Result>(*passage.value);
    }
    leave(operation, {journalText(arguments)...}, journalText(result), passage.note);
    return result;
}

template<typename Type> Type Camera::getValue(Operation operation, Parameter parameter)
{
    return perform(operation, Type{0}, [&] { return device.get<Type>(parameter); });
}

template<typename Type> Flag Camera::setValue(Operation operation, Parameter parameter, Type value)
{
    return perform(
        operation, refused, [&] { return asFlag(device.set(parameter, value)); }, value);
}

template<typename Record, typename Fill>
Flag Camera::fillRecord(Operation operation, Record* record, Fill fill)
{
    return perform(operation, refused, [&] {
        if (!isGiven(operation, record)) {
            return refused;
        }
        fill(*record);
        filled = journalText(*record);
        return asFlag(true);
    });
}

std::uint32_t Camera::getRegion(Operation operation, Coordinate coordinate, std::uint32_t region)
{
    return perform(
        operation, std::uint32_t{0},
        [&] { return isRegion(operation, region) ? device.regionValue(region, coordinate) : 0; },
        region);
}

Flag Camera::setRegion(Operation operation, Coordinate coordinate, std::uint32_t value,
                       std::uint32_t region, bool roi1Inclusive, bool roi0Exclusive,
                       bool roi1Exclusive)
{
    return perform(
        operation, refused,
        [&] {
            return asFlag(isRegion(operation, region) &&
                          device.setRegion(region, coordinate, value, roi1Inclusive, roi0Exclusive,
                                           roi1Exclusive));
        },
        value, region, roi1Inclusive, roi0Exclusive, roi1Exclusive);
}

// Identity and state.

std::uint8_t Camera::connect(void* context)
{
    return perform(O::Connect, std::uint8_t{0},
                   [&] { return isGiven(O::Connect, context) ? connected : std::uint8_t{0}; });
}

void Camera::getVersions(std::uint32_t* versions)
{
    constexpr unsigned fpgaShift = 16;
    constexpr std::uint32_t nineHertzBit = 1U << 28U;
    constexpr std::uint32_t mipiBit = 1U << 29U;
    const auto word = perform(O::GetVersions, std::uint32_t{0}, [&] {
        isGiven(O::GetVersions, versions);
        return device.get<std::uint32_t>(P::FirmwareVersion) |
               device.get<std::uint32_t>(P::FpgaVersion) << fpgaShift |
               (device.get<bool>(P::NineHertz) ? nineHertzBit : 0) |
               (device.get<bool>(P::Mipi) ? mipiBit : 0);
    });
    if (versions != nullptr) {
        *versions = word;
    }
}

void Camera::refresh()
{
    perform(O::Refresh, refused, [] { return asFlag(true); });
}

std::uint32_t Camera::getSerialNumber()
{
    return getValue<std::uint32_t>(O::GetSerialNumber, P::SerialNumber);
}

std::uint32_t Camera::getSensorSerialNumber()
{
    return getValue<std::uint32_t>(O::GetSensorSerialNumber, P::SensorSerialNumber);
}

Flag Camera::getTemperatures(Temperatures* temperatures)
{
    return fillRecord(O::GetTemperatures, temperatures, [&](Temperatures& record) {
        record.sensor = device.temperature(P::SensorTemperature);
        record.fpga = device.temperature(P::FpgaTemperature);
    });
}

Flag Camera::getOperatingTime(OperatingTime* time)
{
    return fillRecord(O::GetOperatingTime, time, [&](OperatingTime& record) {
        record.minutes = device.get<std::uint32_t>(P::OperatingMinutes);
        record.startups = device.get<std::uint32_t>(P::Startups);
    });
}

Flag Camera::setBaudRate(std::uint32_t rate, bool permanent)
{
    return perform(
        O::SetBaudRate, refused, [&] { return asFlag(device.setBaudRate(rate, permanent)); }, rate,
        permanent);
}

// Single values.

std::uint32_t Camera::getGsk()
{
    return getValue<std::uint32_t>(O::GetGsk, P::Gsk);
}

Flag Camera::setGsk(std::uint32_t value)
{
    return setValue(O::SetGsk, P::Gsk, value);
}

std::uint32_t Camera::getGfid()
{
    return getValue<std::uint32_t>(O::GetGfid, P::Gfid);
}

Flag Camera::setGfid(std::uint32_t value)
{
    return setValue(O::SetGfid, P::Gfid, value);
}

std::uint32_t Camera::getGms()
{
    return getValue<std::uint32_t>(O::GetGms, P::Gms);
}

Flag Camera::setGms(std::uint32_t value)
{
    return setValue(O::SetGms, P::Gms, value);
}

std::uint32_t Camera::getTint()
{
    return getValue<std::uint32_t>(O::GetTint, P::Tint);
}

Flag Camera::setTint(std::uint32_t value)
{
    return setValue(O::SetTint, P::Tint, value);
}

Flag Camera::getBprCorrection()
{
    return getValue<Flag>(O::GetBprCorrection, P::BprCorrection);
}

Flag Camera::setBprCorrection(bool enable)
{
    return setValue(O::SetBprCorrection, P::BprCorrection, enable);
}

Flag Camera::getOffsetCorrection()
{
    return getValue<Flag>(O::GetOffsetCorrection, P::OffsetCorrection);
}

Flag Camera::setOffsetCorrection(bool enable)
{
    return setValue(O::SetOffsetCorrection, P::OffsetCorrection, enable);
}

Flag Camera::getGainCorrection()
{
    return getValue<Flag>(O::GetGainCorrection, P::GainCorrection);
}

Flag Camera::setGainCorrection(bool enable)
{
    return setValue(O::SetGainCorrection, P::GainCorrection, enable);
}

Flag Camera::getHorizontalFlip()
{
    return getValue<Flag>(O::GetHorizontalFlip, P::HorizontalFlip);
}

Flag Camera::setHorizontalFlip(bool enable)
{
    return setValue(O::SetHorizontalFlip, P::HorizontalFlip, enable);
}

Flag Camera::getVerticalFlip()
{
    return getValue<Flag>(O::GetVerticalFlip, P::VerticalFlip);
}

Flag Camera::setVerticalFlip(bool enable)
{
    return setValue(O::SetVerticalFlip, P::VerticalFlip, enable);
}

Flag Camera::getVignettingCorrection()
{
    return getValue<Flag>(O::GetVignettingCorrection, P::VignettingCorrection);
}

Flag Camera::setVignettingCorrection(bool enable)
{
    return setValue(O::SetVignettingCorrection, P::VignettingCorrection, enable);
}

Flag Camera::getColumnCorrection()
{
    return getValue<Flag>(O::GetColumnCorrection, P::ColumnCorrection);
}

Flag Camera::setColumnCorrection(bool enable)
{
    return setValue(O::SetColumnCorrection, P::ColumnCorrection, enable);
}

Flag Camera::getTestPattern()
{
    return getValue<Flag>(O::GetTestPattern, P::TestPattern);
}

Flag Camera::setTestPattern(bool enable)
{
    return setValue(O::SetTestPattern, P::TestPattern, enable);
}

Flag Camera::getBt656SdiOutput()
{
    return getValue<Flag>(O::GetBt656SdiOutput, P::Bt656SdiOutput);
}

Flag Camera::setBt656SdiOutput(bool enable)
{
    return setValue(O::SetBt656SdiOutput, P::Bt656SdiOutput, enable);
}

Flag Camera::getParallelOutput()
{
    return getValue<Flag>(O::GetParallelOutput, P::ParallelOutput);
}

Flag Camera::setParallelOutput(bool enable)
{
    return setValue(O::SetParallelOutput, P::ParallelOutput, enable);
}

Flag Camera::getMipiOutput()
{
    return getValue<Flag>(O::GetMipiOutput, P::MipiOutput);
}

Flag Camera::setMipiOutput(bool enable)
{
    return perform(
        O::SetMipiOutput, refused, [&] { return asFlag(device.setMipiOutput(enable)); }, enable);
}

std::uint8_t Camera::getFrameRate()
{
    return getValue<std::uint8_t>(O::GetFrameRate, P::FrameRate);
}

Flag Camera::setFrameRate(std::uint8_t hertz)
{
    return perform(
        O::SetFrameRate, refused, [&] { return asFlag(device.setFrameRate(hertz)); }, hertz);
}

std::uint8_t Camera::getVideoOutput()
{
    return getValue<std::uint8_t>(O::GetVideoOutput, P::VideoOutput);
}

Flag Camera::setVideoOutput(std::uint8_t index)
{
    return setValue(O::SetVideoOutput, P::VideoOutput, index);
}

std::uint8_t Camera::getContrastType()
{
    return getValue<std::uint8_t>(O::GetContrastType, P::ContrastType);
}

Flag Camera::configureContrastType(std::uint8_t index)
{
    return setValue(O::ConfigureContrastType, P::ContrastType, index);
}

std::uint8_t Camera::getColorLut()
{
    return getValue<std::uint8_t>(O::GetColorLut, P::ColorLut);
}

Flag Camera::setColorLut(std::uint8_t index)
{
    return setValue(O::SetColorLut, P::ColorLut, index);
}

std::uint8_t Camera::getLutTemporalFilter()
{
    return getValue<std::uint8_t>(O::GetLutTemporalFilter, P::LutTemporalFilter);
}

Flag Camera::setLutTemporalFilter(std::uint8_t value)
{
    return setValue(O::SetLutTemporalFilter, P::LutTemporalFilter, value);
}

std::uint32_t Camera::getGamma()
{
    return getValue<std::uint32_t>(O::GetGamma, P::Gamma);
}

Flag Camera::setGamma(std::uint32_t gamma)
{
    return setValue(O::SetGamma, P::Gamma, gamma);
}

std::uint32_t Camera::getClhe()
{
    return getValue<std::uint32_t>(O::GetClhe, P::Clhe);
}

Flag Camera::setClhe(std::uint32_t value)
{
    return setValue(O::SetClhe, P::Clhe, value);
}

Flag Camera::getPolarity()
{
    return getValue<Flag>(O::GetPolarity, P::Polarity);
}

Flag Camera::setPolarity(bool inverted)
{
    return setValue(O::SetPolarity, P::Polarity, inverted);
}

// Groups of values.

Flag Camera::configureEdgeCorrection(std::uint8_t type, std::uint32_t gain, std::uint32_t threshold)
{
    return perform(
        O::ConfigureEdgeCorrection, refused,
        [&] { return asFlag(device.setEdgeCorrection(type, gain, threshold)); }, type, gain,
        threshold);
}

const EdgeCorrection* Camera::getEdgeCorrection(EdgeCorrection* area)
{
    EdgeCorrection* record = area != nullptr ? area : &spareEdgeRecord;
    *record = {};
    perform(O::GetEdgeCorrection, refused, [&] {
        isGiven(O::GetEdgeCorrection, area);
        record->type = device.get<std::uint8_t>(P::EdgeType);
        record->gain = device.get<std::uint32_t>(P::EdgeGain);
        record->firstThreshold = device.get<std::uint32_t>(P::EdgeFirstThreshold);
        record->secondThreshold = device.get<std::uint32_t>(P::EdgeSecondThreshold);
        filled = journalText(*record);
        return asFlag(true);
    });
    return record;
}

Flag Camera::configureZoom(const Zoom* zoom)
{
    return perform(
        O::ConfigureZoom, refused,
        [&] {
            return asFlag(isGiven(O::ConfigureZoom, zoom) &&
                          device.set({{P::ZoomFactor, zoom->factor},
                                      {P::ZoomXCenter, zoom->xCenter},
                                      {P::ZoomYCenter, zoom->yCenter},
                                      {P::ZoomMethod, zoom->method}}));
        },
        zoom);
}

Flag Camera::getZoom(Zoom* zoom)
{
    return fillRecord(O::GetZoom, zoom, [&](Zoom& record) {
        record.factor = device.get<float>(P::ZoomFactor);
        record.xCenter = device.get<std::int32_t>(P::ZoomXCenter);
        record.yCenter = device.get<std::int32_t>(P::ZoomYCenter);
        record.method = device.get<std::uint8_t>(P::ZoomMethod);
    });
}

Flag Camera::getZoomResolution(ZoomResolution* resolution)
{
    return fillRecord(O::GetZoomResolution, resolution, [&](ZoomResolution& record) {
        record.x = device.get<std::uint32_t>(P::ZoomXResolution);
        record.y = device.get<std::uint32_t>(P::ZoomYResolution);
    });
}

Flag Camera::configureZoomResolution(std::uint32_t x, std::uint32_t y)
{
    return perform(
        O::ConfigureZoomResolution, refused,
        [&] {
            return asFlag(device.set({{P::ZoomXResolution, x}, {P::ZoomYResolution, y}}));
        },
        x, y);
}

Flag Camera::getAhcGainsLimitation(AhcGainsLimitation* limits)
{
    return fillRecord(O::GetAhcGainsLimitation, limits, [&](AhcGainsLimitation& record) {
        record.black = device.get<std::uint8_t>(P::AhcBlackGainLimit);
        record.white = device.get<std::uint8_t>(P::AhcWhiteGainLimit);
    });
}

Flag Camera::setAhcGainsLimitation(std::uint8_t black, std::uint8_t white)
{
    return perform(
        O::SetAhcGainsLimitation, refused,
        [&] {
            return asFlag(
                device.set({{P::AhcBlackGainLimit, black}, {P::AhcWhiteGainLimit, white}}));
        },
        black, white);
}

// Regions.

std::uint32_t Camera::getRoiX1(std::uint32_t region)
{
    return getRegion(O::GetRoiX1, Coordinate::X1, region);
}

std::uint32_t Camera::getRoiX2(std::uint32_t region)
{
    return getRegion(O::GetRoiX2, Coordinate::X2, region);
}

std::uint32_t Camera::getRoiY1(std::uint32_t region)
{
    return getRegion(O::GetRoiY1, Coordinate::Y1, region);
}

std::uint32_t Camera::getRoiY2(std::uint32_t region)
{
    return getRegion(O::GetRoiY2, Coordinate::Y2, region);
}

Flag Camera::setRoiX1(std::uint32_t coordinate, std::uint32_t region, bool roi1Inclusive,
                      bool roi0Exclusive, bool roi1Exclusive)
{
    return setRegion(O::SetRoiX1, Coordinate::X1, coordinate, region, roi1Inclusive, roi0Exclusive,
                     roi1Exclusive);
}

Flag Camera::setRoiX2(std::uint32_t coordinate, std::uint32_t region, bool roi1Inclusive,
                      bool roi0Exclusive, bool roi1Exclusive)
{
    return setRegion(O::SetRoiX2, Coordinate::X2, coordinate, region, roi1Inclusive, roi0Exclusive,
                     roi1Exclusive);
}

Flag Camera::setRoiY1(std::uint32_t coordinate, std::uint32_t region, bool roi1Inclusive,
                      bool roi0Exclusive, bool roi1Exclusive)
{
    return setRegion(O::SetRoiY1, Coordinate::Y1, coordinate, region, roi1Inclusive, roi0Exclusive,
                     roi1Exclusive);
}

Flag Camera::setRoiY2(std::uint32_t coordinate, std::uint32_t region, bool roi1Inclusive,
                      bool roi0Exclusive, bool roi1Exclusive)
{
    return setRegion(O::SetRoiY2, Coordinate::Y2, coordinate, region, roi1Inclusive, roi0Exclusive,
                     roi1Exclusive);
}

// NUC and shutter.

Flag Camera::requestNuc(std::uint8_t automatic)
{
    return perform(
        O::RequestNuc, refused, [&] { return asFlag(device.requestNuc(automatic)); }, automatic);
}

Flag Camera::setNucControl(std::uint8_t control)
{
    return perform(
        O::SetNucControl, refused, [&] { return asFlag(device.setNucControl(control)); }, control);
}

Flag Camera::getNucControl()
{
    return getValue<Flag>(O::GetNucControl, P::NucControl);
}

Flag Camera::setShutterPosition(bool closed)
{
    return perform(
        O::SetShutterPosition, refused, [&] { return asFlag(device.setShutter(closed)); }, closed);
}

Flag Camera::getShutterPosition(std::uint8_t* closed)
{
    return fillRecord(O::GetShutterPosition, closed,
                      [&](std::uint8_t& record) { record = device.isShutterClosed() ? 1 : 0; });
}

// Bad pixels.

std::int32_t Camera::readTableData(std::uint32_t offset, std::uint32_t length, std::uint8_t tableId,
                                   void* buffer)
{
    return perform(
        O::ReadTableData, noAnswer,
        [&] {
            if (!isGiven(O::ReadTableData, buffer) ||
                !isTableRegion(O::ReadTableData, offset, length, tableId, tableIdForReading)) {
                return wrongRequest;
            }
            std::memcpy(buffer, device.tableRegion().constData(), tableLength);
            return tableRead;
        },
        offset, length, tableId);
}

Flag Camera::writeTableData(std::uint32_t offset, std::uint32_t length, std::uint8_t tableId,
                            void* buffer)
{
    return perform(
        O::WriteTableData, refused,
        [&] {
            if (!isGiven(O::WriteTableData, buffer) ||
                !isTableRegion(O::WriteTableData, offset, length, tableId, tableIdForWriting)) {
                return refused;
            }
            device.writeTable(QByteArray(static_cast<const char*>(buffer), tableLength));
            return asFlag(true);
        },
        offset, length, tableId);
}

void Camera::loadBadPixelList(const std::string& path, std::vector<ReplacementEntry>& list,
                              int& height, int& width)
{
    filled.clear();
    const Passage passage = enter(O::LoadBadPixelList);
    if (passage.carryOut) {
        QString reason;
        const bool treated = treatMapFile(pathFromBytes(path), height, width, list, &reason);
        asFlag(treated, O::LoadBadPixelList, path, reason);
    } else {
        spoilTreatment(passage.word, list);
    }
    leave(O::LoadBadPixelList, {journalText(path), journalText(height), journalText(width)},
          QStringLiteral("%1 entries").arg(list.size()), passage.note);
}

Flag Camera::addBadPixels(const std::string& path, std::uint32_t x, std::uint32_t y)
{
    return perform(
        O::AddBadPixels, refused,
        [&] {
            QString reason;
            const bool added = declareBadPixels(pathFromBytes(path), x, y, &reason);
            return asFlag(added, O::AddBadPixels, path, reason);
        },
        path, x, y);
}

Flag Camera::removeBadPixels(const std::string& path, std::uint32_t x, std::uint32_t y)
{
    return perform(
        O::RemoveBadPixels, refused,
        [&] {
            QString reason;
            const bool removed = undeclareBadPixels(pathFromBytes(path), x, y, &reason);
            return asFlag(removed, O::RemoveBadPixels, path, reason);
        },
        path, x, y);
}

} // namespace simulator
