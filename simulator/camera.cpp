// SPDX-License-Identifier: MIT
#include "simulator/camera.h"

#include "simulator/badpixels.h"
#include "simulator/files.h"
#include "simulator/simulator.h"

#include <algorithm>
#include <cstring>
#include <mutex>
#include <utility>

namespace simulator {
namespace {

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

/// An argument as rules of the plan compare it: a number as it is, anything else never.
template<typename Argument> qint64 numberOf(const Argument& argument)
{
    if constexpr (std::is_integral_v<Argument>) {
        return static_cast<qint64>(argument);
    } else {
        return 0;
    }
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

Camera::Camera(Device& openedDevice, std::uint32_t linkBaudRate, QString portName)
    : device(openedDevice), baudRate(linkBaudRate), port(std::move(portName))
{}

QString Camera::name() const
{
    return QStringLiteral("camera %1").arg(device.get<std::uint32_t>(P::serialNumber));
}

Camera::Passage Camera::enter(Simulator& simulator, Operation operation,
                              const std::array<qint64, 5>& arguments)
{
    if (!open) {
        planned = {};
        simulator.log().misuse(
            QStringLiteral("%1 on a camera that is closed").arg(nameOf(operation)));
        return {.note = "closed"};
    }
    planned =
        simulator.decide({operation, device.get<std::uint32_t>(P::serialNumber), port, arguments});
    const bool reached = simulator.reach(&device, baudRate, operation, planned);
    const Passage passage{reached && planned.carryOut, Simulator::noteOf(reached, planned)};
    if (!reached) {
        planned = {};
    }
    return passage;
}

void Camera::leave(Operation operation, const QStringList& arguments, const QString& answer,
                   const char* note)
{
    Simulator::instance().journal().write(
        {name(), nameOf(operation), arguments, answer, filled, QLatin1String(note)});
}

template<typename Result, typename Action, typename... Arguments>
Result Camera::perform(Operation operation, Result failure, Action action,
                       const Arguments&... arguments)
{
    Simulator& simulator = Simulator::instance();
    const std::lock_guard entry(simulator.gate());
    filled.clear();
    const Passage passage = enter(simulator, operation, {numberOf(arguments)...});
    const bool answered = !planned.record.empty() || !planned.table.isEmpty();
    Result result = passage.carryOut || answered ? action() : failure;
    if (planned.value) {
        result = static_cast<Result>(*planned.value);
    }
    if (simulator.journal().isOn()) {
        leave(operation, {journalText(arguments)...}, journalText(result), passage.note);
    }
    return result;
}

template<typename Type> Type Camera::getValue(Operation operation, Parameter parameter)
{
    return perform(operation, Type{0}, [&] { return device.get<Type>(parameter); });
}

template<typename Type> Flag Camera::setValue(Operation operation, Parameter parameter, Type value)
{
    return perform(
        operation, refused, [&] { return asFlag(device.obey(parameter, value)); }, value);
}

template<typename Record>
Flag Camera::fillRecord(Operation operation, Record* record, Record (Device::*read)() const)
{
    return perform(operation, refused, [&] {
        if (!isGiven(operation, record)) {
            return refused;
        }
        if (planned.record.empty()) {
            *record = (device.*read)();
        } else {
            fillIn(*record, planned.record);
        }
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

// The common kinds.

// clang-format off
#define GET(Type, name, value) Type Camera::name() { return getValue<Type>(O::name, P::value); }
#define SET(Type, name, value)                                                                     \
    Flag Camera::name(Type given) { return setValue(O::name, P::value, given); }
#define FILL(Record, name, value)                                                                  \
    Flag Camera::name(Record* record) { return fillRecord(O::name, record, &Device::value); }
#define GET_ROI(name, coordinate)                                                                  \
    std::uint32_t Camera::name(std::uint32_t region)                                               \
    {                                                                                              \
        return getRegion(O::name, Coordinate::coordinate, region);                                 \
    }
#define SET_ROI(name, coordinate)                                                                  \
    Flag Camera::name(std::uint32_t pixel, std::uint32_t region, bool roi1Inclusive,               \
                      bool roi0Exclusive, bool roi1Exclusive)                                      \
    {                                                                                              \
        return setRegion(O::name, Coordinate::coordinate, pixel, region, roi1Inclusive,            \
                         roi0Exclusive, roi1Exclusive);                                            \
    }
// clang-format on
#include "sdk/operations.def"

// Identity and state.

std::uint8_t Camera::connect(void* context)
{
    return perform(O::connect, std::uint8_t{0},
                   [&] { return isGiven(O::connect, context) ? connected : std::uint8_t{0}; });
}

void Camera::getVersions(std::uint32_t* versions)
{
    constexpr unsigned fpgaShift = 16;
    constexpr std::uint32_t nineHertzBit = 1U << 28U;
    constexpr std::uint32_t mipiBit = 1U << 29U;
    const auto word = perform(O::getVersions, std::uint32_t{0}, [&] {
        isGiven(O::getVersions, versions);
        return device.get<std::uint32_t>(P::firmwareVersion) |
               device.get<std::uint32_t>(P::fpgaVersion) << fpgaShift |
               (device.get<bool>(P::nineHertz) ? nineHertzBit : 0) |
               (device.get<bool>(P::mipi) ? mipiBit : 0);
    });
    if (versions != nullptr) {
        *versions = word;
    }
}

void Camera::refresh()
{
    perform(O::refresh, refused, [] { return asFlag(true); });
}

Flag Camera::setBaudRate(std::uint32_t rate, bool permanent)
{
    return perform(
        O::setBaudRate, refused, [&] { return asFlag(device.setBaudRate(rate, permanent)); }, rate,
        permanent);
}

// Groups of values.

Flag Camera::configureEdgeCorrection(std::uint8_t type, std::uint32_t gain, std::uint32_t threshold)
{
    return perform(
        O::configureEdgeCorrection, refused,
        [&] { return asFlag(device.setEdgeCorrection(type, gain, threshold)); }, type, gain,
        threshold);
}

const EdgeCorrection* Camera::getEdgeCorrection(EdgeCorrection* area)
{
    EdgeCorrection* record = area != nullptr ? area : &spareEdgeRecord;
    *record = {};
    perform(O::getEdgeCorrection, refused, [&] {
        isGiven(O::getEdgeCorrection, area);
        if (planned.record.empty()) {
            *record = device.edgeCorrection();
        } else {
            fillIn(*record, planned.record);
        }
        filled = journalText(*record);
        return asFlag(true);
    });
    return record;
}

Flag Camera::configureZoom(const Zoom* zoom)
{
    return perform(
        O::configureZoom, refused,
        [&] {
            return asFlag(isGiven(O::configureZoom, zoom) &&
                          device.set({{P::zoomFactor, zoom->factor},
                                      {P::zoomXCenter, zoom->xCenter},
                                      {P::zoomYCenter, zoom->yCenter},
                                      {P::zoomMethod, zoom->method}}));
        },
        zoom);
}

Flag Camera::configureZoomResolution(std::uint32_t x, std::uint32_t y)
{
    return perform(
        O::configureZoomResolution, refused,
        [&] {
            return asFlag(device.set({{P::zoomXResolution, x}, {P::zoomYResolution, y}}));
        },
        x, y);
}

Flag Camera::setAhcGainsLimitation(std::uint8_t black, std::uint8_t white)
{
    return perform(
        O::setAhcGainsLimitation, refused,
        [&] {
            return asFlag(
                device.set({{P::ahcBlackGainLimit, black}, {P::ahcWhiteGainLimit, white}}));
        },
        black, white);
}

// NUC and shutter.

Flag Camera::requestNuc(std::uint8_t automatic)
{
    return perform(
        O::requestNuc, refused, [&] { return asFlag(device.requestNuc(automatic)); }, automatic);
}

// Bad pixels.

std::int32_t Camera::readTableData(std::uint32_t offset, std::uint32_t length, std::uint8_t tableId,
                                   void* buffer)
{
    return perform(
        O::readTableData, noAnswer,
        [&] {
            if (!isGiven(O::readTableData, buffer) ||
                !isTableRegion(O::readTableData, offset, length, tableId, tableIdForReading)) {
                return wrongRequest;
            }
            const QByteArray& region =
                planned.table.isEmpty() ? device.tableRegion() : planned.table;
            std::memcpy(buffer, region.constData(), tableLength);
            return tableRead;
        },
        offset, length, tableId);
}

Flag Camera::writeTableData(std::uint32_t offset, std::uint32_t length, std::uint8_t tableId,
                            void* buffer)
{
    return perform(
        O::writeTableData, refused,
        [&] {
            if (!isGiven(O::writeTableData, buffer) ||
                !isTableRegion(O::writeTableData, offset, length, tableId, tableIdForWriting)) {
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
    Simulator& simulator = Simulator::instance();
    const std::lock_guard entry(simulator.gate());
    filled.clear();
    const Passage passage = enter(simulator, O::loadBadPixelList);
    if (passage.carryOut) {
        QString reason;
        const bool treated = treatMapFile(pathFromBytes(path), height, width, list, &reason);
        asFlag(treated, O::loadBadPixelList, path, reason);
    } else {
        spoilTreatment(planned.word, list);
    }
    leave(O::loadBadPixelList, {journalText(path), journalText(height), journalText(width)},
          QStringLiteral("%1 entries").arg(list.size()), passage.note);
}

Flag Camera::addBadPixels(const std::string& path, std::uint32_t x, std::uint32_t y)
{
    return perform(
        O::addBadPixels, refused,
        [&] {
            QString reason;
            const bool added = declareBadPixels(pathFromBytes(path), x, y, &reason);
            return asFlag(added, O::addBadPixels, path, reason);
        },
        path, x, y);
}

Flag Camera::removeBadPixels(const std::string& path, std::uint32_t x, std::uint32_t y)
{
    return perform(
        O::removeBadPixels, refused,
        [&] {
            QString reason;
            const bool removed = undeclareBadPixels(pathFromBytes(path), x, y, &reason);
            return asFlag(removed, O::removeBadPixels, path, reason);
        },
        path, x, y);
}

} // namespace simulator
