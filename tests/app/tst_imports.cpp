// SPDX-License-Identifier: MIT
// What the built program asks of the SDK library, by the names that the loader sees.
#include <QtCore/QProcess>
#include <QtCore/QRegularExpression>
#include <QtTest/QTest>

namespace {

QString outputOf(const char* program, const QStringList& arguments)
{
    QProcess process;
    process.start(QString::fromLatin1(program), arguments);
    process.waitForFinished();
    return QString::fromUtf8(process.readAllStandardOutput());
}

} // namespace

class TestImports : public QObject {
    Q_OBJECT

private Q_SLOTS:
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

    void theCommandLineLoadsNoLibraryOfAWindow()
    {
        const QString loaded = outputOf("ldd", {QStringLiteral(TAVREL_CTL)});
        const QString libraries = QStringLiteral("libQt%1").arg(QT_VERSION_MAJOR);
        QVERIFY2(loaded.contains(libraries + QStringLiteral("Core.so")), qPrintable(loaded));
        QVERIFY2(!loaded.contains(libraries + QStringLiteral("Widgets.so")), qPrintable(loaded));
    }
};

QTEST_GUILESS_MAIN(TestImports)
#include "tst_imports.moc"
