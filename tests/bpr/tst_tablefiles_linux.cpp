// SPDX-License-Identifier: MIT
// Paths and files of the bad pixel table as Linux knows them: names of any bytes and any length,
// directories that go, links, pipes and devices, modes and owners, limits.
#include "app/platform.h"
#include "bpr/files.h"
#include "tests/bpr/oddfolder.h"
#include "tests/bpr/tablefiles.h"

#include <QtCore/QProcess>
#include <QtTest/QTest>

#include <opencv2/core.hpp>

#include <array>
#include <functional>
#include <memory>
#include <new>

#include <fcntl.h>
#include <grp.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace bpr = tavrel::bpr;
using tablefiles::OddFolder;
using tavrel::platform::currentDirectory;

namespace {

std::string inDirectory(const char* name)
{
    return currentDirectory() + '/' + name;
}

struct stat statusOf(const char* name)
{
    struct stat status {};
    if (::stat(name, &status) != 0) {
        qFatal("%s is not there", name);
    }
    return status;
}

bool setAccessList(const char* name, const char* kind, const QByteArray& list)
{
    return ::setxattr(name, kind, list.constData(), static_cast<std::size_t>(list.size()), 0) == 0;
}

QByteArray accessListOf(const char* name)
{
    std::array<char, 1000> list{};
    const ssize_t size = ::getxattr(name, "system.posix_acl_access", list.data(), list.size());
    return {list.data(), size < 0 ? 0 : static_cast<int>(size)};
}

/// For its lifetime a file can be opened to append something and for nothing else, if this program
/// may ask for it and the disk knows it.
class OnlyToAppend {
public:
    explicit OnlyToAppend(const char* name) : file(::open(name, O_RDONLY | O_CLOEXEC))
    {
        isSet = set(FS_APPEND_FL);
    }
    ~OnlyToAppend()
    {
        (void)set(0);
        ::close(file);
    }
    OnlyToAppend(const OnlyToAppend&) = delete;
    OnlyToAppend& operator=(const OnlyToAppend&) = delete;

    [[nodiscard]] bool works() const { return isSet; }

private:
    [[nodiscard]] bool set(int wanted) const
    {
        int flags = 0;
        if (::ioctl(file, FS_IOC_GETFLAGS, &flags) != 0) {
            return false;
        }
        flags = (flags & ~FS_APPEND_FL) | wanted;
        return ::ioctl(file, FS_IOC_SETFLAGS, &flags) == 0;
    }

    int file;
    bool isSet;
};

/// For its lifetime this program can open so many files more.
class FewFiles {
public:
    explicit FewFiles(rlim_t more)
    {
        ::getrlimit(RLIMIT_NOFILE, &before);
        const int next = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
        ::close(next);
        rlimit few = before;
        few.rlim_cur = static_cast<rlim_t>(next) + more;
        ::setrlimit(RLIMIT_NOFILE, &few);
    }
    ~FewFiles() { ::setrlimit(RLIMIT_NOFILE, &before); }
    FewFiles(const FewFiles&) = delete;
    FewFiles& operator=(const FewFiles&) = delete;

private:
    rlimit before{};
};

/// For its lifetime the superuser is an ordinary user who belongs to one more group.
class OrdinaryUser {
public:
    explicit OrdinaryUser(gid_t group)
    {
        constexpr uid_t nobody = 65534;
        if (::setgroups(1, &group) != 0 || ::setegid(nobody) != 0 || ::seteuid(nobody) != 0) {
            qFatal("the superuser's rights cannot be given up");
        }
    }
    ~OrdinaryUser()
    {
        if (::seteuid(0) != 0 || ::setegid(0) != 0 || ::setgroups(0, nullptr) != 0) {
            qFatal("the superuser's rights cannot be had back");
        }
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;
};

/// Runs an action in a child process that gets this much memory more and no more.
bool succeedsWithin(rlim_t memory, const std::function<bool()>& action)
{
    const pid_t child = ::fork();
    if (child == 0) {
        QFile sizes(QStringLiteral("/proc/self/statm"));
        const bool known = sizes.open(QIODevice::ReadOnly);
        const rlim_t pages = sizes.readAll().split(' ').constFirst().toULong();
        const rlim_t most = pages * static_cast<rlim_t>(::sysconf(_SC_PAGESIZE)) + memory;
        const rlimit limit{most, most};
        try {
            ::_exit(known && ::setrlimit(RLIMIT_AS, &limit) == 0 && action() ? 0 : 1);
        } catch (const std::bad_alloc&) {
            ::_exit(1);
        }
    }
    int status = 0;
    return child > 0 && ::waitpid(child, &status, 0) == child && status == 0;
}

} // namespace

class TestTableFilesLinux : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        workFolder = std::make_unique<tablefiles::WorkFolder>();
        ::alarm(100); // Who waits for the other end of a pipe ends.
    }

    void cleanup()
    {
        ::alarm(0);
        workFolder.reset();
    }

    void noCharacterIsTrimmedAtTheRoot()
    {
        QVERIFY(QDir::setCurrent(QStringLiteral("/")));
        QCOMPARE(bpr::pathInFolder("bpr", "name"), std::string("//bpr/name"));
    }

    void aDeletedDirectoryIsTheEmptyText()
    {
        QVERIFY(workFolder->remove());
        QCOMPARE(currentDirectory(), std::string());
        QCOMPARE(bpr::pathInFolder("bpr", "name"), std::string("/bpr/name"));
    }

    void aDirectoryOfAnyLengthIsNamedInFull()
    {
        const QString name(200, QLatin1Char('d'));
        std::string expected = currentDirectory();
        for (int depth = 0; depth < 3; ++depth) {
            QVERIFY(QDir().mkdir(name));
            QVERIFY(QDir::setCurrent(name));
            expected += '/' + name.toStdString();
        }
        QCOMPARE(currentDirectory(), expected);
    }

    void aDirectoryIsNamedByTheSystemsBytes()
    {
        const std::string name = "\xC5\xBC\xC3\xB3\xC5\x82w \xFF";
        QVERIFY(::mkdir(name.c_str(), S_IRWXU) == 0);
        const std::string above = currentDirectory();
        QVERIFY(::chdir(name.c_str()) == 0);
        const std::string current = currentDirectory();
        // Qt could not remove a folder whose name is no text.
        QVERIFY(::chdir("..") == 0 && ::rmdir(name.c_str()) == 0);
        QCOMPARE(current, above + '/' + name);
    }

    void aLinkIsAsGoodAsTheFileItLeadsTo()
    {
        tablefiles::put(QStringLiteral("full"), "content");
        QVERIFY(QFile::link(QStringLiteral("full"), QStringLiteral("link")));
        QVERIFY(QFile::link(QStringLiteral("nothing"), QStringLiteral("broken")));
        QVERIFY(bpr::fileExists(inDirectory("link")));
        QVERIFY(!bpr::fileExists(inDirectory("broken")));
    }

    void aLinkKeepsItsPlaceAndItsFileTheContent()
    {
        QVERIFY(QDir().mkdir(QStringLiteral("elsewhere")));
        tablefiles::put(QStringLiteral("elsewhere/kept"), "old");
        tablefiles::put(QStringLiteral("source"), "new");
        QVERIFY(QFile::link(QStringLiteral("elsewhere/kept"), QStringLiteral("copy")));
        QVERIFY(bpr::copyFile(inDirectory("source"), inDirectory("copy")));
        QVERIFY(QFileInfo(QStringLiteral("copy")).isSymLink());
        QCOMPARE(tablefiles::content(QStringLiteral("elsewhere/kept")), QByteArray("new"));
    }

    void onlyARegularFileIsOpened_data()
    {
        QTest::addColumn<QString>("name");
        for (const char* const name : {"pipe", "pipe at work", "device", "socket", "folder"}) {
            QTest::addRow("%s", name) << QString::fromLatin1(name);
        }
    }

    void onlyARegularFileIsOpened()
    {
        QFETCH(QString, name);
        const QByteArray entry = name.toLatin1();
        // A pipe that somebody writes to and reads from can be opened at once, one that nobody has
        // open lets who opens it wait.
        const mode_t own = S_IRUSR | S_IWUSR;
        const int atWork = ::mkfifo("pipe at work", own) == 0
                               ? ::open("pipe at work", O_RDWR | O_NONBLOCK | O_CLOEXEC)
                               : -1;
        QVERIFY(atWork >= 0 && ::mkfifo("pipe", own) == 0 && ::symlink("/dev/null", "device") == 0);
        QVERIFY(::mknod("socket", S_IFSOCK | own, 0) == 0 && ::mkdir("folder", S_IRWXU) == 0);
        tablefiles::put(QStringLiteral("file"), "content");
        const QStringList before = tablefiles::entries(QStringLiteral("."));

        QVERIFY(!bpr::fileExists(inDirectory(entry)));
        QVERIFY(!bpr::copyFile(inDirectory(entry), inDirectory("file")));
        QVERIFY(!bpr::copyFile(inDirectory("file"), inDirectory(entry)));
        bpr::writeMap(cv::Mat::zeros(480, 640, CV_8UC1), inDirectory(entry));
        bpr::writeNewMap(cv::Mat::zeros(480, 640, CV_8UC1), inDirectory(entry));

        std::array<char, 16> written{};
        const ssize_t length = ::read(atWork, written.data(), written.size());
        ::close(atWork);
        QCOMPARE(length, ssize_t{-1});
        QCOMPARE(tablefiles::content(QStringLiteral("file")), QByteArray("content"));
        QCOMPARE(tablefiles::entries(QStringLiteral(".")), before);
        struct stat status {};
        QVERIFY(::stat(entry.constData(), &status) == 0 && !S_ISREG(status.st_mode));
    }

    void aLinkThatLeadsToItselfIsRefused()
    {
        tablefiles::put(QStringLiteral("source"), "new");
        QVERIFY(::symlink("loop", "loop") == 0);
        QVERIFY(!bpr::fileExists(inDirectory("loop")));
        QVERIFY(!bpr::copyFile(inDirectory("source"), inDirectory("loop")));
        bpr::writeMap(cv::Mat::zeros(480, 640, CV_8UC1), inDirectory("loop"));
        QCOMPARE(tablefiles::entries(QStringLiteral(".")),
                 (QStringList{QStringLiteral("loop"), QStringLiteral("source")}));
        QVERIFY(QFileInfo(QStringLiteral("loop")).isSymLink());
    }

    void aLinkToNothingIsFollowedToWhereItsFileBelongs()
    {
        QVERIFY(QDir().mkdir(QStringLiteral("elsewhere")));
        tablefiles::put(QStringLiteral("source"), "new");
        QVERIFY(::symlink("elsewhere/second", "first") == 0);
        QVERIFY(::symlink("kept", "elsewhere/second") == 0);
        QVERIFY(bpr::copyFile(inDirectory("source"), inDirectory("first")));
        QCOMPARE(tablefiles::content(QStringLiteral("elsewhere/kept")), QByteArray("new"));
        QVERIFY(QFileInfo(QStringLiteral("elsewhere/second")).isSymLink());
    }

    void aProgramThatRunsIsNotOverwritten()
    {
        tablefiles::put(QStringLiteral("source"), "new");
        QVERIFY(QFile::copy(QStringLiteral("/bin/sleep"), QStringLiteral("running")));
        QProcess program;
        program.start(QStringLiteral("./running"), {QStringLiteral("60")});
        QVERIFY(program.waitForStarted());
        const bool copied = bpr::copyFile(inDirectory("source"), inDirectory("running"));
        program.kill();
        QVERIFY(program.waitForFinished());
        QVERIFY(!copied);
        QVERIFY(tablefiles::content(QStringLiteral("running")).size() > 3);
    }

    void aFileThatCanOnlyGrowIsRefused()
    {
        tablefiles::put(QStringLiteral("source"), "new");
        tablefiles::put(QStringLiteral("copy"), "old");
        const OnlyToAppend copy("copy");
        if (!copy.works()) {
            QSKIP("only the superuser can make such a file, and not on every disk");
        }
        QVERIFY(!bpr::copyFile(inDirectory("source"), inDirectory("copy")));
        bpr::writeMap(cv::Mat::zeros(480, 640, CV_8UC1), inDirectory("copy"));
        QCOMPARE(tablefiles::content(QStringLiteral("copy")), QByteArray("old"));
        QCOMPARE(tablefiles::entries(QStringLiteral(".")),
                 (QStringList{QStringLiteral("copy"), QStringLiteral("source")}));
    }

    void withoutASecondFileTheOldOneStays()
    {
        tablefiles::put(QStringLiteral("source"), "new");
        tablefiles::put(QStringLiteral("copy"), "old");
        for (rlim_t files = 0; files < 4; ++files) {
            bool copied = false;
            {
                const FewFiles few(files);
                copied = bpr::copyFile(inDirectory("source"), inDirectory("copy"));
            }
            QVERIFY(!copied);
            QCOMPARE(tablefiles::content(QStringLiteral("copy")), QByteArray("old"));
            QCOMPARE(tablefiles::entries(QStringLiteral(".")),
                     (QStringList{QStringLiteral("copy"), QStringLiteral("source")}));
        }
        const FewFiles enough(4);
        QVERIFY(bpr::copyFile(inDirectory("source"), inDirectory("copy")));
    }

    void aCopyOfAnySizeTakesTheSameMemory()
    {
        constexpr off_t size = (off_t{1} << 31) + (1 << 20);
        const int source = ::open("source", O_WRONLY | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR);
        QVERIFY(::ftruncate(source, size) == 0);
        QVERIFY(::pwrite(source, "begin", 5, 0) == 5 && ::pwrite(source, "end", 3, size - 3) == 3);
        ::close(source);
        tablefiles::put(QStringLiteral("copy"), "old");
        QVERIFY(succeedsWithin(
            64 << 20, [] { return bpr::copyFile(inDirectory("source"), inDirectory("copy")); }));
        QFile copy(QStringLiteral("copy"));
        QVERIFY(copy.open(QIODevice::ReadOnly));
        QCOMPARE(copy.size(), qint64{size});
        QCOMPARE(copy.read(6), QByteArray("begin\0", 6));
        QVERIFY(copy.seek(size - 4));
        QCOMPARE(copy.readAll(), QByteArray("\0end", 4));
        // The holes of the source fill no disk.
        struct stat status {};
        QVERIFY(::stat("copy", &status) == 0 && status.st_blocks * 512 < (4 << 20));
    }

    void aFolderWhoseNameIsNoTextIsWorkedIn()
    {
        const OddFolder folder;
        tablefiles::put(QStringLiteral("source"), "content");
        const std::string working = bpr::pathInFolder("bpr", "name");
        QVERIFY(::mkdir("bpr", S_IRWXU) == 0);
        QVERIFY(bpr::fileExists(inDirectory("source")));
        QVERIFY(!bpr::fileExists(working));
        QVERIFY(bpr::copyFile(inDirectory("source"), working));
        QVERIFY(bpr::fileExists(working));
        QCOMPARE(tablefiles::content(QStringLiteral("bpr/name")), QByteArray("content"));
        bpr::writeMap(cv::Mat::zeros(480, 640, CV_8UC1), working);
        QCOMPARE(tablefiles::content(QStringLiteral("bpr/name")).size(), tablefiles::mapSize);
        bpr::writeNewMap(cv::Mat::zeros(480, 640, CV_8UC1), bpr::pathInFolder("bpr", "new"));
        QCOMPARE(tablefiles::entries(QStringLiteral("bpr")),
                 (QStringList{QStringLiteral("name"), QStringLiteral("new")}));
    }

    void aLinkIntoAFolderWhoseNameIsNoTextIsFollowed()
    {
        tablefiles::put(QStringLiteral("source"), "new");
        const OddFolder folder;
        tablefiles::put(QStringLiteral("kept"), "old");
        QVERIFY(::chdir("..") == 0);
        QVERIFY(::symlink((std::string(OddFolder::name) + "/kept").c_str(), "copy") == 0);
        QVERIFY(bpr::copyFile(inDirectory("source"), inDirectory("copy")));
        QVERIFY(::chdir(OddFolder::name) == 0);
        QCOMPARE(tablefiles::content(QStringLiteral("kept")), QByteArray("new"));
    }

    void aFileKeepsItsMode_data()
    {
        QTest::addColumn<mode_t>("mode");
        for (const mode_t mode : {0600U, 0640U, 0664U, 0666U, 0200U, 02660U, 04755U, 01644U}) {
            QTest::addRow("%04o", mode) << mode;
        }
    }

    void aFileKeepsItsMode()
    {
        QFETCH(mode_t, mode);
        tablefiles::put(QStringLiteral("source"), "new");
        tablefiles::put(QStringLiteral("copy"), "old");
        QVERIFY(::chmod("copy", mode) == 0);
        QVERIFY(bpr::copyFile(inDirectory("source"), inDirectory("copy")));
        QCOMPARE(statusOf("copy").st_mode & 07777U, mode);
        bpr::writeMap(cv::Mat::zeros(480, 640, CV_8UC1), inDirectory("copy"));
        QCOMPARE(statusOf("copy").st_mode & 07777U, mode);
    }

    void aNewFileGetsTheModeThatTheSystemGivesNewFiles()
    {
        tablefiles::put(QStringLiteral("source"), "new");
        const mode_t before = ::umask(027);
        const bool copied = bpr::copyFile(inDirectory("source"), inDirectory("copy"));
        ::umask(before);
        QVERIFY(copied);
        QCOMPARE(statusOf("copy").st_mode & 07777U, mode_t{0640});
    }

    void aFileKeepsItsOwner()
    {
        constexpr uid_t other = 65533;
        tablefiles::put(QStringLiteral("source"), "new");
        tablefiles::put(QStringLiteral("copy"), "old");
        if (::chown("copy", other, other) != 0) {
            QSKIP("only the superuser can give files away");
        }
        QVERIFY(::chmod("copy", 06755) == 0);
        QVERIFY(bpr::copyFile(inDirectory("source"), inDirectory("copy")));
        QCOMPARE(statusOf("copy").st_uid, other);
        QCOMPARE(statusOf("copy").st_gid, other);
        QCOMPARE(statusOf("copy").st_mode & 07777U, mode_t{06755});
    }

    void aFileOfSomebodyElseKeepsItsGroup()
    {
        constexpr uid_t other = 65533;
        constexpr gid_t shared = 65532;
        tablefiles::put(QStringLiteral("source"), "new");
        tablefiles::put(QStringLiteral("copy"), "old");
        if (::chown("copy", other, shared) != 0) {
            QSKIP("only the superuser can give files away");
        }
        QVERIFY(::chmod("copy", 0660) == 0 && ::chmod(".", 0777) == 0);
        const OrdinaryUser user(shared);
        QVERIFY(bpr::copyFile(inDirectory("source"), inDirectory("copy")));
        QCOMPARE(tablefiles::content(QStringLiteral("copy")), QByteArray("new"));
        QCOMPARE(statusOf("copy").st_gid, shared);
        QCOMPARE(statusOf("copy").st_mode & 07777U, mode_t{0660});
    }

    void aFileKeepsItsAccessList()
    {
        // Version 2; owner: read and write, user 65533: read, group: nothing, at most: read,
        // others: nothing.
        const QByteArray list = QByteArray::fromHex("02000000"
                                                    "01000600ffffffff"
                                                    "02000400fdff0000"
                                                    "04000000ffffffff"
                                                    "10000400ffffffff"
                                                    "20000000ffffffff");
        tablefiles::put(QStringLiteral("source"), "new");
        tablefiles::put(QStringLiteral("copy"), "old");
        tablefiles::put(QStringLiteral("plain"), "old");
        if (!setAccessList("copy", "system.posix_acl_access", list)) {
            QSKIP("this disk knows no access lists");
        }
        // What the folder would give to a new file: the same with another user.
        QByteArray others = list;
        others.replace(QByteArray::fromHex("fdff"), QByteArray::fromHex("fcff"));
        QVERIFY(setAccessList(".", "system.posix_acl_default", others));
        QVERIFY(bpr::copyFile(inDirectory("source"), inDirectory("copy")));
        QVERIFY(bpr::copyFile(inDirectory("source"), inDirectory("plain")));
        QCOMPARE(accessListOf("copy"), list);
        QCOMPARE(accessListOf("plain"), QByteArray());
    }

private:
    std::unique_ptr<tablefiles::WorkFolder> workFolder;
};

QTEST_APPLESS_MAIN(TestTableFilesLinux)
#include "tst_tablefiles_linux.moc"
