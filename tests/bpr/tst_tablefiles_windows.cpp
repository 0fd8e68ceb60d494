// SPDX-License-Identifier: MIT
// Paths and files of the bad pixel table as Windows knows them: drives, backslashes, the code page
// and the longest name of a directory.
#include "app/platform.h"
#include "bpr/files.h"
#include "tests/bpr/tablefiles.h"

#include <QtCore/qt_windows.h>
#include <QtTest/QTest>

#include <memory>

namespace bpr = tavrel::bpr;
using tavrel::platform::currentDirectory;

namespace {

/// The longest name that a current directory can have, without the backslash that Windows adds.
constexpr int longestDirectory = MAX_PATH - 2;

QByteArray current()
{
    return QByteArray::fromStdString(currentDirectory());
}

/// Makes directories one below the other, until the current one's name has this length.
bool goDown(int length)
{
    constexpr int longestName = 200;
    while (current().size() < length) {
        const int missing = length - current().size() - 1;
        const QString name(qMin(missing, longestName), QLatin1Char('d'));
        if (!QDir().mkdir(name) || !QDir::setCurrent(name)) {
            return false;
        }
    }
    return current().size() == length;
}

} // namespace

class TestTableFilesWindows : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { workFolder = std::make_unique<tablefiles::WorkFolder>(); }
    void cleanup() { workFolder.reset(); }

    void aPathHasADriveAndBackslashesOnly()
    {
        const QString path = QString::fromStdString(bpr::pathInFolder("bpr", "name"));
        QVERIFY(path.at(0).isLetter());
        QCOMPARE(path.mid(1, 2), QStringLiteral(":\\"));
        QVERIFY(path.endsWith(QStringLiteral("\\bpr\\name")));
        QVERIFY(!path.contains(QLatin1Char('/')));
    }

    void noCharacterIsTrimmedAtTheRootOfADrive()
    {
        const QString root = QDir::rootPath();
        QVERIFY(QDir::setCurrent(root));
        const std::string path = bpr::pathInFolder("bpr", "name");
        QCOMPARE(path, QDir::toNativeSeparators(root).toStdString() + "\\bpr\\name");
        QVERIFY(path.find(":\\\\bpr") != std::string::npos);
    }

    void aDoubledBackslashLeadsToTheSameFile()
    {
        QVERIFY(QDir().mkdir(QStringLiteral("bpr")));
        tablefiles::put(QStringLiteral("bpr/name"), "content");
        QVERIFY(bpr::fileExists(currentDirectory() + "\\\\bpr\\name"));
    }

    void aDirectoryOfAnyLengthThatWindowsAllowsIsNamedInFull_data()
    {
        QTest::addColumn<int>("length");
        for (const int length : {150, 200, 247, 248, longestDirectory}) {
            QTest::addRow("%d bytes", length) << length;
        }
    }

    void aDirectoryOfAnyLengthThatWindowsAllowsIsNamedInFull()
    {
        QFETCH(int, length);
        QVERIFY(goDown(length));
        QVERIFY(current().startsWith(QDir::toNativeSeparators(workFolder->path()).toLocal8Bit()));
        QVERIFY(current().endsWith("\\d") || current().endsWith("dd"));
    }

    void aDirectoryIsNamedInTheCodePage()
    {
        const QString name = QStringLiteral("S\u00fcd 100%1");
        const QByteArray bytes = name.toLocal8Bit();
        QCOMPARE(QString::fromLocal8Bit(bytes), name);
        const QByteArray above = current();
        QVERIFY(QDir().mkdir(name) && QDir::setCurrent(name));
        QCOMPARE(current(), above + '\\' + bytes);
        QVERIFY(QDir().mkdir(QStringLiteral("bpr")));
        tablefiles::put(QStringLiteral("bpr/name"), "content");
        QVERIFY(bpr::fileExists(bpr::pathInFolder("bpr", "name")));
        QVERIFY(bpr::copyFile(bpr::pathInFolder("bpr", "name"), bpr::pathInFolder("bpr", "copy")));
        QCOMPARE(tablefiles::content(QStringLiteral("bpr/copy")), QByteArray("content"));
    }

    void aDirectoryOutsideTheCodePageIsOutOfReach()
    {
        // Chinese; a code page of western or eastern Europe has no place for it.
        const QString name = QStringLiteral("\u6d4b\u8bd5");
        if (QString::fromLocal8Bit(name.toLocal8Bit()) == name) {
            QSKIP("the code page of this machine knows every letter");
        }
        QVERIFY(QDir().mkdir(name) && QDir::setCurrent(name));
        QVERIFY(QDir().mkdir(QStringLiteral("bpr")));
        tablefiles::put(QStringLiteral("bpr/name"), "content");
        QVERIFY(!bpr::fileExists(bpr::pathInFolder("bpr", "name")));
    }

    void thePathReadsTheSameInTheLogAsItIs()
    {
        const QString name = QStringLiteral("S\u00fcd");
        QVERIFY(QDir().mkdir(name) && QDir::setCurrent(name));
        const std::string text = tavrel::platform::utf8(currentDirectory());
        QCOMPARE(QString::fromStdString(text), QDir::toNativeSeparators(QDir::currentPath()));
    }

private:
    std::unique_ptr<tablefiles::WorkFolder> workFolder;
};

QTEST_APPLESS_MAIN(TestTableFilesWindows)
#include "tst_tablefiles_windows.moc"
