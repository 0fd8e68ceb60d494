// SPDX-License-Identifier: MIT
// Plans of faults: which calls they hit, what becomes of those, and the plans that come with the
// simulator.
#include "tests/simulator/scene.h"

#include "simulator/control.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QMap>
#include <QtTest/QTest>

using namespace ombrix_sdk;
using scene::ini;
using scene::Scene;

namespace {

const QString planFile = QStringLiteral("plan.ini");
const QByteArray withPlan = "[simulator]\nplan=plan.ini\nmanualClock=true\njournal=journal.txt\n";

/// A scene with a plan from the start.
class Planned : public Scene {
public:
    explicit Planned(const QByteArray& plan)
    {
        write(planFile, plan);
        restart(withPlan);
    }
};

/// Answers of that many calls of setGsk, as a word of 0 and 1.
QByteArray answers(ICamera& camera, int calls)
{
    QByteArray word;
    for (int call = 0; call < calls; ++call) {
        word += QByteArray::number(camera.setGsk(1));
    }
    return word;
}

QByteArray region(ICamera& camera)
{
    QByteArray bytes(scene::regionSize, '\0');
    return camera.readTableData(4096, 8192, 9, bytes.data()) == 0 ? bytes : QByteArray();
}

constexpr const char* listedOperations[] = {
#define CAMERA(Result, name, arguments) #name,
#include "sdk/operations.def"
};

/// A number that the camera takes for the value.
int accepted(const QByteArray& value)
{
    static const QMap<QByteArray, int> numbers = {
        {"frameRate", 25}, {"gamma", 65536}, {"nucControl", 2}};
    return numbers.value(value, 1);
}

/// Calls every operation of the camera with arguments that it takes; what each of them answers, and
/// 0 for a failure.
QMap<QByteArray, qint64> everyAnswer(Scene& scene)
{
    ICamera& camera = scene.camera();
    QMap<QByteArray, qint64> answers;
#define GET(Type, name, value) answers[#name] = camera.name();
#define SET(Type, name, value) answers[#name] = camera.name(static_cast<Type>(accepted(#value)));
#define FILL(Record, name, value)                                                                  \
    {                                                                                              \
        Record record{};                                                                           \
        answers[#name] = camera.name(&record);                                                     \
    }
#define GET_ROI(name, coordinate) answers[#name] = camera.name(0);
#define SET_ROI(name, coordinate) answers[#name] = camera.name(9, 0, false, false, false);
#include "sdk/operations.def"

    char context = 0;
    answers["connect"] = camera.connect(&context);
    quint32 versions = 7;
    camera.getVersions(&versions);
    answers["getVersions"] = versions;
    camera.refresh();
    answers["refresh"] = scene.journal().last().endsWith(QStringLiteral("refresh() = 1"));
    answers["setBaudRate"] = camera.setBaudRate(115200, true);
    EdgeCorrection edge{1, 1, 1, 1};
    answers["getEdgeCorrection"] = camera.getEdgeCorrection(&edge)->gain;
    answers["configureEdgeCorrection"] = camera.configureEdgeCorrection(1, 1, 1);
    const Zoom zoom{1, 1, 1, 1};
    answers["configureZoom"] = camera.configureZoom(&zoom);
    answers["configureZoomResolution"] = camera.configureZoomResolution(100, 100);
    answers["setAhcGainsLimitation"] = camera.setAhcGainsLimitation(1, 1);
    answers["requestNuc"] = camera.requestNuc(0);
    QByteArray bytes(scene::regionSize, '\0');
    answers["readTableData"] = camera.readTableData(4096, 8192, 9, bytes.data()) + 1;
    answers["writeTableData"] = camera.writeTableData(4096, 8192, 8, bytes.data());
    scene.write(QStringLiteral("map.bin"), QByteArray(scene::mapSize, '\0'));
    answers["addBadPixels"] = camera.addBadPixels("map.bin", 1, 1);
    std::vector<ReplacementEntry> list(5);
    int height = 480;
    int width = 640;
    scene.write(QStringLiteral("replbp.bin"), "of before");
    camera.loadBadPixelList("map.bin", list, height, width);
    answers["loadBadPixelList"] = static_cast<qint64>(list.size());
    answers["removeBadPixels"] = camera.removeBadPixels("map.bin", 1, 1);
    return answers;
}

} // namespace

class TestPlan : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // ---- which calls

    void aRuleHitsItsCalls_data()
    {
        QTest::addColumn<QByteArray>("calls");
        QTest::addColumn<QByteArray>("expected");
        QTest::newRow("always") << QByteArray("always") << QByteArray("00000000");
        QTest::newRow("the first") << QByteArray("1") << QByteArray("01111111");
        QTest::newRow("the third") << QByteArray("3") << QByteArray("11011111");
        QTest::newRow("from the third") << QByteArray("3-") << QByteArray("11000000");
        QTest::newRow("a range") << QByteArray("2-4") << QByteArray("10001111");
        QTest::newRow("a list") << QByteArray("1, 3-4, 7-") << QByteArray("01001100");
    }

    void aRuleHitsItsCalls()
    {
        QFETCH(QByteArray, calls);
        QFETCH(QByteArray, expected);
        Planned scene("[setGsk]\ncalls=" + calls + '\n');
        QCOMPARE(answers(scene.camera(), 8), expected);
        QCOMPARE(scene.newLog(), QStringList());
    }

    void aRuleCountsOnlyTheCallsThatItMatches()
    {
        Planned scene("[setGsk]\ncalls=2\n");
        ICamera& camera = scene.camera();
        QCOMPARE(camera.setGfid(1), Flag{1});
        QCOMPARE(camera.setGsk(1), Flag{1});
        QCOMPARE(camera.setGfid(1), Flag{1});
        QCOMPARE(camera.setGsk(1), Flag{0});
    }

    void aPatternCountsTheCallsOfAllItsOperations()
    {
        Planned scene("[set*]\ncalls=2\n");
        ICamera& camera = scene.camera();
        QCOMPARE(camera.setGfid(1), Flag{1});
        QCOMPARE(camera.setGsk(1), Flag{0});
        QCOMPARE(camera.setGsk(1), Flag{1});
    }

    void theMoreExactRuleDecides()
    {
        Planned scene(
            ini({"[*]", "calls=always", "[set*]", "carryOut=true", "[setG*]", "calls=always",
                 "[setGamma]", "carryOut=true", "[connect]", "carryOut=true"}));
        ICamera& camera = scene.camera();
        QCOMPARE(camera.getGamma(), 0U);
        QCOMPARE(camera.setClhe(1), Flag{1});
        QCOMPARE(camera.setGsk(1), Flag{0});
        QCOMPARE(camera.setGamma(65536), Flag{1});
    }

    void aPatternNeverKeepsTheProgramFromTheCamera()
    {
        Planned scene("[*]\ncalls=always\n");
        QCOMPARE(scene.configuration().getCommunicationType(), "UART");
        QVERIFY(scene.open() != nullptr);
    }

    void chanceHitsAboutItsShareAndTheSameCallsEveryTime()
    {
        const auto run = [](const QByteArray& seed) {
            Planned scene("[setGsk]\nprobability=0.25\nseed=" + seed + '\n');
            return answers(scene.camera(), 2000);
        };
        const QByteArray first = run("1");
        QVERIFY2(std::abs(first.count('0') - 500) < 80, QByteArray::number(first.count('0')));
        QCOMPARE(run("1"), first);
        QVERIFY(run("2") != first);
    }

    void theSameSeedHitsTheSameCallsWhateverTheirRange()
    {
        const auto run = [](const QByteArray& calls) {
            Planned scene("[setGsk]\nprobability=0.5\nseed=3\ncalls=" + calls + '\n');
            return answers(scene.camera(), 200);
        };
        QCOMPARE(run("101-"), QByteArray(100, '1') + run("always").mid(100));
    }

    void chanceOfNothingAndOfEverythingIsCertain()
    {
        {
            Planned scene("[setGsk]\nprobability=0\n");
            QCOMPARE(answers(scene.camera(), 8), QByteArray("11111111"));
        }
        Planned scene("[setGsk]\nprobability=1\n");
        QCOMPARE(answers(scene.camera(), 8), QByteArray("00000000"));
    }

    void aRuleForACameraLeavesTheOthersAlone_data()
    {
        QTest::addColumn<QByteArray>("scope");
        QTest::newRow("by its number") << QByteArray("camera=2");
        QTest::newRow("by its port") << QByteArray("port=ttyUSB1");
        QTest::newRow("by both") << QByteArray("camera=2\nport=ttyUSB1");
    }

    void aRuleForACameraLeavesTheOthersAlone()
    {
        QFETCH(QByteArray, scope);
        Scene scene;
        scene.write(planFile,
                    "[setGsk]\n" + scope + "\ncalls=2\n[openCamera]\n" + scope + "\ncalls=2\n");
        scene.restart(withPlan + "[camera-a]\nports=ttyUSB0\nserialNumber=1\n"
                                 "[camera-b]\nports=ttyUSB1\nserialNumber=2\n");
        ICamera& first = scene.camera("ttyUSB0");
        ICamera& second = scene.camera("ttyUSB1");
        QCOMPARE(answers(first, 4), QByteArray("1111"));
        QCOMPARE(answers(second, 4), QByteArray("1011"));
        QVERIFY(scene.open("ttyUSB0") != nullptr);
        QVERIFY(scene.open("ttyUSB1") == nullptr);
    }

    void aRuleForAPortIsForItsCameraThereOnly()
    {
        Planned scene("[setGsk]\nport=COM7\n");
        QCOMPARE(answers(scene.camera("COM7"), 2), QByteArray("00"));
        QCOMPARE(answers(scene.camera("COM8"), 2), QByteArray("11"));
    }

    void aRuleMayAskForArguments_data()
    {
        QTest::addColumn<QByteArray>("where");
        QTest::addColumn<QByteArray>("expected"); // of 8 coordinates from 100 on, regions 0 and 2
        QTest::newRow("one value") << QByteArray("x1 102") << QByteArray("11011111");
        QTest::newRow("values") << QByteArray("x1 100, 103-104") << QByteArray("01100111");
        QTest::newRow("from one on") << QByteArray("x1 105-") << QByteArray("11111000");
        QTest::newRow("another argument") << QByteArray("region 2") << QByteArray("10101010");
        QTest::newRow("both") << QByteArray("x1 103- and region 2") << QByteArray("11101010");
        QTest::newRow("a switch that is on")
            << QByteArray("roi1Inclusive true") << QByteArray("00000000");
        QTest::newRow("a switch that is off")
            << QByteArray("roi1Exclusive false") << QByteArray("00000000");
        QTest::newRow("another switch")
            << QByteArray("roi1Exclusive true") << QByteArray("11111111");
    }

    void aRuleMayAskForArguments()
    {
        QFETCH(QByteArray, where);
        QFETCH(QByteArray, expected);
        Planned scene("[setRoiX1]\nwhere=" + where + '\n');
        QCOMPARE(scene.newProblems(), QStringList());
        ICamera& camera = scene.camera();
        QByteArray course;
        for (quint32 call = 0; call < 8; ++call) {
            course += QByteArray::number(
                camera.setRoiX1(100 + call, call % 2 == 0 ? 0 : 2, true, true, false));
        }
        QCOMPARE(course, expected);
    }

    void aRuleCountsOnlyTheCallsWithItsArguments()
    {
        Planned scene("[setGsk]\nwhere=gsk 7\ncalls=2\n");
        ICamera& camera = scene.camera();
        for (const quint32 value : {7U, 6U, 5U}) {
            QCOMPARE(camera.setGsk(value), Flag{1});
        }
        QCOMPARE(camera.setGsk(7), Flag{0});
    }

    void anOperationMayHaveSeveralRules()
    {
        Planned scene(ini({"[setGsk]", "value=9", "[setGsk high]", "where=gsk 1000-", "value=8",
                           "[setGsk seven]", "where=gsk 7", "value=7"}));
        ICamera& camera = scene.camera();
        QCOMPARE(camera.setGsk(1), Flag{9});
        QCOMPARE(camera.setGsk(1000), Flag{8});
        QCOMPARE(camera.setGsk(7), Flag{7});
        QCOMPARE(scene.newProblems(), QStringList());
    }

    void ofEquallyExactRulesTheFirstThatHitsDecides()
    {
        Planned scene(ini({"[setGsk a]", "calls=1,3", "value=7", "[setGsk b]", "calls=2-3",
                           "value=8", "[set*]", "value=9"}));
        ICamera& camera = scene.camera();
        QCOMPARE(answers(camera, 4), QByteArray("7871"));
        QCOMPARE(camera.setGfid(1), Flag{9});
        QCOMPARE(scene.newProblems(), QStringList());
    }

    void aPatternWithManyStarsIsReadAtOnce()
    {
        const QByteArray stars(100'000, '*');
        Planned scene('[' + stars + "e]\nvalue=9\n[set" + stars + "G" + stars + "k]\nvalue=8\n");
        ICamera& camera = scene.camera();
        QCOMPARE(scene.newProblems(), QStringList());
        QCOMPARE(camera.setGsk(1), Flag{8});
        QCOMPARE(camera.setGfid(1), Flag{1});
        QCOMPARE(camera.setFrameRate(25), Flag{9});
    }

    void aPatternsPiecesDoNotOverlap()
    {
        Planned scene("[setGs*sk]\nvalue=9\n[*setGsk]\nvalue=8\n");
        QCOMPARE(scene.camera().setGsk(1), Flag{8});
    }

    // ---- what becomes of them

    void aCallThatFailsChangesNothing()
    {
        Planned scene("[setGsk]\ncalls=always\n");
        ICamera& camera = scene.camera();
        QCOMPARE(camera.setGsk(11), Flag{0});
        QCOMPARE(camera.getGsk(), 6U);
    }

    void aPlannedAnswerIsGivenInsteadAndNothingIsDone()
    {
        Planned scene(ini({"[setGsk]", "value=2", "[getGfid]", "value=0xFFFFFFFF", "[getFrameRate]",
                           "value=42", "[readTableData]", "value=-3"}));
        ICamera& camera = scene.camera();
        QCOMPARE(camera.setGsk(11), Flag{2});
        QCOMPARE(camera.getGsk(), 6U);
        QCOMPARE(camera.getGfid(), 4294967295U);
        QCOMPARE(camera.getFrameRate(), std::uint8_t{42});
        QByteArray bytes(scene::regionSize, 'x');
        QCOMPARE(camera.readTableData(4096, 8192, 9, bytes.data()), -3);
        QCOMPARE(bytes, QByteArray(scene::regionSize, 'x'));
    }

    void aPlannedAnswerMayGoWithTheDeed()
    {
        Planned scene("[setGsk]\nvalue=2\ncarryOut=true\n");
        ICamera& camera = scene.camera();
        QCOMPARE(camera.setGsk(11), Flag{2});
        QCOMPARE(camera.getGsk(), 11U);
    }

    void successWithoutTheDeedLeavesTheRecordAsItWas()
    {
        Planned scene("[getShutterPosition]\nvalue=1\n");
        std::uint8_t closed = 0x37;
        QCOMPARE(scene.camera().getShutterPosition(&closed), Flag{1});
        QCOMPARE(closed, std::uint8_t{0x37});
    }

    void plannedVersionsAreAnsweredAsOneWord()
    {
        Planned scene("[getVersions]\nvalue=0xF204F123\n");
        quint32 versions = 0;
        scene.camera().getVersions(&versions);
        QCOMPARE(versions, 0xF204F123U);
    }

    void everyOperationOfTheCameraCanFail()
    {
        {
            // What follows means nothing of a command that is refused without a plan.
            Scene scene("[simulator]\njournal=journal.txt\n");
            const QMap<QByteArray, qint64> usual = everyAnswer(scene);
            for (auto answer = usual.begin(); answer != usual.end(); ++answer) {
                QVERIFY2(answer.key().startsWith("get") || answer.value() != 0, answer.key());
            }
        }
        Planned scene("[*]\ncalls=2-\n"); // the first is the greeting
        const QMap<QByteArray, qint64> failed = everyAnswer(scene);
        for (auto answer = failed.begin(); answer != failed.end(); ++answer) {
            QVERIFY2(answer.value() == 0, answer.key());
        }
        for (const char* const operation : listedOperations) {
            QVERIFY2(failed.contains(operation), operation);
        }
        QVERIFY(!scene.exists(QStringLiteral("replbp.bin")));
    }

    void recordsAreFilledInAsPlanned()
    {
        Planned scene(
            ini({"[getTemperatures]", "record=400000.5, -1", "[getOperatingTime]",
                 "record=7, 4294967295", "[getZoom]", "record=9.5, -5, 6, 200", "value=3",
                 "[getZoomResolution]", "record=1,2", "[getAhcGainsLimitation]", "record=255,0",
                 "[getShutterPosition]", "record=77", "[getEdgeCorrection]", "record=9, 8, 7, 6"}));
        QCOMPARE(scene.newProblems(), QStringList());
        ICamera& camera = scene.camera();
        Temperatures temperatures{};
        QCOMPARE(camera.getTemperatures(&temperatures), Flag{1});
        QCOMPARE(temperatures.sensor, 400000.5F);
        QCOMPARE(temperatures.fpga, -1.0F);
        OperatingTime time{};
        QCOMPARE(camera.getOperatingTime(&time), Flag{1});
        QCOMPARE(time.minutes, 7U);
        QCOMPARE(time.startups, 4294967295U);
        Zoom zoom{};
        QCOMPARE(camera.getZoom(&zoom), Flag{3});
        QCOMPARE(zoom.factor, 9.5F);
        QCOMPARE(zoom.xCenter, -5);
        QCOMPARE(zoom.yCenter, 6);
        QCOMPARE(zoom.method, std::uint8_t{200});
        ZoomResolution resolution{};
        QCOMPARE(camera.getZoomResolution(&resolution), Flag{1});
        QCOMPARE(resolution.y, 2U);
        AhcGainsLimitation limits{};
        QCOMPARE(camera.getAhcGainsLimitation(&limits), Flag{1});
        QCOMPARE(limits.black, std::uint8_t{255});
        std::uint8_t closed = 0;
        QCOMPARE(camera.getShutterPosition(&closed), Flag{1});
        QCOMPARE(closed, std::uint8_t{77});
        EdgeCorrection edge{};
        QCOMPARE(camera.getEdgeCorrection(&edge)->secondThreshold, 6U);
        QCOMPARE(edge.type, std::uint8_t{9});
        QVERIFY(scene.journal().contains(
            QStringLiteral("camera 20417 getZoom() = 3 {9.5, -5, 6, 200} [plan]")));
    }

    void aTableIsReadAsPlannedAndTheCamerasStaysAsItIs()
    {
        Scene scene;
        scene.write(QStringLiteral("table.bin"), QByteArray(scene::regionSize, '\x5A'));
        scene.write(planFile, "[readTableData]\ncalls=1\ntable=table.bin\n");
        scene.restart(withPlan);
        QCOMPARE(scene.newProblems(), QStringList());
        ICamera& camera = scene.camera();
        QCOMPARE(region(camera), QByteArray(scene::regionSize, '\x5A'));
        QVERIFY(region(camera) != QByteArray(scene::regionSize, '\x5A'));
        QCOMPARE(region(camera).size(), scene::regionSize);
    }

    void aTableIsReadByTheOneOperationOfAGroup()
    {
        Scene scene;
        scene.write(QStringLiteral("table.bin"), QByteArray(scene::regionSize, '\x5A'));
        scene.write(planFile, "[readTable*]\ntable=table.bin\n");
        scene.restart(withPlan);
        QCOMPARE(scene.newProblems(), QStringList());
        QCOMPARE(region(scene.camera()), QByteArray(scene::regionSize, '\x5A'));
    }

    void aTableFileOfAnotherSizeIsTold()
    {
        Scene scene;
        scene.write(QStringLiteral("table.bin"), "short");
        scene.write(planFile, "[readTableData]\ntable=table.bin\n");
        scene.restart(withPlan);
        QCOMPARE(
            scene.newProblems(),
            QStringList(QStringLiteral("problem  %1:2: [readTableData] table: \"table.bin\" is "
                                       "no table region: it does not hold 8192 bytes; the "
                                       "section does nothing")
                            .arg(scene.path(planFile))));
        QCOMPARE(region(scene.camera()).size(), scene::regionSize);
    }

    void aLostConnectionAnswersNothingUntilThePlanLetsItGo()
    {
        Planned scene("");
        ICamera& camera = scene.camera();
        scene.newLog();
        scene.write(planFile, "[connection]\nlost=true\n[getSensorSerialNumber]\nvalue=5\n");
        QCOMPARE(camera.getSensorSerialNumber(), 0U);
        QCOMPARE(camera.getGsk(), 0U);
        QVERIFY(scene.open() == nullptr);
        QVERIFY(scene.newLog().contains(
            QStringLiteral("notice   openCamera ttyUSB0: the connection is lost, by the plan")));
        QCOMPARE(scene.configuration().getCommunicationType(), "UART");
        QVERIFY(scene.journal().contains(QStringLiteral("camera 20417 getGsk() = 0 [no answer]")));
        scene.write(planFile, "[connection]\nlost=false\n");
        QCOMPARE(camera.getGsk(), 6U);
    }

    void aConnectionIsLostForOneCamera_data()
    {
        QTest::addColumn<QByteArray>("scope");
        QTest::newRow("by its number") << QByteArray("camera=2");
        QTest::newRow("by its port") << QByteArray("port=ttyUSB1");
    }

    void aConnectionIsLostForOneCamera()
    {
        QFETCH(QByteArray, scope);
        Scene scene;
        scene.write(planFile, "[connection]\nlost=true\n" + scope + '\n');
        scene.restart(withPlan + "[camera-a]\nports=ttyUSB0\nserialNumber=1\n"
                                 "[camera-b]\nports=ttyUSB1\nserialNumber=2\n");
        QCOMPARE(scene.camera("ttyUSB0").getSerialNumber(), 1U);
        QVERIFY(scene.open("ttyUSB1") == nullptr);
    }

    void inSafeModeNoPlanIsFollowed_data()
    {
        QTest::addColumn<bool>("byVariable");
        QTest::newRow("by the variable") << true;
        QTest::newRow("by the settings") << false;
    }

    void inSafeModeNoPlanIsFollowed()
    {
        QFETCH(bool, byVariable);
        Scene scene;
        scene.write(planFile, "[setGsk]\ncalls=always\n[setGama]\ncalls=1\n");
        if (byVariable) {
            Scene::setVariable("TAVREL_SIMULATOR_SAFE", QStringLiteral("1"));
        }
        scene.restart(withPlan + (byVariable ? "" : "safe=true\n"));
        scene.sdk().initialize();
        ICamera& camera = scene.camera();
        QCOMPARE(camera.setGsk(7), Flag{1});
        scene.write(planFile, "[setGsk]\ncalls=1-\n");
        QCOMPARE(camera.setGsk(8), Flag{1});
        QCOMPARE(scene.newProblems(), QStringList());
        QVERIFY(
            scene.read(QStringLiteral("sdk.log"))
                .contains(
                    (scene.path(planFile) + QStringLiteral(", not followed: safe mode")).toUtf8()));
    }

    void aSafeModeThatCannotBeUnderstoodIsSafe()
    {
        Planned scene("[setGsk]\ncalls=always\n");
        scene.restart(withPlan + "safe=yes\n");
        QCOMPARE(scene.camera().setGsk(7), Flag{1});
        QCOMPARE(scene.newProblems(),
                 QStringList(QStringLiteral("problem  %1:5: [simulator] safe: \"yes\" is not true, "
                                            "false or a whole number from 0 to 255; true is used")
                                 .arg(scene.path(QStringLiteral("simulator.ini")))));
    }

    void aDelayPassesBeforeTheCall()
    {
        Planned scene("[getGsk]\ncarryOut=true\ndelay=60000\ncalls=2\n");
        ICamera& camera = scene.camera();
        const auto minutes = [&camera] {
            ombrix_sdk::OperatingTime time{};
            camera.getOperatingTime(&time);
            return time.minutes;
        };
        const quint32 before = minutes();
        QCOMPARE(camera.getGsk(), 6U);
        QCOMPARE(minutes(), before);
        QCOMPARE(camera.getGsk(), 6U);
        QCOMPARE(minutes(), before + 1);
    }

    void aCameraThatHangsAnswersNothingUntilItsPowerIsSwitchedOffAndOn()
    {
        Planned scene("[setGsk]\ncalls=2\nhangUp=true\n");
        ICamera& camera = scene.camera();
        QCOMPARE(camera.setGsk(1), Flag{1});
        QCOMPARE(camera.setGsk(2), Flag{0});
        QCOMPARE(camera.setGsk(3), Flag{0});
        QCOMPARE(camera.getGamma(), 0U);
        QVERIFY(scene.open() == nullptr);
        QVERIFY(scene.newLog().filter(QStringLiteral("problem")).isEmpty());
        ombrix_simulator::cyclePower();
        QCOMPARE(scene.camera().getGsk(), 1U);
    }

    void aCameraThatHangsStillHasItsFilesEdited()
    {
        Planned scene("[setGsk]\nhangUp=true\n");
        ICamera& camera = scene.camera();
        camera.setGsk(1);
        scene.write(QStringLiteral("map.bin"), QByteArray(scene::mapSize, '\0'));
        QCOMPARE(camera.addBadPixels("map.bin", 1, 1), Flag{1});
    }

    // ---- while the program runs

    void aPlanThatChangesCountsAtOnce()
    {
        Planned scene("[setGsk]\ncalls=always\n");
        ICamera& camera = scene.camera();
        QCOMPARE(camera.setGsk(1), Flag{0});
        scene.write(planFile, "[setGfid]\ncalls=always\n");
        QCOMPARE(camera.setGsk(1), Flag{1});
        QCOMPARE(camera.setGfid(1), Flag{0});
        QCOMPARE(
            scene.newLog(),
            QStringList(
                QStringLiteral("notice   the plan has changed: %1").arg(scene.path(planFile))));
    }

    void aPlanThatChangesWithinATickOfTheFilesClockCounts()
    {
        // In the future, so that the time that the test takes does not matter.
        const QDateTime sameTime = QDateTime::currentDateTime().addSecs(3600);
        Planned scene("[setGsk]\nvalue=0\n");
        const auto change = [&](const QByteArray& plan) {
            scene.write(planFile, plan);
            QFile file(planFile);
            return file.open(QIODevice::ReadWrite) &&
                   file.setFileTime(sameTime, QFileDevice::FileModificationTime);
        };
        ICamera& camera = scene.camera();
        for (int value = 1; value < 10; ++value) {
            QVERIFY(change("[setGsk]\nvalue=" + QByteArray::number(value) + '\n'));
            QCOMPARE(camera.setGsk(1), static_cast<Flag>(value));
        }
        scene.newLog();
        QCOMPARE(camera.setGsk(1), Flag{9});
        QCOMPARE(scene.newLog(), QStringList());
    }

    void aPlanMayComeLaterAndGoAgain()
    {
        Scene scene(withPlan);
        ICamera& camera = scene.camera();
        QCOMPARE(camera.setGsk(1), Flag{1});
        QCOMPARE(scene.newLog(), QStringList());
        scene.write(planFile, "[setGsk]\ncalls=always\n");
        QCOMPARE(camera.setGsk(1), Flag{0});
        QFile::remove(planFile);
        QCOMPARE(camera.setGsk(1), Flag{1});
    }

    void aChangedPlanCountsAnew()
    {
        Planned scene("[setGsk]\ncalls=2\n");
        ICamera& camera = scene.camera();
        QCOMPARE(answers(camera, 2), QByteArray("10"));
        scene.write(planFile, "[setGsk]\ncalls=2 \n");
        QCOMPARE(answers(camera, 2), QByteArray("10"));
    }

    void aChangedPlanLetsAHangingCameraGo()
    {
        Planned scene("[setGsk]\nhangUp=true\n");
        ICamera& camera = scene.camera();
        camera.setGsk(1);
        QCOMPARE(camera.getGamma(), 0U);
        scene.write(planFile, "");
        QCOMPARE(camera.getGamma(), 65536U);
    }

    void aGrowingNumberOfPowerCyclesSwitchesThePower()
    {
        Planned scene("[power]\ncycles=3\n");
        ICamera& camera = scene.camera();
        camera.setTestPattern(true);
        QCOMPARE(camera.getTestPattern(), Flag{1});
        scene.write(planFile, "[power]\ncycles=4\n");
        QCOMPARE(camera.getTestPattern(), Flag{0});
        ombrix_sdk::OperatingTime time{};
        camera.getOperatingTime(&time);
        QCOMPARE(time.startups, 119U);
    }

    void aPlanThatChangesOtherwiseLeavesThePowerOn()
    {
        Planned scene("[power]\ncycles=3\n");
        ICamera& camera = scene.camera();
        camera.setTestPattern(true);
        scene.write(planFile, "[power]\ncycles=3\n[setGsk]\ncalls=always\n");
        QCOMPARE(camera.setGsk(1), Flag{0});
        QCOMPARE(camera.getTestPattern(), Flag{1});
    }

    void theVariableNamesThePlanBeforeTheSettings()
    {
        Planned scene("[setGsk]\ncalls=always\n");
        scene.write(QStringLiteral("other.ini"), "[setGfid]\ncalls=always\n");
        Scene::setVariable("TAVREL_SIMULATOR_PLAN", QStringLiteral("other.ini"));
        scene.restart();
        QCOMPARE(scene.camera().setGsk(1), Flag{1});
        QCOMPARE(scene.camera().setGfid(1), Flag{0});
    }

    // ---- mistakes in a plan

    void aMistakeInAPlanIsToldAndItsSectionDoesNothing_data()
    {
        QTest::addColumn<QByteArray>("plan");
        QTest::addColumn<QString>("message");
        const auto row = [](const char* name, const QByteArray& plan, const char* message) {
            QTest::newRow(name) << plan << QString::fromLatin1(message);
        };
        row("no such operation", "[setGama]\ncalls=always",
            "1: [setGama]: no operation has this name, see simulator-reference.md; the section "
            "does nothing");
        row("no such pattern", "[put*]\ncalls=always",
            "1: [put*]: no operation of a camera fits, see simulator-reference.md; the section "
            "does nothing");
        row("no key", "[setGsk]",
            "1: [setGsk]: a rule has one of the keys calls, probability, seed, camera, port, "
            "where, value, record, table, carryOut, delay, hangUp; the section does nothing");
        row("no such key", "[setGsk]\ncall=1",
            "2: [setGsk] call: unknown key; there are calls, probability, seed, camera, port, "
            "where, "
            "value, record, table, carryOut, delay, hangUp; the section does nothing");
        for (const char* const calls :
             {"often", "", "0", "0-2", "2-1", "3,", ",3", "3,,4", "-3", "3--", "1,0", "1.5", "0x3",
              "3;4", "9999999999", "always,3"}) {
            row(QByteArray("calls ") + calls, QByteArray("[setGsk]\ncalls=") + calls,
                QByteArray("2: [setGsk] calls: \"") + calls +
                    "\" is neither always nor a list such as 3, 5-7, 9-, counted from 1; the "
                    "section "
                    "does nothing");
        }
        for (const char* const share : {"often", "1.5", "-0.1", "nan", ""}) {
            row(QByteArray("probability ") + share, QByteArray("[setGsk]\nprobability=") + share,
                QByteArray("2: [setGsk] probability: \"") + share +
                    "\" is not a number from 0 to 1; the section does nothing");
        }
        row("value of a flag", "[setGsk]\nvalue=256",
            "2: [setGsk] value: \"256\" is not a whole number from 0 to 255; the section does "
            "nothing");
        row("value of a word", "[getGsk]\nvalue=4294967296",
            "2: [getGsk] value: \"4294967296\" is not a whole number from 0 to 4294967295; the "
            "section does nothing");
        row("value of the versions", "[getVersions]\nvalue=-1",
            "2: [getVersions] value: \"-1\" is not a whole number from 0 to 4294967295; the "
            "section does nothing");
        row("value of an error code", "[readTableData]\nvalue=no",
            "2: [readTableData] value: \"no\" is not a whole number from -2147483648 to "
            "2147483647; the section does nothing");
        row("value of a group", "[*]\nvalue=1000",
            "2: [*] value: \"1000\" is not a whole number from 0 to 255; the section does "
            "nothing");
        row("value of an operation without one", "[refresh]\nvalue=1",
            "2: [refresh] value: \"1\" is of no use: refresh answers no number; the section does "
            "nothing");
        row("treatment", "[loadBadPixelList]\nvalue=bad",
            "2: [loadBadPixelList] value: \"bad\" is not missing, empty, long or a number of "
            "entries, 0 to 307200; the section does nothing");
        row("seed", "[setGsk]\nseed=-1",
            "2: [setGsk] seed: \"-1\" is not a whole number from 0 to 4294967295; the section does "
            "nothing");
        row("delay", "[setGsk]\ndelay=-1",
            "2: [setGsk] delay: \"-1\" is not a whole number from 0 to 4294967295; the section "
            "does nothing");
        row("carryOut", "[setGsk]\ncarryOut=maybe",
            "2: [setGsk] carryOut: \"maybe\" is not true, false or a whole number from 0 to 255; "
            "the section does nothing");
        row("hangUp", "[setGsk]\nhangUp=maybe",
            "2: [setGsk] hangUp: \"maybe\" is not true, false or a whole number from 0 to 255; the "
            "section does nothing");
        row("camera", "[setGsk]\ncamera=first",
            "2: [setGsk] camera: \"first\" is not a whole number from 0 to 4294967295; the section "
            "does nothing");
        row("port", "[setGsk]\nport=",
            "2: [setGsk] port: \"\" is not the name of one port; the section does nothing");
        row("several ports", "[setGsk]\nport=ttyUSB1, ttyUSB2",
            "2: [setGsk] port: \"ttyUSB1, ttyUSB2\" is not the name of one port; the section does "
            "nothing");
        row("any port", "[setGsk]\nport=*",
            "2: [setGsk] port: \"*\" is not the name of one port; the section does nothing");
        row("camera of the library", "[saveConfiguration]\ncamera=20417",
            "2: [saveConfiguration] camera: saveConfiguration is of no camera; the section does "
            "nothing");
        for (const char* const values : {"", "much", "2-1", "3,", "-1", "1.5", "trues"}) {
            row(QByteArray("where ") + values, QByteArray("[setGsk]\nwhere=gsk ") + values,
                QByteArray("2: [setGsk] where: \"") + QByteArray("gsk ").append(values).trimmed() +
                    "\" is not an argument with true, false or a list such as 3, 5-7, 9-; the "
                    "section does nothing");
        }
        row("where of another argument", "[setGsk]\nwhere=gfid 1",
            "2: [setGsk] where: setGsk(std::uint32_t gsk) has no number \"gfid\"; the section does "
            "nothing");
        row("where of an argument that is no number", "[addBadPixels]\nwhere=path 1",
            "2: [addBadPixels] where: addBadPixels(const std::string& path, std::uint32_t x, "
            "std::uint32_t y) has no number \"path\"; the section does nothing");
        row("where of a group", "[set*]\nwhere=region 1",
            "2: [set*] where: setGsk(std::uint32_t gsk) has no number \"region\"; the section does "
            "nothing");
        row("record of a number", "[setGsk]\nrecord=1",
            "2: [setGsk] record: setGsk fills in 0 numbers, and 1 are given; the section does "
            "nothing");
        row("record of another length", "[getTemperatures]\nrecord=1",
            "2: [getTemperatures] record: getTemperatures fills in 2 numbers, and 1 are given; the "
            "section does nothing");
        row("record with a value of another kind", "[getZoom]\nrecord=1, 2, 3.5, 1",
            "2: [getZoom] record: \" 3.5\" is not a whole number from -2147483648 to 2147483647; "
            "the section does nothing");
        row("table of another operation", "[getGsk]\ntable=table.bin",
            "2: [getGsk] table: \"table.bin\" is no table region: only readTableData reads one; "
            "the "
            "section does nothing");
        row("another key of the connection", "[connection]\nlost=true\nhangUp=true",
            "3: [connection] hangUp: unknown key; there are lost, camera, port; the section does "
            "nothing");
        row("a connection without a word", "[connection]\ncamera=1",
            "1: [connection] lost: missing; the section does nothing");
        row("a power without a word", "[power]",
            "1: [power] cycles: missing; the section does nothing");
        row("a connection that is perhaps lost", "[connection]\nlost=perhaps",
            "2: [connection] lost: \"perhaps\" is not true, false or a whole number from 0 to 255; "
            "the section does nothing");
        row("a line that is none", "[setGsk]\ncalls 3\ndelay=1",
            "2: [setGsk]: \"calls 3\" is neither [section] nor key=value; the section does "
            "nothing");
        row("a comment of another kind", "[setGsk]\ndelay=1\n# calls=3",
            "3: [setGsk]: \"# calls=3\": a comment begins with a semicolon; the section does "
            "nothing");
        row("control character", "[setGsk]\ndelay=1\n\x01",
            "3: [setGsk]: control character 0x01; the section does nothing");
        row("a key twice", "[setGsk]\ncalls=3\ncalls=4",
            "3: [setGsk] calls: stands in line 2 already; the section does nothing");
        row("a section that does not end", "[setGsk\ncalls=always",
            "1: \"[setGsk\" is no [section]; what follows up to the next is not used");
        row("outside of a section", "calls=always",
            "1: \"calls\" stands before the first [section]; it is not used");
        row("cycles", "[power]\ncycles=many",
            "2: [power] cycles: \"many\" is not a whole number from 0 to 4294967295; the section "
            "does nothing");
        row("another key of the power", "[power]\ncycles=1\ncycle=1",
            "3: [power] cycle: unknown key; there are cycles; the section does nothing");
        row("value of a group that answers none", "[refresh*]\nvalue=1",
            "2: [refresh*] value: \"1\" is of no use: none of \"refresh*\" answers a number; the "
            "section does nothing");
        row("value of a group of another kind", "[loadBadPixel*]\nvalue=long",
            "2: [loadBadPixel*] value: \"long\" is of no use: none of \"loadBadPixel*\" answers a "
            "number; the section does nothing");
        row("where beyond an argument", "[requestNuc]\nwhere=automatic 300-",
            "2: [requestNuc] where: \"300-\" is not automatic of requestNuc(std::uint8_t "
            "automatic), which is 0 to 255; the section does nothing");
        row("where beyond a switch", "[setBaudRate]\nwhere=permanent 5",
            "2: [setBaudRate] where: \"5\" is not permanent of setBaudRate(std::uint32_t baudRate, "
            "bool permanent), which is true or false; the section does nothing");
        row("where with a word for a number", "[setGsk]\nwhere=gsk true",
            "2: [setGsk] where: \"true\" is not gsk of setGsk(std::uint32_t gsk), which is 0 to "
            "4294967295; the section does nothing");
        row("quotation marks", "[setGsk]\nport=\"ttyUSB1\"",
            "2: [setGsk] port: \"\"ttyUSB1\"\": a value stands without quotation marks; the "
            "section does nothing");
        row("a comment behind a value", "[setGsk]\nport=ttyUSB1 ; the second",
            "2: [setGsk] port: \"ttyUSB1 ; the second\": a comment stands on a line of its own; "
            "the section does nothing");
        row("what was to be a section", "[setGsk]\ndelay=1\nsetGfid]\ncalls=3",
            "3: [setGsk]: \"setGfid]\" is neither [section] nor key=value; the section does "
            "nothing");
    }

    void aMistakeInAPlanIsToldAndItsSectionDoesNothing()
    {
        QFETCH(QByteArray, plan);
        QFETCH(QString, message);
        Planned scene(plan + '\n');
        const QStringList expected(
            QStringLiteral("problem  %1:%2").arg(scene.path(planFile), message));
        QCOMPARE(scene.newLog(), expected);
        ICamera& camera = scene.camera();
        QCOMPARE(answers(camera, 8), QByteArray("11111111"));
        QCOMPARE(camera.getGsk(), 1U);
        // Told again when a plan that changed is wrong.
        scene.write(planFile, "");
        camera.refresh();
        scene.newLog();
        scene.write(planFile, plan + "\n\n");
        camera.refresh();
        QCOMPARE(scene.newLog().mid(1, 1), expected);
    }

    void aSectionGivenTwiceCountsAsItStandsFirst()
    {
        Planned scene("[setGsk]\ncalls=2\n[setGsk]\ncalls=always\n");
        QCOMPARE(answers(scene.camera(), 4), QByteArray("1011"));
        QCOMPARE(
            scene.newProblems(),
            QStringList(QStringLiteral("problem  %1:3: [setGsk] stands in line 1 already; what "
                                       "follows up to the next section is not used")
                            .arg(scene.path(planFile))));
    }

    void aMistakeLeavesTheOtherSectionsAlone()
    {
        Planned scene("[getGsk]\ncalls=0\n[setGsk]\ncalls=2\n[setGfid\nvalue=7\n");
        ICamera& camera = scene.camera();
        QCOMPARE(answers(camera, 4), QByteArray("1011"));
        QCOMPARE(camera.getGsk(), 1U);
        QCOMPARE(scene.newProblems().size(), 2);
    }

    void aWrongNumberOfCyclesSwitchesNothing()
    {
        Planned scene("[power]\ncycles=1\n");
        ICamera& camera = scene.camera();
        camera.setTestPattern(true);
        scene.write(planFile, "[power]\ncycles=2\nagain=1\n");
        QCOMPARE(camera.getTestPattern(), Flag{1});
        scene.write(planFile, "[power]\ncycles=2\n");
        QCOMPARE(camera.getTestPattern(), Flag{0});
    }

    // ---- the plans that come along

    void everyPlanThatComesAlongIsWithoutMistakes()
    {
        const QDir plans(QStringLiteral(TAVREL_SOURCE_DIR "/simulator/plans"));
        const QStringList names = plans.entryList(QDir::Files);
        QVERIFY(names.size() >= 20);
        for (const QString& name : names) {
            Scene scene;
            usePlan(scene, name);
            QCOMPARE(scene.newLog(), QStringList());
        }
    }

    void refuseEverything()
    {
        Scene scene;
        usePlan(scene, QStringLiteral("refuse-everything.ini"));
        ICamera& camera = scene.camera();
        QCOMPARE(camera.setGamma(70000), Flag{0});
        QCOMPARE(camera.configureZoomResolution(100, 100), Flag{0});
        QCOMPARE(camera.requestNuc(1), Flag{0});
        QByteArray bytes(scene::regionSize, '\0');
        QCOMPARE(camera.writeTableData(4096, 8192, 8, bytes.data()), Flag{0});
        QCOMPARE(camera.getGamma(), 65536U);
        QCOMPARE(region(camera).size(), scene::regionSize);
    }

    void noCamera()
    {
        Scene scene;
        usePlan(scene, QStringLiteral("no-camera.ini"));
        QVERIFY(scene.open() == nullptr);
    }

    void silentCamera()
    {
        Scene scene;
        usePlan(scene, QStringLiteral("silent-camera.ini"));
        char context = 0;
        QCOMPARE(scene.open()->connect(&context), std::uint8_t{0});
    }

    void unreadParameters()
    {
        Scene scene;
        usePlan(scene, QStringLiteral("unread-parameters.ini"));
        quint32 versions = 1;
        scene.camera().getVersions(&versions);
        QCOMPARE(versions, 0U);
    }

    void notUart()
    {
        Scene scene;
        usePlan(scene, QStringLiteral("not-uart.ini"));
        QCOMPARE(scene.configuration().getCommunicationType(), "USB");
    }

    void ahcUnreadable()
    {
        Scene scene;
        usePlan(scene, QStringLiteral("ahc-unreadable.ini"));
        ombrix_sdk::AhcGainsLimitation limits{};
        QCOMPARE(scene.camera().getAhcGainsLimitation(&limits), Flag{0});
    }

    void nucRefused()
    {
        Scene scene;
        usePlan(scene, QStringLiteral("nuc-refused.ini"));
        ICamera& camera = scene.camera();
        QCOMPARE(camera.requestNuc(0), Flag{0});
        QCOMPARE(camera.requestNuc(1), Flag{0});
        QCOMPARE(camera.setNucControl(0), Flag{0});
        QCOMPARE(camera.setGamma(70000), Flag{1});
    }

    void shutterRefusedAndUnreadable()
    {
        Scene scene;
        std::uint8_t closed = 0;
        usePlan(scene, QStringLiteral("shutter-refused.ini"));
        QCOMPARE(scene.camera().setShutterPosition(true), Flag{0});
        QCOMPARE(scene.camera().getShutterPosition(&closed), Flag{1});
        usePlan(scene, QStringLiteral("shutter-unreadable.ini"));
        QCOMPARE(scene.camera().setShutterPosition(true), Flag{1});
        QCOMPARE(scene.camera().getShutterPosition(&closed), Flag{0});
    }

    void temperatureLostAndHangUp()
    {
        Scene scene;
        ombrix_sdk::Temperatures record{};
        usePlan(scene, QStringLiteral("temperature-lost.ini"));
        ICamera& losing = scene.camera();
        for (const Flag expected : QVector<Flag>{1, 1, 1, 0, 0}) {
            QCOMPARE(losing.getTemperatures(&record), expected);
        }
        QCOMPARE(losing.getGamma(), 65536U);
        usePlan(scene, QStringLiteral("hang-up.ini"));
        ICamera& hanging = scene.camera();
        for (const Flag expected : QVector<Flag>{1, 1, 1, 1, 0}) {
            QCOMPARE(hanging.getTemperatures(&record), expected);
        }
        QCOMPARE(hanging.getGamma(), 0U);
    }

    void connectionLost()
    {
        Scene scene;
        usePlan(scene, QStringLiteral("connection-lost.ini"));
        QVERIFY(scene.open() == nullptr);
    }

    void overheated()
    {
        Scene scene;
        usePlan(scene, QStringLiteral("overheated.ini"));
        Temperatures record{};
        QCOMPARE(scene.camera().getTemperatures(&record), Flag{1});
        QCOMPARE(record.fpga, 361500.0F);
    }

    void baudRateRefused()
    {
        Scene scene;
        usePlan(scene, QStringLiteral("baud-rate-refused.ini"));
        QCOMPARE(scene.camera().setBaudRate(9600, true), Flag{0});
        QVERIFY(scene.open() != nullptr);
    }

    void tableUnreadableAndUnwritable()
    {
        Scene scene;
        QByteArray bytes(scene::regionSize, '\0');
        usePlan(scene, QStringLiteral("table-unreadable.ini"));
        QCOMPARE(scene.camera().readTableData(4096, 8192, 9, bytes.data()), -3);
        usePlan(scene, QStringLiteral("table-unwritable.ini"));
        QCOMPARE(scene.camera().writeTableData(4096, 8192, 8, bytes.data()), Flag{0});
        QCOMPARE(scene.camera().readTableData(4096, 8192, 9, bytes.data()), 0);
    }

    void editsRefused()
    {
        Scene scene;
        usePlan(scene, QStringLiteral("edits-refused.ini"));
        scene.write(QStringLiteral("map.bin"), QByteArray(scene::mapSize, '\1'));
        QCOMPARE(scene.camera().addBadPixels("map.bin", 1, 1), Flag{0});
        QCOMPARE(scene.camera().removeBadPixels("map.bin", 1, 1), Flag{0});
        QCOMPARE(scene.read(QStringLiteral("map.bin")), QByteArray(scene::mapSize, '\1'));
    }

    void aTreatmentGoesWrongAsPlanned_data()
    {
        QTest::addColumn<QString>("plan");
        QTest::addColumn<int>("entries");
        QTest::addColumn<int>("size"); // of the table file; -1: there is none
        QTest::newRow("too many") << QStringLiteral("too-many-bad-pixels.ini") << 1025 << -1;
        QTest::newRow("missing") << QStringLiteral("treatment-missing.ini") << 0 << -1;
        QTest::newRow("empty") << QStringLiteral("treatment-empty.ini") << 0 << 0;
        QTest::newRow("long") << QStringLiteral("treatment-long.ini") << 0 << scene::regionSize + 1;
    }

    void aTreatmentGoesWrongAsPlanned()
    {
        QFETCH(QString, plan);
        QFETCH(int, entries);
        QFETCH(int, size);
        Scene scene;
        usePlan(scene, plan);
        scene.write(QStringLiteral("map.bin"), QByteArray(scene::mapSize, '\0'));
        scene.write(QStringLiteral("replbp.bin"), "of before");
        std::vector<ombrix_sdk::ReplacementEntry> list(3);
        int height = 480;
        int width = 640;
        scene.camera().loadBadPixelList("map.bin", list, height, width);
        QCOMPARE(static_cast<int>(list.size()), entries);
        QCOMPARE(scene.exists(QStringLiteral("replbp.bin")), size >= 0);
        QCOMPARE(scene.read(QStringLiteral("replbp.bin")).size(), std::max(size, 0));
    }

    void oddAnswers()
    {
        Scene scene;
        usePlan(scene, QStringLiteral("odd-answers.ini"));
        ICamera& camera = scene.camera();
        QCOMPARE(camera.setGamma(70000), Flag{2});
        QCOMPARE(camera.getGamma(), 70000U);
        QCOMPARE(camera.requestNuc(1), Flag{2});
        QCOMPARE(camera.configureZoomResolution(100, 100), Flag{2});
    }

    void unreliable()
    {
        Scene scene;
        usePlan(scene, QStringLiteral("unreliable.ini"));
        const QByteArray course = answers(scene.camera(), 200);
        QVERIFY(course.count('0') > 15);
        QVERIFY(course.count('0') < 65);
    }

    void slow()
    {
        Scene scene;
        usePlan(scene, QStringLiteral("slow.ini"), "[simulator]\nmanualClock=true\n");
        ICamera& camera = scene.camera();
        for (int call = 0; call < 300; ++call) {
            QCOMPARE(camera.getGamma(), 65536U);
        }
        ombrix_sdk::OperatingTime time{};
        camera.getOperatingTime(&time);
        QCOMPARE(time.minutes, 5264U);
    }

    void aSavingThatFailsKeepsNothing()
    {
        Scene scene;
        scene.write(planFile, "[saveConfiguration]\ncalls=always\n");
        scene.restart(withPlan + "memory=kept\n");
        scene.configuration().gskValue = 1;
        scene.sdk().saveConfiguration();
        scene.restart();
        QCOMPARE(scene.configuration().gskValue, 6);
    }

private:
    static void usePlan(Scene& scene, const QString& name, const QByteArray& settings = {})
    {
        Scene::setVariable("TAVREL_SIMULATOR_PLAN",
                           QStringLiteral(TAVREL_SOURCE_DIR "/simulator/plans/") + name);
        scene.restart(settings);
    }
};

QTEST_GUILESS_MAIN(TestPlan)
#include "tst_plan.moc"
