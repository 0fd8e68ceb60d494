// SPDX-License-Identifier: MIT
// The SDK's log: one line per line of a record, with time, a mark that this is a simulator,
// severity and text, on standard error or in a file.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QFile>
#include <QtCore/QString>
#include <QtCore/QStringList>

namespace simulator {

class Log {
public:
    /// Appends to the file from now on; an empty path means standard error. When the file cannot be
    /// opened, the log stays on standard error and says so.
    void setFile(const QString& path);

    /// A record of the program. text: any bytes; its lines become lines of the log.
    void record(int severity, const QByteArray& text);
    /// The simulator's own news.
    void notice(const QString& text);
    /// A mistake in a file that the simulator reads. Always on standard error, too. Ends the
    /// program with status 2 when the log is strict.
    void problem(const QString& text) { problems({text}); }
    /// Several of them, all told before the program ends.
    void problems(const QStringList& texts);
    void setStrict(bool on) { strict = on; }
    [[nodiscard]] bool isStrict() const { return strict; }
    /// A call that no correct program makes.
    void misuse(const QString& text);

private:
    void write(const char* severity, const QByteArray& text, bool alsoStandardError = false);

    QFile file;
    bool strict = false;
};

} // namespace simulator
