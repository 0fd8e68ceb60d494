// SPDX-License-Identifier: MIT
// What a test may do to the simulator while its program runs: read and change every value of a
// camera, put and lift faults, count calls, set the clock, pull cameras out.
#include "tests/simulator/scene.h"

#include "simulator/control.h"

#include <QtCore/QElapsedTimer>
#include <QtTest/QTest>

#include <cmath>
#include <limits>

using ombrix_sdk::ICamera;
using ombrix_simulator::Answer;
using scene::Scene;

namespace {

QString textOf(const Answer& answer)
{
    return QString::fromStdString(answer.text);
}

/// What a refusal says; "done" when it is none.
QString refusal(const Answer& answer)
{
    return answer.done ? QStringLiteral("done") : textOf(answer);
}

const QByteArray twoCameras = "[camera left]\nserialNumber=1\nports=ttyUSB0\n"
                              "[camera right]\nserialNumber=2\nports=ttyUSB1\n";

} // namespace

class TestControl : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyValueOfACameraIsReadAsASettingsFileHasIt()
    {
        // What is read makes the same camera again.
        Scene scene("[camera]\ngamma=1.5\nfirmwareVersion=3.2.1\npolarity=7\nroi1ExcX2=360\n"
                    "sensorTemperature=301234.5\nzoomXCenter=-3\n");
        const QString values = textOf(ombrix_simulator::get("camera"));
        QVERIFY(values.contains(QStringLiteral("\ngamma=1.5\n")));
        QVERIFY(values.contains(QStringLiteral("\npolarity=7\n")));
        QVERIFY(values.contains(QStringLiteral("\nfirmwareVersion=3.2.1\n")));
        scene.restart("[camera]\n" + values.toUtf8() + '\n');
        QCOMPARE(scene.newProblems(), QStringList());
        QCOMPARE(textOf(ombrix_simulator::get("camera")), values);
        QCOMPARE(textOf(ombrix_simulator::get("camera", "sensorTemperature")),
                 QStringLiteral("301234.5"));
    }

    void everyValueOfACameraCanBeChanged()
    {
        Scene scene;
        const QStringList lines = textOf(ombrix_simulator::get("camera")).split(QLatin1Char('\n'));
        QVERIFY(lines.size() > 50);
        for (const QString& line : lines) {
            const QString key = line.section(QLatin1Char('='), 0, 0);
            const QString value = key.endsWith(QStringLiteral("Version"))  ? QStringLiteral("4.5.6")
                                  : line.endsWith(QStringLiteral("true"))  ? QStringLiteral("false")
                                  : line.endsWith(QStringLiteral("false")) ? QStringLiteral("true")
                                                                           : QStringLiteral("77");
            const Answer answer =
                ombrix_simulator::set("camera", (key + QLatin1Char('=') + value).toStdString());
            QCOMPARE(refusal(answer), QStringLiteral("done"));
            QCOMPARE(textOf(ombrix_simulator::get("camera", key.toStdString())), value);
        }
    }

    void theProgramReadsWhatWasSet()
    {
        Scene scene;
        ICamera& camera = scene.camera();
        QVERIFY(ombrix_simulator::set("camera", "sensorTemperature=350000\ngamma=2.5").done);
        ombrix_sdk::Temperatures temperatures{};
        QCOMPARE(camera.getTemperatures(&temperatures), ombrix_sdk::Flag{1});
        QCOMPARE(temperatures.sensor, 350000.0F);
        QCOMPARE(camera.getGamma(), 163840U);
    }

    void aValueThatWasSetIsKept()
    {
        Scene scene("[simulator]\nmemory=kept\n");
        QVERIFY(ombrix_simulator::set("camera", "gsk=33").done);
        scene.restart();
        QCOMPARE(scene.camera().getGsk(), 33U);
    }

    void whatOnlyTheMakerGivesACameraEndsWithTheProgram()
    {
        Scene scene("[simulator]\nmemory=kept\n");
        for (const char* change :
             {"sensorSerialNumber=1", "firmwareVersion=1.0.0", "fpgaVersion=1.0.0",
              "nineHertz=true", "mipi=false", "sensorTemperature=345000", "fpgaTemperature=345000",
              "serialNumber=1"}) {
            const QByteArray key = QByteArray(change).split('=').first();
            const QString made = textOf(ombrix_simulator::get("camera", key.toStdString()));
            QVERIFY2(ombrix_simulator::set("camera", change).done, change);
            QVERIFY2(textOf(ombrix_simulator::get("camera", key.toStdString())) != made, change);
            scene.restart();
            QCOMPARE(textOf(ombrix_simulator::get("camera", key.toStdString())), made);
        }
    }

    void aCameraThatGetsAnotherNumberKeepsItsMemoryAndLeavesThatOfOthersAlone()
    {
        // What is kept of a camera that is not there this time.
        Scene scene("[simulator]\nmemory=kept\n[camera]\nserialNumber=2\n");
        QVERIFY(ombrix_simulator::set("camera", "gsk=22").done);
        const auto writeTable = [&scene](QByteArray content) {
            return scene.camera().writeTableData(4096, scene::regionSize, 8, content.data());
        };
        QCOMPARE(writeTable(QByteArray(scene::regionSize, '\x22')), ombrix_sdk::Flag{1});
        const QByteArray values = scene.read(QStringLiteral("kept/camera-2.ini"));
        const QByteArray region = scene.read(QStringLiteral("kept/camera-2.table"));
        scene.restart("[simulator]\nmemory=kept\n[camera]\nserialNumber=1\n");
        QVERIFY(ombrix_simulator::set("camera", "serialNumber=2").done);
        QVERIFY(ombrix_simulator::set("camera", "gsk=11").done);
        QCOMPARE(writeTable(QByteArray(scene::regionSize, '\x11')), ombrix_sdk::Flag{1});
        QCOMPARE(textOf(ombrix_simulator::get("camera", "serialNumber")), QStringLiteral("2"));
        QCOMPARE(scene.read(QStringLiteral("kept/camera-2.ini")), values);
        QCOMPARE(scene.read(QStringLiteral("kept/camera-2.table")), region);
        scene.restart();
        QCOMPARE(textOf(ombrix_simulator::get("camera", "serialNumber")), QStringLiteral("1"));
        QCOMPARE(scene.camera().getGsk(), 11U);
        QCOMPARE(scene.read(QStringLiteral("kept/camera-1.table")),
                 QByteArray(scene::regionSize, '\x11'));
    }

    void aRateThatWasSetCountsAtOnceAndNoOtherValueTouchesIt()
    {
        Scene scene;
        ICamera& camera = scene.camera();
        QVERIFY(ombrix_simulator::set("camera", "gsk=7").done);
        QCOMPARE(camera.getGsk(), 7U);
        QCOMPARE(camera.setBaudRate(9600, false), ombrix_sdk::Flag{1});
        QVERIFY(ombrix_simulator::set("camera", "gsk=8").done);
        QCOMPARE(camera.getGsk(), 0U);
        QVERIFY(ombrix_simulator::set("camera", "baudRate=115200").done);
        QCOMPARE(camera.getGsk(), 8U);
    }

    void aCameraGoesByItsSectionOrItsNumber()
    {
        Scene scene(twoCameras);
        QVERIFY(ombrix_simulator::set("camera right", "gsk=2").done);
        QVERIFY(ombrix_simulator::set("1", "gsk=1").done);
        QCOMPARE(scene.camera("ttyUSB0").getGsk(), 1U);
        QCOMPARE(scene.camera("ttyUSB1").getGsk(), 2U);
    }

    void aChangeThatCannotBeMadeChangesNothingAndSaysWhy_data()
    {
        QTest::addColumn<QString>("camera");
        QTest::addColumn<QString>("values");
        QTest::addColumn<QString>("message");
        const auto row = [](const char* name, const char* camera, const char* values,
                            const char* message) {
            QTest::newRow(name) << QString::fromLatin1(camera) << QString::fromLatin1(values)
                                << QString::fromLatin1(message);
        };
        row("unknown camera", "camera", "gsk=1",
            "there is no camera \"camera\"; there are \"camera left\" with the serial number 1, "
            "\"camera right\" with the serial number 2");
        row("unknown key", "camera left", "gsk=1\ngama=2",
            "[camera left] gama: unknown key; there are serialNumber, ");
        row("another kind", "camera left", "gsk=much",
            "[camera left] gsk: \"much\" is not a whole number from 0 to 4294967295; nothing is "
            "changed");
        row("beyond the field", "camera left", "gsk=1\nframeRate=256",
            "[camera left] frameRate: \"256\" is not a whole number from 0 to 255; nothing is "
            "changed");
        row("a number of another camera", "camera left", "gsk=1\nserialNumber=2",
            "[camera left] serialNumber: 2 is the number of [camera right]; nothing is changed");
        row("no value", "camera left", "gsk", "\"gsk\" is not key=value; nothing is changed");
        row("nothing", "camera left", "", "there is no key=value; nothing is changed");
        row("a section", "camera left", "gsk=1\n[camera right]",
            "\"[camera right]\" is not key=value; nothing is changed");
        row("a key twice", "camera left", "gsk=1\n gsk = 2",
            "\"gsk\" is given twice; nothing is changed");
        row("random bytes", "camera left", "gsk=1\n\x1b\xff",
            "a line is no text; nothing is changed");
    }

    void aChangeThatCannotBeMadeChangesNothingAndSaysWhy()
    {
        QFETCH(QString, camera);
        QFETCH(QString, values);
        QFETCH(QString, message);
        Scene scene(twoCameras);
        const Answer before = ombrix_simulator::get("camera left");
        const QString said =
            refusal(ombrix_simulator::set(camera.toStdString(), values.toStdString()));
        QVERIFY2(said.startsWith(message), qPrintable(said));
        QCOMPARE(textOf(ombrix_simulator::get("camera left")), textOf(before));
    }

    void whatThereIsNotIsNotRead()
    {
        Scene scene;
        QCOMPARE(refusal(ombrix_simulator::get("camera 2")),
                 QStringLiteral("there is no camera \"camera 2\"; there is \"camera\" with the "
                                "serial number 20417"));
        QVERIFY(refusal(ombrix_simulator::get("camera", "gama"))
                    .startsWith(QStringLiteral("unknown key \"gama\"; there are serialNumber, ")));
    }

    void aFaultIsPutAndLifted()
    {
        Scene scene;
        ICamera& camera = scene.camera();
        QCOMPARE(
            refusal(ombrix_simulator::putFault("[setGsk]\n[getGsk]\nvalue=5\n[set*]\ncalls=2-")),
            QStringLiteral("[setGsk]: a rule has one of the keys calls, probability, seed, "
                           "camera, port, where, value, record, table, carryOut, delay, hangUp; "
                           "the section does nothing"));
        QCOMPARE(camera.getGsk(), 6U);
        QCOMPARE(refusal(ombrix_simulator::putFault("[getGsk]\nvalue=5\n[set*]\ncalls=2-")),
                 QStringLiteral("done"));
        QCOMPARE(camera.getGsk(), 5U);
        QCOMPARE(camera.setGms(1), ombrix_sdk::Flag{1});
        QCOMPARE(camera.setGms(1), ombrix_sdk::Flag{0});
        QVERIFY(ombrix_simulator::liftFault("getGsk").done);
        QCOMPARE(camera.getGsk(), 6U);
        QCOMPARE(camera.setGms(1), ombrix_sdk::Flag{0});
        QCOMPARE(refusal(ombrix_simulator::liftFault("getGsk")),
                 QStringLiteral("no fault \"getGsk\" was put; there are set*"));
        QVERIFY(ombrix_simulator::liftFault().done);
        QCOMPARE(camera.setGms(1), ombrix_sdk::Flag{1});
    }

    void aFaultThatIsPutAgainReplacesTheFirst()
    {
        Scene scene;
        ICamera& camera = scene.camera();
        QVERIFY(ombrix_simulator::putFault("[getGsk]\nvalue=5").done);
        QVERIFY(ombrix_simulator::putFault("[getGsk]\nvalue=9").done);
        QCOMPARE(camera.getGsk(), 9U);
        QVERIFY(ombrix_simulator::liftFault("getGsk").done);
        QCOMPARE(camera.getGsk(), 6U);
    }

    void aFaultGoesBeforeThePlanWhichIsThereStill()
    {
        Scene scene("[simulator]\nplan=plan.ini\n");
        scene.write(QStringLiteral("plan.ini"), "[getGsk]\nvalue=1\n[getGms]\nvalue=2\n");
        ICamera& camera = scene.camera();
        QVERIFY(ombrix_simulator::putFault("[getGsk]\nvalue=5\ncalls=2").done);
        QCOMPARE(camera.getGsk(), 1U);
        QCOMPARE(camera.getGsk(), 5U);
        QCOMPARE(camera.getGms(), 2U);
        QVERIFY(ombrix_simulator::liftFault().done);
        QCOMPARE(camera.getGsk(), 1U);
    }

    void aCameraThatHangsByAFaultAnswersWhenItIsLifted()
    {
        Scene scene;
        ICamera& camera = scene.camera();
        QVERIFY(ombrix_simulator::putFault("[getGsk]\nhangUp=true").done);
        QCOMPARE(camera.getGsk(), 0U);
        QCOMPARE(camera.getGms(), 0U);
        QVERIFY(ombrix_simulator::liftFault("getGsk").done);
        QCOMPARE(camera.getGms(), 24U);
    }

    void aCameraHangsAsLongAsTheFaultThatDidIt()
    {
        Scene scene("[simulator]\nplan=plan.ini\n");
        ICamera& camera = scene.camera();
        const auto hangs = [&camera] {
            return camera.getGms() == 0;
        };
        const auto put = [](const char* fault) {
            return refusal(ombrix_simulator::putFault(fault)) == QStringLiteral("done");
        };
        // Another one that is put, lifted or replaced is no help.
        QVERIFY(put("[getGsk]\nhangUp=true"));
        QCOMPARE(camera.getGsk(), 0U);
        QVERIFY(put("[setGsk]\nvalue=0"));
        QVERIFY(put("[setGsk]\nvalue=1"));
        QVERIFY(ombrix_simulator::liftFault("setGsk").done);
        QVERIFY(hangs());
        scene.write(QStringLiteral("plan.ini"), "[setGsk]\nvalue=0\n");
        QVERIFY(hangs());
        // It is when it is replaced itself.
        QVERIFY(put("[getGsk]\nhangUp=false"));
        QVERIFY(!hangs());
        // Two faults, and all of them.
        QVERIFY(put("[getGsk]\nhangUp=true"));
        QVERIFY(put("[getGfid]\nhangUp=true"));
        camera.getGsk();
        camera.getGfid();
        QVERIFY(ombrix_simulator::liftFault("getGsk").done);
        QVERIFY(hangs());
        QVERIFY(ombrix_simulator::liftFault().done);
        QVERIFY(!hangs());
        // The plan's stay.
        scene.write(QStringLiteral("plan.ini"), "[getGsk]\nhangUp=true\n");
        camera.getGsk();
        QVERIFY(put("[getGsk]\nvalue=1"));
        QVERIFY(ombrix_simulator::liftFault().done);
        QVERIFY(hangs());
        scene.write(QStringLiteral("plan.ini"), "[setGsk]\nvalue=0\n");
        QVERIFY(!hangs());
        // And power ends all.
        QVERIFY(put("[getGsk]\nhangUp=true"));
        camera.getGsk();
        QVERIFY(hangs());
        ombrix_simulator::cyclePower();
        QVERIFY(!hangs());
    }

    void aConnectionThatIsNotLostAnyMoreIsAFaultLifted()
    {
        Scene scene;
        ICamera& camera = scene.camera();
        QVERIFY(ombrix_simulator::putFault("[connection]\nlost=true").done);
        QCOMPARE(camera.getGsk(), 0U);
        QVERIFY(ombrix_simulator::putFault("[connection]\nlost=false").done);
        QCOMPARE(camera.getGsk(), 6U);
    }

    void aFaultThatCannotBeUnderstoodIsRefused_data()
    {
        QTest::addColumn<QByteArray>("fault");
        QTest::addColumn<QString>("message");
        QTest::newRow("unknown operation")
            << QByteArray("[setGama]\nvalue=0")
            << QStringLiteral("[setGama]: no operation has this name, see simulator-reference.md; "
                              "the section does nothing");
        QTest::newRow("wrong calls")
            << QByteArray("[setGsk]\ncalls=0")
            << QStringLiteral("[setGsk] calls: \"0\" is neither always nor a list such as 3, 5-7, "
                              "9-, counted from 1; the section does nothing");
        QTest::newRow("power") << QByteArray("[power]\ncycles=1")
                               << QStringLiteral(
                                      "[power]: no operation has this name, see "
                                      "simulator-reference.md; the section does nothing");
        QTest::newRow("no section") << QByteArray("") << QStringLiteral("there is no [section]");
        QTest::newRow("no text") << QByteArray("[setGsk]\nvalue=0\n\xff")
                                 << QStringLiteral(
                                        "[setGsk]: no text in UTF-8; nothing is changed");
    }

    void aFaultThatCannotBeUnderstoodIsRefused()
    {
        QFETCH(QByteArray, fault);
        QFETCH(QString, message);
        Scene scene;
        ICamera& camera = scene.camera();
        QCOMPARE(refusal(ombrix_simulator::putFault(fault.toStdString())), message);
        QCOMPARE(camera.setGsk(1), ombrix_sdk::Flag{1});
    }

    void inTheSafeModeNoFaultIsPut()
    {
        Scene scene("[simulator]\nsafe=true\n");
        QCOMPARE(refusal(ombrix_simulator::putFault("[getGsk]\nvalue=5")),
                 QStringLiteral("no fault is put: safe mode"));
        QCOMPARE(scene.camera().getGsk(), 6U);
    }

    void callsAreCounted()
    {
        Scene scene;
        QCOMPARE(ombrix_simulator::calls("openCamera"), 0);
        ICamera& camera = scene.camera();
        QCOMPARE(ombrix_simulator::calls("openCamera"), 1);
        QCOMPARE(ombrix_simulator::calls("getGsk"), 0);
        camera.getGsk();
        camera.getGsk();
        camera.setGsk(5000);
        QCOMPARE(ombrix_simulator::calls("getGsk"), 2);
        QCOMPARE(ombrix_simulator::calls("setGsk"), 1);
        QCOMPARE(ombrix_simulator::calls("getGms"), 0);
        QCOMPARE(ombrix_simulator::calls("getGks"), -1);
        scene.link()->closeCamera(&camera);
        camera.getGsk();
        QCOMPARE(ombrix_simulator::calls("getGsk"), 2);
        scene.restart();
        QCOMPARE(ombrix_simulator::calls("getGsk"), 0);
    }

    void aClockThatStandsMovesByHandAndByWaiting()
    {
        Scene scene;
        QVERIFY(ombrix_simulator::setClockSpeed(0).done);
        const auto begin = ombrix_simulator::clockTime();
        ombrix_simulator::advanceClock(60'000);
        QCOMPARE(ombrix_simulator::clockTime(), begin + 60'000);
        // The minute would be waited for in real time.
        QVERIFY(ombrix_simulator::putFault("[getGsk]\ndelay=3600000").done);
        scene.camera().getGsk();
        QCOMPARE(ombrix_simulator::clockTime(), begin + 3'660'000);
        ombrix_simulator::advanceClock(-1);
        QCOMPARE(ombrix_simulator::clockTime(), begin + 3'660'000);
    }

    void aClockThatStandsFromTheStartBeginsWith0()
    {
        Scene scene("[simulator]\nmanualClock=true\n");
        QCOMPARE(ombrix_simulator::clockTime(), 0);
    }

    void aFasterClockLosesNothingOfItsTime()
    {
        Scene scene("[simulator]\nmanualClock=true\n");
        ombrix_simulator::advanceClock(5000);
        QVERIFY(ombrix_simulator::setClockSpeed(1000).done);
        QVERIFY(ombrix_simulator::clockTime() >= 5000);
        // An hour of the simulator's passes in 3.6 seconds.
        QTRY_VERIFY_WITH_TIMEOUT(ombrix_simulator::clockTime() > 65'000, 30'000);
        QVERIFY(ombrix_simulator::setClockSpeed(0).done);
        const auto later = ombrix_simulator::clockTime();
        QVERIFY(later > 65'000);
        QCOMPARE(ombrix_simulator::clockTime(), later);
        // However often the speed is set, no more passes than passed.
        QElapsedTimer real;
        real.start();
        for (int time = 0; time < 20; ++time) {
            QVERIFY(ombrix_simulator::setClockSpeed(1000).done);
        }
        const auto passed = ombrix_simulator::clockTime() - later;
        QVERIFY(passed <= (real.elapsed() + 1) * 1000);
    }

    void aFasterClockWaitsLess()
    {
        Scene scene;
        QVERIFY(ombrix_simulator::setClockSpeed(1000).done);
        const auto begin = ombrix_simulator::clockTime();
        QVERIFY(ombrix_simulator::putFault("[getGsk]\ndelay=100000").done);
        ICamera& camera = scene.camera();
        QElapsedTimer real;
        real.start();
        camera.getGsk();
        QVERIFY(ombrix_simulator::clockTime() >= begin + 100'000);
        QVERIFY(real.elapsed() >= 100);
        QVERIFY(real.elapsed() < 60'000);
    }

    void aSpeedThatIsNoneIsRefused()
    {
        Scene scene("[simulator]\nmanualClock=true\n");
        for (const double factor :
             {-1.0, 0.0001, 1001.0, std::nan(""), std::numeric_limits<double>::infinity()}) {
            QVERIFY(refusal(ombrix_simulator::setClockSpeed(factor))
                        .endsWith(QStringLiteral(" is no speed: 0, or 0.001 to 1000")));
        }
        const auto begin = ombrix_simulator::clockTime();
        ombrix_simulator::advanceClock(1);
        QCOMPARE(ombrix_simulator::clockTime(), begin + 1);
    }

    void aClockDoesNotRunOverItsEnd()
    {
        Scene scene("[simulator]\nmanualClock=true\n");
        for (int time = 0; time < 5; ++time) {
            const auto before = ombrix_simulator::clockTime();
            ombrix_simulator::advanceClock(std::numeric_limits<std::int64_t>::max());
            QVERIFY(ombrix_simulator::clockTime() >= before);
        }
        QCOMPARE(scene.camera().getGsk(), 6U);
    }

    void aCameraThatIsPulledOutIsReachedAgainWhenItIsPluggedIn()
    {
        Scene scene(twoCameras);
        ICamera& camera = scene.camera("ttyUSB0");
        QVERIFY(ombrix_simulator::pull("camera left").done);
        QCOMPARE(camera.getGsk(), 0U);
        QVERIFY(scene.open("ttyUSB0") == nullptr);
        QCOMPARE(scene.newLog().constLast(),
                 QStringLiteral("notice   openCamera ttyUSB0: the camera is pulled out"));
        QCOMPARE(scene.camera("ttyUSB1").getGsk(), 6U);
        QCOMPARE(refusal(ombrix_simulator::pull("1")),
                 QStringLiteral("[camera left] is pulled out already"));
        QVERIFY(ombrix_simulator::plug("camera left").done);
        QCOMPARE(camera.getGsk(), 6U);
        QCOMPARE(refusal(ombrix_simulator::plug("1")),
                 QStringLiteral("[camera left] is plugged in already"));
        QVERIFY(!ombrix_simulator::pull("camera").done);
        QVERIFY(!ombrix_simulator::plug("camera").done);
    }

    void aRestartPutsEverythingBack()
    {
        Scene scene;
        QVERIFY(ombrix_simulator::set("camera", "gsk=1").done);
        QVERIFY(ombrix_simulator::putFault("[getGms]\nvalue=5").done);
        QVERIFY(ombrix_simulator::pull("camera").done);
        scene.restart();
        QCOMPARE(scene.camera().getGsk(), 6U);
        QCOMPARE(scene.camera().getGms(), 24U);
    }
};

QTEST_GUILESS_MAIN(TestControl)
#include "tst_control.moc"
