// SPDX-License-Identifier: MIT
// A simulated camera itself, apart from the links that reach it: its parameters, its table region,
// its shutter and its power.
#pragma once

#include "simulator/parameters.h"
#include "simulator/settings.h"

#include <QtCore/QByteArray>

#include <cstdint>
#include <initializer_list>
#include <utility>

namespace simulator {

class Clock;
class Memory;

/// What a camera depends on.
struct Surroundings {
    Clock& clock;
    Memory& memory;
    const Behaviour& behaviour;
};

class Device {
public:
    /// A camera that has just been switched on, with what its memory kept.
    Device(CameraSettings factorySettings, const Surroundings& around);

    /// Switches the power off and on.
    void cyclePower();
    /// Lets the camera notice how much time has passed.
    void passTime();

    [[nodiscard]] const CameraSettings& settings() const { return factory; }

    /// A camera that hangs answers nothing until its power is switched off and on.
    [[nodiscard]] bool isHanging() const { return hanging; }
    void setHanging(bool on) { hanging = on; }

    template<typename Type> [[nodiscard]] Type get(Parameter parameter) const
    {
        return as<Type>(values[static_cast<std::size_t>(parameter)]);
    }
    /// False, and nothing changes, when the camera does not accept the value.
    bool set(Parameter parameter, double value);
    /// Sets all of the parameters or none.
    bool set(std::initializer_list<std::pair<Parameter, double>> changes);

    /// A region that is off answers 0 as its X1 and keeps its coordinates.
    [[nodiscard]] std::uint32_t regionValue(std::uint32_t region, Coordinate coordinate) const;
    bool setRegion(std::uint32_t region, Coordinate coordinate, std::uint32_t value,
                   bool roi1Inclusive, bool roi0Exclusive, bool roi1Exclusive);

    /// 9 to 60 Hz; the 9 Hz variant runs at 9 Hz only.
    bool setFrameRate(std::uint8_t hertz);
    /// Only the MIPI variant has the output.
    bool setMipiOutput(bool enable);
    bool setEdgeCorrection(std::uint8_t type, std::uint32_t gain, std::uint32_t threshold);

    [[nodiscard]] std::uint32_t baudRate() const { return currentBaudRate; }
    bool setBaudRate(std::uint32_t rate, bool permanent);

    [[nodiscard]] const QByteArray& tableRegion() const { return table; }
    void writeTable(const QByteArray& region);

    [[nodiscard]] float temperature(Parameter parameter) const;

    bool requestNuc(std::uint8_t automatic);
    bool setNucControl(std::uint8_t control);
    bool setShutter(bool closed);
    [[nodiscard]] bool isShutterClosed() const;

private:
    void store(Parameter parameter, double value)
    {
        values[static_cast<std::size_t>(parameter)] = value;
    }
    void count(Parameter parameter, double more);
    void switchOn();
    /// Writes the values to the memory.
    void keep() const;
    [[nodiscard]] bool isNucRunning() const;

    Surroundings surroundings;
    CameraSettings factory;
    ParameterValues values;
    QByteArray table;
    std::uint32_t currentBaudRate = 0;
    bool hanging = false;
    qint64 switchedOn = 0;     ///< time of the clock
    qint64 minutesCounted = 0; ///< since then
    qint64 nucEnd = 0;         ///< time of the clock
    bool shutterMovedByNuc = false;
};

} // namespace simulator
