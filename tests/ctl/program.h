// SPDX-License-Identifier: MIT
// The built command-line program on a machine with a simulated port, in a folder of its own.
#pragma once

#include "tests/kit/ports.h"

#include <QtCore/QByteArray>
#include <QtCore/QJsonObject>
#include <QtCore/QProcess>
#include <QtCore/QProcessEnvironment>
#include <QtCore/QStringList>
#include <QtCore/QTemporaryDir>

#include <memory>

namespace ctl {

/// What one run left behind.
struct Run {
    int status = -1; ///< -1: it did not end by itself
    QString output;
    QString errors; ///< without the lines of the simulator's log

    [[nodiscard]] QJsonObject json() const;
    [[nodiscard]] QStringList lines() const;
};

class Machine {
public:
    /// One port, ttyUSB0, with a camera that keeps its values from one run to the next.
    Machine();

    /// Runs the program in the folder; words are separated by blanks.
    Run run(const char* words);
    Run run(const QStringList& words);
    /// Starts it and leaves it running.
    std::unique_ptr<QProcess> start(const QStringList& words, const QString& program = {});
    /// Starts a line of the shell's in which "$0" is the program.
    std::unique_ptr<QProcess> startInShell(const QString& line);
    /// Runs the program with those streams (0 input, 1 output, 2 errors) on a terminal at which a
    /// line was typed. What it writes there is among the errors.
    Run runOnTerminal(const char* streams, const char* words, const char* typed = "");
    /// Runs the program as on a disk with room for files of that many blocks of 512 bytes.
    Run runWithRoomFor(int blocks, const char* words);
    /// Waits for its end.
    Run finish(QProcess& process);

    /// The simulated camera's settings; without them it is the built-in one.
    void settings(const QByteArray& ini);
    /// The simulated camera's plan of faults; empty: none.
    void plan(const QByteArray& ini);
    /// Has calls that the plan delays by an hour wait until openGate.
    void addGate();
    /// Waits until a call is there.
    bool waitAtGate();
    void openGate();
    /// Puts the recording SDK in the simulator's place.
    void record(const QByteArray& script = {});
    /// Every call that set something, in its order, since the last look.
    QStringList commandsSent();
    /// Every call.
    QStringList calls();

    [[nodiscard]] QString path(const char* name) const;
    [[nodiscard]] QByteArray content(const char* name) const;
    void write(const char* name, const QByteArray& content) const;

    kit::Ports ports;
    QTemporaryDir folder;
    QProcessEnvironment environment;
};

} // namespace ctl
