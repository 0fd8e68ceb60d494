// A simulated camera itself, apart from the links that reach it: its parameters, its table region,
// its shutter and its power.
#pragma once

#include "simulator/parameters.h"
#include "simulator/settings.h"

#include <QtCore/QByteArray>

#include <cstdint>

namespace simulator {

class Device {
public:
    explicit Device(CameraSettings factorySettings);

    const CameraSettings& settings() const { return factory; }

    template<typename Type> Type get(Parameter parameter) const
    {
        return as<Type>(values[static_cast<std::size_t>(parameter)]);
    }
    /// False, and nothing changes, when the camera does not accept the value.
    bool set(Parameter parameter, double value);
    /// Sets all of the parameters or none.
    bool set(std::initializer_list<std::pair<Parameter, double>> changes);

    /// A region that is off answers 0 as its X1 and keeps its coordinates.
    std::uint32_t regionValue(std::uint32_t region, Coordinate coordinate) const;
    bool setRegion(std::uint32_t region, Coordinate coordinate, std::uint32_t value,
                   bool roi1Inclusive, bool roi0Exclusive, bool roi1Exclusive);

    /// 9 to 60 Hz; the 9 Hz variant runs at 9 Hz only.
    bool setFrameRate(std::uint8_t hertz);
    /// Only the MIPI variant has the output.
    bool setMipiOutput(bool enable);
    bool setEdgeCorrection(std::uint8_t type, std::uint32_t gain, std::uint32_t threshold);

    std::uint32_t baudRate() const { return currentBaudRate; }
    bool setBaudRate(std::uint32_t rate, bool permanent);

    const QByteArray& tableRegion() const { return table; }
    void writeTable(const QByteArray& region) { table = region; }

    bool requestNuc(std::uint8_t automatic);
    bool setNucControl(std::uint8_t control);
    bool setShutter(bool closed);
    bool isShutterClosed() const { return get<bool>(Parameter::ShutterClosed); }

private:
    void store(Parameter parameter, double value)
    {
        values[static_cast<std::size_t>(parameter)] = value;
    }

    CameraSettings factory;
    ParameterValues values;
    QByteArray table;
    std::uint32_t currentBaudRate;
};

} // namespace simulator
