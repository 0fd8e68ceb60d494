// SPDX-License-Identifier: MIT
#include "simulator/log.h"

#include "sdk/ombrix_sdk.h"
#include "simulator/files.h"

#include <QtCore/QDateTime>

#include <cstdio>
#include <cstdlib>

namespace simulator {
namespace {

QByteArray severityName(int severity)
{
    switch (severity) {
    case ombrix_sdk::startup_severity:
        return QByteArrayLiteral("startup");
    case ombrix_sdk::event_severity:
        return QByteArrayLiteral("event");
    default:
        return QByteArrayLiteral("severity ") + QByteArray::number(severity);
    }
}

void writeToStandardError(const QByteArray& line)
{
    std::fwrite(line.constData(), 1, static_cast<std::size_t>(line.size()), stderr);
    std::fflush(stderr);
}

} // namespace

void Log::setFile(const QString& path)
{
    file.close();
    if (path.isEmpty()) {
        return;
    }
    file.setFileName(path);
    QString reason;
    if (!openForAppending(file, &reason)) {
        problem(QStringLiteral("log file %1: %2; logging to standard error").arg(path, reason));
    }
}

void Log::record(int severity, const QByteArray& text)
{
    write(severityName(severity).constData(), text);
}

void Log::notice(const QString& text)
{
    write("notice", text.toUtf8());
}

void Log::problems(const QStringList& texts)
{
    for (const QString& text : texts) {
        write("problem", text.toUtf8(), true);
    }
    if (strict && !texts.isEmpty()) {
        // At once: no destructor of a program that is half started may run. What the program has
        // said is not lost.
        std::fflush(nullptr);
        constexpr int wrongInput = 2;
        std::_Exit(wrongInput);
    }
}

void Log::misuse(const QString& text)
{
    write("misuse", text.toUtf8());
}

void Log::write(const char* severity, const QByteArray& text, bool alsoStandardError)
{
    const QByteArray head = QDateTime::currentDateTime()
                                .toString(QStringLiteral("yyyy-MM-dd HH:mm:ss.zzz"))
                                .toLatin1() +
                            " [simulated SDK] " + QByteArray(severity).leftJustified(8) + ' ';
    QByteArray lines;
    for (const QByteArray& line : text.split('\n')) {
        lines += head + line + '\n';
    }
    if (file.isOpen()) {
        file.write(lines);
        file.flush();
    }
    if (!file.isOpen() || alsoStandardError) {
        writeToStandardError(lines);
    }
}

} // namespace simulator
