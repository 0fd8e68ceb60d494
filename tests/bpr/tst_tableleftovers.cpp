// SPDX-License-Identifier: MIT
// What a program that is killed while it writes a map leaves behind, and who clears it away.
#include "bpr/files.h"
#include "tests/bpr/tablefiles.h"

#include <QtTest/QTest>

#include <csignal>
#include <memory>
#include <utility>

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace bpr = tavrel::bpr;

namespace {

/// What happens to the program when it has written everything and waits for the disk.
int signalBeforeTheEnd = 0;
/// A file that is gone when the program locks the next one.
const char* goneBeforeLocked = nullptr;

} // namespace

// The program's own fdatasync and flock come before the system's, for the libraries as well.
extern "C" [[gnu::visibility("default")]] int fdatasync(int file)
{
    using Sync = int (*)(int);
    static const auto systemSync = reinterpret_cast<Sync>(::dlsym(RTLD_NEXT, "fdatasync"));
    if (signalBeforeTheEnd != 0) {
        (void)std::raise(signalBeforeTheEnd);
    }
    return systemSync(file);
}

extern "C" [[gnu::visibility("default")]] int flock(int file, int operation) noexcept
{
    using Lock = int (*)(int, int);
    static const auto systemLock = reinterpret_cast<Lock>(::dlsym(RTLD_NEXT, "flock"));
    if (goneBeforeLocked != nullptr) {
        ::unlink(std::exchange(goneBeforeLocked, nullptr));
    }
    return systemLock(file, operation);
}

namespace {

std::string path(const char* name)
{
    return QDir::currentPath().toStdString() + '/' + name;
}

/// Another program that copies "source" to a file and is stopped or killed in the middle of it.
class Writer {
public:
    Writer(const char* destination, int signal) : process(::fork())
    {
        if (process == 0) {
            signalBeforeTheEnd = signal;
            ::_exit(bpr::copyFile(path("source"), path(destination)) ? 0 : 1);
        }
        if (::waitpid(process, &status, WUNTRACED) != process) {
            qFatal("no other program can be started");
        }
    }
    ~Writer()
    {
        if (WIFSTOPPED(status)) {
            ::kill(process, SIGKILL);
            ::waitpid(process, &status, 0);
        }
    }
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;

    [[nodiscard]] bool isStopped() const { return WIFSTOPPED(status); }
    [[nodiscard]] bool isKilled() const { return WIFSIGNALED(status); }

    /// Lets it go on; true when it said that it copied.
    bool finish()
    {
        ::kill(process, SIGCONT);
        return ::waitpid(process, &status, 0) == process && WIFEXITED(status) &&
               WEXITSTATUS(status) == 0;
    }

private:
    pid_t process;
    int status = 0;
};

QStringList now()
{
    return tablefiles::entries(QStringLiteral("."));
}

} // namespace

class TestTableLeftovers : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        workFolder = std::make_unique<tablefiles::WorkFolder>();
        tablefiles::put(QStringLiteral("source"), "new");
        tablefiles::put(QStringLiteral("copy"), "old");
        alone = now();
    }

    void cleanup() { workFolder.reset(); }

    void theNextWriteInAFolderClearsItUp_data()
    {
        QTest::addColumn<QString>("next");
        QTest::addRow("of the same file") << QStringLiteral("copy");
        QTest::addRow("of another file") << QStringLiteral("other");
    }

    void theNextWriteInAFolderClearsItUp()
    {
        QFETCH(QString, next);
        for (int kills = 0; kills < 3; ++kills) {
            QVERIFY(Writer("copy", SIGKILL).isKilled());
            QCOMPARE(tablefiles::content(QStringLiteral("copy")), QByteArray("old"));
            // Whoever writes clears up first, so that nothing piles up.
            QCOMPARE(now().size(), alone.size() + 1);
        }
        QVERIFY(bpr::copyFile(path("source"), path(qPrintable(next))));
        if (!alone.contains(next)) {
            alone.append(next);
            alone.sort();
        }
        QCOMPARE(now(), alone);
    }

    void whatAModeKeepsFromReadingIsClearedUpAsWell()
    {
        QVERIFY(::chmod("copy", S_IWUSR) == 0);
        QVERIFY(Writer("copy", SIGKILL).isKilled());
        QVERIFY(bpr::copyFile(path("source"), path("copy")));
        QCOMPARE(now(), alone);
    }

    void whatSeveralProgramsLeftIsClearedUpAtOnce()
    {
        {
            const Writer first("copy", SIGSTOP);
            const Writer second("copy", SIGSTOP);
            const Writer third("copy", SIGSTOP);
            QCOMPARE(now().size(), alone.size() + 3);
        }
        QCOMPARE(now().size(), alone.size() + 3);
        QVERIFY(bpr::copyFile(path("source"), path("copy")));
        QCOMPARE(now(), alone);
    }

    void aProgramThatStillWritesIsLeftAlone()
    {
        Writer other("other", SIGSTOP);
        QVERIFY(other.isStopped());
        const QStringList meanwhile = now();
        QCOMPARE(meanwhile.size(), alone.size() + 1);
        QVERIFY(bpr::copyFile(path("source"), path("copy")));
        QVERIFY(Writer("copy", SIGKILL).isKilled());
        QVERIFY(bpr::copyFile(path("source"), path("copy")));
        QCOMPARE(now(), meanwhile);
        QVERIFY(other.finish());
        QCOMPARE(tablefiles::content(QStringLiteral("other")), QByteArray("new"));
    }

    void twoProgramsThatWriteOneFileBothSucceed()
    {
        Writer first("copy", SIGSTOP);
        Writer second("copy", SIGSTOP);
        QVERIFY(second.finish());
        QVERIFY(first.finish());
        QCOMPARE(tablefiles::content(QStringLiteral("copy")), QByteArray("new"));
        QCOMPARE(now(), alone);
    }

    void aFileThatAnotherProgramClearedAwayTooEarlyIsMadeAgain()
    {
        goneBeforeLocked = ".tavrel-unfinished-map-0";
        QVERIFY(bpr::copyFile(path("source"), path("copy")));
        QVERIFY(goneBeforeLocked == nullptr);
        QCOMPARE(tablefiles::content(QStringLiteral("copy")), QByteArray("new"));
        QCOMPARE(now(), alone);
    }

    void withoutAFreeNameTheOldFileStays()
    {
        for (int number = 0; number < 1000; ++number) {
            const std::string name = ".tavrel-unfinished-map-" + std::to_string(number);
            QVERIFY(::symlink("source", name.c_str()) == 0);
        }
        QVERIFY(!bpr::copyFile(path("source"), path("copy")));
        QCOMPARE(tablefiles::content(QStringLiteral("copy")), QByteArray("old"));
        QCOMPARE(now().size(), alone.size() + 1000);
    }

    void filesOfTheOperatorStay()
    {
        for (const char* const name :
             {"copy.bak", "copy.tmp", "copy.AbCdEf", ".copy.AbCdEf", ".tavrel",
              ".tavrel-unfinished", "tavrel-unfinished-map-0", ".tavrel-unfinished-map-",
              ".tavrel-unfinished-map-mine", ".tavrel-unfinished-map-0.bak"}) {
            tablefiles::put(QString::fromLatin1(name), "mine");
        }
        const QStringList all = now();
        QVERIFY(bpr::copyFile(path("source"), path("copy")));
        QVERIFY(Writer("copy", SIGKILL).isKilled());
        QVERIFY(bpr::copyFile(path("source"), path("copy")));
        QCOMPARE(now(), all);
    }

    void whatIsNoFileIsNoLeftover()
    {
        QVERIFY(::symlink("source", ".tavrel-unfinished-map-0") == 0);
        QVERIFY(::mkfifo(".tavrel-unfinished-map-1", S_IRUSR | S_IWUSR) == 0);
        QVERIFY(::mkdir(".tavrel-unfinished-map-2", S_IRWXU) == 0);
        const QStringList all = now();
        QVERIFY(bpr::copyFile(path("source"), path("copy")));
        QCOMPARE(tablefiles::content(QStringLiteral("copy")), QByteArray("new"));
        QCOMPARE(tablefiles::content(QStringLiteral("source")), QByteArray("new"));
        QCOMPARE(now(), all);
    }

    void whatIsBesideTheFileALinkLeadsToIsClearedUp()
    {
        QVERIFY(QDir().mkdir(QStringLiteral("elsewhere")));
        tablefiles::put(QStringLiteral("elsewhere/kept"), "old");
        QVERIFY(::symlink("elsewhere/kept", "link") == 0);
        QVERIFY(Writer("link", SIGKILL).isKilled());
        QCOMPARE(tablefiles::entries(QStringLiteral("elsewhere")).size(), 2);
        QVERIFY(bpr::copyFile(path("source"), path("link")));
        QCOMPARE(tablefiles::entries(QStringLiteral("elsewhere")),
                 QStringList(QStringLiteral("kept")));
        QCOMPARE(tablefiles::content(QStringLiteral("elsewhere/kept")), QByteArray("new"));
    }

private:
    std::unique_ptr<tablefiles::WorkFolder> workFolder;
    QStringList alone;
};

QTEST_APPLESS_MAIN(TestTableLeftovers)
#include "tst_tableleftovers.moc"
