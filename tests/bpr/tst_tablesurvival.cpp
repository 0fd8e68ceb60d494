// SPDX-License-Identifier: MIT
// Map files and bad luck: while one is written the disk fills up or the program dies. A limit on
// the size of files brings about both, in the middle of a map.
#include "bpr/files.h"
#include "tests/bpr/fulldisk.h"
#include "tests/bpr/tablefiles.h"
#include "tests/kit/operator.h"

#include <opencv2/core.hpp>

#include <functional>

#include <sys/wait.h>
#include <unistd.h>

namespace bpr = tavrel::bpr;
using tablefiles::FullDisk;
using tablefiles::mapOf;

namespace {

/// Bytes that can be written, up to all but one of a map.
constexpr rlim_t roomsLeft[] = {1, 98304, 100000, 300000, tablefiles::mapSize - 1};

/// Runs an action in a child process that dies when it writes beyond the room that is left. True
/// when it did die of that.
bool diesWriting(const std::function<void()>& action, rlim_t roomLeft)
{
    const pid_t child = ::fork();
    if (child == 0) {
        const rlimit noCore{0, 0};
        ::setrlimit(RLIMIT_CORE, &noCore);
        (void)std::signal(SIGXFSZ, SIG_DFL);
        tablefiles::limitFiles(roomLeft);
        action();
        ::_exit(0);
    }
    int status = 0;
    return child > 0 && ::waitpid(child, &status, 0) == child && WIFSIGNALED(status) &&
           WTERMSIG(status) == SIGXFSZ;
}

/// Recognisable in every part, so that a torn file would show.
QByteArray oldMap()
{
    return QByteArray(tablefiles::mapSize, '\1');
}

std::string pathOf(const QString& file)
{
    return tablefiles::full(file).toStdString();
}

void addRooms()
{
    QTest::addColumn<rlim_t>("room");
    for (const rlim_t room : roomsLeft) {
        QTest::addRow("room for %d", static_cast<int>(room)) << room;
    }
}

} // namespace

Q_DECLARE_METATYPE(std::function<void()>)

class TestTableSurvival : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aFullDiskLeavesTheOldWorkingCopyWhole_data()
    {
        QTest::addColumn<QString>("button");
        QTest::addColumn<rlim_t>("room");
        for (const rlim_t room : roomsLeft) {
            QTest::addRow("read, room for %d", static_cast<int>(room))
                << QStringLiteral("readBPRTableButton") << room;
            QTest::addRow("reset, room for %d", static_cast<int>(room))
                << QStringLiteral("resetBPRTableButton") << room;
        }
    }

    void aFullDiskLeavesTheOldWorkingCopyWhole()
    {
        QFETCH(QString, button);
        QFETCH(rlim_t, room);
        kit::Operator user;
        user.connectCamera();
        tablefiles::put(tablefiles::working(), oldMap());
        tablefiles::put(tablefiles::backup(), mapOf({9, 11}));
        {
            const FullDisk full(room);
            user.click(qPrintable(button));
        }
        QVERIFY(tablefiles::content(tablefiles::working()) == oldMap());
        QVERIFY(tablefiles::content(tablefiles::backup()) == mapOf({9, 11}));
        QCOMPARE(tablefiles::entries(QStringLiteral("bpr")), kit::lines({"bpr_SN4711.bin"}));
    }

    void aFullDiskIsNotTold_data() { addRooms(); }

    void aFullDiskIsNotTold()
    {
        QFETCH(rlim_t, room);
        kit::Operator user;
        user.connectCamera();
        tablefiles::put(tablefiles::working(), oldMap());
        tablefiles::put(tablefiles::backup(), mapOf({9, 11}));
        {
            const FullDisk full(room);
            user.click("readBPRTableButton");
            user.click("resetBPRTableButton");
        }
        QCOMPARE(user.newLog(), (QStringList{QStringLiteral("Table written to ") +
                                                 tablefiles::full(tablefiles::working()),
                                             QStringLiteral("Table containing : 2 Bad Pixels"),
                                             QStringLiteral("BP table reset succeed.")}));
    }

    void aBackupIsMadeInFullOrNotAtAll_data() { addRooms(); }

    void aBackupIsMadeInFullOrNotAtAll()
    {
        QFETCH(rlim_t, room);
        kit::Operator user;
        user.connectCamera();
        {
            const FullDisk full(room);
            user.click("readBPRTableButton");
        }
        QCOMPARE(tablefiles::entries(QStringLiteral("bprBackup")), QStringList());
        // With room again, the next read makes up for it.
        user.click("readBPRTableButton");
        QVERIFY(tablefiles::content(tablefiles::backup()) == mapOf({5, 7}));
    }

    void aProgramThatDiesWritingLeavesTheOldFile_data()
    {
        QTest::addColumn<std::function<void()>>("write");
        QTest::addColumn<rlim_t>("room");
        const cv::Mat map = cv::Mat::zeros(480, 640, CV_8UC1);
        const std::function<void()> writeMap = [map] {
            bpr::writeMap(map, pathOf(tablefiles::working()));
        };
        const std::function<void()> copy = [] {
            bpr::copyFile(pathOf(tablefiles::backup()), pathOf(tablefiles::working()));
        };
        for (const rlim_t room : roomsLeft) {
            QTest::addRow("a map, room for %d", static_cast<int>(room)) << writeMap << room;
            QTest::addRow("a copy, room for %d", static_cast<int>(room)) << copy << room;
        }
    }

    void aProgramThatDiesWritingLeavesTheOldFile()
    {
        QFETCH(std::function<void()>, write);
        QFETCH(rlim_t, room);
        kit::Operator user;
        user.start();
        tablefiles::put(tablefiles::working(), oldMap());
        tablefiles::put(tablefiles::backup(), mapOf({9, 11}));
        QVERIFY(diesWriting(write, room));
        QVERIFY(tablefiles::content(tablefiles::working()) == oldMap());
        QVERIFY(tablefiles::content(tablefiles::backup()) == mapOf({9, 11}));
    }

    void aProgramThatDiesWritingTheBackupLeavesNone_data() { addRooms(); }

    void aProgramThatDiesWritingTheBackupLeavesNone()
    {
        QFETCH(rlim_t, room);
        kit::Operator user;
        user.connectCamera();
        const cv::Mat map = cv::Mat::zeros(480, 640, CV_8UC1);
        QVERIFY(diesWriting([&] { bpr::writeNewMap(map, pathOf(tablefiles::backup())); }, room));
        QVERIFY(!QFileInfo::exists(tablefiles::backup()));
        // The next read makes up for it.
        user.click("readBPRTableButton");
        QVERIFY(tablefiles::content(tablefiles::backup()) == mapOf({5, 7}));
    }
};

TAVREL_TEST_MAIN(TestTableSurvival)
#include "tst_tablesurvival.moc"
