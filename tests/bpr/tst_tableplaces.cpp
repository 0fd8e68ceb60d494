// SPDX-License-Identifier: MIT
// The bad pixel table at the window, where its files are not what they should be: pipes and devices
// in their places, links that lead nowhere, folders whose names are no text.
#include "tests/bpr/oddfolder.h"
#include "tests/bpr/tablefiles.h"
#include "tests/kit/operator.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using tablefiles::mapOf;

namespace {

constexpr mode_t own = S_IRUSR | S_IWUSR;

kit::Box boxWithBackup(const char* before, const char* after)
{
    return {.title = "BP table",
            .text = before + (" (" + tablefiles::full(tablefiles::backup()).toStdString()) + ")" +
                    after};
}

/// Puts something in a place that is no file; who opens a pipe waits for its other end.
void putNoFile(const QString& kind, const QString& path)
{
    const QByteArray name = QFile::encodeName(path);
    const bool made = kind == QLatin1String("pipe")     ? ::mkfifo(name, own) == 0
                      : kind == QLatin1String("device") ? ::symlink("/dev/zero", name) == 0
                                                        : ::mknod(name, S_IFSOCK | own, 0) == 0;
    if (!made) {
        qFatal("%s cannot be prepared", name.constData());
    }
}

void addKinds()
{
    QTest::addColumn<QString>("kind");
    for (const char* const kind : {"pipe", "device", "socket"}) {
        QTest::addRow("%s", kind) << QString::fromLatin1(kind);
    }
}

} // namespace

class TestTablePlaces : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { ::alarm(100); } // Who waits for the other end of a pipe ends.
    void cleanup() { ::alarm(0); }

    void aBackupThatIsNoFileIsNone_data() { addKinds(); }

    void aBackupThatIsNoFileIsNone()
    {
        QFETCH(QString, kind);
        kit::Operator user;
        user.connectCamera();
        tablefiles::put(tablefiles::working(), mapOf({1}));
        putNoFile(kind, tablefiles::backup());
        user.expectBox(boxWithBackup("No backup BP table file found", "."));
        user.click("resetBPRTableButton");
        QCOMPARE(user.newLog(), QStringList());
        QVERIFY(tablefiles::content(tablefiles::working()) == mapOf({1}));
        QVERIFY(QFile::remove(tablefiles::working()));
        user.expectBox({.title = "BP table", .text = "No BP table file found."});
        user.click("addBadPixelButton");
    }

    void aReadLeavesABackupThatIsNoFile_data() { addKinds(); }

    void aReadLeavesABackupThatIsNoFile()
    {
        QFETCH(QString, kind);
        kit::Operator user;
        user.connectCamera();
        putNoFile(kind, tablefiles::backup());
        user.click("readBPRTableButton");
        QVERIFY(tablefiles::content(tablefiles::working()) == mapOf({5, 7}));
        struct stat status {};
        QVERIFY(::stat(QFile::encodeName(tablefiles::backup()), &status) == 0);
        QVERIFY(!S_ISREG(status.st_mode));
    }

    void aWorkingCopyThatIsNoFileEndsTheOperation_data() { addKinds(); }

    void aWorkingCopyThatIsNoFileEndsTheOperation()
    {
        QFETCH(QString, kind);
        kit::Operator user;
        user.connectCamera();
        tablefiles::put(tablefiles::backup(), mapOf({9, 11}));
        putNoFile(kind, tablefiles::working());
        for (const char* const button : {"addBadPixelButton", "writeBPRTableButton"}) {
            user.expectBox(
                boxWithBackup("Unable to use the backup BP table", ". No BP table file found."));
            user.click(button);
        }
        user.expectBox(boxWithBackup("Unable to use the backup BP table", "."));
        user.click("resetBPRTableButton");
        QCOMPARE(user.calls(), QStringList());
        QCOMPARE(user.newLog(), QStringList());
    }

    void aReplacementThatIsNoFileIsNotSent_data() { addKinds(); }

    void aReplacementThatIsNoFileIsNotSent()
    {
        QFETCH(QString, kind);
        kit::Operator user;
        user.connectCamera();
        tablefiles::put(tablefiles::working(), mapOf({5, 7}));
        putNoFile(kind, QStringLiteral("replbp.bin"));
        user.expectBox({.title = "BP table", .text = "Unable to open replbp.bin"});
        user.click("writeBPRTableButton");
        QCOMPARE(user.sdk.count("camera.writeTableData"), 0);
    }

    void aLinkToTheReplacementIsFollowed()
    {
        kit::Operator user;
        user.connectCamera();
        tablefiles::put(tablefiles::working(), mapOf({5, 7}));
        tablefiles::put(QStringLiteral("kept"), "12345678");
        QVERIFY(QFile::link(QStringLiteral("kept"), QStringLiteral("replbp.bin")));
        user.click("writeBPRTableButton");
        QCOMPARE(user.sdk.count("camera.writeTableData"), 1);
    }

    void aResetToALinkThatLeadsToItselfIsToldByABox()
    {
        kit::Operator user;
        user.connectCamera();
        tablefiles::put(tablefiles::backup(), mapOf({9, 11}));
        QVERIFY(::symlink("bpr_SN4711.bin", QFile::encodeName(tablefiles::working())) == 0);
        user.expectBox(boxWithBackup("Unable to use the backup BP table", "."));
        user.click("resetBPRTableButton");
        user.expectBox(
            boxWithBackup("Unable to use the backup BP table", ". No BP table file found."));
        user.click("removeBadPixelButton");
        QCOMPARE(user.newLog(), QStringList());
        QCOMPARE(user.calls(), QStringList());
    }

    void aResetToAnEnormousBackupTakesAllOfIt()
    {
        kit::Operator user;
        user.connectCamera();
        tablefiles::put(tablefiles::working(), mapOf({1}));
        tablefiles::put(tablefiles::backup(), mapOf({9, 11}));
        constexpr qint64 size = (qint64{1} << 31) + 1;
        QVERIFY(QFile::resize(tablefiles::backup(), size));
        user.click("resetBPRTableButton");
        QCOMPARE(user.newLog(), kit::lines({"BP table reset succeed."}));
        QFile copy(tablefiles::working());
        QCOMPARE(copy.size(), size);
        QVERIFY(copy.open(QIODevice::ReadOnly) && copy.read(tablefiles::mapSize) == mapOf({9, 11}));
    }

    void aFolderWhoseNameIsNoTextIsAFolderLikeAnyOther()
    {
        kit::Operator user;
        const tablefiles::OddFolder folder;
        user.connectCamera();
        QVERIFY(!user.log().contains(QStringLiteral("Output directory bpr\\ created")));

        user.click("readBPRTableButton");
        QVERIFY(tablefiles::content(tablefiles::working()) == mapOf({5, 7}));
        QVERIFY(tablefiles::content(tablefiles::backup()) == mapOf({5, 7}));
        tablefiles::put(tablefiles::backup(), mapOf({9, 11}));
        user.click("resetBPRTableButton");
        QVERIFY(tablefiles::content(tablefiles::working()) == mapOf({9, 11}));
        QVERIFY(QFile::remove(tablefiles::working()));
        user.click("addBadPixelButton");
        QVERIFY(tablefiles::content(tablefiles::working()) == mapOf({9, 11}));
        tablefiles::put(QStringLiteral("replbp.bin"), "12345678");
        user.click("writeBPRTableButton");
        QCOMPARE(user.sdk.count("camera.writeTableData"), 1);
    }
};

TAVREL_TEST_MAIN(TestTablePlaces)
#include "tst_tableplaces.moc"
