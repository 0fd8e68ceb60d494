// The built program from outside: what it writes, in which order, and which SDK library it takes.
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QLibraryInfo>
#include <QtCore/QProcess>
#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryDir>
#include <QtCore/QVersionNumber>
#include <QtTest/QTest>

namespace {

QString qtVersion()
{
    return QLibraryInfo::version().toString();
}

QString buildWord()
{
    return QLibraryInfo::isDebugBuild() ? QStringLiteral("DEBUG") : QStringLiteral("RELEASE");
}

QStringList toLines(const QByteArray& text)
{
    QStringList list = QString::fromUtf8(text).split(QLatin1Char('\n'));
    if (list.last().isEmpty()) {
        list.removeLast();
    }
    return list;
}

QString outputOf(const char* program, const QStringList& arguments)
{
    QProcess process;
    process.start(QString::fromLatin1(program), arguments);
    process.waitForFinished();
    return QString::fromUtf8(process.readAllStandardOutput());
}

/// The program, running in a directory of its own.
class Program {
public:
    Program()
    {
        process.setWorkingDirectory(directory.path());
        environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        environment.insert(QStringLiteral("HOME"), directory.path());
        environment.remove(QStringLiteral("LD_LIBRARY_PATH"));
    }
    ~Program()
    {
        process.kill();
        process.waitForFinished();
    }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    /// Puts the recording SDK in front of the usual one; its journal goes to the named file.
    void recordTo(const QString& journal)
    {
        environment.insert(QStringLiteral("LD_LIBRARY_PATH"),
                           QStringLiteral(TAVREL_RECORDING_FOLDER));
        environment.insert(QStringLiteral("TAVREL_RECORDING_JOURNAL"), journal);
    }

    /// Has the recording SDK read its answers from a script.
    void answerWith(const char* script)
    {
        QFile file(directory.filePath(QStringLiteral("script")));
        file.open(QIODevice::WriteOnly);
        file.write(script);
        environment.insert(QStringLiteral("TAVREL_RECORDING_SCRIPT"), file.fileName());
    }

    /// Starts the program and waits until the window has been constructed.
    bool start()
    {
        process.setProcessEnvironment(environment);
        process.start(QStringLiteral(TAVREL_PROGRAM), QStringList());
        return QTest::qWaitFor(
            [&] { return QDir(directory.path() + QStringLiteral("/bprBackup")).exists(); }, 20000);
    }

    /// Everything written to standard output so far.
    QStringList output()
    {
        // What was written before the window stood is in the pipe by now.
        while (process.waitForReadyRead(0)) {
        }
        written += process.readAllStandardOutput();
        return toLines(written);
    }

    QString mappedSdk()
    {
        QFile maps(QStringLiteral("/proc/%1/maps").arg(process.processId()));
        if (!maps.open(QIODevice::ReadOnly)) {
            return {};
        }
        const auto match = QRegularExpression(QStringLiteral("/\\S*libombrix\\.sdk\\.so"))
                               .match(QString::fromUtf8(maps.readAll()));
        return match.captured();
    }

    QTemporaryDir directory;

private:
    QProcess process;
    QProcessEnvironment environment;
    QByteArray written;
};

} // namespace

class TestStartUp : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theStartUpLinesAppearInOrder()
    {
        Program program;
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
        Program program;
        // Journal and lines in one stream show how they follow each other.
        program.recordTo(QStringLiteral("/dev/stdout"));
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
        Program program;
        program.recordTo(QStringLiteral("/dev/stdout"));
        QVERIFY(program.start());
        QCOMPARE(program.output().count(QStringLiteral("sdk.initialize()")), 2);
    }

    void theOnlyRecordsAreTheTwoStartUpRecords()
    {
        Program program;
        program.recordTo(QStringLiteral("/dev/stdout"));
        QVERIFY(program.start());
        QCOMPARE(program.output().filter(QRegularExpression(QStringLiteral("^log "))).size(), 2);
    }

    void theScriptSteersTheAnswers()
    {
        Program program;
        program.recordTo(QStringLiteral("/dev/stdout"));
        program.answerWith("# the other rate of the list\nconfig.getDefaultBaudRate 9600\n");
        QVERIFY(program.start());
        QVERIFY(program.output().contains(QStringLiteral("config.setBaudRate(9600)")));
    }

    void theProgramTakesTheLibraryOfItsOwnInstallation()
    {
        Program program;
        QVERIFY(program.start());
        QCOMPARE(program.mappedSdk(), QStringLiteral(TAVREL_SIMULATOR));
    }

    void anotherLibraryCanBePutInFront()
    {
        Program program;
        program.recordTo(QStringLiteral("/dev/null"));
        QVERIFY(program.start());
        QCOMPARE(program.mappedSdk(),
                 QStringLiteral(TAVREL_RECORDING_FOLDER) + QStringLiteral("/libombrix.sdk.so"));
    }

    void theProgramImportsTheLibraryByItsNameAndByRunpath()
    {
        const QString dynamic =
            outputOf(TAVREL_READELF, {QStringLiteral("-dW"), QStringLiteral(TAVREL_PROGRAM)});
        QVERIFY(dynamic.contains(QStringLiteral("Shared library: [libombrix.sdk.so]")));
        QVERIFY(dynamic.contains(QStringLiteral("(RUNPATH)")));
        QVERIFY(dynamic.contains(QStringLiteral("$ORIGIN/../lib")));
        QVERIFY(!dynamic.contains(QStringLiteral("(RPATH)")));
    }

    void theLibraryIsCalledByItsSoname_data()
    {
        QTest::addColumn<QString>("library");
        QTest::newRow("simulator") << QStringLiteral(TAVREL_SIMULATOR);
        QTest::newRow("recording")
            << QStringLiteral(TAVREL_RECORDING_FOLDER) + QStringLiteral("/libombrix.sdk.so");
    }

    void theLibraryIsCalledByItsSoname()
    {
        QFETCH(QString, library);
        const QString dynamic = outputOf(TAVREL_READELF, {QStringLiteral("-dW"), library});
        QVERIFY(dynamic.contains(QStringLiteral("Library soname: [libombrix.sdk.so]")));
    }

    void theProgramAsksTheLibraryForItsFourEntryPointsOnly()
    {
        const QString imports = outputOf(TAVREL_NM, {QStringLiteral("-D"), QStringLiteral("-C"),
                                                     QStringLiteral("--undefined-only"),
                                                     QStringLiteral(TAVREL_PROGRAM)});
        QStringList found;
        auto matches =
            QRegularExpression(QStringLiteral("U (ombrix_sdk::.*)")).globalMatch(imports);
        while (matches.hasNext()) {
            found.append(matches.next().captured(1));
        }
        found.sort();
        QCOMPARE(found,
                 QStringList({QStringLiteral("ombrix_sdk::OmbrixSdk::get_instance()"),
                              QStringLiteral("ombrix_sdk::SDKLogger::GetILogger()"),
                              QStringLiteral(
                                  "ombrix_sdk::SDKLogger::SDKLogger(ombrix_sdk::severity_level)"),
                              QStringLiteral("ombrix_sdk::SDKLogger::~SDKLogger()")}));
    }
};

QTEST_GUILESS_MAIN(TestStartUp)
#include "tst_startup.moc"
