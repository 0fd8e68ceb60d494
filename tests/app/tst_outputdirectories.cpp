// SPDX-License-Identifier: MIT
// The folders of the bad pixel tables, made when the window is constructed.
#include "tests/kit/operator.h"

#include <QtCore/QDir>
#include <QtCore/QFile>

namespace {

QStringList entries()
{
    return QDir().entryList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Name);
}

} // namespace

class TestOutputDirectories : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void bothFoldersAreMadeInTheCurrentDirectory()
    {
        kit::Operator user;
        user.start();
        QCOMPARE(entries(), kit::lines({"bpr", "bprBackup"}));
        QVERIFY(QFileInfo(QStringLiteral("bpr")).isDir());
        QVERIFY(QFileInfo(QStringLiteral("bprBackup")).isDir());
        QCOMPARE(user.log(), QStringList());
    }

    void foldersThatExistAreLeftAloneWithoutALine()
    {
        kit::Operator user;
        QVERIFY(QDir().mkdir(QStringLiteral("bpr")));
        QVERIFY(QDir().mkdir(QStringLiteral("bprBackup")));
        QFile kept(QStringLiteral("bpr/bpr_SN1.bin"));
        QVERIFY(kept.open(QIODevice::WriteOnly));
        kept.close();
        user.start();
        QCOMPARE(user.log(), QStringList());
        QVERIFY(kept.exists());
    }

    void aFolderThatCannotBeMadeInADirectoryThatExistsGivesNoLine()
    {
        kit::Operator user;
        QFile inTheWay(QStringLiteral("bpr"));
        QVERIFY(inTheWay.open(QIODevice::WriteOnly));
        inTheWay.close();
        user.start();
        QCOMPARE(user.log(), QStringList());
        QVERIFY(QFileInfo(QStringLiteral("bprBackup")).isDir());
    }
};

TAVREL_TEST_MAIN(TestOutputDirectories)
#include "tst_outputdirectories.moc"
