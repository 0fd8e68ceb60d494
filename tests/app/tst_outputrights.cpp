// SPDX-License-Identifier: MIT
// The folders of the bad pixel tables in a directory that has become out of reach.
#include "tests/kit/operator.h"

#include <QtCore/QDir>

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

} // namespace

class TestOutputRights : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aDirectoryOutOfReachGivesBothLines()
    {
        kit::Operator user;
        {
            const WithoutRights barred(user.directory());
            user.start();
        }
        QCOMPARE(user.log(), kit::lines({"Output directory bpr\\ created",
                                         "Unable to create output directory bprBackup\\"}));
        QCOMPARE(QDir().entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList());
    }
};

TAVREL_TEST_MAIN(TestOutputRights)
#include "tst_outputrights.moc"
