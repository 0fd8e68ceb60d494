// SPDX-License-Identifier: MIT
// What goes wrong, and that nobody is left in doubt about it.
#include "tests/ctl/program.h"

#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtTest/QTest>

#include <csignal>

using ctl::Machine;
using ctl::Run;

namespace {

/// Whether a signal does not simply end that process.
bool catches(pid_t process, int signal)
{
    QFile file(QStringLiteral("/proc/%1/status").arg(process));
    if (!file.open(QIODevice::ReadOnly)) {
        return false;
    }
    const QString caught = QString::fromLatin1(file.readAll())
                               .section(QStringLiteral("SigCgt:"), 1)
                               .section(QLatin1Char('\n'), 0, 0);
    return ((caught.trimmed().toULongLong(nullptr, 16) >> (signal - 1)) & 1U) != 0;
}

} // namespace

class TestFaults : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void wrongWordsAreRefusedBeforeAnythingIsSent_data()
    {
        QTest::addColumn<QString>("words");
        QTest::addColumn<QString>("told");
        const auto row = [](const char* words, const char* told) {
            QTest::newRow(words) << QString::fromLatin1(words) << QString::fromLatin1(told);
        };
        row("ttyUSB0", "a command is missing");
        row("ttyUSB0 table", "a command is missing");
        row("ttyUSB0 gte", "not expected: gte");
        row("info", "info needs a port");
        row("ttyUSB0 list", "list takes no port");
        row("ttyUSB0 get gama", "unknown parameter \"gama\"");
        row("ttyUSB0 get camera-baud-rate", "cannot be read");
        row("ttyUSB0 set", "ASSIGNMENT");
        row("ttyUSB0 set gamma", "not of the form NAME=VALUE");
        row("ttyUSB0 set =2", "not of the form NAME=VALUE");
        row("ttyUSB0 set gamma=2 gama=2", "unknown parameter \"gama\"");
        row("ttyUSB0 set gamma=2 gamma=1", "gamma stands there twice");
        row("ttyUSB0 set gamma=", "gamma: \"\" is not 0.5 to 2.5");
        row("ttyUSB0 set gamma=much", "gamma: \"much\" is not 0.5 to 2.5");
        row("ttyUSB0 set gamma=nan", "gamma");
        row("ttyUSB0 set gamma=2,2", "gamma: \"2,2\" is not 0.5 to 2.5");
        row("ttyUSB0 set gamma=2.51", "gamma: 2.51 is out of range (0.5 to 2.5)");
        row("ttyUSB0 set clhe=1.5", "clhe: \"1.5\" is not 0 to 30000");
        row("ttyUSB0 set frame-rate=24", "frame-rate: \"24\" is not 9, 25, 30, 50 or 60 Hz");
        row("ttyUSB0 set nuc=yes", "nuc: \"yes\" is not off or on");
        row("ttyUSB0 set camera-baud-rate=9600 permanent-camera-baud-rate=9600",
            "camera-baud-rate and permanent-camera-baud-rate cannot be sent together");
        row("ttyUSB0 set roi0-inclusive-x1=0",
            "roi0-inclusive-x1: 0 is out of range (5 to 635 px)");
        row("ttyUSB0 set gsk=21", "gsk: 21 is out of range (0 to 20)");
        row("ttyUSB0 shutter ajar", "\"ajar\"");
        row("ttyUSB0 info --timeout 0", "--timeout: \"0\" is not 0.001 to 86400 seconds");
        row("ttyUSB0 info --timeout nan", "--timeout: \"nan\" is not 0.001 to 86400 seconds");
        row("ttyUSB0 info --timeout inf", "--timeout: \"inf\" is not 0.001 to 86400 seconds");
        row("ttyUSB0 info --timeout soon", "--timeout: \"soon\" is not 0.001 to 86400 seconds");
        row("ttyUSB0 info --link-rate 0", "--link-rate: \"0\" is not a rate above 0 baud\n");
        row("ttyUSB0 info --link-rate 1e9", "--link-rate: \"1e9\" is not a rate above 0 baud\n");
        row("ttyUSB0 info --verbose", "--verbose");
    }

    void wrongWordsAreRefusedBeforeAnythingIsSent()
    {
        QFETCH(QString, words);
        QFETCH(QString, told);
        Machine machine;
        const Run run = machine.run(words.toLatin1());
        QCOMPARE(run.status, 2);
        QCOMPARE(run.output, QString());
        QVERIFY2(run.errors.startsWith(QStringLiteral("tavrelctl: ")), qPrintable(run.errors));
        QVERIFY2(run.errors.contains(told), qPrintable(run.errors));
        QVERIFY(machine.calls().filter(QStringLiteral("link")).isEmpty());
    }

    void wrongWordsAreADocumentWhereOneIsAskedFor_data()
    {
        QTest::addColumn<QString>("words");
        QTest::addColumn<QString>("told");
        const auto row = [](const char* words, const char* told) {
            QTest::newRow(words) << QString::fromLatin1(words) << QString::fromLatin1(told);
        };
        row("--json", "a command is missing");
        row("--json get", "get needs a port");
        row("ttyUSB0 list --json", "list takes no port");
        row("--json ttyUSB0 set", "ASSIGNMENT");
        row("--json --timeout x ttyUSB0 get", "--timeout");
        row("--timeout --json", "--timeout");
        row("ttyUSB0 get gama --json", "unknown parameter \"gama\"");
    }

    void wrongWordsAreADocumentWhereOneIsAskedFor()
    {
        QFETCH(QString, words);
        QFETCH(QString, told);
        Machine machine;
        const Run run = machine.run(words.toLatin1());
        QCOMPARE(run.status, 2);
        QCOMPARE(run.json()[QStringLiteral("status")].toInt(), 2);
        const QString error = run.json()[QStringLiteral("error")].toString();
        QVERIFY2(error.contains(told), qPrintable(error));
        QCOMPARE(run.errors, QStringLiteral("tavrelctl: %1\n").arg(error));
    }

    void aPortThatDoesNotExistIsNamedWithTheOthers()
    {
        Machine machine;
        Run run = machine.run("ttyUSB7 get");
        QCOMPARE(run.status, 3);
        QCOMPARE(run.errors,
                 QStringLiteral("tavrelctl: no serial port ttyUSB7; there are: ttyUSB0\n"));
        machine.ports.unplug(QStringLiteral("ttyUSB0"));
        run = machine.run("ttyUSB0 get --json");
        QCOMPARE(run.status, 3);
        QCOMPARE(run.json()[QStringLiteral("status")].toInt(), 3);
        QCOMPARE(run.json()[QStringLiteral("error")].toString(),
                 QStringLiteral("no serial port ttyUSB0; there is no serial port at all"));
    }

    void withoutACameraNothingIsAsked_data()
    {
        QTest::addColumn<QByteArray>("plan");
        QTest::addColumn<QString>("told");
        QTest::newRow("busy or empty port") << QByteArray("[openCamera]\ncalls=always\n")
                                            << QStringLiteral("no camera answers on ttyUSB0");
        QTest::newRow("no greeting")
            << QByteArray("[connect]\ncalls=always\n") << QStringLiteral("does not answer");
        QTest::newRow("odd greeting")
            << QByteArray("[connect]\nvalue=2\n") << QStringLiteral("does not answer");
        QTest::newRow("no versions")
            << QByteArray("[getVersions]\ncalls=always\n") << QStringLiteral("does not answer");
        QTest::newRow("no serial link")
            << QByteArray("[getCommunicationType]\nvalue=USB\n") << QStringLiteral("UART");
    }

    void withoutACameraNothingIsAsked()
    {
        QFETCH(QByteArray, plan);
        QFETCH(QString, told);
        Machine machine;
        machine.plan(plan);
        const Run run = machine.run("ttyUSB0 set gamma=2");
        QCOMPARE(run.status, 3);
        QVERIFY2(run.errors.contains(told), qPrintable(run.errors));
        QVERIFY(machine.commandsSent().isEmpty());
    }

    void linkAndCameraAreGivenBack_data()
    {
        QTest::addColumn<QByteArray>("plan");
        QTest::newRow("all is well") << QByteArray();
        QTest::newRow("no greeting") << QByteArray("[connect]\ncalls=always\n");
        QTest::newRow("gone half way") << QByteArray("[setGamma]\ncalls=1\nhangUp=true\n");
    }

    void linkAndCameraAreGivenBack()
    {
        QFETCH(QByteArray, plan);
        Machine machine;
        machine.plan(plan);
        machine.run("ttyUSB0 set gamma=2");
        const QStringList calls = machine.calls();
        QCOMPARE(calls.last(), QStringLiteral("sdk releaseSerialLink()"));
        QVERIFY(calls.contains(QStringLiteral("link closeCamera(camera 20417)")));
    }

    void aRefusalIsTold()
    {
        Machine machine;
        machine.plan("[setGamma]\ncalls=always\n");
        const Run run = machine.run("ttyUSB0 set gamma=2 clhe=77");
        QCOMPARE(run.status, 1);
        QCOMPARE(run.lines(), (QStringList{QStringLiteral("gamma  = 1   refused: wanted 2"),
                                           QStringLiteral("clhe   = 77  done")}));
    }

    void anythingButZeroIsTaken()
    {
        Machine machine;
        machine.plan("[set*]\ncarryOut=true\nvalue=2\n");
        QCOMPARE(machine.run("ttyUSB0 set gamma=2").status, 0);
    }

    void aCameraThatStoresSomethingElseIsFoundOut()
    {
        Machine machine;
        machine.plan("[setGamma]\nvalue=1\n");
        const Run run = machine.run("ttyUSB0 set gamma=2");
        QCOMPARE(run.status, 1);
        QCOMPARE(run.lines(), QStringList{QStringLiteral("gamma  = 1  differs: wanted 2")});
    }

    void aValueThatTheCameraDoesNotTellIsNotGood_data()
    {
        QTest::addColumn<QByteArray>("plan");
        QTest::addColumn<QString>("words");
        QTest::addColumn<QString>("told");
        const QByteArray limits = "[getAhcGainsLimitation]\ncalls=always\n";
        const QByteArray shutter = "[getShutterPosition]\ncalls=always\n";
        const QString limit =
            QStringLiteral("ahc-black-gain-limit = not readable cannot be read back: wanted 20");
        const QString position =
            QStringLiteral("shutter = not readable cannot be read back: wanted closed");
        QTest::newRow("set") << limits
                             << QStringLiteral(
                                    "set ahc-black-gain-limit=20 ahc-white-gain-limit=80")
                             << limit;
        QTest::newRow("apply") << limits << QStringLiteral("apply a.toml") << limit;
        QTest::newRow("set shutter") << shutter << QStringLiteral("set shutter=closed") << position;
        QTest::newRow("shutter") << shutter << QStringLiteral("shutter close") << position;
    }

    void aValueThatTheCameraDoesNotTellIsNotGood()
    {
        QFETCH(QByteArray, plan);
        QFETCH(QString, words);
        QFETCH(QString, told);
        Machine machine;
        QCOMPARE(machine.run("ttyUSB0 save a.toml").status, 0);
        machine.plan(plan);
        const Run run = machine.run(QStringLiteral("ttyUSB0 ").append(words).toLatin1());
        QCOMPARE(run.status, 1);
        QCOMPARE(run.lines().first().simplified(), told);
    }

    void aRefusedRateDoesNotReadAsIfTheCameraHadIt()
    {
        Machine machine;
        machine.plan("[setBaudRate]\ncalls=always\n");
        const Run run = machine.run("ttyUSB0 set camera-baud-rate=230400");
        QCOMPARE(run.status, 1);
        QCOMPARE(run.lines(), QStringList{QStringLiteral(
                                  "camera-baud-rate  = as before  refused: wanted 230400")});
    }

    void aCameraThatHangsUpDoesNotPassForZeros()
    {
        Machine machine;
        machine.plan("[getClhe]\nhangUp=true\n");
        const Run run = machine.run("ttyUSB0 get");
        QCOMPARE(run.status, 3);
        QCOMPARE(run.output, QString());
        QVERIFY2(run.errors.contains(QStringLiteral("does not answer any more")),
                 qPrintable(run.errors));
    }

    void aCameraThatHangsUpHalfWayLeavesAnAccount()
    {
        Machine machine;
        machine.plan("[setClhe]\nhangUp=true\n");
        const Run run = machine.run("ttyUSB0 set lut-temporal-filter=2 gamma=2 clhe=5");
        QCOMPARE(run.status, 3);
        QVERIFY2(run.errors.contains(QStringLiteral("any more; done: gamma; unknown whether done: "
                                                    "clhe; not sent: lut-temporal-filter\n")),
                 qPrintable(run.errors));
        QCOMPARE(machine.commandsSent().size(), 2);
    }

    void whatWasRefusedOrNotSentIsNotToldAsDone()
    {
        Machine machine;
        machine.plan("[setRoiX2]\ncalls=always\n[setGms]\nhangUp=true\n");
        const QString words =
            QStringLiteral("ttyUSB0 set roi1-inclusive-x1=500 roi1-inclusive-x2=600 gms=4 ");
        Run run = machine.run((words + QStringLiteral("gamma=2 --json")).toLatin1());
        QCOMPARE(run.status, 3);
        QVERIFY2(run.errors.endsWith(
                     QStringLiteral("; done: gamma; refused: roi1-inclusive-x2; unknown whether "
                                    "done: gms; not sent: roi1-inclusive-x1\n")),
                 qPrintable(run.errors));
        const auto list = [&](const char* key) {
            return run.json()[QLatin1String(key)].toArray();
        };
        QCOMPARE(list("done"), QJsonArray{QStringLiteral("gamma")});
        QCOMPARE(list("refused"), QJsonArray{QStringLiteral("roi1-inclusive-x2")});
        QCOMPARE(list("unknown"), QJsonArray{QStringLiteral("gms")});
        QCOMPARE(list("notSent"), QJsonArray{QStringLiteral("roi1-inclusive-x1")});
    }

    void aTableThatWasUnderWayMayBeThereInPart()
    {
        Machine machine;
        QCOMPARE(machine.run("ttyUSB0 table read").status, 0);
        machine.addGate();
        machine.plan("[writeTableData]\ndelay=3600000\n");
        const auto process =
            machine.start(QStringLiteral("ttyUSB0 table write --yes --json --timeout=600")
                              .split(QLatin1Char(' ')));
        QVERIFY(machine.waitAtGate());
        machine.ports.unplug(QStringLiteral("ttyUSB0"));
        machine.openGate();
        const Run run = machine.finish(*process);
        QCOMPARE(run.status, 3);
        QCOMPARE(run.errors, QStringLiteral("tavrelctl: the port ttyUSB0 has gone; unknown whether "
                                            "done: table; the camera may hold a part of it\n"));
        QCOMPARE(run.json()[QStringLiteral("unknown")].toArray(),
                 QJsonArray{QStringLiteral("table")});
    }

    void aPortThatVanishesHalfWayIsTold()
    {
        Machine machine;
        machine.addGate();
        machine.plan("[setGamma]\ndelay=3600000\n");
        const auto process = machine.start({QStringLiteral("ttyUSB0"), QStringLiteral("set"),
                                            QStringLiteral("gamma=2"), QStringLiteral("clhe=5"),
                                            QStringLiteral("--timeout=600")});
        QVERIFY(machine.waitAtGate());
        machine.ports.unplug(QStringLiteral("ttyUSB0"));
        machine.openGate();
        const Run run = machine.finish(*process);
        QCOMPARE(run.status, 3);
        QVERIFY2(run.errors.contains(QStringLiteral("the port ttyUSB0 has gone; unknown whether "
                                                    "done: gamma; not sent: clhe")),
                 qPrintable(run.errors));
    }

    void aLateAnswerIsWaitedForOnlySoLong()
    {
        Machine machine;
        machine.plan("[setGamma]\ndelay=3600000\n");
        const Run run = machine.run("ttyUSB0 set clhe=5 gamma=2 --timeout 3 --json");
        QCOMPARE(run.status, 3);
        QVERIFY2(run.errors.contains(QStringLiteral("no answer to \"gamma\" within 3 s; unknown "
                                                    "whether done: gamma; not sent: clhe\n")),
                 qPrintable(run.errors));
        QCOMPARE(run.json()[QStringLiteral("status")].toInt(), 3);
        QCOMPARE(run.json()[QStringLiteral("unknown")].toArray(),
                 QJsonArray{QStringLiteral("gamma")});
        QCOMPARE(run.json()[QStringLiteral("notSent")].toArray(),
                 QJsonArray{QStringLiteral("clhe")});
    }

    void aLateAnswerInTimeIsAnAnswer()
    {
        Machine machine;
        machine.plan("[*]\ncarryOut=true\ndelay=20\n");
        QCOMPARE(machine.run("ttyUSB0 set gamma=2 --timeout 60").status, 0);
    }

    void anInterruptionEndsBetweenTwoCommands_data()
    {
        QTest::addColumn<int>("signal");
        QTest::newRow("Ctrl-C") << SIGINT;
        QTest::newRow("the system goes down") << SIGTERM;
        QTest::newRow("the terminal is closed") << SIGHUP;
    }

    void anInterruptionEndsBetweenTwoCommands()
    {
        QFETCH(int, signal);
        Machine machine;
        machine.addGate();
        machine.plan("[setGamma]\ncarryOut=true\ndelay=3600000\n");
        const auto process = machine.start({QStringLiteral("ttyUSB0"), QStringLiteral("set"),
                                            QStringLiteral("gamma=2"), QStringLiteral("clhe=5"),
                                            QStringLiteral("--timeout=600")});
        QVERIFY(machine.waitAtGate());
        QCOMPARE(::kill(static_cast<pid_t>(process->processId()), signal), 0);
        machine.openGate();
        const Run run = machine.finish(*process);
        QCOMPARE(run.status, 1);
        QCOMPARE(run.errors, QStringLiteral("tavrelctl: interrupted before clhe; done: gamma; not "
                                            "sent: clhe\n"));
        QCOMPARE(machine.commandsSent(), QStringList{QStringLiteral("setGamma(131072)")});
    }

    void anInterruptionThatWasIgnoredBeforeStaysIgnored_data()
    {
        QTest::addColumn<int>("signal");
        QTest::newRow("INT") << SIGINT;
        QTest::newRow("TERM") << SIGTERM;
        QTest::newRow("HUP") << SIGHUP;
    }

    void anInterruptionThatWasIgnoredBeforeStaysIgnored()
    {
        QFETCH(int, signal);
        Machine machine;
        machine.addGate();
        machine.plan("[setGamma]\ncarryOut=true\ndelay=3600000\n");
        const auto process = machine.startInShell(
            QStringLiteral("trap '' %1; exec \"$0\" ttyUSB0 set gamma=2 clhe=5 --timeout=600")
                .arg(QLatin1String(QTest::currentDataTag())));
        QVERIFY(machine.waitAtGate());
        QCOMPARE(::kill(static_cast<pid_t>(process->processId()), signal), 0);
        machine.openGate();
        QCOMPARE(machine.finish(*process).status, 0);
        QCOMPARE(machine.commandsSent().size(), 2);
    }

    void aSecondControlCEndsAtOnce()
    {
        Machine machine;
        machine.addGate();
        machine.plan("[setGamma]\ndelay=3600000\n");
        const auto process = machine.start(
            QStringLiteral("ttyUSB0 set gamma=2 --timeout=600").split(QLatin1Char(' ')));
        QVERIFY(machine.waitAtGate());
        const auto id = static_cast<pid_t>(process->processId());
        QCOMPARE(::kill(id, SIGINT), 0);
        QVERIFY(QTest::qWaitFor([id] { return !catches(id, SIGINT); }, 60000));
        QCOMPARE(::kill(id, SIGINT), 0);
        machine.finish(*process);
        QCOMPARE(process->exitStatus(), QProcess::CrashExit);
    }

    void nobodyWhoReadsIsTold()
    {
        Machine machine;
        const auto process =
            // The reader has gone for certain before the program begins.
            machine.startInShell(
                QStringLiteral("mkfifo gone; (cat gone; \"$0\" ttyUSB0 set gamma=2; "
                               "echo status $? >&2) | (exec <&-; echo >gone)"));
        const Run run = machine.finish(*process);
        QCOMPARE(run.errors,
                 QStringLiteral("tavrelctl: the answer could not be written\nstatus 2\n"));
        QCOMPARE(machine.commandsSent(), QStringList{QStringLiteral("setGamma(131072)")});
    }

    void anAnswerThatNobodyCanTakeIsTold_data()
    {
        QTest::addColumn<QString>("words");
        const auto row = [](const char* words) {
            QTest::newRow(words) << QString::fromLatin1(words);
        };
        row("list >/dev/full");
        row("--help >/dev/full");
        row("get --help >/dev/full");
        row("--version >/dev/full");
        row("--manual >/dev/full");
        row("--complete '' >/dev/full");
        row("--complete '' >&-");
        row("list >&-");
    }

    void anAnswerThatNobodyCanTakeIsTold()
    {
        QFETCH(QString, words);
        Machine machine;
        const auto process = machine.startInShell(QStringLiteral("exec \"$0\" ") + words);
        const Run run = machine.finish(*process);
        QCOMPARE(run.status, 2);
        QCOMPARE(run.errors, QStringLiteral("tavrelctl: the answer could not be written\n"));
    }

    void aClosedStreamLetsNoAnswerIntoAnotherFile_data()
    {
        QTest::addColumn<QString>("words");
        QTest::addColumn<QByteArray>("plan");
        QTest::addColumn<int>("status");
        const QByteArray silent = "[connect]\ncalls=always\n";
        QTest::newRow("output") << QStringLiteral("get gamma >&-") << QByteArray() << 2;
        QTest::newRow("errors") << QStringLiteral("get gamma 2>&-") << silent << 3;
    }

    void aClosedStreamLetsNoAnswerIntoAnotherFile()
    {
        QFETCH(QString, words);
        QFETCH(QByteArray, plan);
        QFETCH(int, status);
        Machine machine;
        machine.plan(plan);
        const auto process = machine.startInShell(QStringLiteral("exec \"$0\" ttyUSB0 ") + words);
        QCOMPARE(machine.finish(*process).status, status);
        for (const char* const file : {"log", "journal"}) {
            const QByteArray content = machine.content(file);
            QVERIFY2(!content.contains("gamma  = ") && !content.contains("tavrelctl: "),
                     content.constData());
        }
    }

    void helpAndVersionNeedNoCamera()
    {
        Machine machine;
        Run run = machine.run("--help");
        QCOMPARE(run.status, 0);
        for (const char* word : {"ports", "list", "info", "get", "set", "nuc", "shutter", "--json",
                                 "--timeout", "--link-rate"}) {
            QVERIFY2(run.output.contains(QLatin1String(word)), word);
        }
        const auto usage = [&](const char* words) {
            return machine.run(words).lines().value(1);
        };
        QCOMPARE(usage("--help"), QStringLiteral("Usage: tavrelctl [OPTIONS] [PORT] COMMAND"));
        QCOMPARE(usage("table --help"),
                 QStringLiteral("Usage: tavrelctl [OPTIONS] [PORT] table COMMAND"));
        QCOMPARE(usage("get --help"),
                 QStringLiteral("Usage: tavrelctl [OPTIONS] PORT get [NAME...]"));
        QCOMPARE(usage("set --help"),
                 QStringLiteral("Usage: tavrelctl [OPTIONS] PORT set ASSIGNMENT..."));
        QCOMPARE(usage("diff --help"),
                 QStringLiteral("Usage: tavrelctl [OPTIONS] [PORT] diff FILE [FILE]"));
        QCOMPARE(usage("map diff --help"),
                 QStringLiteral("Usage: tavrelctl [OPTIONS] map diff FILE FILE"));
        run = machine.run("--version");
        QCOMPARE(run.status, 0);
        QVERIFY(run.output.startsWith(QStringLiteral("Tavrel KV ")));
        QVERIFY(machine.calls().isEmpty());
    }

    void thereIsNoColourWithoutATerminal()
    {
        Machine machine;
        machine.plan("[setGamma]\ncalls=always\n");
        const Run run = machine.run("ttyUSB0 set gamma=2");
        QVERIFY(!run.output.contains(QLatin1Char('\x1b')));
        QVERIFY(!run.errors.contains(QLatin1Char('\x1b')));
    }

    void aTerminalShowsInRedWhatNeedsALook()
    {
        Machine machine;
        machine.plan("[setGamma]\ncalls=always\n");
        const QString red = QStringLiteral("\x1b[31mrefused\x1b[0m");
        const auto shown = [&](const char* words) {
            const Run run = machine.runOnTerminal("1", words);
            return run.status == 1 ? run.errors : QStringLiteral("status %1").arg(run.status);
        };
        QVERIFY2(shown("ttyUSB0 set gamma=2").contains(red),
                 qPrintable(shown("ttyUSB0 set gamma=2")));
        const QString json = shown("ttyUSB0 set gamma=2 --json");
        QVERIFY2(json.startsWith(QLatin1Char('{')) && !json.contains(QLatin1Char('\x1b')),
                 qPrintable(json));
        machine.environment.insert(QStringLiteral("NO_COLOR"), QStringLiteral("1"));
        const QString plain = shown("ttyUSB0 set gamma=2");
        QVERIFY2(plain.contains(QStringLiteral("refused")) && !plain.contains(QLatin1Char('\x1b')),
                 qPrintable(plain));
    }

    void whatIsToldOnATerminalHasALineOfItsOwn_data()
    {
        QTest::addColumn<QByteArray>("plan");
        QTest::addColumn<QString>("words");
        QTest::addColumn<QString>("told");
        QTest::newRow("note") << QByteArray() << QStringLiteral("set frame-rate=50")
                              << QStringLiteral("tavrelctl: note: ");
        QTest::newRow("failure") << QByteArray("[connect]\ncalls=always\n")
                                 << QStringLiteral("info") << QStringLiteral("tavrelctl: the ");
        QTest::newRow("refusal") << QByteArray("[readTableData]\nvalue=-3\n")
                                 << QStringLiteral("table read")
                                 << QStringLiteral("tavrelctl: BPR");
        QTest::newRow("question") << QByteArray() << QStringLiteral("table write")
                                  << QStringLiteral("Write /");
    }

    void whatIsToldOnATerminalHasALineOfItsOwn()
    {
        QFETCH(QByteArray, plan);
        QFETCH(QString, words);
        QFETCH(QString, told);
        Machine machine;
        machine.plan(plan);
        const Run run =
            machine.runOnTerminal("02", QStringLiteral("ttyUSB0 ").append(words).toLatin1(), "n");
        const QString erase = QStringLiteral("\r\x1b[K");
        QVERIFY2(run.errors.contains(erase + told), qPrintable(run.errors));
        QVERIFY2(run.errors.count(told) == 1, qPrintable(run.errors));
    }

    void aTerminalShowsWhatIsBeingAskedUntilTheAnswerIsThere()
    {
        Machine machine;
        const Run run = machine.runOnTerminal("2", "ttyUSB0 get gamma clhe");
        QCOMPARE(run.status, 0);
        QCOMPARE(run.lines().size(), 2);
        QVERIFY(!run.output.contains(QLatin1Char('\x1b')));
        const QString erase = QStringLiteral("\r\x1b[K");
        QStringList steps = run.errors.split(erase);
        QCOMPARE(steps.takeFirst(), QString());
        QCOMPARE(steps, (QStringList{QStringLiteral("opening the link"), QStringLiteral("greeting"),
                                     QStringLiteral("versions"), QStringLiteral("refresh"),
                                     QStringLiteral("gamma"), QStringLiteral("clhe"),
                                     QStringLiteral("versions"), QString()}));
    }
};

QTEST_GUILESS_MAIN(TestFaults)
#include "tst_ctl_faults.moc"
