// SPDX-License-Identifier: MIT
#include "simulator/device.h"

#include "simulator/clock.h"
#include "simulator/memory.h"
#include "simulator/random.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace simulator {
namespace {

constexpr std::array<std::uint8_t, 5> frameRates = {9, 25, 30, 50, 60};
constexpr std::array<std::uint32_t, 5> baudRates = {9600, 115200, 230400, 460800, 921600};
constexpr std::uint32_t thresholdStep = 40; ///< from the first edge threshold to the second
constexpr qint64 millisecondsPerMinute = 60'000;
constexpr double roomTemperature = 296'000; ///< milli-kelvin, of a camera that has long been off
constexpr double warmUpTime = 180'000;      ///< milliseconds to about two thirds of the way
constexpr double temperatureNoise = 40;     ///< milli-kelvin to either side
constexpr std::uint8_t nucOff = 0;
constexpr std::uint8_t nucOn = 2;

template<typename List, typename Value> bool contains(const List& list, Value value)
{
    return std::find(list.begin(), list.end(), value) != list.end();
}

bool accepts(Parameter parameter, double value)
{
    const ParameterFacts& facts = factsOf(parameter);
    return value >= facts.lowest && value <= facts.highest;
}

} // namespace

Device::Device(CameraSettings factorySettings, const Surroundings& around, bool isFresh)
    : surroundings(around), factory(std::move(factorySettings)), values(factory.values),
      table(factory.table)
{
    if (!isFresh && surroundings.memory.loadCamera(nameInMemory(), values, table)) {
        count(Parameter::startups, 1);
    }
    switchOn();
}

QString Device::description() const
{
    return QStringLiteral("[%1] serial number %2 on port %3")
        .arg(factory.section, formatField(Kind::Word, get<double>(Parameter::serialNumber)),
             factory.ports.join(QStringLiteral(", ")));
}

QStringList Device::oddities() const
{
    QStringList found;
    if (pulledOut) {
        found << QStringLiteral("pulled out");
    }
    if (isHanging()) {
        found << QStringLiteral("hanging");
    }
    if (isNucRunning()) {
        found << QStringLiteral("NUC");
    }
    if (currentBaudRate != get<std::uint32_t>(Parameter::baudRate)) {
        found << QStringLiteral("at %1 baud until its power is off").arg(currentBaudRate);
    }
    return found;
}

void Device::cyclePower()
{
    for (const ParameterFacts& facts : parameterTable()) {
        if (facts.retention == Retention::Lost) {
            store(facts.parameter, factory.values[static_cast<std::size_t>(facts.parameter)]);
        }
    }
    count(Parameter::startups, 1);
    switchOn();
    keep();
}

void Device::switchOn()
{
    currentBaudRate = get<std::uint32_t>(Parameter::baudRate);
    hangingBy.clear();
    switchedOn = surroundings.clock.now();
    minutesCounted = 0;
    nucEnd = 0;
    shutterMovedByNuc = false;
}

void Device::passTime()
{
    const qint64 minutes = (surroundings.clock.now() - switchedOn) / millisecondsPerMinute;
    if (minutes > minutesCounted) {
        count(Parameter::operatingMinutes, static_cast<double>(minutes - minutesCounted));
        minutesCounted = minutes;
        keep();
    }
}

void Device::count(Parameter parameter, double more)
{
    store(parameter, std::min(get<double>(parameter) + more, factsOf(parameter).highest));
}

void Device::keep() const
{
    surroundings.memory.saveCamera(nameInMemory(), values);
}

void Device::forget() const
{
    surroundings.memory.forgetCamera(nameInMemory());
}

void Device::writeTable(const QByteArray& region)
{
    table = region;
    surroundings.memory.saveTable(nameInMemory(), table);
}

// The next start looks there, and what another number's files hold is another camera's.
std::uint32_t Device::nameInMemory() const
{
    return as<std::uint32_t>(factory.values[static_cast<std::size_t>(Parameter::serialNumber)]);
}

float Device::temperature(Parameter parameter) const
{
    const auto end = get<double>(parameter);
    if (!surroundings.behaviour.warmUp) {
        return as<float>(end);
    }
    const qint64 on = surroundings.clock.now() - switchedOn;
    const double start = std::min(end, roomTemperature);
    const double warm = end - (end - start) * std::exp(-static_cast<double>(on) / warmUpTime);
    // Another number for each second, camera and sensor, and always the same for the same three.
    Random noise(surroundings.behaviour.seed ^
                 (get<std::uint64_t>(Parameter::serialNumber) << 16U) ^
                 (static_cast<std::uint64_t>(on / 1000) << 1U) ^
                 (parameter == Parameter::sensorTemperature ? 1U : 0U));
    return as<float>(warm + (noise.fraction() * 2 - 1) * temperatureNoise);
}

bool Device::set(Parameter parameter, double value)
{
    return set({{parameter, value}});
}

bool Device::set(std::initializer_list<std::pair<Parameter, double>> changes)
{
    for (const auto& [parameter, value] : changes) {
        if (!accepts(parameter, value)) {
            return false;
        }
    }
    for (const auto& [parameter, value] : changes) {
        store(parameter, value);
    }
    keep();
    return true;
}

void Device::impose(const std::vector<std::pair<Parameter, double>>& changes)
{
    for (const auto& [parameter, value] : changes) {
        store(parameter, value);
        if (parameter == Parameter::baudRate) {
            currentBaudRate = as<std::uint32_t>(value);
        }
    }
    keep();
}

bool Device::obey(Parameter parameter, double value)
{
    switch (parameter) {
    case Parameter::frameRate:
        return contains(frameRates, value) && (!get<bool>(Parameter::nineHertz) || value == 9) &&
               set(parameter, value);
    case Parameter::mipiOutput:
        return (value == 0 || get<bool>(Parameter::mipi)) && set(parameter, value);
    case Parameter::nucControl:
        return (value == nucOff || value == nucOn) && set(parameter, value == nucOn ? 1 : 0);
    case Parameter::shutterClosed:
        return !isNucRunning() && set(parameter, value);
    default:
        return set(parameter, value);
    }
}

std::uint32_t Device::regionValue(std::uint32_t region, Coordinate coordinate) const
{
    if (coordinate == Coordinate::x1 && region > 0 && !get<bool>(regionSwitch(region))) {
        return 0;
    }
    return get<std::uint32_t>(regionCoordinate(region, coordinate));
}

bool Device::setRegion(std::uint32_t region, Coordinate coordinate, std::uint32_t value,
                       bool roi1Inclusive, bool roi0Exclusive, bool roi1Exclusive)
{
    return set({{regionCoordinate(region, coordinate), value},
                {Parameter::roi1IncEnabled, roi1Inclusive},
                {Parameter::roi0ExcEnabled, roi0Exclusive},
                {Parameter::roi1ExcEnabled, roi1Exclusive}});
}

bool Device::setEdgeCorrection(std::uint8_t type, std::uint32_t gain, std::uint32_t threshold)
{
    return set({{Parameter::edgeType, type},
                {Parameter::edgeGain, gain},
                {Parameter::edgeFirstThreshold, threshold},
                {Parameter::edgeSecondThreshold, double{1} * threshold + thresholdStep}});
}

bool Device::setBaudRate(std::uint32_t rate, bool permanent)
{
    if (!contains(baudRates, rate)) {
        return false;
    }
    currentBaudRate = rate;
    return !permanent || set(Parameter::baudRate, rate);
}

bool Device::requestNuc(std::uint8_t automatic)
{
    if (automatic > 1 || isNucRunning()) {
        return false;
    }
    nucEnd = surroundings.clock.now() + surroundings.behaviour.nucDuration;
    // The routine closes the shutter for its picture and leaves it open; a NUC that the user asks
    // for takes the shutter as it stands.
    shutterMovedByNuc = automatic == 1;
    if (shutterMovedByNuc) {
        store(Parameter::shutterClosed, 0);
    }
    return set(Parameter::nucControl, 1);
}

ombrix_sdk::Temperatures Device::temperatures() const
{
    return {temperature(Parameter::sensorTemperature), temperature(Parameter::fpgaTemperature)};
}

ombrix_sdk::OperatingTime Device::operatingTime() const
{
    return {get<std::uint32_t>(Parameter::operatingMinutes),
            get<std::uint32_t>(Parameter::startups)};
}

ombrix_sdk::EdgeCorrection Device::edgeCorrection() const
{
    return {get<std::uint8_t>(Parameter::edgeType), get<std::uint32_t>(Parameter::edgeGain),
            get<std::uint32_t>(Parameter::edgeFirstThreshold),
            get<std::uint32_t>(Parameter::edgeSecondThreshold)};
}

ombrix_sdk::Zoom Device::zoom() const
{
    return {get<float>(Parameter::zoomFactor), get<std::int32_t>(Parameter::zoomXCenter),
            get<std::int32_t>(Parameter::zoomYCenter), get<std::uint8_t>(Parameter::zoomMethod)};
}

ombrix_sdk::ZoomResolution Device::zoomResolution() const
{
    return {get<std::uint32_t>(Parameter::zoomXResolution),
            get<std::uint32_t>(Parameter::zoomYResolution)};
}

ombrix_sdk::AhcGainsLimitation Device::ahcGains() const
{
    return {get<std::uint8_t>(Parameter::ahcBlackGainLimit),
            get<std::uint8_t>(Parameter::ahcWhiteGainLimit)};
}

std::uint8_t Device::shutterClosed() const
{
    const bool closedByNuc = isNucRunning() && shutterMovedByNuc;
    return closedByNuc || get<bool>(Parameter::shutterClosed) ? 1 : 0;
}

bool Device::isNucRunning() const
{
    return surroundings.clock.now() < nucEnd;
}

} // namespace simulator
