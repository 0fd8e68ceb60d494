// The folders of the bad pixel tables, made when the window is constructed.
#include "tests/kit/operator.h"

#include <QtCore/QDir>
#include <QtCore/QFile>

#include <sys/fsuid.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// Takes this thread's file rights away while it lives: the current directory can neither be
/// written nor looked at, not even by the superuser's tests.
class WithoutRights {
public:
    explicit WithoutRights(const QString& directory) : path(directory.toUtf8())
    {
        ::chmod(path.constData(), 0);
        constexpr uid_t nobody = 65534;
        previousUser = static_cast<uid_t>(::setfsuid(nobody));
    }
    ~WithoutRights()
    {
        ::setfsuid(previousUser);
        ::chmod(path.constData(), S_IRWXU);
    }
    WithoutRights(const WithoutRights&) = delete;
    WithoutRights& operator=(const WithoutRights&) = delete;

private:
    QByteArray path;
    uid_t previousUser;
};

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

    void aDirectoryOutOfReachGivesBothLines()
    {
        kit::Operator user;
        {
            const WithoutRights barred(user.directory());
            user.start();
        }
        QCOMPARE(user.log(), kit::lines({"Output directory bpr\\ created",
                                         "Unable to create output directory bprBackup\\"}));
        QCOMPARE(entries(), QStringList());
    }
};

TAVREL_TEST_MAIN(TestOutputDirectories)
#include "tst_outputdirectories.moc"
