// SPDX-License-Identifier: MIT
#include "tests/kit/ports.h"

#include <QtCore/QByteArray>
#include <QtCore/QtGlobal>

#include <umockdev.h>

namespace kit {

namespace {

QString adapterPath(const QString& name)
{
    return QStringLiteral("/devices/usb1/adapter-%1").arg(name);
}

QString ttyPath(const QString& name)
{
    return adapterPath(name) + QStringLiteral("/tty/") + name;
}

} // namespace

/// The testbed. Its only tty is a console: without any tty the list of ports falls back to the
/// host's own device nodes.
class Ports::Machine {
public:
    Machine() : testbed(umockdev_testbed_new())
    {
        add(QStringLiteral("P: /devices/virtual/tty/tty0\n"
                           "N: tty0\n"
                           "E: DEVNAME=/dev/tty0\n"
                           "E: SUBSYSTEM=tty\n"));
    }
    ~Machine() { g_object_unref(testbed); }
    Machine(const Machine&) = delete;
    Machine& operator=(const Machine&) = delete;

    void add(const QString& device)
    {
        GError* error = nullptr;
        if (umockdev_testbed_add_from_string(testbed, device.toUtf8().constData(), &error) == 0) {
            qFatal("udev testbed: %s", error->message);
        }
    }

    void remove(const QString& path)
    {
        umockdev_testbed_remove_device(testbed, ("/sys" + path.toUtf8()).constData());
    }

private:
    UMockdevTestbed* testbed;
};

Ports::Ports() : machine(std::make_unique<Machine>()) {}

Ports::~Ports() = default;

void Ports::plug(const QString& name)
{
    machine->add(QStringLiteral("P: %1\n"
                                "E: SUBSYSTEM=usb\n"
                                "E: DRIVER=ftdi_sio\n"
                                "\n"
                                "P: %2\n"
                                "E: DEVNAME=/dev/%3\n"
                                "E: SUBSYSTEM=tty\n")
                     .arg(adapterPath(name), ttyPath(name), name));
    names.append(name);
    names.sort();
}

void Ports::unplug(const QString& name)
{
    if (!names.contains(name)) {
        qFatal("%s is not plugged", qPrintable(name));
    }
    machine->remove(ttyPath(name));
    machine->remove(adapterPath(name));
    names.removeAll(name);
}

QStringList Ports::plugged() const
{
    return names;
}

} // namespace kit
