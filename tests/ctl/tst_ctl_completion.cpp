// SPDX-License-Identifier: MIT
// What the shell and the manual page are told of the program's words.
#include "tests/ctl/program.h"

#include <QtTest/QTest>

using ctl::Machine;
using ctl::Run;

class TestCompletion : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theWordsGoOnAsTheProgramKnowsThem_data()
    {
        QTest::addColumn<QStringList>("words");
        QTest::addColumn<QString>("expected");
        const auto row = [](const char* words, const char* expected) {
            QTest::newRow(words) << QString::fromLatin1(words).split(QLatin1Char(' '))
                                 << QString::fromLatin1(expected);
        };
        row("", "ports list diff map ttyUSB0");
        row("tt", "ttyUSB0");
        row("ttyUSB0 s", "set save shutter");
        row("ttyUSB0 --json s", "set save shutter");
        row("ttyUSB0 table ", "read write reset");
        row("table ", "read write reset");
        row("table read ", "");
        row("map ", "show diff");
        row("ttyUSB0 map ", "");
        row("--timeout 5 ttyUSB0 ge", "get");
        row("ttyUSB0 --link-rate 9600 get gam", "gamma");
        row("ttyUSB0 --timeout=5 get gam", "gamma");
        row("--timeout ", "");
        row("map show --png ", "");
        row("ttyUSB0 get gam", "gamma");
        row("ttyUSB0 get camera-b", "");
        row("ttyUSB0 set camera-b", "camera-baud-rate=");
        row("ttyUSB0 set gamma=2 color", "color-lut=");
        row("ttyUSB0 set contrast-type=", "contrast-type=clhe-roi contrast-type=clahe-local");
        row("ttyUSB0 set nuc=o", "nuc=off nuc=on");
        row("ttyUSB0 shutter ", "open close");
        row("ttyUSB0 apply ", "");
        row("ttyUSB0 apply --d", "--dry-run");
        row("ttyUSB0 save --", "--help --json --timeout --link-rate --expert");
        row("ttyUSB0 nonsense and", "");
    }

    void theWordsGoOnAsTheProgramKnowsThem()
    {
        QFETCH(QStringList, words);
        QFETCH(QString, expected);
        Machine machine;
        const Run run = machine.run(QStringList{QStringLiteral("--complete")} + words);
        QCOMPARE(run.status, 0);
        QCOMPARE(run.output.simplified(), expected);
        QVERIFY(machine.calls().isEmpty());
    }

    void bashCompletesAWord_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("expected");
        QTest::newRow("name") << QStringLiteral("ttyUSB0 get gam") << QStringLiteral("gamma");
        QTest::newRow("new word") << QStringLiteral("ttyUSB0 table ")
                                  << QStringLiteral("read write reset");
        QTest::newRow("value") << QStringLiteral("ttyUSB0 set nuc=o") << QStringLiteral("off on");
    }

    void bashCompletesAWord()
    {
        QFETCH(QString, line);
        QFETCH(QString, expected);
        Machine machine;
        const auto process = machine.start(
            {QStringLiteral("-c"),
             QStringLiteral(". \"$0\"; COMP_LINE=\"$1 $2\"; "
                            "COMP_POINT=${#COMP_LINE}; _tavrelctl; echo \"${COMPREPLY[@]}\""),
             QStringLiteral(TAVREL_SOURCE_DIR "/packaging/linux/tavrelctl.bash"),
             QStringLiteral(TAVREL_CTL), line},
            QStringLiteral("bash"));
        const Run run = machine.finish(*process);
        QCOMPARE(run.output.simplified(), expected);
    }

    void theManualTellsOfEveryWord()
    {
        Machine machine;
        const QString manual = machine.run("--manual").output.remove(QLatin1Char('\\'));
        QVERIFY(machine.calls().isEmpty());
        const QStringList parameters = machine.run("list").lines();
        for (const QString& line : parameters) {
            const QString name = line.section(QLatin1Char(' '), 0, 0);
            QVERIFY2(manual.contains(QStringLiteral(".TP\nfB%1fR\n").arg(name)), qPrintable(name));
        }
        for (const char* word :
             {".B PORT get [NAME...]\n", ".B [PORT] diff FILE [FILE]\n", ".B map show FILE\n",
              "fB--timeoutfR fISECONDSfR", "With fBapplyfR: Show what differs"}) {
            QVERIFY2(manual.contains(QLatin1String(word)), word);
        }
        QVERIFY(manual.contains(QStringLiteral("fBgskfR\nwithin the limits of the SDK's")));
    }
};

QTEST_GUILESS_MAIN(TestCompletion)
#include "tst_ctl_completion.moc"
