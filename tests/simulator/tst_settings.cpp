// SPDX-License-Identifier: MIT
// The settings file: every key reaches the program, every mistake is told and harmless.
#include "tests/simulator/keys.h"
#include "tests/simulator/table.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QRegularExpression>
#include <QtCore/QSet>
#include <QtTest/QTest>

using ombrix_sdk::ICamera;
using scene::ini;
using scene::Scene;

namespace {

/// Every key of a camera and of the configuration that holds a number.
constexpr const char* listedKeys[] = {
#define PARAMETER(key, kind, initial, lowest, highest, retention) #key,
#include "simulator/parameters.def"
#define KEY(setting, key, kind, initial) #key,
#define MEMBER(key, initial, saved) #key,
#include "simulator/configuration.def"
};

const QString single =
    QStringLiteral("a number from -3.4028234663852886e+38 to 3.4028234663852886e+38");

QStringList keysOfACamera()
{
    return {
#define PARAMETER(key, kind, initial, lowest, highest, retention) QStringLiteral(#key),
#include "simulator/parameters.def"
        QStringLiteral("ports"), QStringLiteral("badPixels"), QStringLiteral("tableFile")};
}

QString unknownKey(const QString& key)
{
    return QStringLiteral("[camera] %1: unknown key; there are %2; the line is not used")
        .arg(key, keysOfACamera().join(QStringLiteral(", ")));
}

QByteArray line(const char* section, const char* key, const QByteArray& value)
{
    return QByteArray("[") + section + "]\n" + key + '=' + value + '\n';
}

QString projectFile(const char* name)
{
    return QStringLiteral(TAVREL_SOURCE_DIR "/") + QLatin1String(name);
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class TestSettings : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyKeyThatHoldsANumberIsTried()
    {
        const QSet<QString> tried = everyKey();
        for (const char* const key : listedKeys) {
            QVERIFY2(tried.contains(QLatin1String(key)), key);
        }
    }

    void aKeyReachesTheProgram_data() { keyRows(); }

    void aKeyReachesTheProgram()
    {
        QFETCH(QByteArray, section);
        QFETCH(int, row);
        const keys::Key key = keyOf(section, row);
        Scene scene;
        const QString builtIn = key.read(scene);
        QVERIFY(builtIn != QLatin1String(key.seen));
        scene.restart(line(section.constData(), key.name, key.text));
        QCOMPARE(key.read(scene), QLatin1String(key.seen));
        QCOMPARE(scene.newProblems(), QStringList());
    }

    void aValueOfTheWrongKindIsToldAndTheBuiltInOneUsed_data() { keyRows(); }

    void aValueOfTheWrongKindIsToldAndTheBuiltInOneUsed()
    {
        QFETCH(QByteArray, section);
        QFETCH(int, row);
        const keys::Key key = keyOf(section, row);
        Scene scene;
        const QString builtIn = key.read(scene);
        scene.restart(line(section.constData(), key.name, "much"));
        QCOMPARE(key.read(scene), builtIn);
        const QStringList log = scene.newProblems();
        QCOMPARE(log.size(), 1);
        const QString begin = QStringLiteral("problem  %1:2: [%2] %3: \"much\" is not ")
                                  .arg(scene.path(QStringLiteral("simulator.ini")),
                                       QLatin1String(section), QLatin1String(key.name));
        QVERIFY2(log.at(0).startsWith(begin), qPrintable(log.at(0)));
        QVERIFY2(log.at(0).endsWith(QStringLiteral(" is used")), qPrintable(log.at(0)));
    }

    void aNumberOutsideItsKindIsToldAndTheBuiltInOneUsed_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QString>("message");
        QTest::newRow("byte too large")
            << QByteArray("frameRate=256")
            << QStringLiteral(
                   "[camera] frameRate: \"256\" is not a whole number from 0 to 255; 60 is used");
        QTest::newRow("byte negative")
            << QByteArray("frameRate=-1")
            << QStringLiteral(
                   "[camera] frameRate: \"-1\" is not a whole number from 0 to 255; 60 is used");
        QTest::newRow("not whole")
            << QByteArray("frameRate=9.5")
            << QStringLiteral(
                   "[camera] frameRate: \"9.5\" is not a whole number from 0 to 255; 60 is used");
        QTest::newRow("empty")
            << QByteArray("frameRate=")
            << QStringLiteral(
                   "[camera] frameRate: \"\" is not a whole number from 0 to 255; 60 is used");
        QTest::newRow("word too large")
            << QByteArray("gsk=4294967296")
            << QStringLiteral("[camera] gsk: \"4294967296\" is not a whole number from 0 to "
                              "4294967295; 6 is used");
        QTest::newRow("far too large")
            << QByteArray("gsk=99999999999999999999999")
            << QStringLiteral(
                   "[camera] gsk: \"99999999999999999999999\" is not a whole number from 0 "
                   "to 4294967295; 6 is used");
        QTest::newRow("switch")
            << QByteArray("mipi=256")
            << QStringLiteral(
                   "[camera] mipi: \"256\" is not true, false or a whole number from 0 to "
                   "255; true is used");
        QTest::newRow("version")
            << QByteArray("fpgaVersion=1.16.0")
            << QStringLiteral(
                   "[camera] fpgaVersion: \"1.16.0\" is not a version such as 1.2.3, each "
                   "part from 0 to 15; 2.0.7 is used");
        QTest::newRow("version of two parts")
            << QByteArray("fpgaVersion=1.2")
            << QStringLiteral(
                   "[camera] fpgaVersion: \"1.2\" is not a version such as 1.2.3, each part "
                   "from 0 to 15; 2.0.7 is used");
        QTest::newRow("fixed point")
            << QByteArray("gamma=65536")
            << QStringLiteral(
                   "[camera] gamma: \"65536\" is not a number from 0 to 65535.99998; 1 is used");
        QTest::newRow("no number at all")
            << QByteArray("zoomFactor=nan")
            << QStringLiteral("[camera] zoomFactor: \"nan\" is not %1; 1 is used").arg(single);
        QTest::newRow("infinite")
            << QByteArray("zoomFactor=inf")
            << QStringLiteral("[camera] zoomFactor: \"inf\" is not %1; 1 is used").arg(single);
        QTest::newRow("beyond single precision")
            << QByteArray("zoomFactor=1e39")
            << QStringLiteral("[camera] zoomFactor: \"1e39\" is not %1; 1 is used").arg(single);
        QTest::newRow("a list")
            << QByteArray("gsk=1,2")
            << QStringLiteral(
                   "[camera] gsk: \"1,2\" is not a whole number from 0 to 4294967295; 6 is used");
    }

    void aNumberOutsideItsKindIsToldAndTheBuiltInOneUsed()
    {
        QFETCH(QByteArray, text);
        QFETCH(QString, message);
        Scene scene("[camera]\n" + text + '\n');
        scene.camera();
        const QStringList log = scene.newProblems();
        QCOMPARE(log.size(), 1);
        QVERIFY2(log.at(0).endsWith(QStringLiteral("simulator.ini:2: ") + message),
                 qPrintable(log.at(0)));
    }

    void aKeyThatMeansNothingIsTold_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QString>("message");
        QTest::newRow("in [simulator]")
            << QByteArray("[simulator]\nspeed=1")
            << QStringLiteral("2: [simulator] speed: unknown key; there are log, journal, plan, "
                              "memory, control, factoryFresh, safe, seed, manualClock, warmUp, "
                              "latency, timeout, nucDuration; the line is not used");
        QTest::newRow("in [configuration]")
            << QByteArray("[configuration]\ndefaultGamma=1")
            << QStringLiteral("2: [configuration] defaultGamma: unknown key; there are "
                              "communicationType, baudRate, defaultRoi0IncX1, ");
        QTest::newRow("of a camera") << QByteArray("[camera]\ngama=1")
                                     << QStringLiteral("2: ") + unknownKey(QStringLiteral("gama"));
        QTest::newRow("another section")
            << QByteArray("[kamera]\ngamma=1\ngsk=1")
            << QStringLiteral("1: [kamera]: unknown section; there are [simulator], "
                              "[configuration] and [camera...]");
    }

    void aKeyThatMeansNothingIsTold()
    {
        QFETCH(QByteArray, text);
        QFETCH(QString, message);
        Scene scene(text + '\n');
        scene.camera();
        const QStringList log = scene.newProblems();
        QCOMPARE(log.size(), 1);
        QVERIFY2(log.at(0).contains(QStringLiteral("simulator.ini:") + message),
                 qPrintable(log.at(0)));
    }

    void aLineThatIsNoneIsToldByItsNumber_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QStringList>("told"); // by "number: message"
        const auto row = [](const char* name, const QByteArray& text, const QStringList& told) {
            QTest::newRow(name) << text << told;
        };
        row("no line of an INI file", "[camera]\nthis is none\ngamma=2.2\n",
            {QStringLiteral("2: [camera]: \"this is none\" is neither [section] nor key=value; the "
                            "line is not used")});
        row("a value without a key", "[camera]\n=1\ngamma=2.2\n",
            {QStringLiteral(
                "2: [camera]: \"=1\" is neither [section] nor key=value; the line is not used")});
        row("a long one", "[camera]\n" + QByteArray(1000, 'x') + "\ngamma=2.2\n",
            {QStringLiteral(
                 "2: [camera]: \"%1...\" is neither [section] nor key=value; the line is not used")
                 .arg(QString(60, QLatin1Char('x')))});
        row("a byte order mark", "\xEF\xBB\xBF[camera]\ngamma=2.2\n",
            {QStringLiteral("1: the file begins with a byte order mark, which is skipped")});
        row("three byte order marks", "\xEF\xBB\xBF\xEF\xBB\xBF\xEF\xBB\xBF[camera]\ngamma=2.2\n",
            {QStringLiteral("1: the file begins with a byte order mark, which is skipped")});
        row("a byte order mark and more", "\xEF\xBB\xBFgsk=1\n[camera]\ngamma=2.2\n",
            {QStringLiteral("1: the file begins with a byte order mark, which is skipped")});
        row("a comment of another kind", "[camera]\n# gamma\ngamma=2.2\n// gamma=1\n",
            {QStringLiteral("2: [camera]: \"# gamma\": a comment begins with a semicolon; the line "
                            "is not used"),
             QStringLiteral("4: [camera]: \"// gamma=1\": a comment begins with a semicolon; the "
                            "line is not used")});
        row("control characters", QByteArray("[camera]\ngsk=\0001\ngamma=2.2\n\x1B[0m\n", 30),
            {QStringLiteral("2: [camera]: control character 0x00; the line is not used"),
             QStringLiteral("4: [camera]: control character 0x1b; the line is not used")});
        row("no UTF-8", "[camera]\nports=\xFF\ngamma=2.2\n",
            {QStringLiteral("2: [camera]: no text in UTF-8; the line is not used")});
        row("a control character of another kind", "[camera]\ngsk=\xC2\x9B\ngamma=2.2\n",
            {QStringLiteral("2: [camera]: control character 0x9b; the line is not used")});
        row("a byte order mark further on", "[camera]\n\xEF\xBB\xBFgsk=1\ngamma=2.2\n",
            {QStringLiteral("2: [camera]: a byte order mark; the line is not used")});
        row("quotation marks", "[camera]\ngsk=\"1\"\ngamma=2.2\n",
            {QStringLiteral("2: [camera] gsk: \"\"1\"\": a value stands without quotation marks; "
                            "the line is not used")});
        row("a comment behind a value", "[camera]\nports=ttyS1 ; the second\ngamma=2.2\n",
            {QStringLiteral("2: [camera] ports: \"ttyS1 ; the second\": a comment stands on a line "
                            "of its own; the line is not used")});
        row("a long key", "[camera]\n" + QByteArray(1000, 'k') + "=1\ngamma=2.2\n",
            {QStringLiteral("2: ") +
             unknownKey(QString(60, QLatin1Char('k')) + QStringLiteral("..."))});
        row("a camera on no port", "[camera]\ngamma=2.2\n[camera 2]\nserialNumber=2\nports=,\n",
            {QStringLiteral("5: [camera 2] ports: \",\" names no port; the camera is on none")});
        row("what was to be a section", "[camera]\ngamma=2.2\ncamera2]\ngsk=no\n[simulator]\n",
            {QStringLiteral(
                "3: [camera]: \"camera2]\" is neither [section] nor key=value; the line "
                "is not used")});
        row("a key before every section", "gamma=1\n[camera]\ngamma=2.2\n",
            {QStringLiteral("1: \"gamma\" stands before the first [section]; it is not used")});
        row("a key twice", "[camera]\ngamma=2.2\ngamma=1\n",
            {QStringLiteral("3: [camera] gamma: stands in line 2 already; the line is not used")});
        row("a section twice", "[camera]\ngamma=2.2\n[camera]\ngamma=1\ngama=1\n",
            {QStringLiteral("3: [camera] stands in line 1 already; what follows up to the next "
                            "section is not used")});
        row("a section that does not end", "[camera]\ngamma=2.2\n[simulator\ngsk=1\n",
            {QStringLiteral("3: \"[simulator\" is no [section]; what follows up to the next is "
                            "not used")});
        row("a section that cannot be read", "[camera]\ngamma=2.2\n[camera\x01]\ngsk=1\ngamma=1\n",
            {QStringLiteral("3: control character 0x01; the line is not used")});
        row("a section that neither can be read nor ends", "[camera]\ngamma=2.2\n[\x01\ngsk=no\n",
            {QStringLiteral("3: control character 0x01; the line is not used")});
        row("several, by their lines", "[camera]\ngama=1\ngamma=2.2\n[kamera]\n???\ngsk=no\n",
            {QStringLiteral("2: ") + unknownKey(QStringLiteral("gama")),
             QStringLiteral("4: [kamera]: unknown section; there are [simulator], [configuration] "
                            "and [camera...]"),
             QStringLiteral(
                 "5: [kamera]: \"???\" is neither [section] nor key=value; the line is not used")});
    }

    void aLineThatIsNoneIsToldByItsNumber()
    {
        QFETCH(QByteArray, text);
        QFETCH(QStringList, told);
        Scene scene(text);
        for (QString& message : told) {
            message = QStringLiteral("problem  %1:%2")
                          .arg(scene.path(QStringLiteral("simulator.ini")), message);
        }
        QCOMPARE(scene.camera().getGamma(), 144179U);
        QCOMPARE(scene.newProblems(), told);
    }

    void linesOfTheOtherSystemAreUnderstood()
    {
        Scene scene("[camera]\r\n; comment\r\n\r\n\tgamma = 2.2 \r\n");
        QCOMPARE(scene.camera().getGamma(), 144179U);
        QCOMPARE(scene.newProblems(), QStringList());
    }

    void aFileWithoutAnEndIsToldAndNotRead()
    {
        Scene scene;
        scene.write(QStringLiteral("long.ini"),
                    "[camera]\ngamma=2.2\n" + QByteArray(1'000'000, '\n'));
        Scene::setVariable("TAVREL_SIMULATOR_SETTINGS", QStringLiteral("long.ini"));
        scene.restart();
        QCOMPARE(scene.camera().getGamma(), 65536U);
        QCOMPARE(scene.newProblems(),
                 QStringList(QStringLiteral("problem  %1: it is longer than 1000000 bytes; nothing "
                                            "of it is used")
                                 .arg(scene.path(QStringLiteral("long.ini")))));
    }

    void aMinimumAboveItsMaximumIsToldAndTheBuiltInOnesUsed()
    {
        Scene scene(ini(
            {"[configuration]", "gskMin=30", "gskMax=10", "tintMax=-1", "gmsMin=50", "gmsMax=50"}));
        const ombrix_sdk::ISdkConfiguration& limits = scene.configuration();
        QCOMPARE(limits.gskMin, 0);
        QCOMPARE(limits.gskMax, 20);
        QCOMPARE(limits.tintMin, 0);
        QCOMPARE(limits.tintMax, 100);
        QCOMPARE(limits.gmsMin, 50);
        const QString file = scene.path(QStringLiteral("simulator.ini"));
        QCOMPARE(scene.newProblems(),
                 QStringList({QStringLiteral("problem  %1:2: [configuration] gskMin: gskMin=30 is "
                                             "above gskMax=10; 0 and 20 are used")
                                  .arg(file),
                              QStringLiteral("problem  %1:3: [configuration] gskMax: gskMin=30 is "
                                             "above gskMax=10; 0 and 20 are used")
                                  .arg(file),
                              QStringLiteral("problem  %1:4: [configuration] tintMax: tintMin=0 is "
                                             "above tintMax=-1; 0 and 100 are used")
                                  .arg(file)}));
    }

    void aPortIsThatOfTheFirstCameraThatNamesIt_data()
    {
        QTest::addColumn<QByteArray>("ports");
        QTest::newRow("by its name") << QByteArray("ports=ttyUSB0");
        QTest::newRow("as every port") << QByteArray("ports=*");
    }

    void aPortIsThatOfTheFirstCameraThatNamesIt()
    {
        QFETCH(QByteArray, ports);
        Scene scene("[camera-z]\nserialNumber=1\n" + ports + "\n[camera-a]\nserialNumber=2\n" +
                    ports + "\n");
        scene.sdk().initialize();
        QVERIFY(!scene::linesOf(scene.read(QStringLiteral("sdk.log")))
                     .filter(QRegularExpression(QStringLiteral("serial number 2 on port $")))
                     .isEmpty());
        QCOMPARE(scene.camera("ttyUSB0").getSerialNumber(), 1U);
        const QString port = ports.endsWith('*') ? QStringLiteral("*") : QStringLiteral("ttyUSB0");
        QCOMPARE(
            scene.newProblems(),
            QStringList(QStringLiteral("problem  %1:6: [camera-a] ports: \"%2\" is the port of "
                                       "[camera-z]; this camera is not on it")
                            .arg(scene.path(QStringLiteral("simulator.ini")), port)));
    }

    void aFileOfRubbishIsSurvived()
    {
        QByteArray rubbish;
        for (int index = 0; index < 5000; ++index) {
            rubbish.append(static_cast<char>(index * index * 31 + index));
        }
        Scene scene(rubbish);
        QCOMPARE(scene.camera().getGamma(), 65536U);
        QVERIFY(!scene.newProblems().isEmpty());
    }

    void theVariableNamesAnotherFileThanTheOneInTheDirectory()
    {
        Scene scene("[camera]\ngsk=1\n");
        scene.write(QStringLiteral("other.ini"), "[camera]\ngsk=2\n");
        Scene::setVariable("TAVREL_SIMULATOR_SETTINGS", QStringLiteral("other.ini"));
        scene.restart();
        QCOMPARE(scene.camera().getGsk(), 2U);
    }

    void aFileThatIsNamedButMissingIsTold()
    {
        Scene scene;
        Scene::setVariable("TAVREL_SIMULATOR_SETTINGS", scene.path(QStringLiteral("other.ini")));
        scene.restart();
        QCOMPARE(scene.camera().getGsk(), 6U);
        QCOMPARE(
            scene.newProblems(),
            QStringList(QStringLiteral("problem  %1: there is no such file, or it cannot be read")
                            .arg(scene.path(QStringLiteral("other.ini")))));
    }

    void theLinkTypeIsATextOfItsOwn()
    {
        Scene scene;
        QCOMPARE(scene.configuration().getCommunicationType(), "UART");
        scene.restart("[configuration]\ncommunicationType=USB 3\n");
        QCOMPARE(scene.configuration().getCommunicationType(), "USB 3");
    }

    // ---- several cameras

    void eachCameraAnswersOnItsPorts()
    {
        Scene scene(ini({"[camera-a]", "ports=ttyUSB0, COM3", "serialNumber=1", "[camera-b]",
                         "ports=ttyUSB1", "serialNumber=2"}));
        QCOMPARE(scene.camera("ttyUSB0").getSerialNumber(), 1U);
        QCOMPARE(scene.camera("COM3").getSerialNumber(), 1U);
        QCOMPARE(scene.camera("ttyUSB1").getSerialNumber(), 2U);
        QVERIFY(scene.open("ttyUSB2") == nullptr);
        QVERIFY(scene.open("") == nullptr);
    }

    void aCameraForEveryPortLeavesThePortsOfOthersToThem()
    {
        Scene scene(ini({"[camera-a]", "ports=*", "serialNumber=1", "[camera-b]", "ports=ttyUSB1",
                         "serialNumber=2"}));
        QCOMPARE(scene.camera("ttyUSB0").getSerialNumber(), 1U);
        QCOMPARE(scene.camera("ttyUSB1").getSerialNumber(), 2U);
    }

    void twoCamerasKeepTheirValuesApart()
    {
        Scene scene(ini({"[camera-a]", "ports=ttyUSB0", "serialNumber=1", "[camera-b]",
                         "ports=ttyUSB1", "serialNumber=2"}));
        ICamera& first = scene.camera("ttyUSB0");
        ICamera& second = scene.camera("ttyUSB1");
        first.setGsk(11);
        QCOMPARE(second.getGsk(), 6U);
        QCOMPARE(first.getGsk(), 11U);
    }

    void aSecondCameraWithTheSameSerialNumberIsLeftOut()
    {
        Scene scene(ini({"[camera-a]", "ports=ttyUSB0", "[camera-b]", "ports=ttyUSB1"}));
        QVERIFY(scene.open("ttyUSB0") != nullptr);
        QVERIFY(scene.open("ttyUSB1") == nullptr);
        QVERIFY(scene.newProblems().value(0).endsWith(QStringLiteral(
            ":3: [camera-b] serialNumber: 20417 is the number of [camera-a]; this camera is "
            "left out")));
    }

    void aCameraThatGetsNoSerialNumberOfItsOwnIsLeftOut()
    {
        Scene scene(ini(
            {"[camera-a]", "ports=ttyUSB0", "[camera-b]", "ports=ttyUSB1", "serialNumber=abc"}));
        QVERIFY(scene.open("ttyUSB1") == nullptr);
        QCOMPARE(scene.newProblems().size(), 1);
        QVERIFY(
            scene.read(QStringLiteral("sdk.log"))
                .contains(":5: [camera-b] serialNumber: \"abc\" is not a whole number from 0 to "
                          "4294967295; 20417 is the number of [camera-a]; this camera is left "
                          "out"));
    }

    void aFileThatCannotBeReadToItsEndIsTold()
    {
        Scene scene;
        Scene::setVariable("TAVREL_SIMULATOR_SETTINGS", QStringLiteral("/proc/self/mem"));
        scene.restart();
        QCOMPARE(scene.newProblems().size(), 1);
        QVERIFY(
            scene.read(QStringLiteral("sdk.log")).contains("/proc/self/mem: it cannot be read: "));
    }

    void aNineHertzCameraRunsAtNineHertzOnly()
    {
        Scene scene("[camera]\nnineHertz=true\nframeRate=9\n");
        ICamera& camera = scene.camera();
        QCOMPARE(camera.setFrameRate(25), ombrix_sdk::Flag{0});
        QCOMPARE(camera.setFrameRate(60), ombrix_sdk::Flag{0});
        QCOMPARE(camera.setFrameRate(9), ombrix_sdk::Flag{1});
        QCOMPARE(camera.getFrameRate(), std::uint8_t{9});
    }

    void aCameraWithoutMipiHasNoMipiOutput()
    {
        Scene scene("[camera]\nmipi=false\n");
        ICamera& camera = scene.camera();
        QCOMPARE(camera.setMipiOutput(true), ombrix_sdk::Flag{0});
        QCOMPARE(camera.getMipiOutput(), ombrix_sdk::Flag{0});
        QCOMPARE(camera.setMipiOutput(false), ombrix_sdk::Flag{1});
    }

    // ---- the table

    void theListOfBadPixelsBecomesTheTable()
    {
        Scene scene("[camera]\nbadPixels=639:479 0:0,5:1\n");
        QCOMPARE(tableOf(scene).pixels, QVector<int>({0, 645, 307199}));
        scene.restart("[camera]\nbadPixels=\n");
        QCOMPARE(tableOf(scene).count, 0);
        scene.restart("[camera]\nbadPixels=7:0\n");
        QCOMPARE(tableOf(scene).pixels, QVector<int>{7});
        QCOMPARE(scene.newProblems(), QStringList());
    }

    void aListThatIsWrongIsToldAndTheFactorysUsed_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QString>("reason");
        QTest::newRow("beyond") << QByteArray("640:0")
                                << QStringLiteral("\"640:0\" is no pixel x:y of 640 x 480");
        QTest::newRow("below") << QByteArray("0:480")
                               << QStringLiteral("\"0:480\" is no pixel x:y of 640 x 480");
        QTest::newRow("no pair") << QByteArray("5")
                                 << QStringLiteral("\"5\" is no pixel x:y of 640 x 480");
        QTest::newRow("three") << QByteArray("5:6:7")
                               << QStringLiteral("\"5:6:7\" is no pixel x:y of 640 x 480");
        QTest::newRow("no numbers")
            << QByteArray("a:b") << QStringLiteral("\"a:b\" is no pixel x:y of 640 x 480");
        QByteArray many;
        for (int index = 0; index < 1025; ++index) {
            many += QByteArray::number(index % 640) + ':' + QByteArray::number(index / 640) + ' ';
        }
        QTest::newRow("too many") << many
                                  << QStringLiteral("1025 bad pixels, and 1024 are the most");
    }

    void aListThatIsWrongIsToldAndTheFactorysUsed()
    {
        QFETCH(QByteArray, text);
        QFETCH(QString, reason);
        Scene scene("[camera]\nbadPixels=" + text + '\n');
        QCOMPARE(tableOf(scene).count, 37);
        const QStringList log = scene.newProblems();
        QCOMPARE(log.size(), 1);
        QVERIFY2(log.at(0).endsWith(QStringLiteral("[camera] badPixels: ") + reason +
                                    QStringLiteral("; the factory's bad pixels are used")),
                 qPrintable(log.at(0)));
    }

    void aTableFileIsTheRegionByteForByte()
    {
        const QByteArray region(scene::regionSize, '\x5A');
        Scene scene;
        scene.write(QStringLiteral("region.bin"), region);
        scene.restart("[camera]\ntableFile=region.bin\n");
        QByteArray readBack(scene::regionSize, '\0');
        scene.camera().readTableData(4096, 8192, 9, readBack.data());
        QCOMPARE(readBack, region);
    }

    void aTableFileOfAnotherSizeIsToldAndTheFactorysUsed_data()
    {
        QTest::addColumn<int>("size");
        QTest::addColumn<QString>("reason");
        QTest::newRow("short") << scene::regionSize - 1
                               << QStringLiteral("it does not hold 8192 bytes");
        QTest::newRow("long") << scene::regionSize + 1
                              << QStringLiteral("it does not hold 8192 bytes");
        QTest::newRow("missing") << -1 << QString();
    }

    void aTableFileOfAnotherSizeIsToldAndTheFactorysUsed()
    {
        QFETCH(int, size);
        QFETCH(QString, reason);
        Scene scene;
        if (size >= 0) {
            scene.write(QStringLiteral("region.bin"), QByteArray(size, '\x5A'));
        }
        scene.restart("[camera]\ntableFile=region.bin\n");
        QCOMPARE(tableOf(scene).count, 37);
        const QString told = scene.newProblems().value(0);
        QVERIFY2(told.contains(
                     QStringLiteral("[camera] tableFile: \"region.bin\" is no table region: ")),
                 qPrintable(told));
        QVERIFY2(told.contains(reason), qPrintable(told));
        QVERIFY2(told.endsWith(QStringLiteral("; the factory's bad pixels are used")),
                 qPrintable(told));
    }

    // ---- baud rates

    void aCameraAtAnotherRateThanTheLinksDoesNotAnswer()
    {
        Scene scene("[camera]\nbaudRate=9600\n");
        QVERIFY(scene.open() == nullptr);
        scene.configuration().setBaudRate(9600);
        QCOMPARE(scene.configuration().getDefaultBaudRate(), 9600);
        QVERIFY(scene.open() != nullptr);
    }

    void theRateCountsWhenTheLinkIsMade()
    {
        Scene scene;
        ombrix_sdk::ISerialLink* const early = scene.sdk().createSerialLink();
        scene.configuration().setBaudRate(9600);
        QVERIFY(early->openCamera("ttyUSB0") != nullptr);
        QVERIFY(scene.sdk().createSerialLink()->openCamera("ttyUSB0") == nullptr);
    }

    void aCameraThatChangedItsRateIsNoLongerHeardOnTheOldLink()
    {
        Scene scene;
        ICamera& camera = scene.camera();
        QCOMPARE(camera.setBaudRate(9600, false), ombrix_sdk::Flag{1});
        QCOMPARE(camera.getGamma(), 0U);
        QCOMPARE(camera.setGamma(65536), ombrix_sdk::Flag{0});
        ombrix_sdk::Temperatures temperatures{};
        QCOMPARE(camera.getTemperatures(&temperatures), ombrix_sdk::Flag{0});
        QVERIFY(scene.open() == nullptr);
        scene.configuration().setBaudRate(9600);
        QCOMPARE(scene.camera().getGamma(), 65536U);
    }

    void theRatesOfTheListAreTakenAndNoOthers()
    {
        for (const quint32 rate : {9600U, 115200U, 230400U, 460800U, 921600U}) {
            Scene scene;
            QCOMPARE(scene.camera().setBaudRate(rate, true), ombrix_sdk::Flag{1});
        }
        for (const quint32 rate : {0U, 57600U, 0xFFFFFFFFU}) {
            Scene scene;
            ICamera& camera = scene.camera();
            QCOMPARE(camera.setBaudRate(rate, true), ombrix_sdk::Flag{0});
            QCOMPARE(camera.getGamma(), 65536U);
        }
    }

    // ---- the example

    void theExampleHoldsEveryKeyWithItsBuiltInValue()
    {
        const QString example = projectFile("simulator/simulator.example.ini");
        Scene scene;
        QVector<QString> builtIn;
        const QVector<keys::Key> all = keys::ofCamera() + keys::ofConfiguration();
        for (const keys::Key& key : all) {
            builtIn.append(key.read(scene));
            scene.restart();
        }
        const QByteArray factory = region(scene);
        scene.newProblems();
        Scene::setVariable("TAVREL_SIMULATOR_SETTINGS", example);
        scene.restart();
        QCOMPARE(region(scene), factory);
        for (int row = 0; row < all.size(); ++row) {
            QVERIFY2(all[row].read(scene) == builtIn[row], all[row].name);
            scene.restart();
        }
        QCOMPARE(scene.newProblems(), QStringList());

        QSet<QString> named;
        static const QRegularExpression line(QStringLiteral("^;?(\\w+)=(.*)$"),
                                             QRegularExpression::MultilineOption);
        auto match = line.globalMatch(QString::fromUtf8(contentOf(example)));
        while (match.hasNext()) {
            named.insert(match.next().captured(1));
        }
        const QSet<QString> keys = everyKey();
        for (const QString& key : keys) {
            QVERIFY2(named.contains(key), qPrintable(key + QStringLiteral(" is missing")));
        }
        QCOMPARE(named, keys);
    }

    void theGuideExplainsEveryKeyPlanAndVariable()
    {
        // What is only on or off needs no words beyond those of its operations.
        const QString guide =
            QString::fromUtf8(contentOf(projectFile("docs/simulator.md")) +
                              contentOf(projectFile("docs/simulator-reference.md")));
        QStringList words = everyKey().values();
        words << QStringLiteral("TAVREL_SIMULATOR_SETTINGS")
              << QStringLiteral("TAVREL_SIMULATOR_LOG")
              << QStringLiteral("TAVREL_SIMULATOR_JOURNAL")
              << QStringLiteral("TAVREL_SIMULATOR_PLAN")
              << QStringLiteral("TAVREL_SIMULATOR_MEMORY")
              << QStringLiteral("TAVREL_SIMULATOR_CONTROL")
              << QStringLiteral("TAVREL_SIMULATOR_FACTORY_FRESH")
              << QStringLiteral("TAVREL_SIMULATOR_STRICT")
              << QStringLiteral("TAVREL_SIMULATOR_SAFE") << QStringLiteral("camera")
              << QStringLiteral("port") << QStringLiteral("where") << QStringLiteral("record")
              << QStringLiteral("table") << QStringLiteral("lost") << QStringLiteral("calls")
              << QStringLiteral("probability") << QStringLiteral("value") << QStringLiteral("delay")
              << QStringLiteral("carryOut") << QStringLiteral("hangUp") << QStringLiteral("cycles");
        for (const QFileInfo& plan :
             QDir(projectFile("simulator/plans")).entryInfoList(QDir::Files)) {
            words << plan.fileName();
        }
        for (const QString& word : words) {
            QVERIFY2(guide.contains(QLatin1Char('`') + word + QLatin1Char('`')), qPrintable(word));
        }
    }

private:
    static void keyRows()
    {
        QTest::addColumn<QByteArray>("section");
        QTest::addColumn<int>("row");
        for (const QByteArray section : {"camera", "configuration"}) {
            const QVector<keys::Key> all = keysOf(section);
            for (int row = 0; row < all.size(); ++row) {
                QTest::newRow((section + '/' + all[row].name).constData()) << section << row;
            }
        }
    }

    static QVector<keys::Key> keysOf(const QByteArray& section)
    {
        return section == "camera" ? keys::ofCamera() : keys::ofConfiguration();
    }

    static keys::Key keyOf(const QByteArray& section, int row) { return keysOf(section).at(row); }

    static QSet<QString> everyKey()
    {
        QSet<QString> names;
        for (const keys::Key& key : keys::ofCamera() + keys::ofConfiguration()) {
            names.insert(QLatin1String(key.name));
        }
        for (const QString& name : keys::others()) {
            names.insert(name);
        }
        return names;
    }

    static QByteArray region(Scene& scene)
    {
        QByteArray bytes(scene::regionSize, '\0');
        scene.camera().readTableData(4096, 8192, 9, bytes.data());
        return bytes;
    }

    static table::Reading tableOf(Scene& scene) { return table::read(region(scene)); }
};

QTEST_GUILESS_MAIN(TestSettings)
#include "tst_settings.moc"
