// Serial ports without hardware: a udev testbed in which ports are plugged and unplugged while the
// program runs, so that QSerialPortInfo itself lists them. A new Ports is a machine whose only tty
// is a console, that is, one without any serial port.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

struct _UMockdevTestbed;

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
    void describe(const QString& device);

    _UMockdevTestbed* testbed;
    QStringList names;
};

} // namespace kit
