// SPDX-License-Identifier: MIT
// The built program, running in a process and a directory of its own.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QProcess>
#include <QtCore/QProcessEnvironment>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QTemporaryDir>

namespace app {

class StartedProgram {
public:
    StartedProgram();
    ~StartedProgram();
    StartedProgram(const StartedProgram&) = delete;
    StartedProgram& operator=(const StartedProgram&) = delete;

    /// Puts the recording SDK in front of the usual one; its journal goes to the named file, or to
    /// standard output ("-").
    void recordTo(const QString& journal);
    /// Has the recording SDK read its answers from a script.
    void answerWith(const char* script);

    /// Starts the program and waits until the window has been constructed.
    bool start(const QStringList& arguments = {});
    /// The same with standard output closed, where there are descriptors.
    bool startWithoutOutput();
    /// Starts the program without a display and waits for its end; whether it ended by itself.
    bool run(const QStringList& arguments);
    [[nodiscard]] int status() const;
    [[nodiscard]] qint64 id() const { return process.processId(); }
    /// Everything written to standard error so far.
    QString errors();
    /// Everything written to standard output so far, in lines.
    QStringList output();

    /// Path of the SDK library that the running program has loaded; empty when there is none.
    [[nodiscard]] QString loadedSdk() const;
    /// Path of the SDK library that recordTo has put in front.
    [[nodiscard]] QString sdkInFront() const;

    QTemporaryDir directory;

private:
    bool waitForWindow();
    void putRecordingSdkInFront();

    QProcess process;
    QProcessEnvironment environment;
    QString program; ///< the path that is started
    QByteArray written;
};

} // namespace app
