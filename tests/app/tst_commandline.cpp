// SPDX-License-Identifier: MIT
// The built program, asked on its command line.
#include "tests/app/startedprogram.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtTest/QTest>

namespace {

QStringList filesIn(const QTemporaryDir& directory)
{
    return QDir(directory.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden);
}

} // namespace

class TestCommandLine : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void helpAndVersionNeedNoDisplayFolderOrSdk_data()
    {
        QTest::addColumn<QString>("option");
        QTest::addColumn<QString>("answer");
        const QString usage = QStringLiteral("Usage: ");
        const QString version = QStringLiteral("Tavrel KV " TAVREL_BUILD_VERSION);
        QTest::newRow("--help") << QStringLiteral("--help") << usage;
        QTest::newRow("-help") << QStringLiteral("-help") << usage;
        QTest::newRow("-h") << QStringLiteral("-h") << usage;
        QTest::newRow("--version") << QStringLiteral("--version") << version;
        QTest::newRow("-version") << QStringLiteral("-version") << version;
        QTest::newRow("-v") << QStringLiteral("-v") << version;
    }

    void helpAndVersionNeedNoDisplayFolderOrSdk()
    {
        QFETCH(QString, option);
        QFETCH(QString, answer);
        app::StartedProgram program;
        program.recordTo(QStringLiteral("-"));
        const QStringList before = filesIn(program.directory);
        QVERIFY(program.run({option}));
        QCOMPARE(program.errors(), QString());
        QCOMPARE(program.status(), 0);
        const QStringList output = program.output();
        QVERIFY(!output.isEmpty());
        QVERIFY2(output.first().startsWith(answer), qPrintable(output.first()));
        // The recording SDK would have written each call between the lines.
        QVERIFY(output.filter(QStringLiteral("sdk.")).isEmpty());
        QVERIFY(output.filter(QStringLiteral("OmbrixSdk.")).isEmpty());
        QCOMPARE(filesIn(program.directory), before);
    }

    void theHelpNamesTheToolkitsOptions()
    {
        app::StartedProgram program;
        QVERIFY(program.run({QStringLiteral("--help")}));
        for (const char* option : {"--help", "--version", "--style <", "--platform <"}) {
            QVERIFY2(!program.output().filter(QLatin1String(option)).isEmpty(), option);
        }
    }

    void aWrongOptionIsRefused_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("named");
        const auto row = [](const char* name, const QStringList& arguments, const char* named) {
            QTest::newRow(name) << arguments << QString::fromLatin1(named);
        };
        row("two dashes", {QStringLiteral("--versoin")}, "'versoin'");
        row("one dash", {QStringLiteral("-x")}, "'x'");
        row("behind a good one",
            {QStringLiteral("-style"), QStringLiteral("fusion"), QStringLiteral("--porst")},
            "'porst'");
        row("beside --help", {QStringLiteral("--help"), QStringLiteral("--porst")}, "'porst'");
        row("value missing", {QStringLiteral("-platform")}, "'-platform'");
    }

    void aWrongOptionIsRefused()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, named);
        app::StartedProgram program;
        program.recordTo(QStringLiteral("-"));
        const QStringList before = filesIn(program.directory);
        QVERIFY(program.run(arguments));
        QCOMPARE(program.status(), 2);
        QCOMPARE(program.output(), QStringList());
        const QString errors = program.errors();
        QVERIFY2(errors.startsWith(QStringLiteral("tavrel: ")), qPrintable(errors));
        QVERIFY2(errors.contains(named), qPrintable(errors));
        QCOMPARE(filesIn(program.directory), before);
    }

    void theToolkitsOptionsGoOnWorking_data()
    {
        QTest::addColumn<QStringList>("arguments");
        const auto row = [](const QStringList& arguments) {
            QTest::newRow(qPrintable(arguments.join(QLatin1Char(' ')))) << arguments;
        };
        const auto text = [](const char* latin1) {
            return QString::fromLatin1(latin1);
        };
        for (const char* dashes : {"-", "--"}) {
            const auto option = [&](const char* name) {
                return text(dashes) + text(name);
            };
            row({option("platform"), text("offscreen")});
            row({option("style"), text("windows")});
            row({option("style=windows")});
            row({option("stylesheet"), text("none.qss")});
            row({option("stylesheet=none.qss")});
            row({option("qwindowgeometry"), text("1200x1150-0-0")});
            row({option("geometry"), text("-0-0")});
            row({option("qwindowtitle"), text("-- a title --")});
            row({option("qwindowicon"), text("none.png")});
            row({option("reverse")});
            row({option("widgetcount")});
            row({option("session"), text("1_2")});
            row({option("display"), text(":0")});
        }
        row({text("no option")});
    }

    void theToolkitsOptionsGoOnWorking()
    {
        QFETCH(QStringList, arguments);
        app::StartedProgram program;
        QVERIFY(program.start(arguments));
        QCOMPARE(program.output().first(), QStringLiteral("Start QT ombrix command application"));
    }

    void aPlatformGivenAsOptionIsTaken()
    {
        app::StartedProgram program;
        QVERIFY(program.run({QStringLiteral("-platform"), QStringLiteral("no such platform")}) ||
                program.errors().contains(QStringLiteral("\"no such platform\"")));
        QVERIFY(program.errors().isEmpty() || program.status() != 2);
    }
};

QTEST_GUILESS_MAIN(TestCommandLine)
#include "tst_commandline.moc"
