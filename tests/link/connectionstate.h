// SPDX-License-Identifier: MIT
// The connection states as the widgets show them.
#pragma once

#include "tests/kit/operator.h"

#include <QtCore/QTimer>

namespace kit {

/// What of the connection's widgets can be used, in the order of the window, and "timer" when the
/// monitoring runs.
inline QStringList usable(Operator& user)
{
    QStringList names;
    for (const char* const name :
         {"scanDeviceButton", "selectDeviceComboBox", "connectDeviceButton", "BaudRateConnectCB",
          "disconnectDeviceButton", "resetParamButtonUser", "readParamButtonUser", "tabWidget"}) {
        if (user.enabled(name)) {
            names.append(QString::fromLatin1(name));
        }
    }
    if (user.monitoring()) {
        names.append(QStringLiteral("timer"));
    }
    return names;
}

inline QStringList afterStart()
{
    return lines({"scanDeviceButton", "selectDeviceComboBox", "BaudRateConnectCB"});
}

inline QStringList portsFound()
{
    return lines(
        {"scanDeviceButton", "selectDeviceComboBox", "connectDeviceButton", "BaudRateConnectCB"});
}

inline QStringList connected()
{
    return lines({"BaudRateConnectCB", "disconnectDeviceButton", "resetParamButtonUser",
                  "readParamButtonUser", "tabWidget", "timer"});
}

inline QStringList disconnected()
{
    return portsFound();
}

/// The box of a scan that finds no port.
inline Box noPortBox()
{
    return {.kind = Box::Warning,
            .text = "No COM port found!\nPlease, plug a COM port ans scan again."};
}

/// The box of a connection attempt without a camera or with a wrong link type.
inline Box invalidCommunicationBox()
{
    return {.kind = Box::About,
            .title = "Invalid communication",
            .text = "Select an other serial port"};
}

} // namespace kit
