// SPDX-License-Identifier: MIT
// Settings that travel from a camera into a file and into other cameras.
#include "params/parameters.h"
#include "tests/ctl/program.h"

#include <QtCore/QDir>
#include <QtCore/QJsonArray>
#include <QtTest/QTest>

#include <algorithm>
#include <random>

using ctl::Machine;
using ctl::Run;

namespace {

/// What stands at the end of every profile.
const QByteArray fromSuch = "[camera]\nvariant = \"MIPI 60Hz\"\n";

/// NAME=VALUE for every parameter that a profile keeps, all of them drawn.
class Drawn {
public:
    explicit Drawn(unsigned seed) : random(seed) {}

    QStringList assignments()
    {
        QStringList words;
        double low = 0;
        for (std::size_t place = 0; place < tavrel::parameters().size(); ++place) {
            const tavrel::Parameter& parameter = tavrel::parameters()[place];
            if (parameter.keeping != tavrel::Keeping::Saved) {
                continue;
            }
            const bool isHigh = tavrel::inPair(place) == tavrel::InPair::High;
            double value = valueOf(parameter, isHigh ? low : parameter.minimum);
            if (tavrel::inPair(place) == tavrel::InPair::Low) {
                low = std::max(value, parameter.minimum);
            }
            words.append(QLatin1String(parameter.name) + QLatin1Char('=') +
                         tavrel::textOf(parameter, value));
        }
        return words;
    }

private:
    double valueOf(const tavrel::Parameter& parameter, double least)
    {
        const auto choices = parameter.choices.size();
        if (!parameter.isNumber() || (choices > 0 && upTo(3) == 0)) {
            return parameter.choices[upTo(choices - 1)].value;
        }
        // Within what the simulated camera takes of expert values.
        const double most = parameter.detector != nullptr ? 20 : parameter.maximum;
        const double value = std::uniform_real_distribution<double>(least, most)(random);
        return parameter.held != nullptr ? parameter.held(value) : std::floor(value);
    }

    std::size_t upTo(std::size_t last)
    {
        return std::uniform_int_distribution<std::size_t>(0, last)(random);
    }

    std::mt19937 random;
};

} // namespace

class TestProfiles : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aProfileIsTextThatTellsWhereItComesFrom()
    {
        Machine machine;
        const Run run = machine.run("ttyUSB0 save a.toml");
        QCOMPARE(run.status, 0);
        const auto& all = tavrel::parameters();
        const auto saved = std::count_if(all.begin(), all.end(), [](const auto& parameter) {
            return parameter.level == tavrel::Level::User &&
                   parameter.keeping == tavrel::Keeping::Saved;
        });
        QCOMPARE(run.lines(),
                 QStringList(QStringLiteral("%1 parameters saved to a.toml").arg(saved)));
        const QString text = QString::fromUtf8(machine.content("a.toml"));
        QVERIFY(text.contains(QStringLiteral("\nformat = 1\n")));
        QVERIFY(text.contains(QStringLiteral("\n[user]\nframe-rate = 60")));
        QVERIFY(text.contains(QStringLiteral("\ntest-pattern = false\n")));
        QVERIFY(text.contains(QStringLiteral("\nvideo-output = \"bt656\"")));
        QVERIFY(text.contains(QStringLiteral("\nroi0-exclusive-x1 = \"off\"")));
        QVERIFY(text.contains(QStringLiteral("# 0.5 to 2.5\n")));
        QVERIFY(text.contains(QStringLiteral("\ntool = \"Tavrel KV ")));
        QVERIFY(text.contains(QStringLiteral("\nserial-number = 20417\n")));
        QVERIFY(text.endsWith(QStringLiteral("\nvariant = \"MIPI 60Hz\"\n")));
        QVERIFY(!text.contains(QStringLiteral("[expert]")));
        QVERIFY(!text.contains(QStringLiteral("shutter")));

        QCOMPARE(machine.run("ttyUSB0 save b.toml --expert").status, 0);
        QVERIFY(machine.content("b.toml").contains("\n[expert]\ngsk = 6"));
        QVERIFY(!machine.content("b.toml").contains("baud"));
    }

    void twentyCamerasGetBackWhatTheyHad_data()
    {
        QTest::addColumn<unsigned>("seed");
        for (unsigned seed = 1; seed <= 20; ++seed) {
            QTest::addRow("camera %u", seed) << seed;
        }
    }

    void twentyCamerasGetBackWhatTheyHad()
    {
        QFETCH(unsigned, seed);
        Machine machine;
        machine.settings("[camera]\nserialNumber=" + QByteArray::number(seed) + '\n');
        Drawn drawn(seed);
        const QStringList set{QStringLiteral("ttyUSB0"), QStringLiteral("set")};
        Run run = machine.run(set + drawn.assignments());
        QVERIFY2(run.status == 0, qPrintable(run.output + run.errors));
        QCOMPARE(machine.run("ttyUSB0 save first.toml --expert").status, 0);
        run = machine.run(set + drawn.assignments());
        QVERIFY2(run.status == 0, qPrintable(run.output + run.errors));
        run = machine.run("ttyUSB0 apply first.toml");
        QVERIFY2(run.status == 0, qPrintable(run.output + run.errors));
        QCOMPARE(machine.run("ttyUSB0 save second.toml --expert").status, 0);
        QCOMPARE(machine.content("second.toml"), machine.content("first.toml"));
        QCOMPARE(machine.run("ttyUSB0 diff first.toml").status, 0);
    }

    void onlyWhatDiffersIsSent()
    {
        Machine machine;
        QCOMPARE(machine.run("ttyUSB0 save a.toml").status, 0);
        const QStringList nothing{QStringLiteral("the camera holds all of a.toml already")};
        QCOMPARE(machine.run("ttyUSB0 apply a.toml --dry-run").lines(), nothing);
        Run run = machine.run("ttyUSB0 apply a.toml");
        QCOMPARE(run.status, 0);
        QCOMPARE(run.lines(), nothing);
        QVERIFY(machine.commandsSent().isEmpty());
        machine.run("ttyUSB0 set gamma=2 clhe=7");
        run = machine.run("ttyUSB0 apply a.toml");
        QCOMPARE(run.status, 0);
        QCOMPARE(run.lines(), (QStringList{QStringLiteral("gamma  = 1     done"),
                                           QStringLiteral("clhe   = 2500  done")}));
        QCOMPARE(machine.commandsSent(),
                 (QStringList{QStringLiteral("setGamma(65536)"), QStringLiteral("setClhe(2500)")}));
    }

    void aDryRunShowsAndSendsNothing()
    {
        Machine machine;
        machine.write("a.toml", "format = 1\n[user]\ngamma = 2.2\nframe-rate = 60\n" + fromSuch);
        Run run = machine.run("ttyUSB0 apply a.toml --dry-run");
        QCOMPARE(run.status, 0);
        QCOMPARE(run.lines(), QStringList{QStringLiteral("gamma  1  ->  2.2")});
        QVERIFY(machine.commandsSent().isEmpty());
        const QJsonObject row = machine.run("ttyUSB0 diff a.toml --json")
                                    .json()[QStringLiteral("differences")]
                                    .toArray()[0]
                                    .toObject();
        QCOMPARE(row[QStringLiteral("first")].toDouble(), 1.0);
        QCOMPARE(row[QStringLiteral("second")].toDouble(), 2.2);
    }

    void anotherFrameRateBringsTheTestPatternBack()
    {
        Machine machine;
        machine.settings("[camera]\ntestPattern=true\n");
        machine.write("a.toml",
                      "format = 1\n[user]\ntest-pattern = true\nframe-rate = 50\n" + fromSuch);
        QCOMPARE(machine.run("ttyUSB0 apply a.toml").status, 0);
        QCOMPARE(machine.commandsSent(), (QStringList{QStringLiteral("setFrameRate(50)"),
                                                      QStringLiteral("setTestPattern(true)")}));
    }

    void theOrderOnTheWireIsTheCameras()
    {
        Machine machine;
        machine.write("a.toml",
                      "format = 1\n[expert]\npermanent-camera-baud-rate = 9600\ngms = 3\ntint = 4\n"
                      "[user]\nedge-threshold = 8\nzoom-factor = 2\nzoom-y-resolution = 480\n"
                      "roi1-inclusive-x1 = 500\nroi1-inclusive-x2 = 600\nedge-gain = 9\n" +
                          fromSuch);
        const Run run = machine.run("ttyUSB0 apply a.toml --camera-baud-rate");
        QCOMPARE(run.status, 0);
        QCOMPARE(machine.commandsSent(),
                 (QStringList{QStringLiteral("setRoiX2(600, 2, true, false, false)"),
                              QStringLiteral("setRoiX1(500, 2, true, false, false)"),
                              QStringLiteral("configureZoomResolution(720, 480)"),
                              QStringLiteral("configureZoom({2, 320, 240, 1})"),
                              QStringLiteral("configureEdgeCorrection(1, 9, 8)"),
                              QStringLiteral("setTint(4)"), QStringLiteral("setGms(3)"),
                              QStringLiteral("setBaudRate(9600, true)")}));
    }

    void theCamerasOwnRateIsSentOnlyWhenAskedFor()
    {
        Machine machine;
        machine.write("a.toml",
                      "format = 1\n[expert]\ncamera-baud-rate = 9600\ngms = 3\n" + fromSuch);
        Run run = machine.run("ttyUSB0 apply a.toml");
        QCOMPARE(run.status, 0);
        QVERIFY2(run.errors.contains(QStringLiteral("camera-baud-rate is only sent with")),
                 qPrintable(run.errors));
        QCOMPARE(machine.commandsSent(), QStringList{QStringLiteral("setGms(3)")});
        machine.write("b.toml", "format = 1\n" + fromSuch);
        run = machine.run("ttyUSB0 apply b.toml --camera-baud-rate");
        QCOMPARE(run.status, 2);
    }

    void twoRatesAreNotSentTogether()
    {
        Machine machine;
        machine.write("a.toml", "format = 1\n[expert]\ncamera-baud-rate = 9600\n"
                                "permanent-camera-baud-rate = 9600\n" +
                                    fromSuch);
        const Run run = machine.run("ttyUSB0 apply a.toml --camera-baud-rate");
        QCOMPARE(run.status, 2);
        QCOMPARE(run.errors,
                 QStringLiteral("tavrelctl: a.toml, line 4: camera-baud-rate and "
                                "permanent-camera-baud-rate cannot be sent together\n"));
        QVERIFY(machine.calls().filter(QStringLiteral("link")).isEmpty());
        QCOMPARE(machine.run("ttyUSB0 apply a.toml").status, 0);
    }

    void anotherCameraIsNormalAndAnotherVariantGetsAWarning()
    {
        Machine machine;
        machine.settings("[camera]\nserialNumber=7\n");
        machine.write("a.toml", "format = 1\n[user]\ngamma = 2\n[camera]\nserial-number = 20417\n"
                                "variant = \"MIPI 60Hz\"\n");
        Run run = machine.run("ttyUSB0 apply a.toml");
        QCOMPARE(run.status, 0);
        QCOMPARE(run.errors, QString());
        machine.write("b.toml", "format = 1\n[user]\ngamma = 2.5\n[camera]\nvariant = \"9Hz\"\n");
        run = machine.run("ttyUSB0 apply b.toml");
        QCOMPARE(run.status, 0);
        QCOMPARE(run.errors,
                 QStringLiteral("tavrelctl: warning: b.toml comes from a camera of the variant "
                                "9Hz, this one is MIPI 60Hz\n"));
    }

    void aWrongProfileStopsBeforeAnythingIsSent_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QString>("told");
        const auto row = [](const char* name, const QByteArray& text, const char* told) {
            QTest::newRow(name) << text << QString::fromLatin1(told);
        };
        const QByteArray user = "format = 1\n[user]\ngamma = 2\n";
        row("empty", "", "a.toml: is empty");
        row("blank", " \n\n", "a.toml: is empty");
        row("binary",
            QByteArray("\x7f"
                       "ELF\0\x01\x02\xff\xfe",
                       9),
            "a.toml, line 1: ");
        row("half a character", user + "x = \"\xc3\"\n" + fromSuch, "a.toml, line 4: ");
        row("no profile", "[user]\ngamma = 2\n" + fromSuch, "is no profile");
        row("newer", "format = 2\n[user]\ngamma = 2\n" + fromSuch, "a.toml, line 1: format 2");
        row("cut off in a line", user + "clhe = ", "a.toml, line 4: ");
        row("cut off behind a line", user, "it was cut off");
        row("a name twice", user + "gamma = 1\n" + fromSuch, "a.toml, line 4: ");
        row("unknown name", user + "gama = 1\n" + fromSuch,
            "a.toml, line 4: unknown parameter \"gama\"");
        row("unknown section", user + "[users]\nclhe = 1\n" + fromSuch, "\"users\"");
        row("out of range", user + "clhe = 30001\n" + fromSuch,
            "a.toml, line 4: clhe: 30001 is out of range (0 to 30000)");
        row("wrong kind", user + "nuc = 1\n" + fromSuch,
            "a.toml, line 4: nuc: \"1\" is not true or false\n");
        row("a list", user + "clhe = [1]\n" + fromSuch,
            "a.toml, line 4: clhe: a list is not 0 to 30000\n");
        row("a table", user + "clhe.x = 1\n" + fromSuch,
            "a.toml, line 4: clhe: a table is not 0 to 30000\n");
        row("a day", user + "clhe = 2026-11-22\n" + fromSuch,
            "a.toml, line 4: clhe: a date or time is not 0 to 30000\n");
        row("a switch that is a list", user + "nuc = [true]\n" + fromSuch,
            "a.toml, line 4: nuc: a list is not true or false\n");
        row("a name that would act on a terminal",
            user + "\"x\\u001b[2J\\n\\u009b\" = 1\n" + fromSuch,
            "a.toml, line 4: unknown parameter \"x\\u001b[2J\\u000a\\u009b\"\n");
        row("a value that would act on a terminal",
            user + "color-lut = \"\\u001b[2J\"\n" + fromSuch,
            "a.toml, line 4: color-lut: \"\\u001b[2J\" is not ");
        row("infinite", user + "zoom-factor = inf\n" + fromSuch, "a.toml, line 4: zoom-factor");
        row("wrong section", user + "gsk = 1\n" + fromSuch,
            "a.toml, line 4: gsk does not belong under [user]");
        row("a state of the moment", user + "shutter = \"open\"\n" + fromSuch,
            "a.toml, line 4: unknown parameter \"shutter\"");
        row("regions in the wrong order", user + "roi1-inclusive-x1 = 481\n" + fromSuch,
            "a.toml, line 4: roi1-inclusive-x1 = 481 is beyond");
    }

    void aWrongProfileStopsBeforeAnythingIsSent()
    {
        QFETCH(QByteArray, text);
        QFETCH(QString, told);
        Machine machine;
        machine.write("a.toml", text);
        const Run run = machine.run("ttyUSB0 apply a.toml");
        QCOMPARE(run.status, 2);
        QCOMPARE(run.output, QString());
        QVERIFY2(run.errors.contains(told), qPrintable(run.errors));
        QVERIFY(machine.commandsSent().isEmpty());
    }

    void regionsThatDoNotFitEachOtherNeedNoCamera()
    {
        Machine machine;
        machine.ports.unplug(QStringLiteral("ttyUSB0"));
        machine.write("a.toml", "format = 1\n[user]\nroi0-inclusive-x1 = 635\n"
                                "roi0-inclusive-x2 = 100\n" +
                                    fromSuch);
        const Run run = machine.run("ttyUSB0 apply a.toml");
        QCOMPARE(run.status, 2);
        QCOMPARE(run.errors,
                 QStringLiteral("tavrelctl: a.toml, line 3: roi0-inclusive-x1 = 635 is beyond "
                                "roi0-inclusive-x2 = 100; nothing was sent\n"));
    }

    void whatActsOnATerminalIsShown()
    {
        Machine machine;
        machine.write("a.toml", "format = 1\n[user]\ngamma = 2\n[camera]\n"
                                "variant = \"\\u001b[31m\\n\"\n");
        Run run = machine.run("ttyUSB0 apply a.toml");
        QCOMPARE(run.errors,
                 QStringLiteral("tavrelctl: warning: a.toml comes from a camera of the variant "
                                "\\u001b[31m\\u000a, this one is MIPI 60Hz\n"));
        run = machine.run("ttyUSB0 get \x1b[31m");
        QCOMPARE(run.errors, QStringLiteral("tavrelctl: unknown parameter \"\\u001b[31m\" "
                                            "(see \"tavrelctl list\")\n"));
        run = machine.run("ttyUSB0 save \x1b.toml");
        QCOMPARE(run.status, 0);
        QVERIFY2(run.output.endsWith(QStringLiteral(" saved to \\u001b.toml\n")),
                 qPrintable(run.output));
        QVERIFY(QFile::exists(machine.path("\x1b.toml")));
    }

    void aNameThatIsNoTextIsNotChanged()
    {
        Machine machine;
        const auto process =
            machine.start({QStringLiteral("-c"),
                           QStringLiteral("exec \"$0\" ttyUSB0 save \"$(printf 'a\\377.toml')\""),
                           QStringLiteral(TAVREL_CTL)},
                          QStringLiteral("/bin/sh"));
        const Run run = machine.finish(*process);
        QCOMPARE(run.status, 2);
        QVERIFY2(run.errors.contains(QStringLiteral(".toml\" is no text in the encoding of ")),
                 qPrintable(run.errors));
        QVERIFY(machine.calls().isEmpty());
        QVERIFY(QDir(machine.folder.path()).entryList({QStringLiteral("*.toml")}).isEmpty());
    }

    void aProfileIsToldByItsNameWhateverThatIs_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<QString>("told");
        QTest::newRow("a line that is wrong")
            << QByteArray("clhe = 30001\n")
            << QStringLiteral("job%2Fa.toml, line 3: clhe: 30001 is out of range");
        QTest::newRow("a line that does not fit another")
            << QByteArray("roi1-inclusive-x1 = 481\n")
            << QStringLiteral("job%2Fa.toml, line 3: roi1-inclusive-x1 = 481 is beyond");
    }

    void aProfileIsToldByItsNameWhateverThatIs()
    {
        QFETCH(QByteArray, line);
        QFETCH(QString, told);
        Machine machine;
        machine.write("job%2Fa.toml", "format = 1\n[user]\n" + line + fromSuch);
        const Run run = machine.run("ttyUSB0 apply job%2Fa.toml");
        QCOMPARE(run.status, 2);
        QVERIFY2(run.errors.contains(told), qPrintable(run.errors));
    }

    void whatIsNoFileIsNotRead_data()
    {
        QTest::addColumn<QString>("file");
        QTest::newRow("missing") << QStringLiteral("none.toml");
        QTest::newRow("folder") << QStringLiteral("memory");
        QTest::newRow("device") << QStringLiteral("/dev/zero");
    }

    void whatIsNoFileIsNotRead()
    {
        QFETCH(QString, file);
        Machine machine;
        QDir(machine.folder.path()).mkdir(QStringLiteral("memory"));
        const Run run = machine.run({QStringLiteral("ttyUSB0"), QStringLiteral("apply"), file});
        QCOMPARE(run.status, 2);
        QCOMPARE(run.errors, QStringLiteral("tavrelctl: %1: cannot be read\n").arg(file));
    }

    void aRefusalInTheMiddleIsToldAndTheRestIsSent()
    {
        Machine machine;
        machine.plan("[setClhe]\ncalls=always\n[setColorLut]\nvalue=1\n");
        machine.write("a.toml", "format = 1\n[user]\ngamma = 2\nclhe = 7\ncolor-lut = \"hot\"\n"
                                "lut-temporal-filter = 1\n" +
                                    fromSuch);
        const Run run = machine.run("ttyUSB0 apply a.toml --json");
        QCOMPARE(run.status, 1);
        QStringList fates;
        const QJsonArray results = run.json()[QStringLiteral("results")].toArray();
        for (const QJsonValue& result : results) {
            fates.append(result[QStringLiteral("name")].toString() + QLatin1Char(' ') +
                         result[QStringLiteral("result")].toString());
        }
        QCOMPARE(fates,
                 (QStringList{QStringLiteral("gamma done"), QStringLiteral("color-lut differs"),
                              QStringLiteral("clhe refused"),
                              QStringLiteral("lut-temporal-filter done")}));
    }

    void twoProfilesAreCompared()
    {
        Machine machine;
        machine.ports.unplug(QStringLiteral("ttyUSB0"));
        machine.write("a.toml", "format = 1\n[user]\ngamma = 2\nclhe = 7\nnuc = true\n" + fromSuch);
        machine.write("b.toml",
                      "format = 1\n[user]\ngamma = 2.0\nclhe = 8\nfrozen = 1\n" + fromSuch);
        QCOMPARE(machine.run("diff a.toml b.toml").status, 2);
        machine.write("b.toml",
                      "format = 1\n[user]\ngamma = 2.0\nclhe = 8\nframe-rate = 9\n" + fromSuch);
        const Run run = machine.run("diff a.toml b.toml");
        QCOMPARE(run.status, 1);
        QCOMPARE(run.lines(), (QStringList{QStringLiteral("frame-rate  -   ->  9 Hz"),
                                           QStringLiteral("nuc         on  ->  -"),
                                           QStringLiteral("clhe        7   ->  8")}));
        QCOMPARE(machine.run("diff a.toml a.toml").status, 0);
        QCOMPARE(machine.run("diff a.toml").status, 2);
        QCOMPARE(machine.run("ttyUSB0 diff a.toml b.toml").status, 2);
    }

    void aCameraIsComparedWithAProfile()
    {
        Machine machine;
        machine.write("a.toml", "format = 1\n[user]\ngamma = 1\nclhe = 7\n[expert]\n"
                                "camera-baud-rate = 9600\n" +
                                    fromSuch);
        const Run run = machine.run("ttyUSB0 diff a.toml");
        QCOMPARE(run.status, 1);
        QCOMPARE(run.lines(), QStringList{QStringLiteral("clhe  2500  ->  7")});
        QVERIFY(machine.commandsSent().isEmpty());
    }

    void aFullDiskKeepsTheOldProfile()
    {
        Machine machine;
        machine.write("a.toml", "the old one\n");
        const Run run = machine.runWithRoomFor(1, "ttyUSB0 save a.toml");
        QCOMPARE(run.status, 2);
        QVERIFY2(run.errors.contains(QStringLiteral("a.toml: cannot be written")),
                 qPrintable(run.errors));
        QCOMPARE(machine.content("a.toml"), QByteArray("the old one\n"));
        QCOMPARE(
            QDir(machine.folder.path()).entryList({QStringLiteral("*.toml*")}, QDir::Files).size(),
            1);
    }

    void aProfileThatCannotBePlacedIsTold_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("told");
        const QString failed = QStringLiteral("cannot be written (");
        const QString other = QStringLiteral("is no file\n");
        QTest::newRow("missing folder") << QStringLiteral("none/a.toml") << failed;
        QTest::newRow("folder") << QStringLiteral("there") << other;
        QTest::newRow("device") << QStringLiteral("/dev/null") << other;
        QTest::newRow("link to itself") << QStringLiteral("loop.toml") << failed;
    }

    void aProfileThatCannotBePlacedIsTold()
    {
        QFETCH(QString, file);
        QFETCH(QString, told);
        Machine machine;
        QVERIFY(QFile::link(QStringLiteral("loop.toml"), machine.path("loop.toml")));
        QDir(machine.folder.path()).mkdir(QStringLiteral("there"));
        const Run run = machine.run({QStringLiteral("ttyUSB0"), QStringLiteral("save"), file});
        QCOMPARE(run.status, 2);
        QVERIFY2(run.errors.startsWith(QStringLiteral("tavrelctl: ") + file + QStringLiteral(": ") +
                                       told),
                 qPrintable(run.errors));
        QVERIFY(QFileInfo(machine.path("loop.toml")).isSymLink());
    }

    void aLinkLeadsToTheProfile()
    {
        Machine machine;
        QVERIFY(QFile::link(QStringLiteral("a.toml"), machine.path("link.toml")));
        QCOMPARE(machine.run("ttyUSB0 save link.toml").status, 0);
        QVERIFY(QFileInfo(machine.path("link.toml")).isSymLink());
        QVERIFY(machine.content("a.toml").startsWith("# Settings"));
    }

    void aCameraThatGoesWhileItIsReadLeavesTheOldProfile()
    {
        Machine machine;
        machine.write("a.toml", "the old one\n");
        machine.plan("[getClhe]\nhangUp=true\n");
        QCOMPARE(machine.run("ttyUSB0 save a.toml").status, 3);
        QCOMPARE(machine.content("a.toml"), QByteArray("the old one\n"));
    }

    void whatCannotBeReadIsLeftOutAndTold()
    {
        Machine machine;
        machine.plan("[getAhcGainsLimitation]\ncalls=always\n");
        const Run run = machine.run("ttyUSB0 save a.toml");
        QCOMPARE(run.status, 1);
        QVERIFY(run.errors.contains(QStringLiteral("ahc-black-gain-limit is not readable")));
        QVERIFY(!machine.content("a.toml").contains("ahc"));
        QCOMPARE(machine.run("ttyUSB0 diff a.toml").status, 0);
    }

    void aValueThatTheToolWouldNotTakeIsSavedWithANote()
    {
        Machine machine;
        machine.settings("[camera]\nclhe=40000\n");
        const Run run = machine.run("ttyUSB0 save a.toml");
        QCOMPARE(run.status, 0);
        QVERIFY2(
            run.errors.contains(QStringLiteral("clhe = 40000 is saved, but cannot be applied")),
            qPrintable(run.errors));
    }
};

QTEST_GUILESS_MAIN(TestProfiles)
#include "tst_ctl_profiles.moc"
