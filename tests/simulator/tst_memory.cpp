// SPDX-License-Identifier: MIT
// What outlives the program: the memory of the cameras and of the SDK on disk, and what a camera
// keeps when its power is switched off and on.
#include "tests/simulator/scene.h"
#include "tests/simulator/table.h"

#include "simulator/control.h"

#include <QtCore/QDateTime>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtTest/QTest>

using ombrix_sdk::Flag;
using ombrix_sdk::ICamera;
using scene::Scene;

namespace {

const QString cameraFile = QStringLiteral("kept/camera-20417.ini");
const QString tableFile = QStringLiteral("kept/camera-20417.table");
const QString configurationFile = QStringLiteral("kept/configuration.ini");
constexpr const char* withMemory = "[simulator]\nmemory=kept\n";

quint32 startups(ICamera& camera)
{
    ombrix_sdk::OperatingTime time{};
    camera.getOperatingTime(&time);
    return time.startups;
}

int shutter(ICamera& camera)
{
    std::uint8_t closed = 0x37;
    camera.getShutterPosition(&closed);
    return closed;
}

QByteArray region(ICamera& camera)
{
    QByteArray bytes(scene::regionSize, '\0');
    camera.readTableData(4096, 8192, 9, bytes.data());
    return bytes;
}

/// Changes one value of every group.
void change(ICamera& camera)
{
    camera.setGamma(144179);
    camera.setGsk(11);
    camera.setPolarity(true);
    camera.setFrameRate(25);
    camera.configureEdgeCorrection(2, 3, 4);
    const ombrix_sdk::Zoom zoom{1.125F, 1, 2, 0};
    camera.configureZoom(&zoom);
    camera.setRoiX1(77, 3, false, false, true);
    camera.setTestPattern(true);
    camera.setShutterPosition(true);
    QByteArray table(scene::regionSize, '\x11');
    camera.writeTableData(4096, 8192, 8, table.data());
}

/// Whether the camera still is as change left it.
void compareKept(ICamera& camera)
{
    QCOMPARE(camera.getGamma(), 144179U);
    QCOMPARE(camera.getGsk(), 11U);
    QCOMPARE(camera.getPolarity(), Flag{1});
    QCOMPARE(camera.getFrameRate(), std::uint8_t{25});
    ombrix_sdk::EdgeCorrection edge{};
    QCOMPARE(camera.getEdgeCorrection(&edge)->secondThreshold, 44U);
    ombrix_sdk::Zoom zoom{};
    camera.getZoom(&zoom);
    QCOMPARE(zoom.factor, 1.125F);
    QCOMPARE(camera.getRoiX1(3), 77U);
    QCOMPARE(camera.getRoiX1(2), 0U);
    QCOMPARE(region(camera), QByteArray(scene::regionSize, '\x11'));
    // A camera comes up with its shutter open and without a test pattern.
    QCOMPARE(camera.getTestPattern(), Flag{0});
    QCOMPARE(shutter(camera), 0);
}

} // namespace

class TestMemory : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void withoutAFolderNothingIsKeptOrWritten()
    {
        Scene scene;
        change(scene.camera());
        scene.configuration().gskValue = 3;
        scene.sdk().saveConfiguration();
        scene.restart();
        QCOMPARE(scene.camera().getGamma(), 65536U);
        QCOMPARE(startups(scene.camera()), 118U);
        QCOMPARE(scene.configuration().gskValue, 6);
        QCOMPARE(QDir().entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
                 QStringList(QStringLiteral("sdk.log")));
    }

    void theProgramsNextStartFindsTheCameraAsItWasLeft()
    {
        Scene scene(withMemory);
        change(scene.camera());
        scene.restart();
        compareKept(scene.camera());
    }

    void aPowerCycleLeavesTheCameraAsItWas()
    {
        Scene scene;
        ICamera& camera = scene.camera();
        change(camera);
        ombrix_simulator::cyclePower();
        compareKept(camera);
    }

    void theVariableNamesTheFolderBeforeTheSettings()
    {
        Scene scene(withMemory);
        Scene::setVariable("TAVREL_SIMULATOR_MEMORY", QStringLiteral("elsewhere"));
        scene.restart();
        QVERIFY(scene.exists(QStringLiteral("elsewhere/camera-20417.ini")));
    }

    void aFolderKeepsWhateverItsName()
    {
        const QByteArray settings = "[simulator]\nmemory=job%2Fx/%1 %3\n";
        Scene scene(settings);
        change(scene.camera());
        scene.restart();
        compareKept(scene.camera());
        // A damaged file keeps its name, too.
        const QString file = QStringLiteral("job%2Fx/%1 %3/camera-20417.ini");
        for (const char* const damaged : {".damaged", ".damaged-2"}) {
            scene.write(file, "rubbish");
            scene.restart();
            QCOMPARE(scene.read(file + QLatin1String(damaged)), QByteArray("rubbish"));
        }
        scene.sdk().initialize();
        QVERIFY(scene.newLog().contains(
            QStringLiteral("notice   settings: ") + scene.path(QStringLiteral("simulator.ini")) +
            QStringLiteral("; memory: ") + scene.path(QStringLiteral("job%2Fx/%1 %3")) +
            QStringLiteral("; plan: none; seed: 1")));
    }

    void aStartIsCountedOncePerProcessAndPowerCycle()
    {
        Scene scene(withMemory);
        QCOMPARE(startups(scene.camera()), 118U);
        scene.sdk().initialize();
        scene.sdk().initialize();
        scene.camera();
        QCOMPARE(startups(scene.camera()), 118U);
        scene.restart();
        QCOMPARE(startups(scene.camera()), 119U);
        ombrix_simulator::cyclePower();
        QCOMPARE(startups(scene.camera()), 120U);
        scene.restart();
        QCOMPARE(startups(scene.camera()), 121U);
    }

    void operatingMinutesGoOnCounting()
    {
        Scene scene("[simulator]\nmemory=kept\nmanualClock=true\n");
        ombrix_simulator::advanceClock(2 * 60'000);
        ombrix_sdk::OperatingTime time{};
        scene.camera().getOperatingTime(&time);
        QCOMPARE(time.minutes, 5265U);
        scene.restart();
        ombrix_simulator::advanceClock(60'000);
        scene.camera().getOperatingTime(&time);
        QCOMPARE(time.minutes, 5266U);
    }

    // ---- baud rates

    void aPermanentRateSurvivesAPowerCycle_data() { restartRows(); }

    void aPermanentRateSurvivesAPowerCycle()
    {
        QFETCH(bool, newProcess);
        Scene scene(withMemory);
        QCOMPARE(scene.camera().setBaudRate(9600, true), Flag{1});
        again(scene, newProcess);
        QVERIFY(scene.open() == nullptr);
        scene.configuration().setBaudRate(9600);
        QVERIFY(scene.open() != nullptr);
    }

    void aTemporaryRateDoesNotSurviveAPowerCycle_data() { restartRows(); }

    void aTemporaryRateDoesNotSurviveAPowerCycle()
    {
        QFETCH(bool, newProcess);
        Scene scene(withMemory);
        QCOMPARE(scene.camera().setBaudRate(9600, false), Flag{1});
        again(scene, newProcess);
        QVERIFY(scene.open() != nullptr);
        scene.configuration().setBaudRate(9600);
        QVERIFY(scene.open() == nullptr);
    }

    // ---- the configuration

    void savingTheConfigurationKeepsItsValues()
    {
        Scene scene(withMemory);
        scene.configuration().gskValue = 1;
        scene.configuration().gmsValue = -2;
        scene.configuration().gfidValue = 3;
        scene.configuration().tintValue = 4;
        scene.configuration().setBaudRate(9600);
        scene.sdk().saveConfiguration();
        scene.restart();
        QCOMPARE(scene.configuration().gskValue, 1);
        QCOMPARE(scene.configuration().gmsValue, -2);
        QCOMPARE(scene.configuration().gfidValue, 3);
        QCOMPARE(scene.configuration().tintValue, 4);
        QCOMPARE(scene.configuration().getDefaultBaudRate(), 9600);
    }

    void withoutSavingTheConfigurationForgets()
    {
        Scene scene(withMemory);
        scene.configuration().gskValue = 1;
        scene.configuration().setBaudRate(9600);
        scene.restart();
        QCOMPARE(scene.configuration().gskValue, 6);
        QCOMPARE(scene.configuration().getDefaultBaudRate(), 115200);
    }

    void limitsAndDefaultsAlwaysComeFromTheSettings()
    {
        Scene scene(withMemory);
        scene.configuration().gskMax = 7;
        scene.sdk().saveConfiguration();
        scene.restart(QByteArray(withMemory) + "[configuration]\ngskMax=15\ndefaultColorLut=3\n");
        QCOMPARE(scene.configuration().gskMax, 15);
        QCOMPARE(scene.configuration().getDefaultColorLut(), std::uint8_t{3});
    }

    // ---- factory fresh

    void aFactoryFreshStartForgetsEverything_data()
    {
        QTest::addColumn<bool>("byVariable");
        QTest::newRow("by the variable") << true;
        QTest::newRow("by the settings") << false;
    }

    void aFactoryFreshStartForgetsEverything()
    {
        QFETCH(bool, byVariable);
        Scene scene(withMemory);
        ICamera& camera = scene.camera();
        const QByteArray factory = region(camera);
        change(camera);
        camera.setBaudRate(9600, true);
        scene.configuration().gskValue = 1;
        scene.sdk().saveConfiguration();
        if (byVariable) {
            Scene::setVariable("TAVREL_SIMULATOR_FACTORY_FRESH", QStringLiteral("true"));
            scene.restart();
        } else {
            scene.restart(QByteArray(withMemory) + "factoryFresh=true\n");
        }
        QCOMPARE(scene.camera().getGamma(), 65536U);
        QCOMPARE(startups(scene.camera()), 118U);
        QCOMPARE(region(scene.camera()), factory);
        QCOMPARE(scene.configuration().gskValue, 6);
    }

    void aWrongVariableIsToldAndForgetsNothing()
    {
        Scene scene(withMemory);
        scene.camera().setGamma(144179);
        Scene::setVariable("TAVREL_SIMULATOR_FACTORY_FRESH", QStringLiteral("perhaps"));
        scene.restart();
        QCOMPARE(scene.camera().getGamma(), 144179U);
        QCOMPARE(
            scene.newLog(),
            QStringList(QStringLiteral(
                "problem  environment: TAVREL_SIMULATOR_FACTORY_FRESH: \"perhaps\" is not true, "
                "false or a whole number from 0 to 255; false is used")));
    }

    void aMemoryOfTheSameLengthAndTimeIsReadAgain()
    {
        Scene scene(withMemory);
        QFile file(scene.path(cameraFile));
        const QDateTime written = QFileInfo(file).lastModified();
        scene.restart();
        scene.write(cameraFile, scene.read(cameraFile).replace("startups=119", "startups=219"));
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.setFileTime(written, QFileDevice::FileModificationTime));
        file.close();
        scene.restart();
        QCOMPARE(startups(scene.camera()), 220U);
    }

    // ---- damage

    void aDamagedCameraFileIsSetAsideAndTheFactorysValuesUsed_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("empty") << QByteArray("");
        QTest::newRow("rubbish") << QByteArray("\x01\x02\x00\xFF\n[[[=\n", 10);
        QTest::newRow("cut off") << QByteArray("[memory]\nformat=1\noperatingMinutes=7\nstart");
        QTest::newRow("of another format") << QByteArray();
    }

    void aDamagedCameraFileIsSetAsideAndTheFactorysValuesUsed()
    {
        QFETCH(QByteArray, content);
        Scene scene(withMemory);
        scene.camera().setGamma(144179);
        if (content.isNull()) {
            content = scene.read(cameraFile).replace("format=1", "format=2");
        }
        scene.write(cameraFile, content);
        scene.newLog();
        scene.restart();
        QCOMPARE(scene.camera().getGamma(), 65536U);
        QCOMPARE(scene.read(cameraFile + QStringLiteral(".damaged")), content);
        const QStringList log = scene.newLog();
        QCOMPARE(log.size(), 1);
        QVERIFY2(log.at(0).startsWith(QStringLiteral("problem  ") + scene.path(cameraFile)),
                 qPrintable(log.at(0)));
        QVERIFY2(
            log.at(0).endsWith(
                QStringLiteral("; the damaged file is now %1.damaged").arg(scene.path(cameraFile))),
            qPrintable(log.at(0)));
        // The camera goes on and keeps again.
        scene.camera().setGamma(70000);
        scene.restart();
        QCOMPARE(scene.camera().getGamma(), 70000U);
    }

    void aDamagedFileThatCannotBeSetAsideAnyMoreIsNotUsed()
    {
        Scene scene(withMemory);
        scene.camera().setGamma(144179);
        QDir kept(scene.path(QStringLiteral("kept")));
        for (int number = 1; number <= 1000; ++number) {
            scene.write(number == 1 ? cameraFile + QStringLiteral(".damaged")
                                    : cameraFile + QStringLiteral(".damaged-%1").arg(number),
                        "earlier");
        }
        const auto files = kept.entryList(QDir::Files).size();
        scene.write(cameraFile, "rubbish");
        scene.newLog();
        scene.restart();
        QCOMPARE(scene.camera().getGamma(), 65536U);
        QVERIFY(scene.newProblems().value(0).endsWith(
            QStringLiteral("; the damaged file is not used")));
        QCOMPARE(kept.entryList(QDir::Files).size(), files);
        QCOMPARE(scene.read(cameraFile + QStringLiteral(".damaged-1000")), QByteArray("earlier"));
    }

    void aSwitchOfAnotherByteThanZeroAndOneIsKeptAsItIs()
    {
        Scene scene("[simulator]\nmemory=kept\n[camera]\ngainCorrection=7\n");
        QCOMPARE(scene.camera().getGainCorrection(), Flag{7});
        QVERIFY(scene.read(cameraFile).contains("gainCorrection=7\n"));
        scene.restart(withMemory);
        QCOMPARE(scene.camera().getGainCorrection(), Flag{7});
    }

    void everyKeptValueIsMissedWhenItIsGone()
    {
        Scene scene(withMemory);
        const QList<QByteArray> lines = scene.read(cameraFile).split('\n');
        QVERIFY(lines.size() > 50);
        int place = 0;
        for (const QByteArray& line : lines) {
            if (line.contains('=')) {
                scene.write(cameraFile,
                            QByteArray(scene.read(cameraFile)).replace(line + '\n', ""));
                scene.newLog();
                scene.restart();
                QVERIFY2(scene.newLog().size() == 1, line.constData());
                ++place;
            }
        }
        QVERIFY(scene.exists(cameraFile + QStringLiteral(".damaged")));
        QVERIFY(scene.exists(cameraFile + QStringLiteral(".damaged-%1").arg(place)));
    }

    void aValueThatCannotBeIsDamage()
    {
        Scene scene(withMemory);
        scene.write(cameraFile,
                    QByteArray(scene.read(cameraFile)).replace("frameRate=60", "frameRate=600"));
        scene.restart();
        QVERIFY(scene.exists(cameraFile + QStringLiteral(".damaged")));
    }

    void aDamagedTableIsSetAsideAndTheRestKept()
    {
        Scene scene(withMemory);
        const QByteArray factory = region(scene.camera());
        change(scene.camera());
        scene.write(tableFile, QByteArray(100, '\x11'));
        scene.restart();
        QCOMPARE(region(scene.camera()), factory);
        QCOMPARE(scene.camera().getGamma(), 144179U);
        QVERIFY(scene.exists(tableFile + QStringLiteral(".damaged")));
        QCOMPARE(scene.newLog().size(), 1);
    }

    void aDamagedConfigurationIsSetAside()
    {
        Scene scene(withMemory);
        scene.configuration().gskValue = 1;
        scene.sdk().saveConfiguration();
        scene.write(configurationFile, "[memory]\nformat=1\n");
        scene.restart();
        QCOMPARE(scene.configuration().gskValue, 6);
        QVERIFY(scene.exists(configurationFile + QStringLiteral(".damaged")));
        QCOMPARE(scene.newLog().size(), 1);
    }

    void aFolderThatCannotBeMadeIsToldAndNothingIsKept()
    {
        Scene scene;
        scene.write(QStringLiteral("kept"), "a file");
        scene.restart(withMemory);
        QCOMPARE(
            scene.newLog(),
            QStringList(QStringLiteral("problem  memory folder %1: it cannot be made; nothing will "
                                       "be kept")
                            .arg(scene.path(QStringLiteral("kept")))));
        scene.camera().setGamma(144179);
        QCOMPARE(scene.read(QStringLiteral("kept")), QByteArray("a file"));
    }

    void aFolderThatVanishesIsTold()
    {
        Scene scene(withMemory);
        ICamera& camera = scene.camera();
        QVERIFY(QDir(scene.path(QStringLiteral("kept"))).removeRecursively());
        QCOMPARE(camera.setGamma(144179), Flag{1});
        QVERIFY(scene.newLog().value(0).startsWith(
            QStringLiteral("problem  %1: it cannot be written").arg(scene.path(cameraFile))));
        QCOMPARE(camera.getGamma(), 144179U);
    }

    void eachCameraHasItsOwnMemory()
    {
        Scene scene("[simulator]\nmemory=kept\n[camera-a]\nports=A\nserialNumber=1\n"
                    "[camera-b]\nports=B\nserialNumber=2\n");
        scene.camera("A").setGsk(11);
        scene.camera("B").setGsk(12);
        scene.restart();
        QCOMPARE(scene.camera("A").getGsk(), 11U);
        QCOMPARE(scene.camera("B").getGsk(), 12U);
    }

    void nothingButWholeFilesLieInTheFolder()
    {
        Scene scene(withMemory);
        change(scene.camera());
        scene.sdk().saveConfiguration();
        QCOMPARE(
            QDir(QStringLiteral("kept"))
                .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
            QStringList({QStringLiteral("camera-20417.ini"), QStringLiteral("camera-20417.table"),
                         QStringLiteral("configuration.ini")}));
    }

private:
    static void restartRows()
    {
        QTest::addColumn<bool>("newProcess");
        QTest::newRow("power off and on") << false;
        QTest::newRow("the program's next start") << true;
    }

    static void again(Scene& scene, bool newProcess)
    {
        if (newProcess) {
            scene.restart();
        } else {
            ombrix_simulator::cyclePower();
        }
    }
};

QTEST_GUILESS_MAIN(TestMemory)
#include "tst_memory.moc"
