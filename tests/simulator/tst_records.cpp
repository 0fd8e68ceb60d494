// SPDX-License-Identifier: MIT
// What the simulator writes down: the log of the SDK and the journal of the calls.
#include "tests/simulator/program.h"
#include "tests/simulator/scene.h"

#include <QtCore/QDir>
#include <QtTest/QTest>

#include <cmath>

using ombrix_sdk::ICamera;
using program::Output;
using program::run;
using program::withoutTime;
using scene::Scene;

namespace {

const QStringList recordsOfTheProbe = {
    QStringLiteral("startup  QT Version 5.15"), QStringLiteral("event    first"),
    QStringLiteral("event    second \u00e9"), QStringLiteral("severity 7 ")};

} // namespace

class TestRecords : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theLogGoesToStandardErrorWithTimeMarkSeverityAndText()
    {
        Scene scene;
        const Output output = run();
        QCOMPARE(output.exitCode, 0);
        QCOMPARE(output.standardOutput, QStringList());
        const QStringList lines = withoutTime(output.standardError);
        QCOMPARE(
            lines.mid(0, 3),
            QStringList(
                {QStringLiteral("notice   no camera hardware is used: this SDK is a simulator"),
                 QStringLiteral("notice   settings: built in; memory: off; plan: none; "
                                "seed: 1"),
                 QStringLiteral("notice   [camera] serial number 20417 on port *")}));
        QCOMPARE(lines.mid(3), recordsOfTheProbe);
    }

    void theSimulatorSaysWhatItRunsOn()
    {
        Scene scene;
        scene.write(QStringLiteral("simulator.ini"),
                    "[simulator]\nseed=42\nmemory=kept\nplan=plan.ini\n"
                    "[camera-a]\nports=ttyUSB0,COM3\nserialNumber=4294967295\n");
        const QStringList lines = withoutTime(run().standardError);
        QCOMPARE(
            lines.mid(1, 2),
            QStringList({QStringLiteral("notice   settings: %1; memory: %2; plan: %3, which is not "
                                        "there yet; seed: 42")
                             .arg(scene.path(QStringLiteral("simulator.ini")),
                                  scene.path(QStringLiteral("kept")),
                                  scene.path(QStringLiteral("plan.ini"))),
                         QStringLiteral("notice   [camera-a] serial number 4294967295 on port "
                                        "ttyUSB0, COM3")}));
    }

    void aLogFileGetsTheRecordsAfterThoseItHas_data()
    {
        QTest::addColumn<bool>("byVariable");
        QTest::newRow("by the variable") << true;
        QTest::newRow("by the settings") << false;
    }

    void aLogFileGetsTheRecordsAfterThoseItHas()
    {
        QFETCH(bool, byVariable);
        Scene scene;
        scene.write(QStringLiteral("other.log"), "of before\n");
        if (!byVariable) {
            scene.write(QStringLiteral("simulator.ini"), "[simulator]\nlog=other.log\n");
        }
        const Output output =
            run(byVariable ? QStringList(QStringLiteral("TAVREL_SIMULATOR_LOG=other.log"))
                           : QStringList());
        QCOMPARE(output.standardError, QStringList());
        const QStringList lines = scene::linesOf(scene.read(QStringLiteral("other.log")));
        QCOMPARE(lines.first(), QStringLiteral("of before"));
        QCOMPARE(withoutTime(lines.mid(4)), recordsOfTheProbe);
    }

    void mistakesInTheSettingsAreToldOnStandardErrorAndInTheLogFile()
    {
        Scene scene;
        scene.write(QStringLiteral("simulator.ini"),
                    "[simulator]\nlog=other.log\n[camera]\ngama=1\n");
        const QString told = QStringLiteral("problem  %1:4: [camera] gama: unknown key")
                                 .arg(scene.path(QStringLiteral("simulator.ini")));
        const QStringList lines = withoutTime(run().standardError);
        QCOMPARE(lines.size(), 1);
        QVERIFY2(lines.at(0).startsWith(told), qPrintable(lines.at(0)));
        QVERIFY(QString::fromUtf8(scene.read(QStringLiteral("other.log"))).contains(told));
    }

    void aLogFileThatCannotBeOpenedIsToldAndTheLogStaysOnStandardError()
    {
        Scene scene;
        QVERIFY(QDir().mkdir(QStringLiteral("other.log")));
        const QStringList lines =
            withoutTime(run({QStringLiteral("TAVREL_SIMULATOR_LOG=other.log")}).standardError);
        QVERIFY2(lines.value(0).startsWith(QStringLiteral("problem  log file %1: ")
                                               .arg(scene.path(QStringLiteral("other.log")))),
                 qPrintable(lines.value(0)));
        QCOMPARE(lines.mid(4), recordsOfTheProbe);
    }

    // ---- strict: a mistake ends the program

    void aMistakeEndsAStrictProgramWithStatus2_data()
    {
        QTest::addColumn<QStringList>("variables");
        QTest::addColumn<QString>("told"); // %1: the scene's folder
        const auto row = [](const char* name, const char* variable, const QString& told) {
            QTest::newRow(name) << QStringList({QStringLiteral("TAVREL_SIMULATOR_STRICT=1"),
                                                QStringLiteral("TAVREL_SIMULATOR_") +
                                                    QLatin1String(variable)})
                                << told;
        };
        row("a wrong setting", "SETTINGS=wrong.ini",
            QStringLiteral("%1/wrong.ini:2: [camera] gama: unknown key"));
        row("a wrong plan", "PLAN=wrong.ini",
            QStringLiteral("%1/wrong.ini:1: [camera]: no operation has this name, see "
                           "simulator-reference.md; the section does nothing"));
        row("no such settings", "SETTINGS=none.ini",
            QStringLiteral("%1/none.ini: there is no such file, or it cannot be read"));
        row("no such plan", "PLAN=none.ini", QStringLiteral("%1/none.ini: there is no such file"));
        row("an unknown variable", "PLANS=plan.ini",
            QStringLiteral(
                "environment: TAVREL_SIMULATOR_PLANS: unknown variable; there are "
                "TAVREL_SIMULATOR_CONTROL, TAVREL_SIMULATOR_FACTORY_FRESH, "
                "TAVREL_SIMULATOR_JOURNAL, "
                "TAVREL_SIMULATOR_LOG, TAVREL_SIMULATOR_MEMORY, TAVREL_SIMULATOR_PLAN, "
                "TAVREL_SIMULATOR_SAFE, TAVREL_SIMULATOR_SETTINGS, TAVREL_SIMULATOR_STRICT"));
        row("a switch that is none", "FACTORY_FRESH=perhaps",
            QStringLiteral("environment: TAVREL_SIMULATOR_FACTORY_FRESH: \"perhaps\" is not true, "
                           "false or a whole number from 0 to 255; false is used"));
        row("strict itself is none", "STRICT=yes",
            QStringLiteral("environment: TAVREL_SIMULATOR_STRICT: \"yes\" is not true, false or a "
                           "whole number from 0 to 255; true is used"));
        row("a memory that cannot be made", "MEMORY=wrong.ini/kept",
            QStringLiteral("memory folder %1/wrong.ini/kept: it cannot be made; nothing will be "
                           "kept"));
        row("a damaged memory", "MEMORY=damaged",
            QStringLiteral("%1/damaged/camera-20417.ini: [memory] format: no value; the damaged "
                           "file is not used"));
        row("a log that cannot be opened", "LOG=damaged", QStringLiteral("log file %1/damaged: "));
        row("a journal that cannot be opened", "JOURNAL=damaged",
            QStringLiteral("journal %1/damaged: "));
    }

    void aMistakeEndsAStrictProgramWithStatus2()
    {
        QFETCH(QStringList, variables);
        QFETCH(QString, told);
        Scene scene;
        scene.write(QStringLiteral("wrong.ini"), "[camera]\ngama=1\n");
        QVERIFY(QDir().mkdir(QStringLiteral("damaged")));
        scene.write(QStringLiteral("damaged/camera-20417.ini"), "rubbish");
        const Output output = run(variables);
        QCOMPARE(output.exitCode, 2);
        QCOMPARE(output.standardOutput, QStringList());
        const QStringList lines = withoutTime(output.standardError);
        QCOMPARE(lines.size(), 1);
        const QString begin = QStringLiteral("problem  ") + told.arg(QDir::currentPath());
        QVERIFY2(lines.at(0).startsWith(begin), qPrintable(lines.at(0)));
        QCOMPARE(scene.read(QStringLiteral("damaged/camera-20417.ini")), QByteArray("rubbish"));
    }

    void aStrictProgramThatEndsHasTouchedNothing()
    {
        Scene scene;
        scene.write(QStringLiteral("wrong.ini"),
                    "[simulator]\nlog=other.log\njournal=calls.txt\nmemory=new\nspeed=1\n"
                    "[kamera]\ngamma=1\n");
        scene.write(QStringLiteral("other.log"), "of before\n");
        scene.write(QStringLiteral("calls.txt"), "of before\n");
        const Output output = run({QStringLiteral("TAVREL_SIMULATOR_STRICT=true"),
                                   QStringLiteral("TAVREL_SIMULATOR_SETTINGS=wrong.ini")});
        QCOMPARE(output.exitCode, 2);
        QCOMPARE(output.standardError.size(), 2);
        QCOMPARE(scene.read(QStringLiteral("other.log")), QByteArray("of before\n"));
        QCOMPARE(scene.read(QStringLiteral("calls.txt")), QByteArray("of before\n"));
        QVERIFY(!scene.exists(QStringLiteral("new")));
    }

    void aPlanThatGoesWrongLaterEndsAStrictProgram()
    {
        Scene scene;
        scene.write(QStringLiteral("plan.ini"), "");
        scene.write(QStringLiteral("right.ini"), "[setGamma]\ncalls=1\n");
        scene.write(QStringLiteral("wrong.ini"), "[setGamma]\ncalls=0\n");
        const QStringList variables = {QStringLiteral("TAVREL_SIMULATOR_STRICT=1"),
                                       QStringLiteral("TAVREL_SIMULATOR_PLAN=plan.ini")};
        QCOMPARE(run(variables, {QStringLiteral("right.ini")}).exitCode, 0);
        scene.write(QStringLiteral("plan.ini"), "");
        const Output output = run(variables, {QStringLiteral("wrong.ini")});
        QCOMPARE(output.exitCode, 2);
        QVERIFY(output.standardError.last().contains(QStringLiteral("plan.ini:2: ")));
        // What the program has said until then is not lost.
        QCOMPARE(output.standardOutput, QStringList(QStringLiteral("the plan is another one")));
    }

    void withoutMistakesAStrictProgramRunsOn_data()
    {
        QTest::addColumn<QString>("strict");
        QTest::newRow("strict") << QStringLiteral("1");
        QTest::newRow("not strict, with a mistake") << QStringLiteral("0");
        QTest::newRow("not said") << QString();
    }

    void withoutMistakesAStrictProgramRunsOn()
    {
        QFETCH(QString, strict);
        Scene scene;
        const Output output =
            run({QStringLiteral("TAVREL_SIMULATOR_STRICT=") + strict,
                 strict == QLatin1String("1") ? QString()
                                              : QStringLiteral("TAVREL_SIMULATOR_PLANS=plan.ini")});
        QCOMPARE(output.exitCode, 0);
        QVERIFY(output.standardError.size() > 3);
    }

    // ---- the journal

    void theJournalHoldsEveryCallWithArgumentsAndAnswer_data()
    {
        QTest::addColumn<bool>("byVariable");
        QTest::newRow("by the variable") << true;
        QTest::newRow("by the settings") << false;
    }

    void theJournalHoldsEveryCallWithArgumentsAndAnswer()
    {
        QFETCH(bool, byVariable);
        Scene scene;
        if (!byVariable) {
            scene.write(QStringLiteral("simulator.ini"), "[simulator]\njournal=journal.txt\n");
        }
        QCOMPARE(run(byVariable
                         ? QStringList(QStringLiteral("TAVREL_SIMULATOR_JOURNAL=journal.txt"))
                         : QStringList())
                     .exitCode,
                 0);
        QCOMPARE(
            scene.journal(),
            QStringList({QStringLiteral("sdk initialize()"), QStringLiteral("sdk initialize()"),
                         QStringLiteral("sdk createSerialLink()"),
                         QStringLiteral("link openCamera(\"ttyUSB0\") = camera 20417"),
                         QStringLiteral("camera 20417 connect() = 1"),
                         QStringLiteral("camera 20417 getGamma() = 65536"),
                         QStringLiteral("camera 20417 setGamma(65537) = 1"),
                         QStringLiteral("camera 20417 configureZoom({2.5, 1, 2, 1}) = 1"),
                         QStringLiteral("camera 20417 getZoom() = 1 {2.5, 1, 2, 1}"),
                         QStringLiteral("link closeCamera(camera 20417)"),
                         QStringLiteral("sdk releaseSerialLink()"),
                         QStringLiteral("sdk saveConfiguration()")}));
    }

    void theJournalHoldsRecordsAndTheReasonOfAFailure()
    {
        Scene scene;
        scene.write(QStringLiteral("plan.ini"),
                    "[setGsk]\ncalls=always\n[getTint]\nvalue=4294967295\n"
                    "[setTint]\nhangUp=true\n");
        scene.restart("[simulator]\njournal=journal.txt\nplan=plan.ini\n");
        ICamera& camera = scene.camera();
        quint32 versions = 0;
        camera.getVersions(&versions);
        camera.refresh();
        ombrix_sdk::Temperatures temperatures{};
        camera.getTemperatures(&temperatures);
        ombrix_sdk::OperatingTime time{};
        camera.getOperatingTime(&time);
        ombrix_sdk::EdgeCorrection edge{};
        camera.getEdgeCorrection(&edge);
        ombrix_sdk::ZoomResolution resolution{};
        camera.getZoomResolution(&resolution);
        ombrix_sdk::AhcGainsLimitation limits{};
        camera.getAhcGainsLimitation(&limits);
        std::uint8_t closed = 0;
        camera.getShutterPosition(&closed);
        camera.setPolarity(true);
        camera.configureZoom(nullptr);
        camera.setRoiX1(100, 2, true, false, true);
        QByteArray bytes(scene::regionSize, '\0');
        camera.readTableData(4096, 8192, 9, bytes.data());
        std::vector<ombrix_sdk::ReplacementEntry> list;
        int height = 480;
        int width = 640;
        camera.loadBadPixelList("no.bin", list, height, width);
        camera.addBadPixels("no.bin", 0xFFFFFFFF, 3);
        scene.configuration().setBaudRate(9600);
        camera.setGsk(5);
        camera.getTint();
        camera.setTint(5);
        camera.getGsk();
        scene.link()->closeCamera(&camera);
        camera.getGsk();
        scene.open("COM1");
        QCOMPARE(
            scene.journal().mid(3),
            QStringList(
                {QStringLiteral("camera 20417 getVersions() = 570884418"),
                 QStringLiteral("camera 20417 refresh() = 1"),
                 QStringLiteral("camera 20417 getTemperatures() = 1 {304500, 318250}"),
                 QStringLiteral("camera 20417 getOperatingTime() = 1 {5263, 118}"),
                 QStringLiteral("camera 20417 getEdgeCorrection() = 1 {1, 40, 15, 55}"),
                 QStringLiteral("camera 20417 getZoomResolution() = 1 {720, 576}"),
                 QStringLiteral("camera 20417 getAhcGainsLimitation() = 1 {20, 80}"),
                 QStringLiteral("camera 20417 getShutterPosition() = 1 0"),
                 QStringLiteral("camera 20417 setPolarity(true) = 1"),
                 QStringLiteral("camera 20417 configureZoom(null) = 0"),
                 QStringLiteral("camera 20417 setRoiX1(100, 2, true, false, true) = 1"),
                 QStringLiteral("camera 20417 readTableData(4096, 8192, 9) = 0"),
                 QStringLiteral("camera 20417 loadBadPixelList(\"no.bin\", 480, 640) = 0 entries"),
                 QStringLiteral("camera 20417 addBadPixels(\"no.bin\", 4294967295, 3) = 0"),
                 QStringLiteral("configuration setBaudRate(9600)"),
                 QStringLiteral("camera 20417 setGsk(5) = 0 [plan]"),
                 QStringLiteral("camera 20417 getTint() = 4294967295 [plan]"),
                 QStringLiteral("camera 20417 setTint(5) = 0 [no answer]"),
                 QStringLiteral("camera 20417 getGsk() = 0 [no answer]"),
                 QStringLiteral("link closeCamera(camera 20417)"),
                 QStringLiteral("camera 20417 getGsk() = 0 [closed]"),
                 QStringLiteral("sdk createSerialLink()"),
                 QStringLiteral("link openCamera(\"COM1\") = null [no answer]")}));
    }

    void twoRunsOfTheSameProgramHaveTheSameJournal()
    {
        Scene scene;
        const QStringList variables(QStringLiteral("TAVREL_SIMULATOR_JOURNAL=journal.txt"));
        run(variables);
        const QStringList first = scene.journal();
        run(variables);
        QVERIFY(first.size() > 10);
        QCOMPARE(scene.journal(), first);
    }

    void aJournalThatCannotBeOpenedIsTold()
    {
        Scene scene;
        QVERIFY(QDir().mkdir(QStringLiteral("journal.txt")));
        scene.restart("[simulator]\njournal=journal.txt\n");
        scene.camera();
        QVERIFY(scene.newLog().value(0).startsWith(
            QStringLiteral("problem  journal %1: ")
                .arg(scene.path(QStringLiteral("journal.txt")))));
    }

    void theLogSaysWhyNoCameraAnswers()
    {
        Scene scene("[simulator]\nplan=plan.ini\n[camera]\nports=ttyUSB0\n");
        scene.open("ttyUSB1");
        scene.configuration().setBaudRate(9600);
        scene.open();
        scene.configuration().setBaudRate(115200);
        scene.write(QStringLiteral("plan.ini"), "[openCamera]\ncalls=1\n[getGsk]\nhangUp=true\n");
        scene.open();
        scene.open()->getGsk();
        scene.open();
        QCOMPARE(scene.newLog().filter(QStringLiteral("openCamera")),
                 QStringList(
                     {QStringLiteral("notice   openCamera ttyUSB1: no camera is plugged in there"),
                      QStringLiteral("notice   openCamera ttyUSB0: baud rate mismatch: camera "
                                     "115200, link 9600"),
                      QStringLiteral("notice   openCamera ttyUSB0: no answer, by the plan"),
                      QStringLiteral("notice   openCamera ttyUSB0: the camera hangs")}));
    }

    void aProcessThatEndsAndStartsAgainFindsItsMemory()
    {
        Scene scene;
        const QStringList variables = {QStringLiteral("TAVREL_SIMULATOR_JOURNAL=journal.txt"),
                                       QStringLiteral("TAVREL_SIMULATOR_MEMORY=kept")};
        run(variables);
        run(variables);
        QVERIFY(scene.journal().contains(QStringLiteral("camera 20417 getGamma() = 65537")));
        run(variables + QStringList(QStringLiteral("TAVREL_SIMULATOR_FACTORY_FRESH=1")));
        QVERIFY(scene.journal().contains(QStringLiteral("camera 20417 getGamma() = 65536")));
    }

    void aSecondProcessLeavesTheMemoryOfTheFirstAloneAndSaysSo_data()
    {
        QTest::addColumn<QStringList>("variables");
        QTest::addColumn<int>("exitCode");
        QTest::newRow("as it is") << QStringList() << 0;
        QTest::newRow("factory fresh")
            << QStringList(QStringLiteral("TAVREL_SIMULATOR_FACTORY_FRESH=1")) << 0;
        QTest::newRow("strict") << QStringList(QStringLiteral("TAVREL_SIMULATOR_STRICT=1")) << 2;
    }

    void aSecondProcessLeavesTheMemoryOfTheFirstAloneAndSaysSo()
    {
        QFETCH(QStringList, variables);
        QFETCH(int, exitCode);
        Scene scene("[simulator]\nmemory=kept\n");
        scene.camera().setGamma(144179);
        QByteArray table(scene::regionSize, '\x11');
        scene.camera().writeTableData(4096, 8192, 8, table.data());
        const QString cameraFile = QStringLiteral("kept/camera-20417.ini");
        const QByteArray before = scene.read(cameraFile);
        QVERIFY(!before.isEmpty());
        const Output second = run(variables);
        QCOMPARE(second.exitCode, exitCode);
        const QString told = QStringLiteral("problem  memory folder %1/kept: another process uses "
                                            "it; nothing of it is read, and nothing will be kept")
                                 .arg(QDir::currentPath());
        QCOMPARE(withoutTime(second.standardError).filter(QStringLiteral("problem")),
                 QStringList(told));
        const QStringList start =
            withoutTime(second.standardError).filter(QStringLiteral("notice   settings:"));
        QCOMPARE(start.size(), exitCode == 0 ? 1 : 0);
        QVERIFY2(exitCode != 0 || start[0].contains(QStringLiteral("; memory: off; ")),
                 qPrintable(start.value(0)));
        QCOMPARE(scene.read(cameraFile), before);
        QCOMPARE(scene.read(QStringLiteral("kept/camera-20417.table")), table);
        // The first goes on keeping what it does.
        scene.camera().setGsk(19);
        QVERIFY(scene.read(cameraFile).contains("gsk=19\n"));
        // Whoever comes when it has ended has the folder.
        scene.restart("[camera]\n");
        const Output third = run({QStringLiteral("TAVREL_SIMULATOR_MEMORY=kept")});
        QCOMPARE(withoutTime(third.standardError).filter(QStringLiteral("problem")), QStringList());
        QVERIFY(scene.read(cameraFile).contains("gsk=19\n"));
    }
};

QTEST_GUILESS_MAIN(TestRecords)
#include "tst_records.moc"
