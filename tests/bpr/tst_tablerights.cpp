// SPDX-License-Identifier: MIT
// The bad pixel table where the operator lacks the right to read or write. The superuser has every
// right, so this program gives up its own before it begins.
#include "tests/bpr/failingread.h"
#include "tests/bpr/fulldisk.h"
#include "tests/bpr/monitoringpace.h"
#include "tests/bpr/tablefiles.h"
#include "tests/kit/rights.h"

#include <sys/stat.h>

using tablefiles::mapOf;

namespace {

constexpr mode_t readOnly = S_IRUSR;
constexpr mode_t writeOnly = S_IWUSR;
constexpr mode_t noRights = 0;

void setRights(const QString& path, mode_t rights)
{
    if (::chmod(QFile::encodeName(path).constData(), rights) != 0) {
        qFatal("%s keeps its rights", qPrintable(path));
    }
}

/// The content, whatever the rights say.
QByteArray contentOf(const QString& path)
{
    setRights(path, S_IRUSR | S_IWUSR);
    return tablefiles::content(path);
}

/// Takes the right to make files in a folder away for its lifetime, so that it can be removed.
class ClosedFolder {
public:
    explicit ClosedFolder(const QString& folder) : path(folder)
    {
        setRights(path, S_IRUSR | S_IXUSR);
    }
    ~ClosedFolder() { setRights(path, S_IRWXU); }
    ClosedFolder(const ClosedFolder&) = delete;
    ClosedFolder& operator=(const ClosedFolder&) = delete;

private:
    QString path;
};

QStringList readLines(bool withBackup)
{
    QStringList lines;
    if (withBackup) {
        lines.append(QStringLiteral("Backup table written to ") +
                     tablefiles::full(tablefiles::backup()));
    }
    lines.append(QStringLiteral("Table written to ") + tablefiles::full(tablefiles::working()));
    lines.append(QStringLiteral("Table containing : 2 Bad Pixels"));
    return lines;
}

kit::Box boxWithBackup(const char* before, const char* after)
{
    return {.title = "BP table",
            .text = before + (" (" + tablefiles::full(tablefiles::backup()).toStdString()) + ")" +
                    after};
}

} // namespace

class TestTableRights : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aReadOverAReadOnlyWorkingCopyLeavesItWithoutAWord()
    {
        kit::Operator user;
        user.connectCamera();
        tablefiles::put(tablefiles::working(), mapOf({1}));
        setRights(tablefiles::working(), readOnly);
        user.click("readBPRTableButton");
        QCOMPARE(user.newLog(), readLines(true));
        QVERIFY(tablefiles::content(tablefiles::working()) == mapOf({1}));
        QVERIFY(tablefiles::content(tablefiles::backup()) == mapOf({5, 7}));
    }

    void aReadIntoFoldersThatAreClosedLeavesThemEmptyWithoutAWord()
    {
        kit::Operator user;
        user.connectCamera();
        const ClosedFolder working(QStringLiteral("bpr"));
        const ClosedFolder backup(QStringLiteral("bprBackup"));
        user.click("readBPRTableButton");
        QCOMPARE(user.newLog(), readLines(true));
        QCOMPARE(tablefiles::entries(QStringLiteral("bpr")), QStringList());
        QCOMPARE(tablefiles::entries(QStringLiteral("bprBackup")), QStringList());
    }

    void aWorkingCopyInAClosedFolderIsStillRewritten()
    {
        kit::Operator user;
        user.connectCamera();
        tablefiles::put(tablefiles::working(), QByteArray(400000, 'x'));
        tablefiles::put(tablefiles::backup(), mapOf({9, 11}));
        const ClosedFolder working(QStringLiteral("bpr"));
        user.click("readBPRTableButton");
        QVERIFY(tablefiles::content(tablefiles::working()) == mapOf({5, 7}));
        user.click("resetBPRTableButton");
        QVERIFY(tablefiles::content(tablefiles::working()) == mapOf({9, 11}));
    }

    void aFullDiskDoesNotEmptyAWorkingCopyInAClosedFolder()
    {
        kit::Operator user;
        user.connectCamera();
        const QByteArray old(tablefiles::mapSize, '\1');
        tablefiles::put(tablefiles::working(), old);
        const ClosedFolder working(QStringLiteral("bpr"));
        {
            const tablefiles::FullDisk full(1000);
            user.click("readBPRTableButton");
        }
        const QByteArray now = tablefiles::content(tablefiles::working());
        QVERIFY(now.left(1000) == mapOf({5, 7}).left(1000));
        QVERIFY(now.mid(1000) == old.mid(1000));
    }

    void aFullDiskLeavesAShorterWorkingCopyInAClosedFolderAsItWas()
    {
        kit::Operator user;
        user.connectCamera();
        tablefiles::put(tablefiles::working(), "short");
        tablefiles::put(tablefiles::backup(), mapOf({9, 11}));
        const ClosedFolder working(QStringLiteral("bpr"));
        {
            const tablefiles::FullDisk full(1000);
            user.click("readBPRTableButton");
            user.click("resetBPRTableButton");
        }
        QCOMPARE(tablefiles::content(tablefiles::working()), QByteArray("short"));
    }

    void aBackupThatBreaksOffDoesNotTouchAWorkingCopyInAClosedFolder()
    {
        kit::Operator user;
        user.connectCamera();
        tablefiles::put(tablefiles::working(), mapOf({1}));
        tablefiles::put(QStringLiteral("bprBackup/first"), QByteArray(3000000, '\1'));
        QVERIFY(QFile::link(QStringLiteral("first"), tablefiles::backup()));
        const ClosedFolder working(QStringLiteral("bpr"));
        const tablefiles::FailingRead failing("first", tablefiles::FailingRead::Late);
        user.click("resetBPRTableButton");
        QVERIFY(failing.count() > 0);
        QVERIFY(tablefiles::content(tablefiles::working()) == mapOf({1}));
    }

    void aBackupThatCannotBeReadIsNeverOverwritten_data()
    {
        QTest::addColumn<mode_t>("rights");
        QTest::addRow("may be written") << writeOnly;
        QTest::addRow("may not be written") << noRights;
    }

    void aBackupThatCannotBeReadIsNeverOverwritten()
    {
        QFETCH(mode_t, rights);
        kit::Operator user;
        user.connectCamera();
        tablefiles::put(tablefiles::backup(), mapOf({1}));
        setRights(tablefiles::backup(), rights);
        user.click("readBPRTableButton");
        QCOMPARE(user.newLog().mid(1), readLines(false));
        QVERIFY(contentOf(tablefiles::backup()) == mapOf({1}));
        QVERIFY(tablefiles::content(tablefiles::working()) == mapOf({5, 7}));
    }

    void aReadOnlyWorkingCopyIsLeftToTheCamera()
    {
        kit::Operator user;
        user.connectCamera();
        tablefiles::put(tablefiles::working(), mapOf({1}));
        setRights(tablefiles::working(), readOnly);
        user.sdk.answer("camera.removeBadPixels", 0);
        user.click("removeBadPixelButton");
        QCOMPARE(user.newLog(), kit::lines({"Unable to remove pixel X:0 Y: 0."}));
    }

    void aWorkingCopyThatCannotBeReadIsRestored()
    {
        kit::Operator user;
        user.connectCamera();
        tablefiles::put(tablefiles::working(), mapOf({1}));
        tablefiles::put(tablefiles::backup(), mapOf({9, 11}));
        setRights(tablefiles::working(), writeOnly);
        user.click("addBadPixelButton");
        QCOMPARE(user.newLog(), kit::lines({"Pixel X:0 Y: 0 correctly added."}));
        QVERIFY(contentOf(tablefiles::working()) == mapOf({9, 11}));
    }

    void aWorkingCopyThatCanNeitherBeReadNorRestoredEndsTheOperation_data()
    {
        QTest::addColumn<QString>("button");
        QTest::addRow("edit") << QStringLiteral("addBadPixelButton");
        QTest::addRow("write") << QStringLiteral("writeBPRTableButton");
    }

    void aWorkingCopyThatCanNeitherBeReadNorRestoredEndsTheOperation()
    {
        QFETCH(QString, button);
        kit::Operator user;
        user.connectCamera();
        tablefiles::put(tablefiles::working(), mapOf({1}));
        tablefiles::put(tablefiles::backup(), mapOf({9, 11}));
        setRights(tablefiles::working(), noRights);
        user.expectBox(
            boxWithBackup("Unable to use the backup BP table", ". No BP table file found."));
        user.click(qPrintable(button));
        QCOMPARE(user.calls(), QStringList());
        QCOMPARE(user.newLog(), QStringList());
        QVERIFY(contentOf(tablefiles::working()) == mapOf({1}));
    }

    void aResetOverAReadOnlyWorkingCopyIsToldByABox()
    {
        kit::Operator user;
        user.connectCamera();
        tablefiles::put(tablefiles::working(), mapOf({1}));
        tablefiles::put(tablefiles::backup(), mapOf({9, 11}));
        setRights(tablefiles::working(), readOnly);
        user.expectBox(boxWithBackup("Unable to use the backup BP table", "."));
        user.click("resetBPRTableButton");
        QCOMPARE(user.newLog(), QStringList());
        QVERIFY(tablefiles::content(tablefiles::working()) == mapOf({1}));
    }

    void aBackupThatCannotBeReadIsNone()
    {
        kit::Operator user;
        user.connectCamera();
        tablefiles::put(tablefiles::working(), mapOf({1}));
        tablefiles::put(tablefiles::backup(), mapOf({9, 11}));
        setRights(tablefiles::backup(), writeOnly);
        user.expectBox(boxWithBackup("No backup BP table file found", "."));
        user.click("resetBPRTableButton");
        QCOMPARE(user.newLog(), QStringList());
        QVERIFY(tablefiles::content(tablefiles::working()) == mapOf({1}));
    }

    void aReplacementFileThatCannotBeReadIsNotSent()
    {
        kit::Operator user;
        user.connectCamera();
        tablefiles::put(tablefiles::working(), mapOf({5, 7}));
        tablefiles::put(QStringLiteral("replbp.bin"), "12345678");
        setRights(QStringLiteral("replbp.bin"), writeOnly);
        user.expectBox({.title = "BP table", .text = "Unable to open replbp.bin"});
        user.click("writeBPRTableButton");
        QCOMPARE(user.sdk.count("camera.writeTableData"), 0);
        QCOMPARE(contentOf(QStringLiteral("replbp.bin")), QByteArray("12345678"));
    }
};

int main(int argc, char* argv[])
{
    if (!kit::giveUpRights()) {
        qFatal("the superuser's rights cannot be given up");
    }
    kit::prepareProcess();
    QApplication application(argc, argv);
    TestTableRights test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_tablerights.moc"
