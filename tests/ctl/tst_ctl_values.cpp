// SPDX-License-Identifier: MIT
// Looking at a camera and setting it, parameter by parameter.
#include "tests/ctl/program.h"

#include <QtCore/QJsonArray>
#include <QtTest/QTest>

using ctl::Machine;
using ctl::Run;

class TestValues : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void thePortsAreListed()
    {
        Machine machine;
        machine.ports.plug(QStringLiteral("ttyUSB1"));
        const Run run = machine.run("ports");
        QCOMPARE(run.status, 0);
        QCOMPARE(run.lines(), (QStringList{QStringLiteral("ttyUSB0"), QStringLiteral("ttyUSB1")}));
        const QJsonArray list =
            machine.run("ports --json").json()[QStringLiteral("ports")].toArray();
        QCOMPARE(list.size(), 2);
        QCOMPARE(list[1].toObject()[QStringLiteral("name")].toString(), QStringLiteral("ttyUSB1"));
    }

    void everyParameterIsListedWithoutACamera()
    {
        Machine machine;
        machine.settings("[configuration]\ngskMax=9\n");
        machine.ports.unplug(QStringLiteral("ttyUSB0"));
        const Run run = machine.run("list");
        QCOMPARE(run.status, 0);
        const auto line = [&](const char* name) {
            return run.lines().filter(QLatin1String(name)).value(0).simplified();
        };
        QCOMPARE(line("gamma"), QStringLiteral("gamma user read, set 0.5 to 2.5"));
        QCOMPARE(line("frame-rate"),
                 QStringLiteral("frame-rate user read, set 9, 25, 30, 50 or 60 Hz"));
        QCOMPARE(line("roi1-inclusive-x1"),
                 QStringLiteral("roi1-inclusive-x1 user read, set 5 to 635 px or off"));
        QCOMPARE(line("gsk"), QStringLiteral("gsk expert read, set 0 to 9"));
        QCOMPARE(line("camera-baud-rate"),
                 QStringLiteral(
                     "camera-baud-rate expert set 9600, 115200, 230400, 460800 or 921600 baud"));
        const QJsonArray list =
            machine.run("list --json").json()[QStringLiteral("parameters")].toArray();
        QCOMPARE(list.size(), run.lines().size());
        const QJsonObject first = list[0].toObject();
        QCOMPARE(first[QStringLiteral("name")].toString(), QStringLiteral("frame-rate"));
        QCOMPARE(first[QStringLiteral("choices")].toArray().last().toDouble(), 60.0);
        QVERIFY(machine.calls().filter(QStringLiteral("link")).isEmpty());
    }

    void theCameraIsIntroduced()
    {
        Machine machine;
        const Run run = machine.run("ttyUSB0 info");
        QCOMPARE(run.status, 0);
        QCOMPARE(run.errors, QString());
        const QStringList expected{QStringLiteral("processor version     1.4.2"),
                                   QStringLiteral("FPGA version          2.0.7"),
                                   QStringLiteral("variant               MIPI 60Hz"),
                                   QStringLiteral("serial number         20417"),
                                   QStringLiteral("sensor serial number  730155"),
                                   QStringLiteral("operating time        5263 min"),
                                   QStringLiteral("starts                118"),
                                   QStringLiteral("FPGA temperature      45.25 C"),
                                   QStringLiteral("sensor temperature    31.5 C")};
        QCOMPARE(run.lines().mid(0, 5), expected.mid(0, 5));
        QCOMPARE(run.lines().mid(7), expected.mid(7));
        const QJsonObject json = machine.run("ttyUSB0 info --json").json();
        QCOMPARE(json[QStringLiteral("serialNumber")].toDouble(), 20417.0);
        QCOMPARE(json[QStringLiteral("fpgaTemperature")].toDouble(), 45.25);
    }

    void whatCannotBeReadIsSaid()
    {
        Machine machine;
        machine.plan("[getTemperatures]\ncalls=always\n[getAhcGainsLimitation]\ncalls=always\n");
        Run run = machine.run("ttyUSB0 info");
        QCOMPARE(run.status, 1);
        QVERIFY(run.output.contains(QStringLiteral("sensor temperature    not readable")));
        run = machine.run("ttyUSB0 get ahc-black-gain-limit gamma --json");
        QCOMPARE(run.status, 1);
        const QJsonObject values = run.json()[QStringLiteral("parameters")].toObject();
        QVERIFY(values[QStringLiteral("ahc-black-gain-limit")].isNull());
        QCOMPARE(values[QStringLiteral("gamma")].toDouble(), 1.0);
    }

    void withoutNamesAllThatCanBeReadIsShown()
    {
        Machine machine;
        const Run run = machine.run("ttyUSB0 get");
        QCOMPARE(run.status, 0);
        const QStringList readable = machine.run("list").lines().filter(QStringLiteral(" read"));
        QCOMPARE(run.lines().size(), readable.size());
        for (int index = 0; index < readable.size(); ++index) {
            QCOMPARE(run.lines()[index].section(QLatin1Char(' '), 0, 0),
                     readable[index].section(QLatin1Char(' '), 0, 0));
        }
        QCOMPARE(run.lines().first().simplified(), QStringLiteral("frame-rate = 60 Hz"));
    }

    void expertParametersStayHiddenWhereTheModeIsOff()
    {
        Machine machine;
        machine.settings("[configuration]\nexpertMode=false\n");
        QVERIFY(!machine.run("ttyUSB0 get").output.contains(QStringLiteral("gsk")));
        const Run run = machine.run("ttyUSB0 set gsk=5");
        QCOMPARE(run.status, 2);
        QVERIFY2(run.errors.contains(QStringLiteral("expert mode")), qPrintable(run.errors));
        QVERIFY(machine.commandsSent().isEmpty());
    }

    void aValueIsSentAndReadBack()
    {
        Machine machine;
        const Run run = machine.run("ttyUSB0 set gamma=2.2 invert-polarity=on color-lut=hot");
        QCOMPARE(run.status, 0);
        QCOMPARE(run.lines(), (QStringList{QStringLiteral("invert-polarity  = on   done"),
                                           QStringLiteral("gamma            = 2.2  done"),
                                           QStringLiteral("color-lut        = hot  done")}));
        QCOMPARE(machine.commandsSent(), (QStringList{QStringLiteral("setPolarity(true)"),
                                                      QStringLiteral("setGamma(144179)"),
                                                      QStringLiteral("setColorLut(2)")}));
        QCOMPARE(machine.run("ttyUSB0 get gamma").lines(),
                 QStringList{QStringLiteral("gamma  = 2.2")});
    }

    void theCallsOfOneValueAreTheseAndNoOthers()
    {
        Machine machine;
        machine.record();
        QCOMPARE(machine.run("ttyUSB0 --link-rate 9600 set clhe=1234").status, 0);
        const QStringList camera = machine.calls().filter(QStringLiteral("camera"));
        QCOMPARE(
            camera,
            (QStringList{QStringLiteral("camera.connect(context)"),
                         QStringLiteral("camera.getVersions()"), QStringLiteral("camera.refresh()"),
                         QStringLiteral("camera.getClhe()"), QStringLiteral("camera.getVersions()"),
                         QStringLiteral("camera.setClhe(1234)"), QStringLiteral("camera.getClhe()"),
                         QStringLiteral("camera.getVersions()"),
                         QStringLiteral("link.closeCamera(camera 1)")})
                .filter(QStringLiteral("camera")));
    }

    void theLinkHasTheRateThatIsAskedFor()
    {
        Machine machine;
        machine.settings("[camera]\nbaudRate=9600\n");
        QCOMPARE(machine.run("ttyUSB0 info").status, 3);
        QCOMPARE(machine.run("ttyUSB0 info --link-rate 9600").status, 0);
    }

    void valuesOfOneCommandTravelTogether()
    {
        Machine machine;
        QCOMPARE(machine.run("ttyUSB0 set edge-gain=7").status, 0);
        QCOMPARE(machine.commandsSent(),
                 QStringList{QStringLiteral("configureEdgeCorrection(1, 7, 15)")});
        QCOMPARE(machine.run("ttyUSB0 set edge-threshold=9 edge-correction=none").status, 0);
        QCOMPARE(machine.commandsSent(),
                 QStringList{QStringLiteral("configureEdgeCorrection(0, 7, 9)")});
        QCOMPARE(machine.run("ttyUSB0 set ahc-white-gain-limit=60").status, 0);
        QCOMPARE(machine.commandsSent(),
                 QStringList{QStringLiteral("setAhcGainsLimitation(20, 60)")});
    }

    void theZoomsResolutionGoesBeforeTheZoom()
    {
        Machine machine;
        QCOMPARE(machine.run("ttyUSB0 set zoom-factor=2.5 zoom-x-resolution=640").status, 0);
        QCOMPARE(machine.commandsSent(),
                 (QStringList{QStringLiteral("configureZoomResolution(640, 576)"),
                              QStringLiteral("configureZoom({2.5, 320, 240, 1})")}));
    }

    void aRegionIsInOrderAtEveryMoment_data()
    {
        QTest::addColumn<QString>("assignments");
        QTest::addColumn<QStringList>("sent");
        QTest::newRow("to the right")
            << QStringLiteral("roi1-inclusive-x1=500 roi1-inclusive-x2=600")
            << QStringList{QStringLiteral("setRoiX2(600"), QStringLiteral("setRoiX1(500")};
        QTest::newRow("to the left")
            << QStringLiteral("roi1-inclusive-x2=90 roi1-inclusive-x1=50")
            << QStringList{QStringLiteral("setRoiX1(50"), QStringLiteral("setRoiX2(90")};
        QTest::newRow("down") << QStringLiteral("roi1-inclusive-y1=400 roi1-inclusive-y2=450")
                              << QStringList{QStringLiteral("setRoiY2(450"),
                                             QStringLiteral("setRoiY1(400")};
        QTest::newRow("up to the old edge")
            << QStringLiteral("roi1-inclusive-x1=480 roi1-inclusive-x2=600")
            << QStringList{QStringLiteral("setRoiX1(480"), QStringLiteral("setRoiX2(600")};
    }

    void aRegionIsInOrderAtEveryMoment()
    {
        QFETCH(QString, assignments);
        QFETCH(QStringList, sent);
        Machine machine;
        QCOMPARE(machine.run(QStringLiteral("ttyUSB0 set ").append(assignments).toLatin1()).status,
                 0);
        QStringList begins;
        const QStringList all = machine.commandsSent();
        for (const QString& command : all) {
            begins.append(command.section(QLatin1Char(','), 0, 0));
        }
        QCOMPARE(begins, sent);
    }

    void aRegionInTheWrongOrderIsNotSent()
    {
        Machine machine;
        const Run run = machine.run("ttyUSB0 set gamma=2 roi1-inclusive-x1=481");
        QCOMPARE(run.status, 2);
        QVERIFY2(run.errors.contains(
                     QStringLiteral("roi1-inclusive-x1 = 481 is beyond roi1-inclusive-x2 = 480")),
                 qPrintable(run.errors));
        QVERIFY(machine.commandsSent().isEmpty());
    }

    void aRefusedCoordinateKeepsItsPartnerFromBeingSent()
    {
        Machine machine;
        machine.plan("[setRoiX2]\ncalls=always\n");
        const Run run = machine.run("ttyUSB0 set roi1-inclusive-x1=500 roi1-inclusive-x2=600");
        QCOMPARE(run.status, 1);
        QCOMPARE(run.lines(),
                 (QStringList{QStringLiteral("roi1-inclusive-x1  = 160  not sent: wanted 500"),
                              QStringLiteral("roi1-inclusive-x2  = 480  refused: wanted 600")}));
        QCOMPARE(machine.commandsSent().size(), 1);
    }

    void aRegionIsSwitchedByItsFirstCoordinate()
    {
        Machine machine;
        QCOMPARE(machine.run("ttyUSB0 set roi0-exclusive-x1=50 roi1-inclusive-x1=off").status, 0);
        QCOMPARE(machine.commandsSent(),
                 (QStringList{QStringLiteral("setRoiX1(50, 1, true, true, false)"),
                              QStringLiteral("setRoiX1(0, 2, false, true, false)")}));
        QCOMPARE(machine.run("ttyUSB0 get roi1-inclusive-x1 roi0-exclusive-x1").lines(),
                 (QStringList{QStringLiteral("roi1-inclusive-x1  = off"),
                              QStringLiteral("roi0-exclusive-x1  = 50 px")}));
    }

    void theFrameRateThatIsThereIsNotSent()
    {
        Machine machine;
        Run run = machine.run("ttyUSB0 set frame-rate=60");
        QCOMPARE(run.status, 0);
        QCOMPARE(run.lines(), QStringList{QStringLiteral("frame-rate  = 60  done")});
        QVERIFY(machine.commandsSent().isEmpty());
        run = machine.run("ttyUSB0 set test-pattern=on frame-rate=50");
        QCOMPARE(machine.commandsSent(), (QStringList{QStringLiteral("setFrameRate(50)"),
                                                      QStringLiteral("setTestPattern(true)")}));
    }

    void theCamerasOwnRateGoesLast()
    {
        Machine machine;
        const Run run = machine.run("ttyUSB0 set camera-baud-rate=9600 gms=4 tint=3 gamma=2");
        QCOMPARE(run.status, 0);
        QCOMPARE(
            machine.commandsSent(),
            (QStringList{QStringLiteral("setGamma(131072)"), QStringLiteral("setTint(3)"),
                         QStringLiteral("setGms(4)"), QStringLiteral("setBaudRate(9600, false)")}));
        QCOMPARE(run.lines().last().simplified(),
                 QStringLiteral("camera-baud-rate = 9600 cannot be read back"));
    }

    void allElseIsReadBackBeforeTheCamerasOwnRateGoesOut()
    {
        Machine machine;
        machine.plan("[setGamma]\nvalue=1\n");
        const Run run = machine.run("ttyUSB0 set camera-baud-rate=9600 gamma=2");
        QCOMPARE(run.status, 1);
        QCOMPARE(run.lines(),
                 (QStringList{QStringLiteral("gamma             = 1     differs: wanted 2"),
                              QStringLiteral("camera-baud-rate  = 9600  cannot be read back")}));
        const QStringList calls = machine.calls().filter(QStringLiteral("camera"));
        QVERIFY2(calls.value(calls.size() - 2).contains(QStringLiteral("setBaudRate(9600, false)")),
                 qPrintable(calls.join(QLatin1Char('\n'))));
    }

    void nucAndShutterAnswer()
    {
        Machine machine;
        QCOMPARE(machine.run("ttyUSB0 nuc").lines(), QStringList{QStringLiteral("nuc  done")});
        QCOMPARE(machine.commandsSent(), QStringList{QStringLiteral("requestNuc(0)")});
        QCOMPARE(machine.run("ttyUSB0 shutter close").lines(),
                 QStringList{QStringLiteral("shutter  = closed  done")});
        QCOMPARE(machine.commandsSent(), QStringList{QStringLiteral("setShutterPosition(true)")});
        QCOMPARE(machine.run("ttyUSB0 shutter open --json")
                     .json()[QStringLiteral("results")]
                     .toArray()[0]
                     .toObject()[QStringLiteral("held")]
                     .toString(),
                 QStringLiteral("open"));
        machine.plan("[requestNuc]\ncalls=always\n");
        const Run run = machine.run("ttyUSB0 nuc");
        QCOMPARE(run.status, 1);
        QCOMPARE(run.lines(), QStringList{QStringLiteral("nuc  refused")});
    }
};

QTEST_GUILESS_MAIN(TestValues)
#include "tst_ctl_values.moc"
