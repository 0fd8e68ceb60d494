// SPDX-License-Identifier: MIT
// A simulated camera itself, apart from the links that reach it: its parameters, its table region,
// its shutter and its power.
#pragma once

#include "sdk/ombrix_sdk.h"
#include "simulator/parameters.h"
#include "simulator/settings.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <cstdint>
#include <initializer_list>
#include <set>
#include <utility>
#include <vector>

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
    /// A camera that has just been switched on, with what its memory kept, or fresh from the
    /// factory. The memory stays as it is until keep.
    Device(CameraSettings factorySettings, const Surroundings& around, bool isFresh);

    /// Writes the values to the memory.
    void keep() const;
    /// Forgets in the memory what an earlier start has kept.
    void forget() const;

    /// Switches the power off and on.
    void cyclePower();
    /// Lets the camera notice how much time has passed.
    void passTime();

    [[nodiscard]] const CameraSettings& settings() const { return factory; }
    /// Its section, serial number and ports in a line.
    [[nodiscard]] QString description() const;
    /// Why it is silent, or does not answer what it holds; empty when neither is so.
    [[nodiscard]] QStringList oddities() const;

    /// A camera that hangs answers nothing until its power is switched off and on, or until
    /// whatever did it is over. fault: number of the one that was put; 0: the plan.
    [[nodiscard]] bool isHanging() const { return !hangingBy.empty(); }
    void hangUp(int fault) { hangingBy.insert(fault); }
    template<typename Condition> void endHangingBy(Condition isOver)
    {
        std::erase_if(hangingBy, isOver);
    }
    /// A camera that is pulled out keeps its power and its ports, and is reached by none of them.
    [[nodiscard]] bool isPulledOut() const { return pulledOut; }
    void setPulledOut(bool on) { pulledOut = on; }

    template<typename Type> [[nodiscard]] Type get(Parameter parameter) const
    {
        return as<Type>(values[static_cast<std::size_t>(parameter)]);
    }
    /// False, and nothing changes, when the camera does not accept the value.
    bool set(Parameter parameter, double value);
    /// Sets all of the parameters or none.
    bool set(std::initializer_list<std::pair<Parameter, double>> changes);
    /// Sets whatever a settings file may say, within the camera's own limits or not.
    void impose(const std::vector<std::pair<Parameter, double>>& changes);

    /// Does what a command of the program asks for. False, and nothing changes, when the camera
    /// does not accept the value.
    bool obey(Parameter parameter, double value);

    /// A region that is off answers 0 as its X1 and keeps its coordinates.
    [[nodiscard]] std::uint32_t regionValue(std::uint32_t region, Coordinate coordinate) const;
    bool setRegion(std::uint32_t region, Coordinate coordinate, std::uint32_t value,
                   bool roi1Inclusive, bool roi0Exclusive, bool roi1Exclusive);
    bool setEdgeCorrection(std::uint8_t type, std::uint32_t gain, std::uint32_t threshold);

    // What the getters of records answer.
    [[nodiscard]] ombrix_sdk::Temperatures temperatures() const;
    [[nodiscard]] ombrix_sdk::OperatingTime operatingTime() const;
    [[nodiscard]] ombrix_sdk::EdgeCorrection edgeCorrection() const;
    [[nodiscard]] ombrix_sdk::Zoom zoom() const;
    [[nodiscard]] ombrix_sdk::ZoomResolution zoomResolution() const;
    [[nodiscard]] ombrix_sdk::AhcGainsLimitation ahcGains() const;
    [[nodiscard]] std::uint8_t shutterClosed() const;

    [[nodiscard]] std::uint32_t baudRate() const { return currentBaudRate; }
    bool setBaudRate(std::uint32_t rate, bool permanent);

    [[nodiscard]] const QByteArray& tableRegion() const { return table; }
    void writeTable(const QByteArray& region);

    bool requestNuc(std::uint8_t automatic);

private:
    void store(Parameter parameter, double value)
    {
        values[static_cast<std::size_t>(parameter)] = value;
    }
    void count(Parameter parameter, double more);
    [[nodiscard]] float temperature(Parameter parameter) const;
    void switchOn();
    /// Its serial number in the settings, whatever number it has been given since.
    [[nodiscard]] std::uint32_t nameInMemory() const;
    [[nodiscard]] bool isNucRunning() const;

    Surroundings surroundings;
    CameraSettings factory;
    ParameterValues values;
    QByteArray table;
    std::uint32_t currentBaudRate = 0;
    std::set<int> hangingBy; ///< faults; empty: it does not hang
    bool pulledOut = false;
    qint64 switchedOn = 0;     ///< time of the clock
    qint64 minutesCounted = 0; ///< since then
    qint64 nucEnd = 0;         ///< time of the clock
    bool shutterMovedByNuc = false;
};

} // namespace simulator
