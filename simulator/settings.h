// SPDX-License-Identifier: MIT
// What the settings file and the environment may say, with the built-in values.
#pragma once

#include "simulator/configurationvalues.h"
#include "simulator/parameters.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <cstdint>
#include <vector>

namespace simulator {

class IniFile;

/// One camera as it left the factory, and where it is plugged in.
struct CameraSettings {
    CameraSettings(); ///< the built-in camera, on every port

    /// Stands for every port that no other camera names.
    static QString everyPort() { return QStringLiteral("*"); }

    QString section; ///< its section in the settings file
    QStringList ports;
    ParameterValues values;
    QByteArray table;  ///< content of the table region
    QString tableFile; ///< where it comes from; empty: from no file
};

/// What happens in the course of time. Everything is off at first: a test that does not ask for it
/// must not depend on it.
struct Behaviour {
    std::uint64_t seed = 1; ///< of everything that looks random
    bool manualClock = false;
    bool warmUp = false;
    bool latency = false;   ///< every call takes the time of its bytes on the link
    qint64 timeout = 0;     ///< milliseconds that a call without an answer takes
    qint64 nucDuration = 0; ///< milliseconds
};

struct Settings {
    Settings(); ///< the built-in values

    /// Reads the environment and the file that it names, or else "simulator.ini" in the current
    /// directory, or else nothing.
    static Settings load();
    /// Takes everything from a file that has been read.
    void read(IniFile& ini);

    QString file; ///< empty: the built-in values
    // Paths; empty: standard error, no journal, no plan, no memory, no commands from outside.
    QString logFile;
    QString journalFile;
    QString planFile;
    QString memoryFolder;
    QString controlFile;
    bool factoryFresh = false; ///< forget the memory at the start
    bool safe = false;         ///< no plan is followed
    bool strict = false;       ///< a problem ends the program
    Behaviour behaviour;
    ConfigurationValues configuration;
    std::vector<CameraSettings> cameras;
    QStringList problems; ///< one line each
};

} // namespace simulator
