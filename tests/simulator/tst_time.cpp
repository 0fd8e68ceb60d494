// SPDX-License-Identifier: MIT
// What time does to the simulated camera: warming up, the NUC, calls as slow as their bytes on the
// link. Time is the simulator's own clock, which stands still but for what a test lets pass.
#include "tests/simulator/scene.h"

#include "simulator/control.h"

#include <QtCore/QElapsedTimer>
#include <QtTest/QTest>

#include <cmath>

using ombrix_sdk::Flag;
using ombrix_sdk::ICamera;
using ombrix_simulator::advanceClock;
using scene::Scene;

namespace {

ombrix_sdk::Temperatures temperatures(Scene& scene)
{
    ombrix_sdk::Temperatures record{};
    scene.camera().getTemperatures(&record);
    return record;
}

int shutter(ICamera& camera)
{
    std::uint8_t closed = 0x37;
    camera.getShutterPosition(&closed);
    return closed;
}

quint32 minutes(ICamera& camera)
{
    ombrix_sdk::OperatingTime time{};
    camera.getOperatingTime(&time);
    return time.minutes;
}

} // namespace

class TestTime : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void temperaturesStandStillUnlessAskedOtherwise()
    {
        Scene scene("[simulator]\nmanualClock=true\n");
        const auto cold = temperatures(scene);
        advanceClock(3'600'000);
        QCOMPARE(temperatures(scene).sensor, cold.sensor);
        QCOMPARE(temperatures(scene).fpga, cold.fpga);
    }

    void temperaturesRiseFromTheRoomsToTheCameras()
    {
        Scene scene("[simulator]\nmanualClock=true\nwarmUp=true\n");
        const auto cold = temperatures(scene);
        QVERIFY(std::fabs(cold.sensor - 296000) < 50);
        QVERIFY(std::fabs(cold.fpga - 296000) < 50);
        float last = cold.fpga;
        for (int minute = 0; minute < 5; ++minute) {
            advanceClock(60'000);
            const auto now = temperatures(scene);
            QVERIFY(now.fpga > last + 100);
            last = now.fpga;
        }
        advanceClock(3'600'000);
        QVERIFY(std::fabs(temperatures(scene).sensor - 304500) < 50);
        QVERIFY(std::fabs(temperatures(scene).fpga - 318250) < 50);
    }

    void aPowerCycleWithTheClockStandingStartsTheWarmingAnew()
    {
        Scene scene("[simulator]\nmanualClock=true\nwarmUp=true\n");
        advanceClock(3'600'000);
        ombrix_simulator::cyclePower();
        QVERIFY(std::fabs(temperatures(scene).fpga - 296000) < 50);
    }

    void theNoiseIsTheSameForTheSameSeedAndAnotherForAnother()
    {
        const auto course = [](const QByteArray& settings) {
            Scene scene("[simulator]\nmanualClock=true\nwarmUp=true\n" + settings);
            QVector<float> values;
            for (int second = 0; second < 20; ++second) {
                values << temperatures(scene).sensor << temperatures(scene).fpga;
                advanceClock(1000);
            }
            return values;
        };
        const QVector<float> first = course("seed=1\n");
        QCOMPARE(course("seed=1\n"), first);
        QVERIFY(course("seed=2\n") != first);
        QVERIFY(course("seed=1\n[camera]\nserialNumber=5\n") != first);
    }

    void operatingMinutesFollowTheClock()
    {
        Scene scene("[simulator]\nmanualClock=true\n[camera]\noperatingMinutes=10\n");
        ICamera& camera = scene.camera();
        advanceClock(59'999);
        QCOMPARE(minutes(camera), 10U);
        advanceClock(1);
        QCOMPARE(minutes(camera), 11U);
        advanceClock(3'600'000);
        QCOMPARE(minutes(camera), 71U);
    }

    void operatingMinutesGoOnAfterAPowerCycle()
    {
        Scene scene("[simulator]\nmanualClock=true\n[camera]\noperatingMinutes=10\n");
        ICamera& camera = scene.camera();
        advanceClock(5 * 60'000);
        QCOMPARE(minutes(camera), 15U);
        ombrix_simulator::cyclePower();
        advanceClock(60'000);
        QCOMPARE(minutes(camera), 16U);
    }

    void operatingMinutesStopAtTheirEnd()
    {
        Scene scene("[simulator]\nmanualClock=true\n[camera]\noperatingMinutes=4294967290\n");
        advanceClock(3'600'000);
        QCOMPARE(minutes(scene.camera()), 4294967295U);
    }

    void theAutomaticNucClosesTheShutterAndOpensItAgain()
    {
        Scene scene("[simulator]\nmanualClock=true\nnucDuration=1500\n");
        ICamera& camera = scene.camera();
        QCOMPARE(camera.requestNuc(1), Flag{1});
        QCOMPARE(shutter(camera), 1);
        advanceClock(1499);
        QCOMPARE(shutter(camera), 1);
        advanceClock(1);
        QCOMPARE(shutter(camera), 0);
    }

    void theUsersNucLeavesTheShutterAlone()
    {
        Scene scene("[simulator]\nmanualClock=true\nnucDuration=1500\n");
        ICamera& camera = scene.camera();
        QCOMPARE(camera.requestNuc(0), Flag{1});
        QCOMPARE(shutter(camera), 0);
        advanceClock(1500);
        camera.setShutterPosition(true);
        QCOMPARE(camera.requestNuc(0), Flag{1});
        advanceClock(1500);
        QCOMPARE(shutter(camera), 1);
    }

    void aNucInProgressRefusesAnotherAndTheShutter()
    {
        Scene scene("[simulator]\nmanualClock=true\nnucDuration=1500\n");
        ICamera& camera = scene.camera();
        camera.requestNuc(1);
        QCOMPARE(camera.requestNuc(0), Flag{0});
        QCOMPARE(camera.requestNuc(1), Flag{0});
        QCOMPARE(camera.setShutterPosition(true), Flag{0});
        advanceClock(1500);
        QCOMPARE(camera.setShutterPosition(true), Flag{1});
        QCOMPARE(camera.requestNuc(1), Flag{1});
    }

    void aPowerCycleEndsANuc()
    {
        Scene scene("[simulator]\nmanualClock=true\nnucDuration=1500\n");
        ICamera& camera = scene.camera();
        camera.requestNuc(1);
        ombrix_simulator::cyclePower();
        QCOMPARE(shutter(camera), 0);
        QCOMPARE(camera.requestNuc(1), Flag{1});
    }

    // A call takes 12 bytes of frame each way and its own bytes, ten bits each.
    void aCallTakesTheTimeOfItsBytes_data()
    {
        QTest::addColumn<int>("baudRate");
        QTest::addColumn<int>("calls");
        QTest::addColumn<bool>("table");
        QTest::addColumn<int>("milliseconds");
        QTest::newRow("a value at 9600 baud")
            << 9600 << 100 << false << 100 * 28 * 10 * 1000 / 9600;
        QTest::newRow("a value at 115200 baud") << 115200 << 100 << false << 243;
        QTest::newRow("the table at 9600 baud")
            << 9600 << 1 << true << (24 + 9 + 8192) * 10 * 1000 / 9600;
        QTest::newRow("the table at 115200 baud") << 115200 << 1 << true << 713;
    }

    void aCallTakesTheTimeOfItsBytes()
    {
        QFETCH(int, baudRate);
        QFETCH(int, calls);
        QFETCH(bool, table);
        QFETCH(int, milliseconds);
        Scene scene("[simulator]\nmanualClock=true\nlatency=true\n[configuration]\nbaudRate=" +
                    QByteArray::number(baudRate) + "\n[camera]\noperatingMinutes=0\nbaudRate=" +
                    QByteArray::number(baudRate) + '\n');
        ICamera& camera = scene.camera();
        QByteArray region(scene::regionSize, '\0');
        // The clock is read by the minute that the camera counts.
        const auto untilTheNextMinute = [&camera] {
            const quint32 before = minutes(camera);
            int passed = 0;
            while (minutes(camera) == before) {
                advanceClock(1);
                ++passed;
            }
            return passed;
        };
        untilTheNextMinute();
        const int idle = untilTheNextMinute();
        for (int call = 0; call < calls; ++call) {
            if (table) {
                camera.readTableData(4096, 8192, 9, region.data());
            } else {
                camera.getGamma();
            }
        }
        const int busy = untilTheNextMinute();
        // Asking for the minutes takes time itself: for each millisecond that is counted here,
        // one more call has passed.
        const double perStep = 60'000.0 / idle;
        const double taken = (idle - busy) * perStep;
        QVERIFY2(std::fabs(taken - milliseconds) <= milliseconds * 0.02 + 2 * perStep,
                 qPrintable(QString::number(taken)));
    }

    void aLinkOfNoRateTakesNoTime()
    {
        Scene scene("[simulator]\nmanualClock=true\nlatency=true\n[configuration]\nbaudRate=0\n"
                    "[camera]\noperatingMinutes=0\nbaudRate=0\n");
        ICamera& camera = scene.camera();
        for (int call = 0; call < 100; ++call) {
            QCOMPARE(camera.getGamma(), 65536U);
        }
        advanceClock(59'999);
        QCOMPARE(minutes(camera), 0U);
        advanceClock(1);
        QCOMPARE(minutes(camera), 1U);
    }

    void aRealClockReallyWaits()
    {
        Scene scene(
            "[simulator]\nlatency=true\n[configuration]\nbaudRate=9600\n[camera]\nbaudRate=9600\n");
        ICamera& camera = scene.camera();
        QElapsedTimer timer;
        timer.start();
        for (int call = 0; call < 10; ++call) {
            camera.getGamma();
        }
        QVERIFY(timer.elapsed() >= 290); // 10 times 28 bytes of 10 bits at 9600 baud
    }

    void aManualClockNeverWaits()
    {
        Scene scene("[simulator]\nmanualClock=true\nlatency=true\ntimeout=100000\n");
        QElapsedTimer timer;
        timer.start();
        ICamera& camera = scene.camera();
        QByteArray region(scene::regionSize, '\0');
        for (int call = 0; call < 20; ++call) {
            camera.readTableData(4096, 8192, 9, region.data());
        }
        camera.setBaudRate(9600, false);
        camera.getGamma();
        QVERIFY(timer.elapsed() < 10'000);
    }

    void aCameraThatDoesNotAnswerTakesTheTimeout()
    {
        Scene scene("[simulator]\nmanualClock=true\ntimeout=60000\n[camera]\noperatingMinutes=0\n");
        ICamera& camera = scene.camera();
        camera.setBaudRate(9600, false);
        camera.getGamma();
        QVERIFY(scene.open() == nullptr);
        scene.configuration().setBaudRate(9600);
        QCOMPARE(minutes(scene.camera()), 2U);
    }

    void fileOperationsTakeNoTimeOnTheLink()
    {
        Scene scene("[simulator]\nmanualClock=true\nlatency=true\ntimeout=60000\n"
                    "[camera]\noperatingMinutes=0\n");
        ICamera& camera = scene.camera();
        camera.setBaudRate(9600, false);
        scene.write(QStringLiteral("map.bin"), QByteArray(scene::mapSize, '\0'));
        QCOMPARE(camera.addBadPixels("map.bin", 1, 1), Flag{1});
        scene.configuration().setBaudRate(9600);
        QCOMPARE(minutes(scene.camera()), 0U);
    }
};

QTEST_GUILESS_MAIN(TestTime)
#include "tst_time.moc"
