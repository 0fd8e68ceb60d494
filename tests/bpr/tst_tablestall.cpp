// SPDX-License-Identifier: MIT
// A table that ends at its second record is waited for without end. The operation runs in a process
// of its own, which is the same program told to be the operator.
#include "tests/bpr/processortime.h"
#include "tests/bpr/tablefiles.h"
#include "tests/kit/operator.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QProcess>

#include <iostream>
#include <optional>

namespace {

constexpr int deadline = 30000;   // milliseconds, for what must come
constexpr int patience = 2500;    // milliseconds, for what must not come
constexpr double idleShare = 0.1; // of the time; a waiting loop that burns a core takes far more

constexpr char asked[] = "asked";
constexpr char returned[] = "returned";

void say(const std::string& line)
{
    std::cout << line << std::endl;
}

/// What the child process does: reads a table with these records, and says how far it comes.
int beTheOperator(const QStringList& records)
{
    kit::Operator user;
    user.connectCamera();
    std::vector<std::uint64_t> table;
    for (const QString& record : records) {
        table.push_back(record.toULongLong());
    }
    user.sdk.camera.table = recording::tableOf(table);
    user.sdk.whenCalled("camera.readTableData", [&] {
        say(user.directory().toStdString());
        say(asked);
    });
    user.click("readBPRTableButton");
    say(returned);
    return 0;
}

/// Waits until the process says a line, and returns the lines before it; nothing when it does not.
std::optional<QStringList> linesBefore(QProcess& process, const char* line, int milliseconds)
{
    QStringList lines;
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < milliseconds) {
        while (process.canReadLine()) {
            const QByteArray said = process.readLine().trimmed();
            if (said == line) {
                return lines;
            }
            lines.append(QString::fromUtf8(said));
        }
        if (!process.waitForReadyRead(static_cast<int>(milliseconds - clock.elapsed())) &&
            process.state() == QProcess::NotRunning) {
            break;
        }
    }
    return std::nullopt;
}

void startOperator(QProcess& process, const QStringList& records, const QString& temporary)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    // By the name of one system and of the other.
    environment.insert(QStringLiteral("TMPDIR"), temporary);
    environment.insert(QStringLiteral("TMP"), QDir::toNativeSeparators(temporary));
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QCoreApplication::applicationFilePath(),
                  QStringList{QStringLiteral("--operator")} + records);
}

} // namespace

class TestTableStall : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aTableThatEndsAtItsSecondRecordIsWaitedForInPeace_data()
    {
        QTest::addColumn<QStringList>("records");
        QTest::addRow("an empty table") << QStringList();
        QTest::addRow("one bad pixel") << kit::lines({"5"});
        QTest::addRow("the first pixel only") << kit::lines({"0", "0"});
        QTest::addRow("one bad pixel and an index too high") << kit::lines({"5", "307201", "7"});
    }

    void aTableThatEndsAtItsSecondRecordIsWaitedForInPeace()
    {
        QFETCH(QStringList, records);
        const QTemporaryDir temporary;
        QProcess process;
        startOperator(process, records, temporary.path());
        const std::optional<QStringList> said = linesBefore(process, asked, deadline);
        QVERIFY(said && said->size() == 1);
        const QString directory = said->first();
        const double before = tablefiles::processorTime(process.processId());
        QVERIFY(!linesBefore(process, returned, patience));
        QCOMPARE(process.state(), QProcess::Running);
        const double used = tablefiles::processorTime(process.processId()) - before;
        process.kill();
        QVERIFY(process.waitForFinished(deadline));
        QVERIFY2(used < idleShare * patience / 1000, qPrintable(QString::number(used)));
        QVERIFY(QFileInfo(directory + QStringLiteral("/bpr")).isDir());
        QCOMPARE(tablefiles::entries(directory + QStringLiteral("/bpr")), QStringList());
        QCOMPARE(tablefiles::entries(directory + QStringLiteral("/bprBackup")), QStringList());
    }

    void aTableOfTwoReturns()
    {
        const QTemporaryDir temporary;
        QProcess process;
        startOperator(process, kit::lines({"5", "7"}), temporary.path());
        QVERIFY(linesBefore(process, returned, deadline));
        QVERIFY(process.waitForFinished(deadline));
        QCOMPARE(process.exitCode(), 0);
    }
};

int main(int argc, char* argv[])
{
    kit::prepareProcess();
    QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == QLatin1String("--operator")) {
        return beTheOperator(arguments.mid(2));
    }
    TestTableStall test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_tablestall.moc"
