// SPDX-License-Identifier: MIT
// Paths and files of the bad pixel table as Linux knows them: names of any bytes and any length,
// directories that go, links.
#include "app/platform.h"
#include "bpr/files.h"
#include "tests/bpr/tablefiles.h"

#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <array>
#include <memory>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace bpr = tavrel::bpr;
using tavrel::platform::currentDirectory;

namespace {

std::string inDirectory(const char* name)
{
    return currentDirectory() + '/' + name;
}

} // namespace

class TestTableFilesLinux : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        directory = std::make_unique<QTemporaryDir>();
        QVERIFY(QDir::setCurrent(directory->path()));
    }

    void cleanup() { QVERIFY(QDir::setCurrent(QDir::tempPath())); }

    void noCharacterIsTrimmedAtTheRoot()
    {
        QVERIFY(QDir::setCurrent(QStringLiteral("/")));
        QCOMPARE(bpr::pathInFolder("bpr", "name"), std::string("//bpr/name"));
    }

    void aDeletedDirectoryIsTheEmptyText()
    {
        QVERIFY(directory->remove());
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

    void aDeviceIsWrittenToAndStaysADevice()
    {
        tablefiles::put(QStringLiteral("source"), "content");
        QVERIFY(::mkfifo("pipe", S_IRUSR | S_IWUSR) == 0);
        const int pipe = ::open("pipe", O_RDWR | O_NONBLOCK | O_CLOEXEC);
        QVERIFY(pipe >= 0);
        QVERIFY(bpr::copyFile(inDirectory("source"), inDirectory("pipe")));
        std::array<char, 16> written{};
        const ssize_t length = ::read(pipe, written.data(), written.size());
        ::close(pipe);
        QCOMPARE(QByteArray(written.data(), static_cast<int>(length)), QByteArray("content"));
        struct stat status {};
        QVERIFY(::stat("pipe", &status) == 0 && S_ISFIFO(status.st_mode));
    }

private:
    std::unique_ptr<QTemporaryDir> directory;
};

QTEST_APPLESS_MAIN(TestTableFilesLinux)
#include "tst_tablefiles_linux.moc"
