// SPDX-License-Identifier: MIT
#include "tests/app/startedprogram.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtTest/QTest>

namespace app {

namespace {

QStringList toLines(const QByteArray& text)
{
    QStringList list = QString::fromUtf8(text).remove(QLatin1Char('\r')).split(QLatin1Char('\n'));
    if (list.last().isEmpty()) {
        list.removeLast();
    }
    return list;
}

} // namespace

StartedProgram::StartedProgram()
    : environment(QProcessEnvironment::systemEnvironment()), program(QStringLiteral(TAVREL_PROGRAM))
{
    process.setWorkingDirectory(directory.path());
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    environment.insert(QStringLiteral("HOME"), directory.path());
    environment.remove(QStringLiteral("LD_LIBRARY_PATH"));
}

StartedProgram::~StartedProgram()
{
    process.kill();
    process.waitForFinished();
}

void StartedProgram::recordTo(const QString& journal)
{
    putRecordingSdkInFront();
    environment.insert(QStringLiteral("TAVREL_RECORDING_JOURNAL"), journal);
}

void StartedProgram::answerWith(const char* script)
{
    QFile file(directory.filePath(QStringLiteral("script")));
    file.open(QIODevice::WriteOnly);
    file.write(script);
    environment.insert(QStringLiteral("TAVREL_RECORDING_SCRIPT"), file.fileName());
}

bool StartedProgram::start(const QStringList& arguments)
{
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
    return waitForWindow();
}

bool StartedProgram::startWithoutOutput()
{
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral("/bin/sh"),
                  {QStringLiteral("-c"), QStringLiteral("exec \"$0\" >&-"), program});
    return waitForWindow();
}

bool StartedProgram::waitForWindow()
{
    const auto isConstructed = [this] {
        return QDir(directory.path() + QStringLiteral("/bprBackup")).exists();
    };
    return QTest::qWaitFor(
               [&] { return isConstructed() || process.state() == QProcess::NotRunning; }, 20000) &&
           isConstructed();
}

bool StartedProgram::run(const QStringList& arguments)
{
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("none of all"));
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
    return process.waitForFinished(20000) && process.exitStatus() == QProcess::NormalExit;
}

int StartedProgram::status() const
{
    return process.exitCode();
}

QString StartedProgram::errors()
{
    return QString::fromLocal8Bit(process.readAllStandardError());
}

QStringList StartedProgram::output()
{
    // What was written before the window stood is in the pipe by now.
    while (process.waitForReadyRead(0)) {
    }
    written += process.readAllStandardOutput();
    return toLines(written);
}

} // namespace app
