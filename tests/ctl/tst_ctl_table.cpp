// SPDX-License-Identifier: MIT
// The camera's table of bad pixels and its map files, without the window.
#include "tests/ctl/program.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtGui/QImage>
#include <QtTest/QTest>

using ctl::Machine;
using ctl::Run;

namespace {

constexpr int width = 640;
constexpr int height = 480;

constexpr char working[] = "bpr/bpr_SN20417.bin";
constexpr char backup[] = "bprBackup/bpr_SN20417.bin";

/// Less than a map takes, and enough for what the simulator keeps.
constexpr int smallRoom = 200;

QByteArray mapOf(const std::vector<std::pair<int, int>>& pixels)
{
    QByteArray map(width * height, '\0');
    for (const auto& [x, y] : pixels) {
        map[y * width + x] = '\1';
    }
    return map;
}

/// As the program tells it.
QString toldName(const Machine& machine, const char* name)
{
    return QDir(machine.folder.path()).canonicalPath() + QLatin1Char('/') + QLatin1String(name);
}

} // namespace

class TestTable : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aReadWritesMapAndBackup()
    {
        Machine machine;
        machine.settings("[camera]\nbadPixels=5:0 7:0\n");
        Run run = machine.run("ttyUSB0 table read");
        QCOMPARE(run.status, 0);
        QCOMPARE(run.lines().size(), 3);
        QVERIFY(run.lines()[0].startsWith(QStringLiteral("Backup table written to /")));
        QVERIFY(run.lines()[0].endsWith(QLatin1String(backup)));
        QVERIFY(run.lines()[1].startsWith(QStringLiteral("Table written to /")));
        QVERIFY(run.lines()[1].endsWith(QLatin1String(working)));
        QCOMPARE(run.lines()[2], QStringLiteral("Table containing : 2 Bad Pixels"));
        const QByteArray map = mapOf({{5, 0}, {7, 0}});
        QCOMPARE(machine.content(working), map);
        QCOMPARE(machine.content(backup), map);

        machine.write(working, mapOf({{1, 1}}));
        machine.write(backup, mapOf({{2, 2}}));
        run = machine.run("ttyUSB0 table read --json");
        QCOMPARE(run.json()[QStringLiteral("count")].toInt(), 2);
        QCOMPARE(run.json()[QStringLiteral("lines")].toArray().size(), 2);
        QCOMPARE(machine.content(working), map);
        QCOMPARE(machine.content(backup), mapOf({{2, 2}}));
    }

    void aFolderWhoseNameIsNoTextIsAFolder()
    {
        Machine machine;
        const auto process = machine.start(
            {QStringLiteral("-c"),
             // Removed by the shell, because Qt cannot call it by its name.
             QStringLiteral("name=$(printf 'x\\377'); mkdir \"$name\" && cd \"$name\" && "
                            "\"$0\" ttyUSB0 table read && cp %1 .. && \"$0\" ttyUSB0 table reset; "
                            "status=$?; cd .. && rm -r \"$name\"; exit $status")
                 .arg(QLatin1String(working)),
             QStringLiteral(TAVREL_CTL)},
            QStringLiteral("/bin/sh"));
        const Run run = machine.finish(*process);
        QVERIFY2(run.status == 0, qPrintable(run.errors));
        QCOMPARE(run.errors, QString());
        QCOMPARE(machine.content("bpr_SN20417.bin").size(), width * height);
    }

    void aTableThatStallsIsAnErrorAfterATime()
    {
        Machine machine;
        machine.write("table.bin", QByteArray(8192, '\0'));
        machine.settings("[camera]\ntableFile=table.bin\n");
        const Run run = machine.run("ttyUSB0 table read --timeout 3");
        QCOMPARE(run.status, 1);
        QVERIFY2(run.errors.contains(QStringLiteral("ends at its second record")),
                 qPrintable(run.errors));
        QVERIFY(!QFile::exists(machine.path(working)));
        // Asked again and again, not once.
        QVERIFY(machine.calls().filter(QStringLiteral("readTableData")).size() > 1);
    }

    void aReadThatFailsSaysSoInTheWindowsWords()
    {
        Machine machine;
        machine.plan("[readTableData]\nvalue=-3\n");
        const Run run = machine.run("ttyUSB0 table read --json");
        QCOMPARE(run.status, 1);
        QCOMPARE(run.errors,
                 QStringLiteral("tavrelctl: BPR table not read correctly (error code = -3)\n"));
        QCOMPARE(run.json()[QStringLiteral("error")].toString(),
                 QStringLiteral("BPR table not read correctly (error code = -3)"));
        QCOMPARE(run.json()[QStringLiteral("status")].toInt(), 1);
        QVERIFY(!QFile::exists(machine.path(working)));
    }

    void aCameraThatGoesWithItsTableWritesNothing()
    {
        Machine machine;
        machine.plan("[getSerialNumber]\nhangUp=true\n");
        QCOMPARE(machine.run("ttyUSB0 table read").status, 3);
        QVERIFY(QDir(machine.path("bpr")).isEmpty());
        QVERIFY(QDir(machine.path("bprBackup")).isEmpty());
    }

    void aCameraThatDoesNotTellItsNumberHasNoFiles_data()
    {
        QTest::addColumn<QString>("words");
        QTest::newRow("read") << QStringLiteral("table read");
        QTest::newRow("write") << QStringLiteral("table write --yes");
        QTest::newRow("reset") << QStringLiteral("table reset");
        QTest::newRow("profile") << QStringLiteral("save a.toml");
    }

    void aCameraThatDoesNotTellItsNumberHasNoFiles()
    {
        QFETCH(QString, words);
        Machine machine;
        for (const char* const folder : {"bpr", "bprBackup"}) {
            QVERIFY(QDir(machine.folder.path()).mkdir(QLatin1String(folder)));
            machine.write((QByteArray(folder) + "/bpr_SN0.bin").constData(), mapOf({{1, 1}}));
        }
        machine.write("a.toml", "the old one\n");
        machine.plan("[getSerialNumber]\nvalue=0\n");
        const Run run = machine.run(qPrintable(QStringLiteral("ttyUSB0 ") + words));
        QCOMPARE(run.status, 1);
        QCOMPARE(run.output, QString());
        QCOMPARE(run.errors,
                 QStringLiteral("tavrelctl: the camera does not tell its serial number; "
                                "nothing was written\n"));
        QVERIFY(machine.commandsSent().isEmpty());
        QCOMPARE(machine.content("bpr/bpr_SN0.bin"), mapOf({{1, 1}}));
        QCOMPARE(machine.content("bprBackup/bpr_SN0.bin"), mapOf({{1, 1}}));
        QCOMPARE(machine.content("a.toml"), QByteArray("the old one\n"));
    }

    void aMapThatCannotBeWrittenIsTold()
    {
        Machine machine;
        QDir(machine.folder.path()).mkpath(QLatin1String(working));
        Run run = machine.run("ttyUSB0 table read");
        QCOMPARE(run.status, 2);
        QVERIFY2(run.errors.contains(QStringLiteral("could not be written")),
                 qPrintable(run.errors));
        Machine other;
        other.write("bpr", "in the way");
        run = other.run("ttyUSB0 table read");
        QCOMPARE(run.status, 2);
        QVERIFY(other.calls().filter(QStringLiteral("link")).isEmpty());
    }

    void aReadOnAFullDiskTellsThatTheOldMapIsThere()
    {
        Machine machine;
        QCOMPARE(machine.run("ttyUSB0 table read").status, 0);
        const QByteArray read = machine.content(backup);
        machine.write(working, mapOf({{1, 1}}));
        const Run run = machine.runWithRoomFor(smallRoom, "ttyUSB0 table read");
        QCOMPARE(run.status, 2);
        QCOMPARE(run.output, QString());
        QCOMPARE(run.errors,
                 QStringLiteral("tavrelctl: %1 could not be written and holds another map\n")
                     .arg(toldName(machine, working)));
        QCOMPARE(machine.content(working), mapOf({{1, 1}}));
        QCOMPARE(machine.content(backup), read);
        // What is there already needs no room.
        machine.write(working, read);
        QCOMPARE(machine.runWithRoomFor(smallRoom, "ttyUSB0 table read").status, 0);
    }

    void aBackupThatCannotBeWrittenIsTold()
    {
        Machine machine;
        QVERIFY(QDir(machine.folder.path()).mkdir(QStringLiteral("bprBackup")));
        QVERIFY(QFile::link(QStringLiteral("none/backup.bin"), machine.path(backup)));
        Run run = machine.run("ttyUSB0 table read");
        QCOMPARE(run.status, 2);
        QCOMPARE(run.errors, QStringLiteral("tavrelctl: %1 could not be written: nothing is there; "
                                            "%2 holds the camera's table\n")
                                 .arg(toldName(machine, backup), toldName(machine, working)));
        QCOMPARE(machine.content(working).size(), width * height);
        QVERIFY(QFile::remove(machine.path(backup)));
        QVERIFY(QDir(machine.folder.path()).mkpath(QLatin1String(backup)));
        run = machine.run("ttyUSB0 table read --json");
        QCOMPARE(run.status, 2);
        QCOMPARE(run.json()[QStringLiteral("error")].toString(),
                 QStringLiteral("%1 could not be written, or cannot be read; "
                                "%2 holds the camera's table")
                     .arg(toldName(machine, backup), toldName(machine, working)));
    }

    void aFullDiskKeepsBothMapsAtAReset()
    {
        Machine machine;
        QCOMPARE(machine.run("ttyUSB0 table read").status, 0);
        const QByteArray read = machine.content(backup);
        machine.write(working, mapOf({{1, 1}}));
        const Run run = machine.runWithRoomFor(smallRoom, "ttyUSB0 table reset");
        QCOMPARE(run.status, 2);
        QCOMPARE(run.output, QString());
        QCOMPARE(run.errors,
                 QStringLiteral("tavrelctl: %1 could not be written and holds another map; "
                                "%2 holds the backup\n")
                     .arg(toldName(machine, working), toldName(machine, backup)));
        QCOMPARE(machine.content(working), mapOf({{1, 1}}));
        QCOMPARE(machine.content(backup), read);
    }

    void aBackupThatFindsNoRoomBesideItIsNotSent()
    {
        Machine machine;
        QCOMPARE(machine.run("ttyUSB0 table read").status, 0);
        QVERIFY(QFile::remove(machine.path(working)));
        machine.calls();
        const Run run = machine.runWithRoomFor(smallRoom, "ttyUSB0 table write --yes");
        QCOMPARE(run.status, 2);
        QCOMPARE(run.errors, QStringLiteral("tavrelctl: %1 could not be written: nothing is there; "
                                            "%2 holds the backup\n")
                                 .arg(toldName(machine, working), toldName(machine, backup)));
        const QStringList calls = machine.calls();
        QVERIFY(calls.filter(QStringLiteral("loadBadPixelList")).isEmpty());
        QVERIFY(calls.filter(QStringLiteral("writeTableData")).isEmpty());
    }

    void aTableGoesToTheCameraAndBack()
    {
        Machine machine;
        QCOMPARE(machine.run("ttyUSB0 table read").status, 0);
        const QByteArray map = mapOf({{3, 4}, {600, 400}, {639, 479}});
        machine.write(working, map);
        const Run run = machine.run("ttyUSB0 table write --yes");
        QVERIFY2(run.status == 0, qPrintable(run.errors));
        QCOMPARE(run.lines().first(), QStringLiteral("Bad pixels found 3 < 1024"));
        QVERIFY(run.lines().last().endsWith(QStringLiteral("bpr_SN20417.bin correctly written.")));
        QVERIFY(QFile::remove(machine.path(working)));
        QCOMPARE(machine.run("ttyUSB0 table read").status, 0);
        QCOMPARE(machine.content(working), map);
    }

    void aWriteWithoutATerminalNeedsAYes()
    {
        Machine machine;
        machine.run("ttyUSB0 table read");
        const Run run = machine.run("ttyUSB0 table write");
        QCOMPARE(run.status, 2);
        QVERIFY2(run.errors.contains(QStringLiteral("say --yes")), qPrintable(run.errors));
        QVERIFY(machine.commandsSent().isEmpty());
    }

    void aWriteOnATerminalAsksFirst_data()
    {
        QTest::addColumn<QByteArray>("answer");
        QTest::addColumn<int>("status");
        QTest::newRow("yes") << QByteArray("y") << 0;
        QTest::newRow("a large yes") << QByteArray("Y") << 0;
        QTest::newRow("a whole yes") << QByteArray("Yes") << 0;
        QTest::newRow("more than a yes") << QByteArray("yesterday") << 1;
        QTest::newRow("no") << QByteArray("n") << 1;
        QTest::newRow("nothing") << QByteArray("") << 1;
    }

    void aWriteOnATerminalAsksFirst()
    {
        QFETCH(QByteArray, answer);
        QFETCH(int, status);
        Machine machine;
        machine.run("ttyUSB0 table read");
        machine.calls();
        const Run run = machine.runOnTerminal("0", "ttyUSB0 table write", answer.constData());
        QVERIFY2(run.status == status, qPrintable(run.errors));
        QVERIFY2(
            run.errors.contains(QStringLiteral("bpr_SN20417.bin to the camera on ttyUSB0? [y/N]")),
            qPrintable(run.errors));
        QCOMPARE(machine.commandsSent().size(), status == 0 ? 1 : 0);
    }

    void controlCAtTheQuestionEndsItAtOnce()
    {
        Machine machine;
        machine.run("ttyUSB0 table read");
        machine.calls();
        const Run run = machine.runOnTerminal("02", "ttyUSB0 table write", "^C");
        QCOMPARE(run.status, 1);
        QVERIFY2(
            run.errors.endsWith(QStringLiteral("tavrelctl: interrupted; nothing was written\n")),
            qPrintable(run.errors));
        QVERIFY(machine.commandsSent().isEmpty());
    }

    void whatCannotBeWrittenSaysSoInTheWindowsWords_data()
    {
        QTest::addColumn<QByteArray>("plan");
        QTest::addColumn<int>("status");
        QTest::addColumn<QString>("told");
        const auto row = [](const char* name, const char* plan, int status, const char* told) {
            QTest::newRow(name) << QByteArray(plan) << status << QString::fromLatin1(told);
        };
        row("refused", "[writeTableData]\ncalls=always\n", 1, "BP table not written correctly");
        row("too many", "[loadBadPixelList]\nvalue=1025\n", 2,
            "Can't write this BPR table into camera, too many bad pixels.");
        row("missing", "[loadBadPixelList]\nvalue=missing\n", 2, "Unable to open replbp.bin");
        row("empty", "[loadBadPixelList]\nvalue=empty\n", 2, "replbp.bin file size is NULL");
        row("long", "[loadBadPixelList]\nvalue=long\n", 2, "Unable to read replbp.bin");
    }

    void whatCannotBeWrittenSaysSoInTheWindowsWords()
    {
        QFETCH(QByteArray, plan);
        QFETCH(int, status);
        QFETCH(QString, told);
        Machine machine;
        machine.run("ttyUSB0 table read");
        machine.plan(plan);
        const Run run = machine.run("ttyUSB0 table write --yes");
        QCOMPARE(run.status, status);
        QCOMPARE(run.errors, QStringLiteral("tavrelctl: %1\n").arg(told));
        QVERIFY(run.output.startsWith(QStringLiteral("Bad pixels found ")));
        const QJsonObject json = machine.run("ttyUSB0 table write --yes --json").json();
        QCOMPARE(json[QStringLiteral("error")].toString(), told);
        QCOMPARE(json[QStringLiteral("status")].toInt(), status);
    }

    void withoutAnyTableNothingIsWritten()
    {
        Machine machine;
        const Run run = machine.run("ttyUSB0 table write --yes");
        QCOMPARE(run.status, 2);
        QCOMPARE(run.errors, QStringLiteral("tavrelctl: No BP table file found.\n"));
        QVERIFY(machine.commandsSent().isEmpty());
    }

    void aResetRestoresTheBackup()
    {
        Machine machine;
        Run run = machine.run("ttyUSB0 table reset");
        QCOMPARE(run.status, 2);
        QVERIFY2(run.errors.contains(QStringLiteral("No backup BP table file found (")),
                 qPrintable(run.errors));
        machine.run("ttyUSB0 table read");
        const QByteArray first = machine.content(backup);
        machine.write(working, mapOf({{1, 1}}));
        run = machine.run("ttyUSB0 table reset");
        QCOMPARE(run.status, 0);
        QCOMPARE(run.lines(), QStringList{QStringLiteral("BP table reset succeed.")});
        QCOMPARE(machine.content(working), first);
        QVERIFY(machine.commandsSent().isEmpty());
    }

    void aMapIsShown()
    {
        Machine machine;
        machine.ports.unplug(QStringLiteral("ttyUSB0"));
        std::vector<std::pair<int, int>> pixels{{0, 0}, {639, 479}, {10, 10}, {11, 11}, {12, 10}};
        for (int y = 0; y < height; ++y) {
            pixels.push_back({100, y});
        }
        machine.write("map.bin", mapOf(pixels));
        Run run = machine.run("map show map.bin --png map.png");
        QCOMPARE(run.status, 0);
        QStringList lines;
        const QStringList shown = run.lines();
        for (const QString& line : shown) {
            lines.append(line.simplified());
        }
        QCOMPARE(
            lines,
            (QStringList{QStringLiteral("bad pixels 485"), QStringLiteral("clusters 2"),
                         QStringLiteral("largest clusters 480 at x 100, y 0; 3 at x 10, y 10"),
                         QStringLiteral("whole rows none"), QStringLiteral("whole columns 100")}));
        const QImage picture(machine.path("map.png"));
        QCOMPARE(picture.size(), QSize(width, height));
        QCOMPARE(picture.pixel(639, 479), qRgb(255, 255, 255));
        QCOMPARE(picture.pixel(638, 479), qRgb(0, 0, 0));
        QCOMPARE(picture.pixel(11, 11), qRgb(255, 255, 255));
        run = machine.run("map show map.bin --json");
        QCOMPARE(run.json()[QStringLiteral("count")].toInt(), 485);
        QCOMPARE(run.json()[QStringLiteral("columns")].toArray().size(), 1);
    }

    void aWholeRowIsOne()
    {
        Machine machine;
        std::vector<std::pair<int, int>> pixels;
        for (int x = 0; x < width; ++x) {
            pixels.push_back({x, 479});
        }
        machine.write("map.bin", mapOf(pixels));
        const QJsonObject json = machine.run("map show map.bin --json").json();
        QCOMPARE(json[QStringLiteral("rows")].toArray(), QJsonArray{479});
        QCOMPARE(json[QStringLiteral("columns")].toArray(), QJsonArray());
    }

    void twoMapsAreCompared()
    {
        Machine machine;
        machine.write("a.bin", mapOf({{1, 1}, {2, 2}, {3, 3}}));
        machine.write("b.bin", mapOf({{2, 2}, {3, 3}, {4, 4}, {5, 5}}));
        const Run run = machine.run("map diff a.bin b.bin --png diff.png --json");
        QCOMPARE(run.status, 1);
        QCOMPARE(run.json()[QStringLiteral("both")].toInt(), 2);
        QCOMPARE(run.json()[QStringLiteral("onlyFirst")].toInt(), 1);
        QCOMPARE(run.json()[QStringLiteral("onlySecond")].toInt(), 2);
        const QImage picture(machine.path("diff.png"));
        QCOMPARE(picture.pixel(1, 1), qRgb(255, 0, 0));
        QCOMPARE(picture.pixel(2, 2), qRgb(255, 255, 255));
        QCOMPARE(picture.pixel(5, 5), qRgb(0, 255, 0));
        QCOMPARE(machine.run("map diff a.bin a.bin").status, 0);
    }

    void whatIsNoMapIsRefused_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("told");
        QTest::newRow("short") << QByteArray("\1") << QStringLiteral("it has 1 bytes");
        QTest::newRow("empty") << QByteArray() << QStringLiteral("it has 0 bytes");
        QByteArray odd(width * height, '\0');
        odd[7] = '\2';
        QTest::newRow("other bytes") << odd << QStringLiteral("bytes other than 0 and 1");
    }

    void whatIsNoMapIsRefused()
    {
        QFETCH(QByteArray, content);
        QFETCH(QString, told);
        Machine machine;
        machine.write("map.bin", content);
        Run run = machine.run("map show map.bin --png map.png");
        QCOMPARE(run.status, 2);
        QVERIFY2(run.errors.contains(told), qPrintable(run.errors));
        QVERIFY(!QFile::exists(machine.path("map.png")));
        QCOMPARE(machine.run("map show none.bin").status, 2);
        QCOMPARE(machine.run("ttyUSB0 map show map.bin").status, 2);
    }

    void aPictureThatCannotBePlacedIsTold()
    {
        Machine machine;
        machine.write("map.bin", mapOf({}));
        QCOMPARE(machine.run("map show map.bin --png none/map.png").status, 2);
        QCOMPARE(machine.run("map show map.bin --png /dev/null").status, 2);
    }

    void aPictureTakesThePlaceOfPicturesOnly_data()
    {
        QTest::addColumn<QString>("words");
        QTest::addColumn<QString>("picture");
        const QString show = QStringLiteral("map show a.bin");
        QTest::newRow("the map itself") << show << QStringLiteral("a.bin");
        QTest::newRow("a link to the map") << show << QStringLiteral("link.png");
        QTest::newRow("another map") << show << QStringLiteral("b.bin");
        QTest::newRow("a text") << show << QStringLiteral("notes.png");
        QTest::newRow("the second map")
            << QStringLiteral("map diff a.bin b.bin") << QStringLiteral("b.bin");
    }

    void aPictureTakesThePlaceOfPicturesOnly()
    {
        QFETCH(QString, words);
        QFETCH(QString, picture);
        Machine machine;
        machine.write("a.bin", mapOf({{1, 1}}));
        machine.write("b.bin", mapOf({{2, 2}}));
        machine.write("notes.png", "notes\n");
        QVERIFY(QFile::link(QStringLiteral("a.bin"), machine.path("link.png")));
        const Run run = machine.run(qPrintable(words + QStringLiteral(" --png ") + picture));
        QCOMPARE(run.status, 2);
        QCOMPARE(run.output, QString());
        QCOMPARE(run.errors, QStringLiteral("tavrelctl: %1: is there already and is no PNG "
                                            "picture; it is left as it is\n")
                                 .arg(picture));
        QCOMPARE(machine.content("a.bin"), mapOf({{1, 1}}));
        QCOMPARE(machine.content("b.bin"), mapOf({{2, 2}}));
        QCOMPARE(machine.content("notes.png"), QByteArray("notes\n"));
        // A picture is replaced.
        QCOMPARE(machine.run("map show a.bin --png map.png").status, 0);
        const QByteArray first = machine.content("map.png");
        QCOMPARE(machine.run("map show b.bin --png map.png").status, 0);
        QVERIFY(machine.content("map.png") != first);
    }
};

QTEST_GUILESS_MAIN(TestTable)
#include "tst_ctl_table.moc"
