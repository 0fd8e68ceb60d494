// SPDX-License-Identifier: MIT
// A simulated camera SDK that has just started, in an empty directory of its own and with nothing
// of the machine's environment. The simulator is reached through the exported boundary only.
#pragma once

#include "sdk/ombrix_sdk.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QTemporaryDir>

namespace scene {

constexpr int mapSize = 640 * 480;
constexpr int regionSize = 8192;

class Scene {
public:
    /// settings: content of "simulator.ini"; empty: there is none.
    explicit Scene(const QByteArray& settings = {});
    ~Scene();
    Scene(const Scene&) = delete;
    Scene& operator=(const Scene&) = delete;

    /// Starts the simulator anew, as a new process would.
    void restart();
    /// The same with other settings.
    void restart(const QByteArray& settings);
    /// Sets an environment variable of the simulator until the end of the scene.
    static void setVariable(const char* name, const QString& value);

    ombrix_sdk::IOmbrixSdk& sdk();
    ombrix_sdk::ISdkConfiguration& configuration();
    /// What openCamera answers on a new link.
    ombrix_sdk::ICamera* open(const char* port = "ttyUSB0");
    /// The connected camera on the port, on a new link; ends the program when none answers.
    ombrix_sdk::ICamera& camera(const char* port = "ttyUSB0");
    /// The latest link.
    ombrix_sdk::ISerialLink*& link() { return currentLink; }

    QString path(const QString& name) const;
    /// Writes a file and makes it look newer than any version before.
    void write(const QString& name, const QByteArray& content);
    QByteArray read(const QString& name) const;
    bool exists(const QString& name) const;

    /// Lines of the log since the last call, without time and mark: "event    text".
    QStringList newLog();
    /// Those of them that tell mistakes.
    QStringList newProblems();
    /// Lines of the journal, which the settings or the environment must have switched on.
    QStringList journal() const;

private:
    QString startDirectory;
    QTemporaryDir temporary;
    ombrix_sdk::ISerialLink* currentLink = nullptr;
    qint64 logRead = 0;
    int writes = 0;
};

/// The one serial number of the built-in camera.
constexpr quint32 builtInSerial = 20417;

/// The lines of a text file of either system, without the empty ones.
QStringList linesOf(const QByteArray& text);

/// A file's text from lines.
QByteArray ini(std::initializer_list<const char*> lines);

} // namespace scene
