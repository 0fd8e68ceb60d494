// SPDX-License-Identifier: MIT
// Serial ports without hardware, plugged and unplugged while the program runs, where
// QSerialPortInfo itself finds them: in a udev testbed on Linux, in the registry's list of ports on
// Windows. A new Ports is a machine without any serial port.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <memory>

namespace kit {

class Ports {
public:
    Ports();
    ~Ports();
    Ports(const Ports&) = delete;
    Ports& operator=(const Ports&) = delete;

    /// Plugs a USB serial adapter in; name is its device name, for example "ttyUSB0".
    void plug(const QString& name);
    void unplug(const QString& name);
    /// The plugged ports in the order in which the system lists them: by name.
    [[nodiscard]] QStringList plugged() const;

private:
    class Machine; ///< where this system keeps its ports

    std::unique_ptr<Machine> machine;
    QStringList names;
};

} // namespace kit
