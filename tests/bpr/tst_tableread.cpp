// SPDX-License-Identifier: MIT
// Reading the bad pixel table from the camera.
#include "tests/bpr/monitoringpace.h"
#include "tests/bpr/tablefiles.h"

#include <QtTest/QSignalSpy>

#include <limits>

using tablefiles::mapOf;

Q_DECLARE_METATYPE(std::vector<std::uint64_t>)

namespace {

constexpr char readButton[] = "readBPRTableButton";

QString backupLine(const QString& serial = QStringLiteral("4711"))
{
    return QStringLiteral("Backup table written to ") +
           tablefiles::full(tablefiles::backup(serial));
}

QString tableLine(const QString& serial = QStringLiteral("4711"))
{
    return QStringLiteral("Table written to ") + tablefiles::full(tablefiles::working(serial));
}

QString countLine(int count)
{
    return QStringLiteral("Table containing : %1 Bad Pixels").arg(count);
}

/// As many records as asked for, each with a pixel of its own.
std::vector<std::uint64_t> records(std::size_t count)
{
    std::vector<std::uint64_t> indexes;
    for (std::uint64_t index = 1; index <= count; ++index) {
        indexes.push_back(index * 3);
    }
    return indexes;
}

} // namespace

class TestTableRead : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theFirstReadWritesBackupAndWorkingCopy()
    {
        kit::Operator user;
        user.connectCamera();
        user.click(readButton);
        QCOMPARE(user.calls(recording::Show::Everything),
                 kit::lines({"camera.readTableData(4096, 8192, 9)", "camera.getSerialNumber()"}));
        QCOMPARE(user.newLog(), (QStringList{backupLine(), tableLine(), countLine(2)}));
        QVERIFY(tablefiles::content(tablefiles::backup()) == mapOf({5, 7}));
        QVERIFY(tablefiles::content(tablefiles::working()) == mapOf({5, 7}));
        QCOMPARE(tablefiles::entries(QStringLiteral("bpr")), kit::lines({"bpr_SN4711.bin"}));
        QCOMPARE(tablefiles::entries(QStringLiteral("bprBackup")), kit::lines({"bpr_SN4711.bin"}));
    }

    void aLaterReadRewritesOnlyTheWorkingCopy()
    {
        kit::Operator user;
        user.connectCamera();
        user.click(readButton);
        user.sdk.camera.table = recording::tableOf({9, 11, 307199});
        user.markLog();
        user.click(readButton);
        QCOMPARE(user.newLog(), (QStringList{tableLine(), countLine(3)}));
        QVERIFY(tablefiles::content(tablefiles::backup()) == mapOf({5, 7}));
        QVERIFY(tablefiles::content(tablefiles::working()) == mapOf({9, 11, 307199}));
    }

    void anyReadableBackupIsLeftUntouched_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addRow("another table") << mapOf({1});
        QTest::addRow("empty") << QByteArray("");
        QTest::addRow("cut off") << mapOf({1}).left(1000);
    }

    void anyReadableBackupIsLeftUntouched()
    {
        QFETCH(QByteArray, content);
        kit::Operator user;
        user.connectCamera();
        tablefiles::put(tablefiles::backup(), content);
        user.click(readButton);
        QCOMPARE(user.newLog(), (QStringList{tableLine(), countLine(2)}));
        QVERIFY(tablefiles::content(tablefiles::backup()) == content);
    }

    void aReadDiscardsEdits_data()
    {
        QTest::addColumn<QByteArray>("edited");
        QTest::addRow("another table") << mapOf({1, 2, 3});
        QTest::addRow("shorter") << QByteArray("short");
        QTest::addRow("longer") << QByteArray(tablefiles::mapSize + 1000, '\1');
    }

    void aReadDiscardsEdits()
    {
        QFETCH(QByteArray, edited);
        kit::Operator user;
        user.connectCamera();
        tablefiles::put(tablefiles::working(), edited);
        user.click(readButton);
        QVERIFY(tablefiles::content(tablefiles::working()) == mapOf({5, 7}));
    }

    void aMapHasOneSizeAndItsLogLineTheNumberOfRecords_data()
    {
        QTest::addColumn<std::vector<std::uint64_t>>("table");
        QTest::addColumn<int>("count");
        QTest::addColumn<int>("marks");
        using Table = std::vector<std::uint64_t>;
        QTest::addRow("none") << Table{307201} << 0 << 0;
        QTest::addRow("first pixel first") << Table{0, 7} << 2 << 2;
        QTest::addRow("37") << records(37) << 37 << 37;
        QTest::addRow("repeated") << Table{5, 5, 7} << 3 << 2;
        QTest::addRow("one past the map") << Table{5, 307200} << 2 << 1;
        QTest::addRow("1024") << records(1024) << 1024 << 1024;
    }

    void aMapHasOneSizeAndItsLogLineTheNumberOfRecords()
    {
        QFETCH(std::vector<std::uint64_t>, table);
        QFETCH(int, count);
        QFETCH(int, marks);
        kit::Operator user;
        user.connectCamera();
        user.sdk.camera.table = recording::tableOf(table);
        user.click(readButton);
        QCOMPARE(user.newLog(), (QStringList{backupLine(), tableLine(), countLine(count)}));
        const QByteArray map = tablefiles::content(tablefiles::working());
        QCOMPARE(map.size(), tablefiles::mapSize);
        QCOMPARE(map.count('\1'), marks);
        QCOMPARE(map.count('\0'), tablefiles::mapSize - marks);
        QVERIFY(tablefiles::content(tablefiles::backup()) == map);
    }

    void theFilesBearTheCamerasSerialNumber_data()
    {
        QTest::addColumn<std::uint32_t>("serial");
        QTest::addColumn<QString>("text");
        QTest::addRow("0") << std::uint32_t{0} << QStringLiteral("0");
        QTest::addRow("2147483648") << std::uint32_t{2147483648} << QStringLiteral("2147483648");
        QTest::addRow("4294967295")
            << std::numeric_limits<std::uint32_t>::max() << QStringLiteral("4294967295");
    }

    void theFilesBearTheCamerasSerialNumber()
    {
        QFETCH(std::uint32_t, serial);
        QFETCH(QString, text);
        kit::Operator user;
        user.connectCamera();
        user.sdk.camera.serialNumber = serial;
        user.click(readButton);
        QCOMPARE(user.newLog(), (QStringList{backupLine(text), tableLine(text), countLine(2)}));
        QVERIFY(tablefiles::content(tablefiles::working(text)) == mapOf({5, 7}));
        QVERIFY(tablefiles::content(tablefiles::backup(text)) == mapOf({5, 7}));
    }

    void eachCameraHasItsOwnBackup()
    {
        kit::Operator user;
        user.connectCamera();
        user.click(readButton);
        user.sdk.camera.serialNumber = 4712;
        user.sdk.camera.table = recording::tableOf({9, 11});
        user.click(readButton);
        QVERIFY(tablefiles::content(tablefiles::backup()) == mapOf({5, 7}));
        QVERIFY(tablefiles::content(tablefiles::backup(QStringLiteral("4712"))) == mapOf({9, 11}));
    }

    void aFailedReadShowsItsErrorCodeAndWritesNothing_data()
    {
        QTest::addColumn<int>("status");
        for (const int status :
             {-3, 1, 256, -256, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
            QTest::addRow("%d", status) << status;
        }
    }

    void aFailedReadShowsItsErrorCodeAndWritesNothing()
    {
        QFETCH(int, status);
        kit::Operator user;
        user.connectCamera();
        user.sdk.answer("camera.readTableData", status);
        user.expectBox(
            {.title = "BPR table",
             .text = "BPR table not read correctly (error code = " + std::to_string(status) + ")"});
        user.click(readButton);
        QCOMPARE(user.calls(recording::Show::Everything),
                 kit::lines({"camera.readTableData(4096, 8192, 9)"}));
        QCOMPARE(user.newLog(), QStringList());
        QCOMPARE(tablefiles::entries(QStringLiteral("bpr")), QStringList());
        QCOMPARE(tablefiles::entries(QStringLiteral("bprBackup")), QStringList());
    }

    void whatTheCameraLeavesUnfilledIsZero()
    {
        // Two records arrive where a full table was before: what was left of it would count too.
        kit::Operator user;
        user.connectCamera();
        user.sdk.camera.table = recording::tableOf(records(1024));
        user.click(readButton);
        user.sdk.camera.table.resize(16);
        user.click(readButton);
        QCOMPARE(user.newLog().last(), countLine(2));
    }

    void withoutACameraABoxNamesThePort_data()
    {
        QTest::addColumn<bool>("portChosen");
        QTest::addRow("no port chosen") << false;
        QTest::addRow("a port where no camera answered") << true;
    }

    void withoutACameraABoxNamesThePort()
    {
        QFETCH(bool, portChosen);
        kit::Operator user;
        user.start();
        if (portChosen) {
            user.ports.plug(QStringLiteral("ttyUSB3"));
            user.sdk.answer("link.openCamera", 0);
            user.click("scanDeviceButton");
            user.expectBox(
                {.title = "Invalid communication", .text = "Select an other serial port"});
            user.click("connectDeviceButton");
        }
        kit::unlockTabs(user);
        user.forget();
        user.expectBox(kit::notConnected(portChosen ? "ttyUSB3" : ""));
        user.click(readButton);
        QCOMPARE(user.boxesAwaited(), 0);
        QCOMPARE(user.calls(recording::Show::Everything), QStringList());
        QCOMPARE(user.newLog(), QStringList());
    }

    void theMonitoringThatBeginsWithoutACameraReadsNothing()
    {
        kit::Operator user;
        user.ports.plug(QStringLiteral("ttyUSB3"));
        user.sdk.answer("link.openCamera", 0);
        user.click("scanDeviceButton");
        user.expectBox({.title = "Invalid communication", .text = "Select an other serial port"});
        user.click("connectDeviceButton");
        kit::unlockTabs(user);
        user.expectBox(kit::notConnected("ttyUSB3"));
        user.click(readButton);
        user.forget();
        const QSignalSpy ticks(&user.timer(), &QTimer::timeout);
        user.hurry();
        QTRY_VERIFY(ticks.count() > 1);
        QVERIFY(user.monitoring());
        QCOMPARE(user.calls(recording::Show::Everything), QStringList());
    }

    void theMonitoringRestsForTheWholeReadAndThenGoesOn()
    {
        kit::Operator user;
        user.connectCamera();
        const kit::MonitoringPace monitoring(user);
        bool restedAtTheTransfer = false;
        bool restedAtTheSerialNumber = false;
        int linesWhileResting = 0;
        user.sdk.whenCalled("camera.readTableData",
                            [&] { restedAtTheTransfer = monitoring.stopped(); });
        user.sdk.whenCalled("camera.getSerialNumber",
                            [&] { restedAtTheSerialNumber = monitoring.stopped(); });
        user.sdk.whenLogged([&] { linesWhileResting += monitoring.stopped() ? 1 : 0; });
        user.click(readButton);
        QVERIFY(restedAtTheTransfer);
        QVERIFY(restedAtTheSerialNumber);
        QCOMPARE(linesWhileResting, 3);
        QVERIFY(monitoring.startedAgain());
    }

    void theMonitoringRestsBehindEveryBoxAndThenGoesOn_data()
    {
        QTest::addColumn<bool>("connected");
        QTest::addRow("not connected") << false;
        QTest::addRow("not read") << true;
    }

    void theMonitoringRestsBehindEveryBoxAndThenGoesOn()
    {
        QFETCH(bool, connected);
        kit::Operator user;
        kit::Box box = kit::notConnected();
        if (connected) {
            user.connectCamera();
            user.sdk.answer("camera.readTableData", -3);
            box = {.title = "BPR table", .text = "BPR table not read correctly (error code = -3)"};
        } else {
            user.start();
            kit::unlockTabs(user);
        }
        const kit::MonitoringPace monitoring(user);
        bool rested = false;
        box.whileOpen = [&](QDialog&) {
            rested = monitoring.stopped();
        };
        user.expectBox(box);
        user.click(readButton);
        QVERIFY(rested);
        QVERIFY(monitoring.startedAgain());
    }

    void theMonitoringStartsEvenWhenItDidNotRun()
    {
        kit::Operator user;
        user.connectCamera();
        const kit::MonitoringPace monitoring(user);
        user.timer().stop();
        user.click(readButton);
        QVERIFY(monitoring.startedAgain());
    }

    void aFolderThatIsMissingIsNotTold_data()
    {
        QTest::addColumn<bool>("workingFolder");
        QTest::addColumn<bool>("backupFolder");
        QTest::addRow("no bpr") << false << true;
        QTest::addRow("no bprBackup") << true << false;
        QTest::addRow("neither") << false << false;
    }

    void aFolderThatIsMissingIsNotTold()
    {
        QFETCH(bool, workingFolder);
        QFETCH(bool, backupFolder);
        kit::Operator user;
        user.connectCamera();
        QVERIFY(workingFolder || QDir().rmdir(QStringLiteral("bpr")));
        QVERIFY(backupFolder || QDir().rmdir(QStringLiteral("bprBackup")));
        user.click(readButton);
        QCOMPARE(user.newLog(), (QStringList{backupLine(), tableLine(), countLine(2)}));
        QCOMPARE(QFileInfo::exists(QStringLiteral("bpr")), workingFolder);
        QCOMPARE(QFileInfo::exists(QStringLiteral("bprBackup")), backupFolder);
        QCOMPARE(QFileInfo::exists(tablefiles::working()), workingFolder);
        QCOMPARE(QFileInfo::exists(tablefiles::backup()), backupFolder);
    }

    void aFolderInTheFilesPlaceStaysAndIsNotTold()
    {
        kit::Operator user;
        user.connectCamera();
        QVERIFY(QDir().mkdir(tablefiles::working()));
        QVERIFY(QDir().mkdir(tablefiles::backup()));
        user.click(readButton);
        QCOMPARE(user.newLog(), (QStringList{backupLine(), tableLine(), countLine(2)}));
        QVERIFY(QFileInfo(tablefiles::working()).isDir());
        QVERIFY(QFileInfo(tablefiles::backup()).isDir());
        QCOMPARE(tablefiles::entries(QStringLiteral("bpr")), kit::lines({"bpr_SN4711.bin"}));
    }

    void aDeletedCurrentDirectoryLeavesPathsThatBeginAtTheRoot()
    {
#if defined(Q_OS_WIN)
        QSKIP("Windows does not let the current directory be deleted");
#endif
        if (QFileInfo::exists(QStringLiteral("/bpr"))) {
            QSKIP("this machine has a folder /bpr");
        }
        kit::Operator user;
        user.connectCamera();
        QVERIFY(QDir(user.directory()).removeRecursively());
        user.click(readButton);
        QCOMPARE(user.newLog(), kit::lines({"Backup table written to /bprBackup/bpr_SN4711.bin",
                                            "Table written to /bpr/bpr_SN4711.bin",
                                            "Table containing : 2 Bad Pixels"}));
        QVERIFY(QDir().mkpath(user.directory()));
    }

    void theFilesGoWhereTheProcessStandsAtThatMoment()
    {
        kit::Operator user;
        user.connectCamera();
        const QString before = QDir::currentPath();
        QVERIFY(QDir().mkpath(QStringLiteral("later/bpr")));
        bool moved = false;
        user.sdk.whenLogged([&] { moved = moved || QDir::setCurrent(QStringLiteral("later")); });
        user.click(readButton);
        QVERIFY(moved);
        QCOMPARE(user.newLog(),
                 (QStringList{
                     QStringLiteral("Backup table written to ") +
                         QDir::toNativeSeparators(before + QLatin1Char('/') + tablefiles::backup()),
                     tableLine(), countLine(2)}));
        QCOMPARE(QDir::currentPath(), before + QStringLiteral("/later"));
        QVERIFY(tablefiles::content(tablefiles::working()) == mapOf({5, 7}));
        QVERIFY(!QFile::exists(before + QLatin1Char('/') + tablefiles::working()));
    }

    void aDirectoryOfAnyNameIsWrittenTo_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addRow("beyond ASCII") << QStringLiteral("Süd ó ß");
        QTest::addRow("place holders") << QStringLiteral("100%1 {x} %2");
        QTest::addRow("long") << QString(200, QLatin1Char('d'));
    }

    void aDirectoryOfAnyNameIsWrittenTo()
    {
        QFETCH(QString, name);
        kit::Operator user;
        QVERIFY(QDir().mkdir(name));
        QVERIFY(QDir::setCurrent(name));
        user.connectCamera();
        user.click(readButton);
        QCOMPARE(user.newLog(), (QStringList{backupLine(), tableLine(), countLine(2)}));
        QVERIFY(QDir::currentPath().endsWith(name));
        QVERIFY(tablefiles::content(tablefiles::working()) == mapOf({5, 7}));
        QVERIFY(tablefiles::content(tablefiles::backup()) == mapOf({5, 7}));
    }
};

TAVREL_TEST_MAIN(TestTableRead)
#include "tst_tableread.moc"
