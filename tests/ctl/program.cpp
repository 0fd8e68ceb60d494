// SPDX-License-Identifier: MIT
#include "tests/ctl/program.h"

#include <QtCore/QFile>
#include <QtCore/QJsonDocument>
#include <QtCore/QRegularExpression>
#include <QtTest/QTest>

namespace ctl {

namespace {

constexpr int patience = 60000; // ms; a machine under load takes its time

} // namespace

QJsonObject Run::json() const
{
    return QJsonDocument::fromJson(output.toUtf8()).object();
}

QStringList Run::lines() const
{
    QStringList list = output.split(QLatin1Char('\n'));
    list.removeLast();
    return list;
}

Machine::Machine()
{
    ports.plug(QStringLiteral("ttyUSB0"));
    environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("LD_LIBRARY_PATH"));
    // The ports of this machine, for a program that is not linked for them.
    environment.insert(QStringLiteral("LD_PRELOAD"), QStringLiteral(TAVREL_UMOCKDEV_PRELOAD));
    environment.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("verify_asan_link_order=0"));
    environment.insert(QStringLiteral("TAVREL_SIMULATOR_MEMORY"), path("memory"));
    environment.insert(QStringLiteral("TAVREL_SIMULATOR_JOURNAL"), path("journal"));
    environment.insert(QStringLiteral("TAVREL_SIMULATOR_PLAN"), path("plan.ini"));
    environment.insert(QStringLiteral("TAVREL_SIMULATOR_LOG"), path("log"));
}

std::unique_ptr<QProcess> Machine::start(const QStringList& words, const QString& program)
{
    auto process = std::make_unique<QProcess>();
    process->setWorkingDirectory(folder.path());
    process->setProcessEnvironment(environment);
    process->start(program.isEmpty() ? QStringLiteral(TAVREL_CTL) : program, words);
    return process;
}

std::unique_ptr<QProcess> Machine::startInShell(const QString& line)
{
    return start({QStringLiteral("-c"), line, QStringLiteral(TAVREL_CTL)},
                 QStringLiteral("/bin/sh"));
}

Run Machine::finish(QProcess& process)
{
    process.closeWriteChannel();
    Run run;
    if (process.waitForFinished(patience) && process.exitStatus() == QProcess::NormalExit) {
        run.status = process.exitCode();
    }
    run.output = QString::fromLocal8Bit(process.readAllStandardOutput());
    run.errors = QString::fromLocal8Bit(process.readAllStandardError());
    return run;
}

Run Machine::run(const QStringList& words)
{
    const auto process = start(words);
    return finish(*process);
}

Run Machine::run(const char* words)
{
    return run(QString::fromLatin1(words).split(QLatin1Char(' ')));
}

Run Machine::runOnTerminal(const char* streams, const char* words, const char* typed)
{
    const QStringList command{QStringLiteral(TAVREL_SOURCE_DIR "/tests/ctl/terminal.py"),
                              QLatin1String(streams), QLatin1String(typed),
                              QStringLiteral(TAVREL_CTL)};
    const auto process = start(command + QString::fromLatin1(words).split(QLatin1Char(' ')),
                               QStringLiteral("python3"));
    return finish(*process);
}

Run Machine::runWithRoomFor(int blocks, const char* words)
{
    const QStringList shell{
        QStringLiteral("-c"),
        QStringLiteral("trap '' XFSZ; ulimit -f %1; exec \"$0\" \"$@\"").arg(blocks),
        QStringLiteral(TAVREL_CTL)};
    const auto process = start(shell + QString::fromLatin1(words).split(QLatin1Char(' ')),
                               QStringLiteral("/bin/sh"));
    return finish(*process);
}

void Machine::settings(const QByteArray& ini)
{
    write("simulator.ini", ini);
}

void Machine::plan(const QByteArray& ini)
{
    write("plan.ini", ini);
}

void Machine::addGate()
{
    environment.insert(QStringLiteral("LD_PRELOAD"),
                       QStringLiteral(TAVREL_UMOCKDEV_PRELOAD ":" TAVREL_CTL_GATE));
}

bool Machine::waitAtGate()
{
    return QTest::qWaitFor([this] { return QFile::exists(path("waiting")); }, patience);
}

void Machine::openGate()
{
    write("go", "");
}

void Machine::record(const QByteArray& script)
{
    environment.insert(QStringLiteral("LD_LIBRARY_PATH"), QStringLiteral(TAVREL_RECORDING_FOLDER));
    environment.insert(QStringLiteral("TAVREL_RECORDING_JOURNAL"), path("journal"));
    if (!script.isEmpty()) {
        write("script", script);
        environment.insert(QStringLiteral("TAVREL_RECORDING_SCRIPT"), path("script"));
    }
}

QStringList Machine::calls()
{
    QFile file(path("journal"));
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    lines.removeLast();
    file.close();
    file.remove();
    return lines;
}

QStringList Machine::commandsSent()
{
    static const QRegularExpression command(
        QStringLiteral("^camera(?: \\d+)?[ .]((?:set|configure|request|write)\\w*\\(.*\\))"));
    QStringList sent;
    const QStringList all = calls();
    for (const QString& line : all) {
        const QRegularExpressionMatch found = command.match(line);
        if (found.hasMatch()) {
            sent.append(found.captured(1));
        }
    }
    return sent;
}

QString Machine::path(const char* name) const
{
    return folder.filePath(QLatin1String(name));
}

QByteArray Machine::content(const char* name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void Machine::write(const char* name, const QByteArray& content) const
{
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
        qFatal("%s cannot be written", name);
    }
}

} // namespace ctl
