// SPDX-License-Identifier: MIT
#include "tests/kit/ports.h"

#include <QtCore/QtGlobal>
#include <QtCore/qt_windows.h>

#include <string>

namespace kit {

/// The registry key in which Windows lists the serial ports that are present. Emptied at first, so
/// the ports of the machine itself are gone until it is started again: use it under Wine.
class Ports::Machine {
public:
    Machine()
    {
        RegDeleteKeyW(HKEY_LOCAL_MACHINE, path);
        // All that lies in this part of the registry is volatile, and so must this be.
        const LSTATUS status =
            RegCreateKeyExW(HKEY_LOCAL_MACHINE, path, 0, nullptr, REG_OPTION_VOLATILE,
                            KEY_SET_VALUE, nullptr, &key, nullptr);
        if (status != ERROR_SUCCESS) {
            qFatal("registry: the list of ports cannot be written, error %ld", status);
        }
    }
    ~Machine()
    {
        RegCloseKey(key);
        RegDeleteKeyW(HKEY_LOCAL_MACHINE, path);
    }
    Machine(const Machine&) = delete;
    Machine& operator=(const Machine&) = delete;

    void add(const QString& name)
    {
        const std::wstring text = name.toStdWString();
        RegSetValueExW(key, device(name).c_str(), 0, REG_SZ,
                       reinterpret_cast<const BYTE*>(text.c_str()),
                       static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
    }

    void remove(const QString& name) { RegDeleteValueW(key, device(name).c_str()); }

private:
    static constexpr const wchar_t* path = L"HARDWARE\\DEVICEMAP\\SERIALCOMM";

    static std::wstring device(const QString& name)
    {
        return L"\\Device\\Adapter-" + name.toStdWString();
    }

    HKEY key = nullptr;
};

Ports::Ports() : machine(std::make_unique<Machine>()) {}

Ports::~Ports() = default;

void Ports::plug(const QString& name)
{
    machine->add(name);
    names.append(name);
    names.sort();
}

void Ports::unplug(const QString& name)
{
    if (!names.contains(name)) {
        qFatal("%s is not plugged", qPrintable(name));
    }
    machine->remove(name);
    names.removeAll(name);
}

QStringList Ports::plugged() const
{
    return names;
}

} // namespace kit
