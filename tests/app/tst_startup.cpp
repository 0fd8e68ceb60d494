// SPDX-License-Identifier: MIT
// The built program from outside: what it writes, in which order, and which SDK library it takes.
#include "tests/app/startedprogram.h"

#include <QtCore/QFileInfo>
#include <QtCore/QLibraryInfo>
#include <QtCore/QRegularExpression>
#include <QtCore/QVersionNumber>
#include <QtTest/QTest>

namespace {

/// Journal and start-up lines in one stream show how they follow each other.
const QString toStandardOutput = QStringLiteral("-");

QString qtVersion()
{
    return QLibraryInfo::version().toString();
}

QString buildWord()
{
    return QLibraryInfo::isDebugBuild() ? QStringLiteral("DEBUG") : QStringLiteral("RELEASE");
}

} // namespace

class TestStartUp : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theStartUpLinesAppearInOrder()
    {
        app::StartedProgram program;
        program.recordTo(program.directory.filePath(QStringLiteral("journal")));
        QVERIFY(program.start());
        QCOMPARE(program.output(),
                 QStringList({QStringLiteral("Start QT ombrix command application"),
                              QStringLiteral("QT Version ") + qtVersion(),
                              QStringLiteral("QT Built in ") + buildWord(),
                              QStringLiteral("Test log in debug")}));
    }

    void eachStepIsDoneBeforeTheNextLineIsWritten()
    {
        app::StartedProgram program;
        program.recordTo(toStandardOutput);
        QVERIFY(program.start());
        const QStringList expected = {
            QStringLiteral("Start QT ombrix command application"),
            QStringLiteral("OmbrixSdk.get_instance()"),
            QStringLiteral("sdk.initialize()"),
            QStringLiteral("log 0: QT Version ") + qtVersion(),
            QStringLiteral("QT Version ") + qtVersion(),
            QStringLiteral("log 0: QT Built in ") + buildWord(),
            QStringLiteral("QT Built in ") + buildWord(),
            QStringLiteral("Test log in debug"),
            QStringLiteral("OmbrixSdk.get_instance()"),
            QStringLiteral("sdk.initialize()"),
            QStringLiteral("sdk.getConfiguration()"),
        };
        QCOMPARE(program.output().mid(0, expected.size()), expected);
    }

    void theSdkIsInitialisedExactlyTwice()
    {
        app::StartedProgram program;
        program.recordTo(toStandardOutput);
        QVERIFY(program.start());
        QCOMPARE(program.output().count(QStringLiteral("sdk.initialize()")), 2);
    }

    void theOnlyRecordsAreTheTwoStartUpRecords()
    {
        app::StartedProgram program;
        program.recordTo(toStandardOutput);
        QVERIFY(program.start());
        QCOMPARE(program.output().filter(QRegularExpression(QStringLiteral("^log "))).size(), 2);
    }

    void withoutAStandardOutputNoFileTakesItsPlace()
    {
#if defined(_WIN32)
        QSKIP("files have no numbers that a stream could leave free");
#endif
        app::StartedProgram program;
        QVERIFY(program.startWithoutOutput());
        QCOMPARE(QFileInfo(QStringLiteral("/proc/%1/fd/1").arg(program.id())).symLinkTarget(),
                 QStringLiteral("/dev/null"));
    }

    void theScriptSteersTheAnswers()
    {
        app::StartedProgram program;
        program.recordTo(toStandardOutput);
        program.answerWith("# the other rate of the list\nconfig.getDefaultBaudRate 9600\n");
        QVERIFY(program.start());
        QVERIFY(program.output().contains(QStringLiteral("config.setBaudRate(9600)")));
    }

    void theProgramTakesTheLibraryOfItsOwnInstallation()
    {
        app::StartedProgram program;
        QVERIFY(program.start());
        QCOMPARE(program.loadedSdk(),
                 QFileInfo(QStringLiteral(TAVREL_SIMULATOR)).absoluteFilePath());
    }

    void anotherLibraryCanBePutInFront()
    {
        app::StartedProgram program;
        program.recordTo(toStandardOutput);
        QVERIFY(program.start());
        QCOMPARE(program.loadedSdk(), QFileInfo(program.sdkInFront()).absoluteFilePath());
    }
};

QTEST_GUILESS_MAIN(TestStartUp)
#include "tst_startup.moc"
