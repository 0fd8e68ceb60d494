// SPDX-License-Identifier: MIT
// ./run itself: whose paths it takes, what it refuses and with which code it ends. What it would
// build is put in its place here: "cmake" does nothing, and the tool and the tour are little
// scripts.
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <memory>

namespace {

constexpr int longest = 30000; // milliseconds, that nothing of this takes

struct Ending {
    int exitCode = -1;
    QString output;
};

Ending endOf(QProcess& process)
{
    const bool ended = process.waitForFinished(longest);
    return {ended && process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            QString::fromUtf8(process.readAll())};
}

} // namespace

class TestRun : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void withoutADisplayTheTourIsTakenAndItsDurationToldFirst();
    void theTourTakesThePathsOfItsCaller();
    void theToolTakesThePathsOfItsCaller();
    void theCommandsThatItShowsWorkForItsCaller();
    void theTourEndsWithItsOwnCodeEvenWithoutALog();
    void theToolEndsWithItsOwnCode();
    void aSecondToolIsRefusedAndChangesNothing();
    void aSecondTourIntoTheSameFolderIsRefused();
    void twoToolsWorkInTwoBuildFolders();
    void anAdapterIsUnpluggedAndPluggedOnce();
    void aSimulatorThatNoToolHasIsNotWorked();
    void aSimulatorIsWorkedFromWhereItsCallerIs();
    void anUnknownPortIsRefused_data();
    void anUnknownPortIsRefused();
    void wrongWordsAreRefused_data();
    void wrongWordsAreRefused();
    void withoutRightsTheOneCommandIsTold();

private:
    /// A program of the stand-ins: what it does, in shell.
    void write(const QString& name, const QByteArray& script) const;
    [[nodiscard]] QString path(const QString& name) const { return folder->filePath(name); }
    /// ./run, called from the caller's folder; display: whether there is one.
    std::unique_ptr<QProcess> started(const QStringList& words, bool display) const;
    [[nodiscard]] Ending run(const QStringList& words, bool display = false) const
    {
        return endOf(*started(words, display));
    }
    /// A tool that works until its input ends; returns once it works. told: gets what ./run said.
    std::unique_ptr<QProcess> workingTool(const QStringList& words = {},
                                          QByteArray* told = nullptr) const;

    std::unique_ptr<QTemporaryDir> folder;
    QProcessEnvironment environment;
};

void TestRun::write(const QString& name, const QByteArray& script) const
{
    QFile file(path(name));
    QVERIFY(QDir().mkpath(QFileInfo(file).path()));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("#!/bin/sh\n" + script);
    file.close();
    QVERIFY(file.setPermissions(file.permissions() | QFileDevice::ExeOwner));
}

std::unique_ptr<QProcess> TestRun::started(const QStringList& words, bool display) const
{
    auto process = std::make_unique<QProcess>();
    process->setProcessChannelMode(QProcess::MergedChannels);
    process->setWorkingDirectory(path(QStringLiteral("a caller")));
    QProcessEnvironment here = environment;
    here.remove(QStringLiteral("DISPLAY"));
    if (display) {
        here.insert(QStringLiteral("DISPLAY"), QStringLiteral(":none"));
    }
    process->setProcessEnvironment(here);
    process->start(QStringLiteral("../a clone/run"), words);
    return process;
}

std::unique_ptr<QProcess> TestRun::workingTool(const QStringList& words, QByteArray* told) const
{
    auto tool = started(words, true);
    QByteArray output;
    while (!output.contains("working") && tool->waitForReadyRead(longest)) {
        output += tool->readAll();
    }
    if (told != nullptr) {
        *told = output;
    }
    return tool;
}

void TestRun::init()
{
    folder = std::make_unique<QTemporaryDir>();
    QVERIFY(folder->isValid());
    for (const char* const name : {"a caller", "a clone/tour"}) {
        QVERIFY(QDir().mkpath(path(QLatin1String(name))));
    }
    for (const char* const name : {"run", "scripts", "simulator", "tour/machine", "tour/ports"}) {
        QVERIFY(QFile::link(QLatin1String(SOURCE_FOLDER "/") + QLatin1String(name),
                            path(QLatin1String("a clone/") + QLatin1String(name))));
    }
    write(QStringLiteral("programs/cmake"), "exit 0\n");
    // Everything is installed.
    write(QStringLiteral("programs/dpkg-query"), "echo installed\n");
    write(QStringLiteral("a clone/build/bin/tavrel"), "echo working; read word; exit 0\n");
    write(QStringLiteral("a clone/tour/record"),
          "echo taken: \"$@\"; echo the log >\"$2/event-log.txt\"; touch \"$2/index.html\" "
          "\"$2/tab-1.png\"\n");
    environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("PATH"), path(QStringLiteral("programs")) + QLatin1Char(':') +
                                                   qEnvironmentVariable("PATH"));
}

void TestRun::withoutADisplayTheTourIsTakenAndItsDurationToldFirst()
{
    const Ending tour = run({});
    QCOMPARE(tour.exitCode, 0);
    const QStringList lines = tour.output.split(QLatin1Char('\n'));
    QCOMPARE(lines.at(0), QStringLiteral("There is no display: taking the tour."));
    QVERIFY2(lines.at(1).contains(QLatin1String("about a minute")), qPrintable(tour.output));
    QVERIFY2(lines.contains(QStringLiteral("    the log")), qPrintable(tour.output));
}

void TestRun::theTourTakesThePathsOfItsCaller()
{
    write(QStringLiteral("a caller/my build/bin/tavrel"), "exit 0\n");
    const Ending tour = run({QStringLiteral("--tour"), QStringLiteral("--build"),
                             QStringLiteral("my build"), QStringLiteral("--pictures"),
                             QStringLiteral("my pictures"), QStringLiteral("my report")});
    QCOMPARE(tour.exitCode, 0);
    QVERIFY2(tour.output.contains(QStringLiteral("taken: %1 %2\n")
                                      .arg(path(QStringLiteral("a caller/my build")),
                                           path(QStringLiteral("a caller/my report")))),
             qPrintable(tour.output));
    QVERIFY(QFile::exists(path(QStringLiteral("a caller/my pictures/tab-1.png"))));
    // They are told as the caller gave them.
    QVERIFY2(tour.output.contains(QLatin1String("Page:     my report/index.html\n")),
             qPrintable(tour.output));
}

void TestRun::theToolTakesThePathsOfItsCaller()
{
    write(QStringLiteral("a clone/build/bin/tavrel"),
          "echo settings: $TAVREL_SIMULATOR_SETTINGS; echo memory: $TAVREL_SIMULATOR_MEMORY; "
          "echo control: $TAVREL_SIMULATOR_CONTROL; pwd\n");
    environment.insert(QStringLiteral("TAVREL_SIMULATOR_SETTINGS"), QStringLiteral("my.ini"));
    const Ending tool = run({}, true);
    QCOMPARE(tool.exitCode, 0);
    for (const QString& line :
         {QStringLiteral("settings: ") + path(QStringLiteral("a caller/my.ini")),
          QStringLiteral("memory: ") + path(QStringLiteral("a clone/build/session/memory")),
          QStringLiteral("control: ") + path(QStringLiteral("a clone/build/session/control")),
          path(QStringLiteral("a clone/build/session"))}) {
        QVERIFY2(tool.output.contains(line + QLatin1Char('\n')), qPrintable(tool.output));
    }
}

void TestRun::theCommandsThatItShowsWorkForItsCaller()
{
    write(QStringLiteral("a caller/my build/bin/tavrel"), "echo working; read word; exit 0\n");
    write(QStringLiteral("a caller/my build/bin/ombrix-simulator"),
          "echo \"$@\" >>\"$(dirname \"$0\")/told\"\n");
    QByteArray told;
    const auto tool = workingTool({QStringLiteral("--build"), QStringLiteral("my build")}, &told);
    int commands = 0;
    for (const QString& line : QString::fromUtf8(told).split(QLatin1Char('\n'))) {
        if (!line.startsWith(QLatin1String("    "))) {
            continue;
        }
        ++commands;
        QProcess shell;
        shell.setWorkingDirectory(tool->workingDirectory());
        shell.start(QStringLiteral("sh"), {QStringLiteral("-c"), line.trimmed()});
        QVERIFY2(endOf(shell).exitCode == 0, qPrintable(line));
    }
    QCOMPARE(commands, 8);
    QVERIFY(QFile::exists(path(QStringLiteral("a caller/my build/session/plan.ini"))));
    QFile simulator(path(QStringLiteral("a caller/my build/bin/told")));
    QVERIFY(simulator.open(QIODevice::ReadOnly));
    const QByteArray at =
        "--at " + path(QStringLiteral("a caller/my build/session/control")).toLocal8Bit() + ' ';
    QCOMPARE(simulator.readLine(), at + "set camera sensorTemperature=345000\n");
    QCOMPARE(simulator.readLine(), at + "fault get* carryOut=true delay=100\n");
    tool->write("end\n");
    QCOMPARE(endOf(*tool).exitCode, 0);
}

void TestRun::theTourEndsWithItsOwnCodeEvenWithoutALog()
{
    constexpr int itsCode = 7;
    write(QStringLiteral("a clone/tour/record"), "echo nothing came of it >&2; exit 7\n");
    const Ending tour = run({});
    QCOMPARE(tour.exitCode, itsCode);
    QVERIFY2(tour.output.trimmed().endsWith(QLatin1String("nothing came of it")),
             qPrintable(tour.output));
}

void TestRun::theToolEndsWithItsOwnCode()
{
    constexpr int itsCode = 7;
    write(QStringLiteral("a clone/build/bin/tavrel"), "exit 7\n");
    QCOMPARE(run({}, true).exitCode, itsCode);
}

void TestRun::aSecondToolIsRefusedAndChangesNothing()
{
    const auto first = workingTool();
    // It would rebuild the running program.
    write(QStringLiteral("programs/cmake"), "echo building\n");
    const Ending second = run({}, true);
    QCOMPARE(second.exitCode, 1);
    QVERIFY2(second.output.contains(QLatin1String("Another ./run works in ")) &&
                 second.output.contains(QLatin1String("a clone/build/session")),
             qPrintable(second.output));
    QVERIFY2(!second.output.contains(QLatin1String("building")), qPrintable(second.output));

    first->write("end\n");
    QCOMPARE(endOf(*first).exitCode, 0);
    const auto third = workingTool();
    third->write("end\n");
    QCOMPARE(endOf(*third).exitCode, 0);
}

void TestRun::aSecondTourIntoTheSameFolderIsRefused()
{
    write(QStringLiteral("a clone/tour/record"), "echo recording; read word; exit 0\n");
    const auto first = started({}, false);
    QByteArray output;
    while (!output.contains("recording") && first->waitForReadyRead(longest)) {
        output += first->readAll();
    }
    const Ending second = run({});
    QCOMPARE(second.exitCode, 1);
    QVERIFY2(second.output.contains(QLatin1String("Another ./run works in ")),
             qPrintable(second.output));
    first->write("end\n");
    QCOMPARE(endOf(*first).exitCode, 0);
}

void TestRun::twoToolsWorkInTwoBuildFolders()
{
    write(QStringLiteral("a caller/other/bin/tavrel"), "echo working; read word; exit 0\n");
    const auto first = workingTool();
    const auto second = workingTool({QStringLiteral("--build"), QStringLiteral("other")});
    for (QProcess* const tool : {first.get(), second.get()}) {
        tool->write("end\n");
        QCOMPARE(endOf(*tool).exitCode, 0);
    }
}

void TestRun::anAdapterIsUnpluggedAndPluggedOnce()
{
    const auto tool = workingTool();
    const QString unplug = QStringLiteral("--unplug");
    const QString plug = QStringLiteral("--plug");
    const QString port = QStringLiteral("ttyUSB1");
    QCOMPARE(run({unplug, port}).exitCode, 0);
    Ending again = run({unplug, port});
    QCOMPARE(again.exitCode, 1);
    QCOMPARE(again.output, QStringLiteral("ttyUSB1 is not plugged in.\n"));
    // Without a name it is the first one.
    QCOMPARE(run({unplug}).exitCode, 0);
    QCOMPARE(run({plug}).exitCode, 0);
    QCOMPARE(run({plug, port}).exitCode, 0);
    again = run({plug, port});
    QCOMPARE(again.exitCode, 1);
    QCOMPARE(again.output, QStringLiteral("ttyUSB1 is plugged in already.\n"));
    tool->write("end\n");
    QCOMPARE(endOf(*tool).exitCode, 0);
    const Ending late = run({unplug});
    QCOMPARE(late.exitCode, 1);
    QVERIFY2(late.output.startsWith(QLatin1String("No simulated machine runs in ")),
             qPrintable(late.output));
}

void TestRun::aSimulatorThatNoToolHasIsNotWorked()
{
    const Ending refused = run({QStringLiteral("--simulator"), QStringLiteral("list")});
    QCOMPARE(refused.exitCode, 3);
    QCOMPARE(refused.output, QStringLiteral("No tool that ./run started works in %1.\n")
                                 .arg(path(QStringLiteral("a clone/build/session"))));
}

void TestRun::aSimulatorIsWorkedFromWhereItsCallerIs()
{
    write(QStringLiteral("a clone/build/bin/ombrix-simulator"), "pwd; echo \"$@\"\n");
    const Ending worked = run({QStringLiteral("--simulator"), QStringLiteral("--help")});
    QCOMPARE(worked.output, QStringLiteral("%1\n--at %2 --help\n")
                                .arg(path(QStringLiteral("a caller")),
                                     path(QStringLiteral("a clone/build/session/control"))));
    QCOMPARE(worked.exitCode, 0);
}

void TestRun::anUnknownPortIsRefused_data()
{
    QTest::addColumn<QString>("port");
    for (const char* const port : {"ttyUSB2", "tty0", "COM1", "ttyUSB", "../ttyUSB0"}) {
        QTest::newRow(port) << QString::fromLatin1(port);
    }
}

void TestRun::anUnknownPortIsRefused()
{
    QFETCH(QString, port);
    const auto tool = workingTool();
    for (const char* const task : {"--unplug", "--plug"}) {
        const Ending refused = run({QLatin1String(task), port});
        QCOMPARE(refused.exitCode, 2);
        QCOMPARE(refused.output, QStringLiteral("There is no serial adapter %1. There are: ttyUSB0 "
                                                "ttyUSB1\n")
                                     .arg(port));
    }
    tool->write("end\n");
    QCOMPARE(endOf(*tool).exitCode, 0);
}

void TestRun::wrongWordsAreRefused_data()
{
    QTest::addColumn<QStringList>("words");
    QTest::newRow("an unknown option") << QStringList{QStringLiteral("--fast")};
    QTest::newRow("a build folder without a name") << QStringList{QStringLiteral("--build")};
    QTest::newRow("two reports") << QStringList{QStringLiteral("--tour"), QStringLiteral("one"),
                                                QStringLiteral("two")};
    QTest::newRow("a report of no tour") << QStringList{QStringLiteral("report")};
    QTest::newRow("pictures of no tour")
        << QStringList{QStringLiteral("--pictures"), QStringLiteral("here")};
}

void TestRun::wrongWordsAreRefused()
{
    QFETCH(QStringList, words);
    const Ending refused = run(words, true);
    QCOMPARE(refused.exitCode, 2);
    QVERIFY2(refused.output.contains(QLatin1String("usage: ./run")), qPrintable(refused.output));
}

void TestRun::withoutRightsTheOneCommandIsTold()
{
    // Nothing is installed, the user is an ordinary one, and sudo refuses.
    write(QStringLiteral("programs/dpkg-query"), "exit 1\n");
    write(QStringLiteral("programs/id"), "echo 1000\n");
    write(QStringLiteral("programs/sudo"), "exit 1\n");
    write(QStringLiteral("programs/apt-get"), "echo something is installed\n");
    const Ending ended = run({});
    QCOMPARE(ended.exitCode, 1);
    const QStringList lines = ended.output.trimmed().split(QLatin1Char('\n'));
    QVERIFY2(lines.last().startsWith(QLatin1String("    apt-get update && apt-get install ")),
             qPrintable(ended.output));
    QVERIFY2(lines.last().contains(QLatin1String(" umockdev ")), qPrintable(ended.output));
    QVERIFY2(!ended.output.contains(QLatin1String("something is installed")),
             qPrintable(ended.output));
}

QTEST_GUILESS_MAIN(TestRun)
#include "tst_run.moc"
