// SPDX-License-Identifier: MIT
// The operator's tour, taken of the built program as ./run takes it: what it leaves behind, and
// that it notices when a step has not its expected effect.
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryDir>
#include <QtGui/QImage>
#include <QtTest/QTest>

namespace {

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QStringList linesOf(const QString& path)
{
    return QString::fromUtf8(contentOf(path)).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

/// As much as a failure message holds.
QString endOf(const QString& text)
{
    return text.right(900);
}

struct Recording {
    int exitCode = -1;
    QString output;
};

/// Takes the tour of the program in the build folder; settings: of the simulated camera, empty for
/// the tour's own.
Recording record(const QString& tourFolder, const QString& build, const QString& report,
                 const QString& settings = {})
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    if (!settings.isEmpty()) {
        environment.insert(QStringLiteral("TAVREL_SIMULATOR_SETTINGS"), settings);
    }
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(tourFolder + QStringLiteral("/record"), {build, report});
    constexpr int longest = 320000; // milliseconds
    const bool ended = process.waitForFinished(longest);
    return {ended && process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            QString::fromUtf8(process.readAll())};
}

} // namespace

class TestTour : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyStepHasItsExpectedEffect();
    void everyTabHasAPicture_data();
    void everyTabHasAPicture();
    void noTwoTabsLookTheSame();
    void everyStepHasAPicture();
    void everyPictureIsDescribedByItsStep();
    void titleAndVerdictComeBeforeTheContentsAndTheSteps();
    void thePageBringsItsProgramAndTellsOfItsKeys();
    void theEventLogTellsTheSession();
    void thePageHoldsPicturesAndLogAndNeedsNoOtherFile();
    void theSdkIsAskedForWhatTheOperatorDid_data();
    void theSdkIsAskedForWhatTheOperatorDid();
    void theFactoryTableIsBackInTheEnd();
    void aFailedStepIsReportedAndEndsTheTour();
    void aModuleThatIsNotLoadedEndsTheTourAtOnce();
    void anAdapterIsPulledOutAndPluggedInFromOutside();

private:
    [[nodiscard]] QString inReport(const QString& name) const
    {
        return QDir(folder.path()).filePath(QStringLiteral("the report/") + name);
    }

    QTemporaryDir folder;
    QString tourFolder; ///< of the sources
    QString build;
    Recording tour;
};

void TestTour::initTestCase()
{
    QVERIFY(folder.isValid());
    // Sources, build and report are all reached by paths with a blank.
    const QString sources = folder.filePath(QStringLiteral("the sources"));
    build = folder.filePath(QStringLiteral("the build"));
    QVERIFY(QFile::link(QStringLiteral(SOURCE_FOLDER), sources));
    QVERIFY(QFile::link(QStringLiteral(BUILD_FOLDER), build));
    tourFolder = sources + QStringLiteral("/tour");
    tour = record(tourFolder, build, inReport(QString()));
}

void TestTour::everyStepHasItsExpectedEffect()
{
    QVERIFY2(tour.exitCode == 0 && !tour.output.contains(QLatin1String("FAILED")),
             qPrintable(endOf(tour.output)));
}

void TestTour::everyTabHasAPicture_data()
{
    QTest::addColumn<QString>("name");
    for (const char* const name : {"tab-1-image-processing", "tab-2-lut", "tab-3-zoom",
                                   "tab-4-edge", "tab-5-bad-pixels", "tab-6-expert"}) {
        QTest::newRow(name) << QString::fromLatin1(name);
    }
}

void TestTour::everyTabHasAPicture()
{
    QFETCH(QString, name);
    const QImage picture(inReport(name + QStringLiteral(".png")));
    QVERIFY(picture.width() >= 1113 && picture.height() >= 1129);
    // An empty window would do with a handful of colours.
    QVERIFY2(picture.colorCount() > 100, qPrintable(QString::number(picture.colorCount())));
}

void TestTour::noTwoTabsLookTheSame()
{
    QList<QByteArray> pictures;
    const QDir report(inReport(QString()));
    for (const QString& name : report.entryList({QStringLiteral("tab-*.png")})) {
        pictures.append(contentOf(report.filePath(name)));
        QCOMPARE(pictures.count(pictures.last()), 1);
    }
    QCOMPARE(pictures.size(), 6);
}

void TestTour::everyStepHasAPicture()
{
    const QString page = QString::fromUtf8(contentOf(inReport(QStringLiteral("index.html"))));
    const QStringList steps = page.split(QStringLiteral("<section ")).mid(1);
    QVERIFY(steps.size() > 40);
    for (const QString& step : steps) {
        QVERIFY2(step.contains(QLatin1String("<img ")), qPrintable(step.left(200)));
    }
}

void TestTour::everyPictureIsDescribedByItsStep()
{
    const QString page = QString::fromUtf8(contentOf(inReport(QStringLiteral("index.html"))));
    static const QRegularExpression title(QStringLiteral("</span>(.*)</h3>"));
    static const QRegularExpression action(QStringLiteral("<li>(.*)</li>"));
    static const QRegularExpression image(QStringLiteral("<img alt=\"([^\"]*)\""));
    for (const QString& step : page.split(QStringLiteral("<section ")).mid(1)) {
        QStringList descriptions;
        for (auto images = image.globalMatch(step); images.hasNext();) {
            const QString description = images.next().captured(1);
            QVERIFY2(description.contains(title.match(step).captured(1)), qPrintable(description));
            QVERIFY2(!description.contains(QLatin1String(".png")), qPrintable(description));
            QVERIFY2(!descriptions.contains(description), qPrintable(description));
            descriptions.append(description);
        }
        // What the operator did stands with the picture that shows what came of it.
        for (auto actions = action.globalMatch(step); actions.hasNext();) {
            const QString done = actions.next().captured(1);
            QVERIFY2(descriptions.join(QLatin1Char(' ')).contains(done), qPrintable(done));
        }
    }
}

void TestTour::titleAndVerdictComeBeforeTheContentsAndTheSteps()
{
    const QByteArray page = contentOf(inReport(QStringLiteral("index.html")));
    decltype(page.size()) from = 0;
    for (const char* const part : {"<h1>", "class=\"verdict\">All ", "<nav>", "<a href=\"#step-1\"",
                                   "<section id=\"step-1\""}) {
        const auto at = page.indexOf(part, from);
        QVERIFY2(at >= 0, part);
        from = at;
    }
}

void TestTour::thePageBringsItsProgramAndTellsOfItsKeys()
{
    const QByteArray page = contentOf(inReport(QStringLiteral("index.html")));
    QVERIFY(page.contains("The keys &rarr; and &larr; go to the next"));
    const QByteArray program = contentOf(tourFolder + QStringLiteral("/page.js"));
    QVERIFY(!program.isEmpty() && page.contains("<script>\n" + program + "</script>"));
}

void TestTour::theEventLogTellsTheSession()
{
    const QStringList log = linesOf(inReport(QStringLiteral("event-log.txt")));
    decltype(log.size()) from = 0;
    for (const char* const line :
         {"ALTERNATIVE SERIAL PORT : ttyUSB0", "Start reading camera parameters",
          "End reading camera parameters", "End reading camera expert parameters",
          "Set column correction value OK", "NUC applied", "Set GAMMA value OK",
          "Configure Zoom OK", "Configure EDGE CORRECTION OK", "End applying camera parameters",
          "Table containing : 37 Bad Pixels", "BP table reset succeed.", "Set GSK value OK",
          "End Read camera parameters : COM Error", "Set TEST PATTERN value KO",
          "No camera connected"}) {
        const auto at = log.indexOf(QString::fromLatin1(line), from);
        QVERIFY2(at >= 0, line);
        from = at + 1;
    }
}

void TestTour::thePageHoldsPicturesAndLogAndNeedsNoOtherFile()
{
    const QString page = QString::fromUtf8(contentOf(inReport(QStringLiteral("index.html"))));
    static const QRegularExpression reference(QStringLiteral("(?:src|href)=\"([^\"]*)\""));
    for (auto matches = reference.globalMatch(page); matches.hasNext();) {
        const QString target = matches.next().captured(1);
        QVERIFY2(target.startsWith(QLatin1String("data:image/png;base64,iVBOR")) ||
                     target.startsWith(QLatin1Char('#')),
                 qPrintable(target.left(80)));
    }
    QString text = page;
    text.remove(QRegularExpression(QStringLiteral("<[^>]*>")));
    for (const QString& line : linesOf(inReport(QStringLiteral("event-log.txt")))) {
        QVERIFY2(text.contains(line.toHtmlEscaped()), qPrintable(line));
    }
}

void TestTour::theSdkIsAskedForWhatTheOperatorDid_data()
{
    QTest::addColumn<QString>("call");
    const auto row = [](const char* what, const char* call) {
        QTest::newRow(what) << QString::fromLatin1(call);
    };
    row("a clicked switch", "setColumnCorrection(false)");
    row("a chosen entry", "setVideoOutput(5)");
    row("a dragged slider", "setGamma(144179)");
    row("a typed value", "setGamma(85196)");
    row("a rejected region", "setRoiX1(500, 0, ");
    row("the zoom", "configureZoomResolution(640, 480)");
    row("an expert value", "setGfid(450)");
    row("a new baud rate", "setBaudRate(9600, false)");
    row("a written table", "writeTableData(4096, 8192, 8)");
}

void TestTour::theSdkIsAskedForWhatTheOperatorDid()
{
    QFETCH(QString, call);
    const QByteArray calls = contentOf(inReport(QStringLiteral("session/calls.txt")));
    QVERIFY2(calls.contains(call.toUtf8()), calls.right(2000).constData());
}

void TestTour::theFactoryTableIsBackInTheEnd()
{
    const QString name = QStringLiteral("/bpr_SN20417.bin");
    const QByteArray working = contentOf(inReport(QStringLiteral("session/bpr") + name));
    constexpr int pixels = 640 * 480;
    QCOMPARE(working.size(), pixels);
    QCOMPARE(working.count('\1'), 37);
    QVERIFY(working == contentOf(inReport(QStringLiteral("session/bprBackup") + name)));
}

void TestTour::aFailedStepIsReportedAndEndsTheTour()
{
    const QString report = folder.filePath(QStringLiteral("failed"));
    const QString settings = folder.filePath(QStringLiteral("elsewhere.ini"));
    QFile file(settings);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("[camera]\nports=ttyUSB7\n");
    file.close();

    const Recording failed = record(tourFolder, build, report, settings);
    QCOMPARE(failed.exitCode, 1);
    QVERIFY2(failed.output.contains(QLatin1String("FAILED")), qPrintable(endOf(failed.output)));
    const QByteArray page = contentOf(report + QStringLiteral("/index.html"));
    QVERIFY(page.contains("<section id=\"step-5\" class=\"failed\">"));
    QVERIFY(!page.contains("Image Processing</h2>"));
}

void TestTour::aModuleThatIsNotLoadedEndsTheTourAtOnce()
{
    const QDir other(folder.filePath(QStringLiteral("without module")));
    QVERIFY(other.mkpath(QStringLiteral("bin")));
    QVERIFY(QFile::link(build + QStringLiteral("/bin/tavrel"),
                        other.filePath(QStringLiteral("bin/tavrel"))));
    const Recording ended =
        record(tourFolder, other.path(), folder.filePath(QStringLiteral("not taken")));
    QCOMPARE(ended.exitCode, 1);
    QVERIFY2(
        ended.output.contains(QLatin1String("The tour cannot begin: its module is not loaded")),
        qPrintable(endOf(ended.output)));
}

void TestTour::anAdapterIsPulledOutAndPluggedInFromOutside()
{
    const QString machine = tourFolder + QStringLiteral("/machine");
    const QString session = folder.filePath(QStringLiteral("machine"));
    QProcess running;
    running.start(machine,
                  {QStringLiteral("run"), session, QStringLiteral("sh"), QStringLiteral("-c"),
                   QStringLiteral("while read answer; do ls $UMOCKDEV_DIR/sys/class/tty | "
                                  "tr '\\n' ' '; echo; done")});
    QVERIFY(running.waitForStarted());
    const auto listed = [&] {
        running.write("\n");
        while (!running.canReadLine() && running.waitForReadyRead()) {
        }
        return running.readLine().trimmed();
    };
    const auto move = [&](const char* task) {
        return QProcess::execute(machine,
                                 {QLatin1String(task), session, QStringLiteral("ttyUSB1")});
    };
    QCOMPARE(listed(), QByteArray("tty0 ttyUSB0 ttyUSB1"));
    QCOMPARE(move("unplug"), 0);
    QCOMPARE(listed(), QByteArray("tty0 ttyUSB0"));
    QCOMPARE(move("plug"), 0);
    QCOMPARE(listed(), QByteArray("tty0 ttyUSB0 ttyUSB1"));
    running.closeWriteChannel();
    QVERIFY(running.waitForFinished());
}

QTEST_GUILESS_MAIN(TestTour)
#include "tst_tour.moc"
