// SPDX-License-Identifier: MIT
// What the simulator does to files that are none: pipes, devices, links that lead nowhere.
#include "simulator/control.h"
#include "tests/simulator/program.h"
#include "tests/simulator/scene.h"

#include <QtCore/QDir>
#include <QtCore/QDirIterator>
#include <QtCore/QFile>
#include <QtCore/QMap>
#include <QtTest/QTest>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using program::Output;
using program::run;
using program::withoutTime;
using scene::Scene;

namespace {

const QString strict = QStringLiteral("TAVREL_SIMULATOR_STRICT=1");

void makePipe(const QString& name)
{
    if (::mkfifo(QFile::encodeName(name).constData(), S_IRUSR | S_IWUSR) != 0) {
        qFatal("no pipe %s", qPrintable(name));
    }
}

/// What every file holds, the scene's own log left out.
QMap<QString, QByteArray> everything(const Scene& scene)
{
    QMap<QString, QByteArray> files;
    QDirIterator file(scene.path({}), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (file.hasNext()) {
        const QString name = QDir(scene.path({})).relativeFilePath(file.next());
        if (name != QLatin1String("sdk.log")) {
            files.insert(name, scene.read(name));
        }
    }
    return files;
}

} // namespace

class TestFiles : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // ---- pipes

    void aNamedPipeInPlaceOfAFileIsToldAndNobodyWaitsForIt_data()
    {
        QTest::addColumn<QString>("variable");
        QTest::addColumn<QString>("told"); // %1: the scene's folder
        const auto row = [](const char* name, const char* variable, const char* told) {
            QTest::newRow(name) << QStringLiteral("TAVREL_SIMULATOR_") + QLatin1String(variable)
                                << QString::fromLatin1(told);
        };
        row("settings", "SETTINGS=pipe", "%1/pipe: there is no such file, or it cannot be read");
        row("plan", "PLAN=pipe", "%1/pipe: there is no such file, or it cannot be read");
        row("log", "LOG=pipe", "log file %1/pipe: it is a named pipe; logging to standard error");
        row("journal", "JOURNAL=pipe", "journal %1/pipe: it is a named pipe; there is none");
        row("by a link", "JOURNAL=link", "journal %1/link: it is a named pipe; there is none");
        row("a camera's table", "SETTINGS=table.ini",
            "%1/table.ini:2: [camera] tableFile: \"pipe\" is no table region: it is a named pipe; "
            "the factory's bad pixels are used");
        row("a plan's table", "PLAN=table.plan",
            "%1/table.plan:2: [readTableData] table: \"pipe\" is no table region: it is a named "
            "pipe; the section does nothing");
    }

    void aNamedPipeInPlaceOfAFileIsToldAndNobodyWaitsForIt()
    {
        QFETCH(QString, variable);
        QFETCH(QString, told);
        Scene scene;
        makePipe(QStringLiteral("pipe"));
        QVERIFY(QFile::link(QStringLiteral("pipe"), QStringLiteral("link")));
        scene.write(QStringLiteral("table.ini"), "[camera]\ntableFile=pipe\n");
        scene.write(QStringLiteral("table.plan"), "[readTableData]\ntable=pipe\n");
        const QString problem = QStringLiteral("problem  ") + told.arg(QDir::currentPath());
        const Output output = run({variable});
        QCOMPARE(output.exitCode, 0);
        QVERIFY2(withoutTime(output.standardError).contains(problem),
                 qPrintable(output.standardError.join(QLatin1Char('\n'))));
        const Output ended = run({variable, strict});
        QCOMPARE(ended.exitCode, 2);
        QCOMPARE(withoutTime(ended.standardError), QStringList(problem));
    }

    void aFaultWithANamedPipeAsItsTableIsRefused()
    {
        Scene scene;
        makePipe(QStringLiteral("pipe"));
        const ombrix_simulator::Answer answer =
            ombrix_simulator::putFault("[readTableData]\ntable=pipe\n");
        QVERIFY(!answer.done);
        QVERIFY2(answer.text.find("\"pipe\" is no table region: it is a named pipe") !=
                     std::string::npos,
                 answer.text.c_str());
    }

    void aPipeThatIsOpenAlreadyIsReadLikeAFile_data()
    {
        QTest::addColumn<QString>("variable");
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("settings") << QStringLiteral("TAVREL_SIMULATOR_SETTINGS")
                                  << QByteArray("[camera]\ngamma=2\n");
        QTest::newRow("plan") << QStringLiteral("TAVREL_SIMULATOR_PLAN")
                              << QByteArray("[getGamma]\nvalue=131072\n");
    }

    void aPipeThatIsOpenAlreadyIsReadLikeAFile()
    {
        QFETCH(QString, variable);
        QFETCH(QByteArray, content);
        Scene scene;
        int ends[2];
        QCOMPARE(::pipe(ends), 0);
        QCOMPARE(::write(ends[1], content.constData(), static_cast<size_t>(content.size())),
                 static_cast<ssize_t>(content.size()));
        ::close(ends[1]);
        const Output output = run({variable + QStringLiteral("=/dev/fd/%1").arg(ends[0]), strict,
                                   QStringLiteral("TAVREL_SIMULATOR_JOURNAL=journal.txt")});
        ::close(ends[0]);
        QCOMPARE(output.exitCode, 0);
        QVERIFY(scene.journal().filter(QStringLiteral("getGamma() = 131072")).size() == 1);
    }

    // ---- one file in two roles

    void aFileInTwoRolesIsToldAndNotWrittenOver_data()
    {
        QTest::addColumn<QStringList>("variables");
        QTest::addColumn<QString>("told"); // %1: the scene's folder
        const auto row =
            [](const char* name, const char* first, const char* second, const char* told) {
                QTest::newRow(name)
                    << QStringList({QStringLiteral("TAVREL_SIMULATOR_") + QLatin1String(first),
                                    QStringLiteral("TAVREL_SIMULATOR_") + QLatin1String(second)})
                    << QString::fromLatin1(told);
            };
        row("the settings are the journal", "SETTINGS=set.ini", "JOURNAL=set.ini",
            "journal %1/set.ini: it is the settings file, too; there is none");
        row("the settings are the log", "SETTINGS=set.ini", "LOG=set.ini",
            "log file %1/set.ini: it is the settings file, too; logging to standard error");
        row("the settings are the plan", "SETTINGS=set.ini", "PLAN=set.ini",
            "plan %1/set.ini: it is the settings file, too; none is followed");
        row("the plan is the journal, by a link", "PLAN=plan.ini", "JOURNAL=link",
            "journal %1/link: it is the plan, too; there is none");
        row("the plan is the log, by another name", "PLAN=plan.ini", "LOG=name",
            "log file %1/name: it is the plan, too; logging to standard error");
        row("a table is the journal", "SETTINGS=table.ini", "JOURNAL=region.bin",
            "journal %1/region.bin: it is the tableFile of [camera], too; there is none");
        row("the socket is the log, and not there yet", "CONTROL=new", "LOG=new",
            "log file %1/new: it is the control socket, too; logging to standard error");
        row("the socket is the journal, and not there yet, by a link", "CONTROL=new",
            "JOURNAL=here/new",
            "journal %1/here/new: it is the control socket, too; there is none");
    }

    void aFileInTwoRolesIsToldAndNotWrittenOver()
    {
        QFETCH(QStringList, variables);
        QFETCH(QString, told);
        Scene scene;
        scene.write(QStringLiteral("set.ini"), "[camera]\ngamma=2\n");
        scene.write(QStringLiteral("plan.ini"), "[setGsk]\ncalls=1\n");
        scene.write(QStringLiteral("table.ini"), "[camera]\ntableFile=region.bin\n");
        scene.write(QStringLiteral("region.bin"), QByteArray(scene::regionSize, '\x11'));
        QVERIFY(QFile::link(QStringLiteral("plan.ini"), QStringLiteral("link")));
        QVERIFY(QFile::link(QStringLiteral("."), QStringLiteral("here")));
        QCOMPARE(::link("plan.ini", "name"), 0);
        const QMap<QString, QByteArray> before = everything(scene);
        const QString problem = QStringLiteral("problem  ") + told.arg(QDir::currentPath());
        const Output ended = run(QStringList(strict) + variables);
        QCOMPARE(ended.exitCode, 2);
        QCOMPARE(withoutTime(ended.standardError), QStringList(problem));
        QCOMPARE(everything(scene), before);
        const Output output = run(variables);
        QCOMPARE(output.exitCode, 0);
        QCOMPARE(withoutTime(output.standardError).value(0), problem);
        QCOMPARE(everything(scene), before);
    }

    void theLogIsNotTheJournal()
    {
        Scene scene;
        scene.write(QStringLiteral("other.log"), "of before\n");
        const QStringList variables = {QStringLiteral("TAVREL_SIMULATOR_LOG=other.log"),
                                       QStringLiteral("TAVREL_SIMULATOR_JOURNAL=other.log")};
        const QString problem =
            QStringLiteral("problem  journal %1: it is the log file, too; there is none")
                .arg(scene.path(QStringLiteral("other.log")));
        const Output ended = run(QStringList(strict) + variables);
        QCOMPARE(ended.exitCode, 2);
        QCOMPARE(withoutTime(ended.standardError), QStringList(problem));
        QCOMPARE(scene.read(QStringLiteral("other.log")), QByteArray("of before\n"));
        QCOMPARE(run(variables).exitCode, 0);
        const QStringList lines = scene::linesOf(scene.read(QStringLiteral("other.log")));
        QCOMPARE(lines.value(0), QStringLiteral("of before"));
        QCOMPARE(withoutTime(lines.mid(1, 1)), QStringList(problem));
        QVERIFY(lines.filter(QStringLiteral("getGamma()")).isEmpty());
    }

    void aDeviceMayHaveTwoRoles_data()
    {
        QTest::addColumn<QString>("device");
        QTest::newRow("nowhere") << QStringLiteral("/dev/null");
        QTest::newRow("standard error") << QStringLiteral("/dev/stderr");
    }

    void aDeviceMayHaveTwoRoles()
    {
        QFETCH(QString, device);
        Scene scene;
        const Output output = run({strict, QStringLiteral("TAVREL_SIMULATOR_LOG=") + device,
                                   QStringLiteral("TAVREL_SIMULATOR_JOURNAL=") + device});
        QCOMPARE(output.exitCode, 0);
    }

    // ---- strict

    void aStrictProgramThatEndsHasDestroyedNothing_data()
    {
        QTest::addColumn<QStringList>("variables");
        QTest::addColumn<bool>("isInUse");
        QTest::addColumn<bool>("isDamaged");
        const QString fresh = QStringLiteral("TAVREL_SIMULATOR_FACTORY_FRESH=1");
        const QString journal = QStringLiteral("TAVREL_SIMULATOR_JOURNAL=calls.txt");
        QTest::newRow("the memory is in use") << QStringList({fresh, journal}) << true << false;
        QTest::newRow("the memory is damaged")
            << QStringList({journal, QStringLiteral("TAVREL_SIMULATOR_LOG=new.log")}) << false
            << true;
        QTest::newRow("the socket cannot be made")
            << QStringList({fresh, journal, QStringLiteral("TAVREL_SIMULATOR_CONTROL=none/socket")})
            << false << false;
        QTest::newRow("the log cannot be opened")
            << QStringList({fresh, journal, QStringLiteral("TAVREL_SIMULATOR_LOG=kept")}) << false
            << false;
        QTest::newRow("the journal cannot be opened")
            << QStringList({fresh, QStringLiteral("TAVREL_SIMULATOR_JOURNAL=kept")}) << false
            << false;
    }

    void aStrictProgramThatEndsHasDestroyedNothing()
    {
        QFETCH(QStringList, variables);
        QFETCH(bool, isInUse);
        QFETCH(bool, isDamaged);
        Scene scene("[simulator]\nmemory=kept\n");
        scene.camera().setGamma(144179);
        QByteArray table(scene::regionSize, '\x11');
        scene.camera().writeTableData(4096, 8192, 8, table.data());
        scene.sdk().saveConfiguration();
        scene.write(QStringLiteral("calls.txt"), "of before\n");
        if (isDamaged) {
            scene.write(QStringLiteral("kept/camera-20417.ini"), "rubbish");
        }
        if (!isInUse) {
            scene.restart("[camera]\n");
        }
        const QMap<QString, QByteArray> before = everything(scene);
        QVERIFY(before.size() > 4);
        const Output output =
            run(QStringList({strict, QStringLiteral("TAVREL_SIMULATOR_MEMORY=kept")}) + variables);
        QCOMPARE(output.exitCode, 2);
        QCOMPARE(output.standardError.size(), 1);
        QCOMPARE(everything(scene), before);
    }

    // ---- devices

    void aDeviceAsLogIsWrittenToWithoutAnyOtherWord_data()
    {
        QTest::addColumn<QString>("log");
        QTest::addColumn<bool>("isStandardOutput");
        QTest::newRow("nowhere") << QStringLiteral("/dev/null") << false;
        QTest::newRow("standard output") << QStringLiteral("/dev/stdout") << true;
    }

    void aDeviceAsLogIsWrittenToWithoutAnyOtherWord()
    {
        QFETCH(QString, log);
        QFETCH(bool, isStandardOutput);
        Scene scene;
        const Output output = run({QStringLiteral("TAVREL_SIMULATOR_LOG=") + log, strict});
        QCOMPARE(output.exitCode, 0);
        QCOMPARE(output.standardError, QStringList());
        QCOMPARE(withoutTime(output.standardOutput).contains(QStringLiteral("event    first")),
                 isStandardOutput);
    }

    void aTableFileWithoutANameIsToldWithoutAnyOtherWord()
    {
        Scene scene;
        scene.write(QStringLiteral("simulator.ini"), "[camera]\ntableFile=\n");
        const Output output = run({strict});
        QCOMPARE(withoutTime(output.standardError),
                 QStringList(QStringLiteral("problem  %1:2: [camera] tableFile: \"\" is no table "
                                            "region: no file is named; the factory's bad pixels "
                                            "are used")
                                 .arg(scene.path(QStringLiteral("simulator.ini")))));
    }

    // ---- links

    void settingsThatAreALinkToNowhereAreTold()
    {
        Scene scene;
        QVERIFY(QFile::link(QStringLiteral("none.ini"), QStringLiteral("simulator.ini")));
        const QString problem =
            QStringLiteral("problem  %1: there is no such file, or it cannot be read")
                .arg(scene.path(QStringLiteral("simulator.ini")));
        const Output output = run();
        QCOMPARE(output.exitCode, 0);
        QCOMPARE(withoutTime(output.standardError).value(0), problem);
        const Output ended = run({strict});
        QCOMPARE(ended.exitCode, 2);
        QCOMPARE(withoutTime(ended.standardError), QStringList(problem));
    }
};

QTEST_GUILESS_MAIN(TestFiles)
#include "tst_files.moc"
