// SPDX-License-Identifier: MIT
// QSerialPortInfo for Windows, as far as a program needs it that lists ports and never opens one.
//
// The list is the registry key in which Windows keeps the serial ports present right now: one value
// a port, named after the driver's device ("\Device\Serial0"), holding the port's name ("COM1").
// Who made a port's hardware is not told there, so those answers are those of a port that Qt knows
// nothing about. QSerialPort is not here, nor what needs it; using them fails to link.

#include <QtSerialPort/qserialportinfo.h>

#include <QtCore/qstringlist.h>
#include <QtCore/qt_windows.h>

#include <algorithm>
#include <utility>
#include <vector>

QT_BEGIN_NAMESPACE

class QSerialPortInfoPrivate {
public:
    QString portName;
};

class QSerialPortInfoPrivateDeleter {
public:
    static void cleanup(QSerialPortInfoPrivate* d) { delete d; }
};

namespace {

class RegistryKey {
public:
    RegistryKey(HKEY root, const wchar_t* path)
    {
        if (RegOpenKeyExW(root, path, 0, KEY_QUERY_VALUE, &m_key) != ERROR_SUCCESS)
            m_key = nullptr;
    }
    ~RegistryKey()
    {
        if (m_key)
            RegCloseKey(m_key);
    }
    Q_DISABLE_COPY(RegistryKey)

    // The key's texts in the registry's order; none if there is no such key.
    QStringList texts() const
    {
        QStringList found;
        DWORD longestName = 0;
        DWORD largestData = 0;
        if (!m_key ||
            RegQueryInfoKeyW(m_key, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                             &longestName, &largestData, nullptr, nullptr) != ERROR_SUCCESS)
            return found;

        std::vector<wchar_t> name(longestName + 1);
        std::vector<wchar_t> text(largestData / sizeof(wchar_t) + 1);
        for (DWORD index = 0;; ++index) {
            auto nameLength = static_cast<DWORD>(name.size());
            auto size = static_cast<DWORD>(text.size() * sizeof(wchar_t));
            DWORD type = REG_NONE;
            const LSTATUS status =
                RegEnumValueW(m_key, index, name.data(), &nameLength, nullptr, &type,
                              reinterpret_cast<BYTE*>(text.data()), &size);
            // A port plugged in since the sizes were asked for may be too long for them: the next
            // look, a second later, sees it.
            if (status == ERROR_MORE_DATA)
                continue;
            if (status != ERROR_SUCCESS)
                return found;
            if (type != REG_SZ)
                continue;
            // The closing NUL is usual in the registry, not certain.
            const auto end = text.cbegin() + size / static_cast<DWORD>(sizeof(wchar_t));
            const auto nul = std::find(text.cbegin(), end, L'\0');
            found.append(
                QString::fromWCharArray(text.data(), static_cast<int>(nul - text.cbegin())));
        }
    }

private:
    HKEY m_key = nullptr;
};

} // namespace

QSerialPortInfo::QSerialPortInfo() = default;

QSerialPortInfo::QSerialPortInfo(const QSerialPortInfoPrivate& dd)
    : d_ptr(new QSerialPortInfoPrivate(dd))
{}

QSerialPortInfo::QSerialPortInfo(const QSerialPortInfo& other)
    : d_ptr(other.d_ptr ? new QSerialPortInfoPrivate(*other.d_ptr) : nullptr)
{}

QSerialPortInfo::QSerialPortInfo(const QString& name)
{
    const QList<QSerialPortInfo> ports = availablePorts();
    const auto port = std::find_if(ports.cbegin(), ports.cend(), [&name](const auto& candidate) {
        return candidate.portName() == name;
    });
    if (port != ports.cend())
        *this = *port;
}

QSerialPortInfo::~QSerialPortInfo() = default;

QSerialPortInfo& QSerialPortInfo::operator=(const QSerialPortInfo& other)
{
    QSerialPortInfo(other).swap(*this);
    return *this;
}

void QSerialPortInfo::swap(QSerialPortInfo& other)
{
    d_ptr.swap(other.d_ptr);
}

QString QSerialPortInfo::portName() const
{
    return d_ptr ? d_ptr->portName : QString();
}

QString QSerialPortInfo::systemLocation() const
{
    return d_ptr ? QStringLiteral("\\\\.\\") + d_ptr->portName : QString();
}

QString QSerialPortInfo::description() const
{
    return {};
}

QString QSerialPortInfo::manufacturer() const
{
    return {};
}

QString QSerialPortInfo::serialNumber() const
{
    return {};
}

quint16 QSerialPortInfo::vendorIdentifier() const
{
    return 0;
}

quint16 QSerialPortInfo::productIdentifier() const
{
    return 0;
}

bool QSerialPortInfo::hasVendorIdentifier() const
{
    return false;
}

bool QSerialPortInfo::hasProductIdentifier() const
{
    return false;
}

QList<QSerialPortInfo> QSerialPortInfo::availablePorts()
{
    QStringList names = RegistryKey(HKEY_LOCAL_MACHINE, L"HARDWARE\\DEVICEMAP\\SERIALCOMM").texts();
    // Two drivers may claim one port; it is one port nevertheless.
    names.removeDuplicates();
    names.removeAll(QString());

    QList<QSerialPortInfo> ports;
    for (const QString& name : std::as_const(names)) {
        QSerialPortInfoPrivate port;
        port.portName = name;
        ports.append(QSerialPortInfo(port));
    }
    return ports;
}

QT_END_NAMESPACE
