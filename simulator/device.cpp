#include "simulator/device.h"

#include <algorithm>
#include <array>
#include <utility>

namespace simulator {
namespace {

constexpr std::array<std::uint8_t, 5> frameRates = {9, 25, 30, 50, 60};
constexpr std::array<std::uint32_t, 5> baudRates = {9600, 115200, 230400, 460800, 921600};
constexpr std::uint32_t thresholdStep = 40; ///< from the first edge threshold to the second
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

Device::Device(CameraSettings factorySettings)
    : factory(std::move(factorySettings)), values(factory.values), table(factory.table),
      currentBaudRate(get<std::uint32_t>(Parameter::BaudRate))
{}

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
    return true;
}

std::uint32_t Device::regionValue(std::uint32_t region, Coordinate coordinate) const
{
    if (coordinate == Coordinate::X1 && region > 0 && !get<bool>(regionSwitch(region))) {
        return 0;
    }
    return get<std::uint32_t>(regionCoordinate(region, coordinate));
}

bool Device::setRegion(std::uint32_t region, Coordinate coordinate, std::uint32_t value,
                       bool roi1Inclusive, bool roi0Exclusive, bool roi1Exclusive)
{
    return set({{regionCoordinate(region, coordinate), value},
                {Parameter::Roi1IncEnabled, roi1Inclusive},
                {Parameter::Roi0ExcEnabled, roi0Exclusive},
                {Parameter::Roi1ExcEnabled, roi1Exclusive}});
}

bool Device::setFrameRate(std::uint8_t hertz)
{
    if (!contains(frameRates, hertz) || (get<bool>(Parameter::NineHertz) && hertz != 9)) {
        return false;
    }
    return set(Parameter::FrameRate, hertz);
}

bool Device::setMipiOutput(bool enable)
{
    if (enable && !get<bool>(Parameter::Mipi)) {
        return false;
    }
    return set(Parameter::MipiOutput, enable);
}

bool Device::setEdgeCorrection(std::uint8_t type, std::uint32_t gain, std::uint32_t threshold)
{
    return set({{Parameter::EdgeType, type},
                {Parameter::EdgeGain, gain},
                {Parameter::EdgeFirstThreshold, threshold},
                {Parameter::EdgeSecondThreshold, double{1} * threshold + thresholdStep}});
}

bool Device::setBaudRate(std::uint32_t rate, bool permanent)
{
    if (!contains(baudRates, rate)) {
        return false;
    }
    currentBaudRate = rate;
    return !permanent || set(Parameter::BaudRate, rate);
}

bool Device::requestNuc(std::uint8_t automatic)
{
    if (automatic > 1) {
        return false;
    }
    if (automatic == 1) {
        // The routine closes the shutter for its picture and leaves it open.
        store(Parameter::ShutterClosed, 0);
    }
    return set(Parameter::NucControl, 1);
}

bool Device::setNucControl(std::uint8_t control)
{
    return (control == nucOff || control == nucOn) &&
           set(Parameter::NucControl, control == nucOn ? 1 : 0);
}

bool Device::setShutter(bool closed)
{
    return set(Parameter::ShutterClosed, closed);
}

} // namespace simulator
