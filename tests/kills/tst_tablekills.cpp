// SPDX-License-Identifier: MIT
// Kills at any moment of the work with map files: TAVREL_KILLS times in each case a program reads
// and resets the table over and over, at the real window, until it is killed. Each one goes on from
// what the one before left behind.
#include "tests/bpr/failingrename.h"
#include "tests/bpr/fulldisk.h"
#include "tests/bpr/tablefiles.h"
#include "tests/kit/operator.h"
#include "tests/kit/rights.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QRandomGenerator>
#include <QtWidgets/QPushButton>

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <functional>
#include <thread>

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using std::chrono::microseconds;
using tablefiles::mapOf;

namespace {

bool namelessFiles = true;

} // namespace

// The program's own open comes before the system's, for the libraries as well.
extern "C" [[gnu::visibility("default")]] int open64(const char* path, int flags, ...)
{
    using Open = int (*)(const char*, int, ...);
    static const auto systemOpen = reinterpret_cast<Open>(::dlsym(RTLD_NEXT, "open64"));
    std::va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = va_arg(arguments, mode_t);
    va_end(arguments);
    if (!namelessFiles && (flags & O_TMPFILE) == O_TMPFILE) {
        errno = EOPNOTSUPP;
        return -1;
    }
    return systemOpen(path, flags, mode);
}

namespace {

struct Case {
    const char* name;
    std::function<void()> prepare = [] {
    };
    std::function<void()> inProgram = [] {
    };                    ///< before its work begins
    bool resets = true;   ///< false: it only reads, the backup as well
    bool mayTear = false; ///< written over in place
    bool mayChange = true;
};

void setMode(const QString& path, mode_t mode)
{
    if (::chmod(QFile::encodeName(path), mode) != 0) {
        qFatal("%s keeps its mode", qPrintable(path));
    }
}

void moveBehindALink()
{
    const QString elsewhere = QStringLiteral("elsewhere");
    const bool moved = QDir().mkdir(elsewhere) &&
                       QFile::rename(tablefiles::working(), elsewhere + QStringLiteral("/map")) &&
                       QFile::link(QStringLiteral("../elsewhere/map"), tablefiles::working());
    if (!moved) {
        qFatal("the link cannot be prepared");
    }
}

const std::vector<Case>& cases()
{
    static const std::vector<Case> all = {
        {.name = "working copy replaced"},
        {.name = "working copy behind a link", .prepare = moveBehindALink},
        {.name = "working copy and first backup", .resets = false},
        {.name = "disk without files without a name",
         .inProgram =
             [] {
                 namelessFiles = false;
             }},
        {.name = "disk full",
         .inProgram = [] { static const tablefiles::FullDisk full(100000); },
         .mayChange = false},
        {.name = "working copy read-only",
         .prepare = [] { setMode(tablefiles::working(), S_IRUSR); },
         .resets = false,
         .mayChange = false},
        {.name = "folder that takes no new file, in place",
         .prepare = [] { setMode(QStringLiteral("bpr"), S_IRUSR | S_IXUSR); },
         .mayTear = true},
        {.name = "place that no other file can take, in place",
         .inProgram = [] { static const tablefiles::FailingRename failing; },
         .mayTear = true},
    };
    return all;
}

/// Recognisable in every part.
QByteArray firstMap()
{
    return QByteArray(tablefiles::mapSize, '\2');
}
QByteArray backupMap()
{
    return QByteArray(tablefiles::mapSize, '\1');
}
QByteArray cameraMap()
{
    return mapOf({5, 7});
}

bool isWhole(const QByteArray& map)
{
    return map == firstMap() || map == backupMap() || map == cameraMap();
}

/// The unfinished files in all folders.
int unfinished()
{
    int found = 0;
    for (const char* const folder : {"bpr", "bprBackup", "elsewhere"}) {
        for (const QString& name : tablefiles::entries(QString::fromLatin1(folder))) {
            found += name.endsWith(QLatin1String(".bin")) || name == QLatin1String("map") ? 0 : 1;
        }
    }
    return found;
}

/// One round of what the program does.
void work(kit::Operator& user, const Case& how)
{
    if (how.resets) {
        user.find<QPushButton>("resetBPRTableButton").click();
    } else if (how.mayChange) {
        QFile::remove(tablefiles::backup());
    }
    user.find<QPushButton>("readBPRTableButton").click();
}

/// Starts the program and kills it after a while. False when it ended by itself.
bool killAfter(microseconds time, kit::Operator& user, const Case& how)
{
    int ready[2] = {};
    if (::pipe2(ready, O_CLOEXEC) != 0) {
        qFatal("no pipe");
    }
    const pid_t program = ::fork();
    if (program == 0) {
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        how.inProgram();
        (void)!::write(ready[1], "", 1);
        for (;;) {
            work(user, how);
        }
    }
    ::close(ready[1]);
    char byte = 0;
    const bool begun = program > 0 && ::read(ready[0], &byte, 1) == 1;
    ::close(ready[0]);
    std::this_thread::sleep_for(time);
    int status = 0;
    return begun && ::kill(program, SIGKILL) == 0 && ::waitpid(program, &status, 0) == program &&
           WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
}

} // namespace

class TestTableKills : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        bool given = false;
        kills = qEnvironmentVariableIntValue("TAVREL_KILLS", &given);
        kills = given ? kills : 12;
        std::puts("| Case | Kills | Whole | Torn | Unfinished file left | Most at once |\n"
                  "|---|---:|---:|---:|---:|---:|");
    }

    void aKilledProgramLeavesTheOldMapOrTheNewOne_data()
    {
        QTest::addColumn<int>("number");
        for (std::size_t number = 0; number < cases().size(); ++number) {
            QTest::addRow("%s", cases().at(number).name) << static_cast<int>(number);
        }
    }

    void aKilledProgramLeavesTheOldMapOrTheNewOne()
    {
        QFETCH(int, number);
        const Case& how = cases().at(static_cast<std::size_t>(number));
        kit::Operator user;
        user.connectCamera();
        tablefiles::put(tablefiles::working(), firstMap());
        tablefiles::put(tablefiles::backup(), backupMap());
        const microseconds longest = 2 * roundTime(user, how);
        tablefiles::put(tablefiles::working(), firstMap());
        how.prepare();

        int torn = 0;
        int left = 0;
        int mostAtOnce = 0;
        for (int kill = 0; kill < kills; ++kill) {
            const auto time =
                QRandomGenerator::global()->bounded(static_cast<double>(longest.count()));
            QVERIFY(killAfter(microseconds(static_cast<qint64>(time)), user, how));
            const QByteArray map = tablefiles::content(tablefiles::working());
            QCOMPARE(map.size(), tablefiles::mapSize);
            QVERIFY(how.mayChange || map == firstMap());
            torn += isWhole(map) ? 0 : 1;
            const QByteArray backup = tablefiles::content(tablefiles::backup());
            QVERIFY(how.resets ? backup == backupMap() : backup.isNull() || isWhole(backup));
            left += unfinished() > 0 ? 1 : 0;
            mostAtOnce = qMax(mostAtOnce, unfinished());
        }
        std::printf("| %s | %d | %d | %d | %d | %d |\n", how.name, kills, kills - torn, torn, left,
                    mostAtOnce);
        std::fflush(stdout);
        QVERIFY(how.mayTear || torn == 0);
        // One in each folder at most; the next read clears up and makes whole.
        QVERIFY(mostAtOnce <= (how.resets ? 1 : 2));
        setMode(QStringLiteral("bpr"), S_IRWXU);
        setMode(tablefiles::working(), S_IRUSR | S_IWUSR);
        QFile::remove(tablefiles::backup());
        user.find<QPushButton>("readBPRTableButton").click();
        QVERIFY(tablefiles::content(tablefiles::working()) == cameraMap());
        QVERIFY(tablefiles::content(tablefiles::backup()) == cameraMap());
        QCOMPARE(unfinished(), 0);
    }

private:
    /// How long a round takes here, with this load and this disk.
    static microseconds roundTime(kit::Operator& user, const Case& how)
    {
        constexpr int rounds = 10;
        QElapsedTimer timer;
        timer.start();
        for (int round = 0; round < rounds; ++round) {
            work(user, how);
        }
        return microseconds(timer.nsecsElapsed() / 1000 / rounds);
    }

    int kills = 0;
};

int main(int argc, char* argv[])
{
    if (!kit::giveUpRights()) {
        qFatal("the superuser's rights cannot be given up");
    }
    kit::prepareProcess();
    QApplication application(argc, argv);
    TestTableKills test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_tablekills.moc"
