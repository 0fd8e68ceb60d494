// SPDX-License-Identifier: MIT
// Restoring the working copy from the backup.
#include "tests/bpr/monitoringpace.h"
#include "tests/bpr/tablefiles.h"

using tablefiles::mapOf;

namespace {

constexpr char resetButton[] = "resetBPRTableButton";

kit::Box boxWithBackup(const char* before)
{
    return {.title = "BP table",
            .text = before + (" (" + tablefiles::full(tablefiles::backup()).toStdString()) + ")."};
}

kit::Box copyFailed()
{
    return boxWithBackup("Unable to use the backup BP table");
}

kit::Box noBackup()
{
    return boxWithBackup("No backup BP table file found");
}

} // namespace

class TestTableReset : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theWorkingCopyBecomesTheBackupByteForByte_data()
    {
        QTest::addColumn<QByteArray>("working");
        QTest::addColumn<QByteArray>("backup");
        QTest::addRow("an edited table") << mapOf({1, 2, 3}) << mapOf({9, 11});
        QTest::addRow("no working copy") << QByteArray() << mapOf({9, 11});
        QTest::addRow("a longer file") << QByteArray(400000, 'x') << mapOf({9, 11});
        QTest::addRow("a shorter file") << QByteArray("short") << mapOf({9, 11});
        QTest::addRow("an empty backup") << mapOf({1}) << QByteArray("");
    }

    void theWorkingCopyBecomesTheBackupByteForByte()
    {
        QFETCH(QByteArray, working);
        QFETCH(QByteArray, backup);
        kit::Operator user;
        user.connectCamera();
        tablefiles::put(tablefiles::backup(), backup);
        if (!working.isNull()) {
            tablefiles::put(tablefiles::working(), working);
        }
        user.click(resetButton);
        QCOMPARE(user.newLog(), kit::lines({"BP table reset succeed."}));
        // Nothing goes to the camera.
        QCOMPARE(user.calls(recording::Show::Everything), kit::lines({"camera.getSerialNumber()"}));
        QVERIFY(tablefiles::content(tablefiles::working()) == backup);
        QVERIFY(tablefiles::content(tablefiles::backup()) == backup);
        QCOMPARE(tablefiles::entries(QStringLiteral("bpr")), kit::lines({"bpr_SN4711.bin"}));
    }

    void withoutABackupTheWorkingCopyStays()
    {
        kit::Operator user;
        user.connectCamera();
        tablefiles::put(tablefiles::working(), mapOf({1}));
        tablefiles::put(tablefiles::backup(QStringLiteral("4712")), mapOf({9, 11}));
        user.expectBox(noBackup());
        user.click(resetButton);
        QCOMPARE(user.newLog(), QStringList());
        QVERIFY(tablefiles::content(tablefiles::working()) == mapOf({1}));
    }

    void aFolderIsNoBackup()
    {
        kit::Operator user;
        user.connectCamera();
        QVERIFY(QDir().mkdir(tablefiles::backup()));
        user.expectBox(noBackup());
        user.click(resetButton);
        QCOMPARE(user.newLog(), QStringList());
    }

    void aBackupThatCannotBeCopiedIsToldByABox_data()
    {
        QTest::addColumn<bool>("folderExists");
        QTest::addRow("no folder for it") << false;
        QTest::addRow("a folder in its place") << true;
    }

    void aBackupThatCannotBeCopiedIsToldByABox()
    {
        QFETCH(bool, folderExists);
        kit::Operator user;
        user.connectCamera();
        tablefiles::put(tablefiles::backup(), mapOf({9, 11}));
        QVERIFY(folderExists ? QDir().mkdir(tablefiles::working())
                             : QDir().rmdir(QStringLiteral("bpr")));
        user.expectBox(copyFailed());
        user.click(resetButton);
        QCOMPARE(user.newLog(), QStringList());
        QVERIFY(tablefiles::content(tablefiles::backup()) == mapOf({9, 11}));
    }

    void theBoxShowsAPathOfAnyName()
    {
        kit::Operator user;
        const QString name = QStringLiteral("Süd ó 100%1");
        QVERIFY(QDir().mkdir(name));
        QVERIFY(QDir::setCurrent(name));
        user.connectCamera();
        user.expectBox(noBackup());
        user.click(resetButton);
        tablefiles::put(tablefiles::backup(), mapOf({9, 11}));
        QVERIFY(QDir().rmdir(QStringLiteral("bpr")));
        user.expectBox(copyFailed());
        user.click(resetButton);
    }

    void aDeletedCurrentDirectoryHasNoBackup()
    {
#if defined(Q_OS_WIN)
        QSKIP("Windows does not let the current directory be deleted");
#endif
        if (QFileInfo::exists(QStringLiteral("/bprBackup"))) {
            QSKIP("this machine has a folder /bprBackup");
        }
        kit::Operator user;
        user.connectCamera();
        QVERIFY(QDir(user.directory()).removeRecursively());
        user.expectBox({.title = "BP table",
                        .text = "No backup BP table file found (/bprBackup/bpr_SN4711.bin)."});
        user.click(resetButton);
        QCOMPARE(user.newLog(), QStringList());
        QVERIFY(QDir().mkpath(user.directory()));
    }

    void withoutACameraABoxSaysSo()
    {
        kit::Operator user;
        user.start();
        kit::unlockTabs(user);
        user.forget();
        tablefiles::put(tablefiles::backup(), mapOf({9, 11}));
        user.expectBox(kit::notConnected());
        user.click(resetButton);
        QCOMPARE(user.calls(recording::Show::Everything), QStringList());
        QCOMPARE(user.newLog(), QStringList());
        QVERIFY(!user.monitoring());
        QCOMPARE(tablefiles::entries(QStringLiteral("bpr")), QStringList());
    }

    void theMonitoringGoesOnUntouched_data()
    {
        QTest::addColumn<int>("ending");
        QTest::addRow("succeeded") << 0;
        QTest::addRow("no backup") << 1;
        QTest::addRow("copy failed") << 2;
        QTest::addRow("not connected") << 3;
    }

    void theMonitoringGoesOnUntouched()
    {
        QFETCH(int, ending);
        kit::Operator user;
        if (ending == 3) {
            user.start();
            kit::unlockTabs(user);
        } else {
            user.connectCamera();
        }
        const kit::MonitoringPace monitoring(user);
        if (ending != 1) {
            tablefiles::put(tablefiles::backup(), mapOf({9, 11}));
        }
        QVERIFY(ending != 2 || QDir().rmdir(QStringLiteral("bpr")));
        bool untouched = ending == 0;
        if (ending > 0) {
            const kit::Box boxes[] = {noBackup(), copyFailed(), kit::notConnected()};
            kit::Box box = boxes[ending - 1];
            box.whileOpen = [&](QDialog&) {
                untouched = monitoring.leftAlone();
            };
            user.expectBox(box);
        }
        user.click(resetButton);
        QVERIFY(untouched);
        QVERIFY(monitoring.leftAlone());
    }
};

TAVREL_TEST_MAIN(TestTableReset)
#include "tst_tablereset.moc"
