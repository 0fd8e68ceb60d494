// SPDX-License-Identifier: MIT
// Bad pixels: edits of the map file, the treatment into a table, and tables that come back from the
// camera as they were sent.
#include "tests/simulator/scene.h"
#include "tests/simulator/table.h"

#include <QtCore/QDir>
#include <QtCore/QRandomGenerator>
#include <QtTest/QTest>

#include <algorithm>
#include <random>

using ombrix_sdk::Flag;
using ombrix_sdk::ICamera;
using scene::Scene;

namespace {

constexpr quint32 all = 0xFFFFFFFF;
const QString mapName = QStringLiteral("map.bin");
const QString tableName = QStringLiteral("replbp.bin");

QVector<int> sequence(int first, int step, int length)
{
    QVector<int> pixels;
    for (int number = 0; number < length; ++number) {
        pixels.append(first + number * step);
    }
    return pixels;
}

/// Number of different pixels at random places, ascending.
QVector<int> randomPixels(std::mt19937& random, int number)
{
    QVector<int> places = sequence(0, 1, scene::mapSize);
    for (int index = 0; index < number; ++index) {
        const auto rest = static_cast<unsigned>(places.size() - index);
        std::swap(places[index], places[index + static_cast<int>(random() % rest)]);
    }
    places.resize(number);
    std::sort(places.begin(), places.end());
    return places;
}

} // namespace

class TestBadPixels : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theFactoryTableIsReadableAndBelievable()
    {
        Scene scene;
        const table::Reading reading = table::read(readRegion(scene.camera()));
        QVERIFY(!reading.stalls);
        QCOMPARE(reading.count, 37);
        QCOMPARE(reading.pixels.size(), 37);
        // At least one bad pixel has another right beside it.
        QVERIFY(std::adjacent_find(reading.pixels.begin(), reading.pixels.end(),
                                   [](int left, int right) { return right == left + 1; }) !=
                reading.pixels.end());
    }

    void theFactoryTableDependsOnTheSerialNumberAlone()
    {
        Scene scene;
        const QByteArray first = readRegion(scene.camera());
        scene.restart("[camera]\nserialNumber=20417\ngsk=3\n");
        QCOMPARE(readRegion(scene.camera()), first);
        scene.restart("[camera]\nserialNumber=20418\n");
        QVERIFY(readRegion(scene.camera()) != first);
    }

    // ---- edits

    void anEditMarksExactlyItsPixels_data()
    {
        QTest::addColumn<quint32>("x");
        QTest::addColumn<quint32>("y");
        QTest::addColumn<QVector<int>>("pixels");
        QTest::newRow("first pixel") << 0U << 0U << QVector<int>{0};
        QTest::newRow("pixel") << 12U << 34U << QVector<int>{34 * 640 + 12};
        QTest::newRow("last pixel") << 639U << 479U << QVector<int>{307199};
        QTest::newRow("first line") << all << 0U << sequence(0, 1, 640);
        QTest::newRow("last line") << all << 479U << sequence(479 * 640, 1, 640);
        QTest::newRow("first column") << 0U << all << sequence(0, 640, 480);
        QTest::newRow("last column") << 639U << all << sequence(639, 640, 480);
    }

    void anEditMarksExactlyItsPixels()
    {
        QFETCH(quint32, x);
        QFETCH(quint32, y);
        QFETCH(QVector<int>, pixels);
        Scene scene;
        scene.write(mapName, table::mapOf({}));
        QCOMPARE(edit(scene, &ICamera::addBadPixels, x, y), Flag{1});
        QCOMPARE(scene.read(mapName), table::mapOf(pixels));
        QCOMPARE(edit(scene, &ICamera::removeBadPixels, x, y), Flag{1});
        QCOMPARE(scene.read(mapName), table::mapOf({}));
    }

    void anEditLeavesTheOtherPixelsAlone()
    {
        Scene scene;
        scene.write(mapName, table::mapOf({0, 639, 640, 307199}));
        QCOMPARE(edit(scene, &ICamera::addBadPixels, 1, 0), Flag{1});
        QCOMPARE(edit(scene, &ICamera::removeBadPixels, 639, 0), Flag{1});
        QCOMPARE(table::pixelsOf(scene.read(mapName)), QVector<int>({0, 1, 640, 307199}));
    }

    void declaringWhatIsDeclaredSucceeds()
    {
        Scene scene;
        scene.write(mapName, table::mapOf({5}));
        QCOMPARE(edit(scene, &ICamera::addBadPixels, 5, 0), Flag{1});
        QCOMPARE(table::pixelsOf(scene.read(mapName)), QVector<int>{5});
    }

    void undeclaringWhatIsNotDeclaredIsRefused_data()
    {
        QTest::addColumn<quint32>("x");
        QTest::addColumn<quint32>("y");
        QTest::newRow("pixel") << 6U << 0U;
        QTest::newRow("line") << all << 1U;
        QTest::newRow("column") << 6U << all;
    }

    void undeclaringWhatIsNotDeclaredIsRefused()
    {
        QFETCH(quint32, x);
        QFETCH(quint32, y);
        Scene scene;
        scene.write(mapName, table::mapOf({5}));
        QCOMPARE(edit(scene, &ICamera::removeBadPixels, x, y), Flag{0});
        QCOMPARE(table::pixelsOf(scene.read(mapName)), QVector<int>{5});
    }

    void undeclaringALineOfWhichOnePixelIsDeclaredSucceeds()
    {
        Scene scene;
        scene.write(mapName, table::mapOf({5, 700}));
        QCOMPARE(edit(scene, &ICamera::removeBadPixels, all, 0), Flag{1});
        QCOMPARE(table::pixelsOf(scene.read(mapName)), QVector<int>{700});
    }

    void coordinatesOutsideTheSensorAreRefused_data()
    {
        QTest::addColumn<quint32>("x");
        QTest::addColumn<quint32>("y");
        QTest::newRow("x") << 640U << 0U;
        QTest::newRow("y") << 0U << 480U;
        QTest::newRow("line") << all << 480U;
        QTest::newRow("column") << 640U << all;
        QTest::newRow("everything") << all << all;
        QTest::newRow("huge") << 0xFFFFFFFEU << 0U;
    }

    void coordinatesOutsideTheSensorAreRefused()
    {
        QFETCH(quint32, x);
        QFETCH(quint32, y);
        Scene scene;
        const QByteArray map = table::mapOf(sequence(0, 300, 1000));
        scene.write(mapName, map);
        QCOMPARE(edit(scene, &ICamera::addBadPixels, x, y), Flag{0});
        QCOMPARE(edit(scene, &ICamera::removeBadPixels, x, y), Flag{0});
        QCOMPARE(scene.read(mapName), map);
    }

    void thousandAndTwentyFourBadPixelsAreTheMostThatAnAddLeaves()
    {
        Scene scene;
        scene.write(mapName, table::mapOf(sequence(0, 2, 1023)));
        QCOMPARE(edit(scene, &ICamera::addBadPixels, 639, 479), Flag{1});
        const QByteArray full = scene.read(mapName);
        QCOMPARE(table::pixelsOf(full).size(), 1024);
        QCOMPARE(edit(scene, &ICamera::addBadPixels, 638, 479), Flag{0});
        QCOMPARE(edit(scene, &ICamera::addBadPixels, all, 200), Flag{0});
        QCOMPARE(scene.read(mapName), full);
        // What is declared already makes the map no fuller.
        QCOMPARE(edit(scene, &ICamera::addBadPixels, 639, 479), Flag{1});
    }

    void aMapThatIsTooFullCanBeEmptiedButNotFilled()
    {
        Scene scene;
        scene.write(mapName, table::mapOf(sequence(0, 1, 2000)));
        QCOMPARE(edit(scene, &ICamera::addBadPixels, 0, 0), Flag{0});
        QCOMPARE(edit(scene, &ICamera::removeBadPixels, all, 0), Flag{1});
        QCOMPARE(table::pixelsOf(scene.read(mapName)), sequence(640, 1, 1360));
    }

    void anUnusableMapIsRefusedAndLeftAlone_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("empty") << QByteArray("");
        QTest::newRow("short") << QByteArray(scene::mapSize - 1, '\0');
        QTest::newRow("long") << QByteArray(scene::mapSize + 1, '\0');
        QByteArray foreign(scene::mapSize, '\0');
        foreign[scene::mapSize - 1] = '\2';
        QTest::newRow("a foreign byte") << foreign;
        QTest::newRow("no map at all") << QByteArray(scene::mapSize, '\xFF');
    }

    void anUnusableMapIsRefusedAndLeftAlone()
    {
        QFETCH(QByteArray, content);
        Scene scene;
        scene.write(mapName, content);
        QCOMPARE(edit(scene, &ICamera::addBadPixels, 1, 1), Flag{0});
        QCOMPARE(edit(scene, &ICamera::removeBadPixels, 1, 1), Flag{0});
        QCOMPARE(scene.read(mapName), content);
        const QStringList log = scene.newLog();
        QCOMPARE(log.size(), 2);
        QVERIFY2(log.at(0).startsWith(QStringLiteral("notice   addBadPixels ")),
                 qPrintable(log.at(0)));
    }

    void aMissingMapIsRefusedAndNotMade()
    {
        Scene scene;
        QCOMPARE(edit(scene, &ICamera::addBadPixels, 1, 1), Flag{0});
        QCOMPARE(edit(scene, &ICamera::removeBadPixels, 1, 1), Flag{0});
        QVERIFY(!scene.exists(mapName));
    }

    void aFolderIsNoMap()
    {
        Scene scene;
        QVERIFY(QDir().mkdir(mapName));
        QCOMPARE(edit(scene, &ICamera::addBadPixels, 1, 1), Flag{0});
        QCOMPARE(edit(scene, &ICamera::removeBadPixels, 1, 1), Flag{0});
    }

    void anEditLeavesNoOtherFileBehind()
    {
        Scene scene;
        scene.write(mapName, table::mapOf({}));
        QDir().mkdir(QStringLiteral("folder"));
        scene.write(QStringLiteral("folder/map.bin"), table::mapOf({}));
        QCOMPARE(scene.camera().addBadPixels("folder/map.bin", 1, 1), Flag{1});
        QCOMPARE(QDir(QStringLiteral("folder")).entryList(QDir::Files | QDir::Hidden),
                 QStringList(mapName));
    }

    // ---- treatment

    void everyBadPixelGetsOneEntryAndOneRecordByAscendingIndex()
    {
        Scene scene;
        const QVector<int> pixels = {0, 5, 6, 641, 307199};
        scene.write(mapName, table::mapOf(pixels));
        std::vector<ombrix_sdk::ReplacementEntry> list(3);
        QCOMPARE(treat(scene, list), 5);
        QCOMPARE(scene.read(tableName).size(), 40);
        const table::Reading reading = table::read(table::asSent(scene.read(tableName)));
        QCOMPARE(reading.count, 5);
        QCOMPARE(reading.pixels, pixels);
        for (int number = 0; number < pixels.size(); ++number) {
            QCOMPARE(list[static_cast<std::size_t>(number)].word >> 43U,
                     static_cast<std::uint64_t>(pixels.at(number)));
        }
    }

    void aSingleBadPixelIsFollowedByARecordPastTheMap_data()
    {
        QTest::addColumn<int>("pixel");
        QTest::newRow("the very first") << 0;
        QTest::newRow("some") << 4711;
        QTest::newRow("the very last") << 307199;
    }

    void aSingleBadPixelIsFollowedByARecordPastTheMap()
    {
        QFETCH(int, pixel);
        Scene scene;
        scene.write(mapName, table::mapOf({pixel}));
        QCOMPARE(treat(scene), 1);
        QCOMPARE(scene.read(tableName).size(), 16);
        const table::Reading reading = table::read(table::asSent(scene.read(tableName)));
        QVERIFY(!reading.stalls);
        QCOMPARE(reading.count, 2);
        QCOMPARE(reading.pixels, QVector<int>{pixel});
    }

    void aMapWithoutBadPixelsGivesATableThatEndsAtOnce()
    {
        Scene scene;
        scene.write(mapName, table::mapOf({}));
        QCOMPARE(treat(scene), 0);
        QCOMPARE(scene.read(tableName).size(), 8);
        const table::Reading reading = table::read(table::asSent(scene.read(tableName)));
        QVERIFY(!reading.stalls);
        QCOMPARE(reading.count, 0);
    }

    void thousandAndTwentyFourBadPixelsFillTheTable()
    {
        Scene scene;
        const QVector<int> pixels = sequence(0, 300, 1024);
        scene.write(mapName, table::mapOf(pixels));
        QCOMPARE(treat(scene), 1024);
        QCOMPARE(scene.read(tableName).size(), 8192);
        QCOMPARE(table::read(scene.read(tableName)).pixels, pixels);
    }

    void oneBadPixelMoreIsCountedAndLeavesNoTable()
    {
        Scene scene;
        scene.write(tableName, "a table of before");
        scene.write(mapName, table::mapOf(sequence(0, 1, 1025)));
        QCOMPARE(treat(scene), 1025);
        QVERIFY(!scene.exists(tableName));
        scene.write(mapName, QByteArray(scene::mapSize, '\1'));
        QCOMPARE(treat(scene), 307200);
        QVERIFY(!scene.exists(tableName));
    }

    void anUnusableMapLeavesNoEntriesAndNoTable_data()
    {
        anUnusableMapIsRefusedAndLeftAlone_data();
        QTest::newRow("missing") << QByteArray();
    }

    void anUnusableMapLeavesNoEntriesAndNoTable()
    {
        QFETCH(QByteArray, content);
        Scene scene;
        scene.write(tableName, "a table of before");
        if (!content.isNull()) {
            scene.write(mapName, content);
        }
        std::vector<ombrix_sdk::ReplacementEntry> list(3);
        QCOMPARE(treat(scene, list), 0);
        QVERIFY(!scene.exists(tableName));
        QCOMPARE(scene.newLog().size(), 1);
    }

    void aMapOfAnotherSizeThanTheSensorsIsNotTreated()
    {
        Scene scene;
        scene.write(mapName, table::mapOf({1, 2}));
        std::vector<ombrix_sdk::ReplacementEntry> list;
        int height = 640;
        int width = 480;
        scene.camera().loadBadPixelList(pathOf(scene), list, height, width);
        QVERIFY(list.empty());
        QVERIFY(!scene.exists(tableName));
    }

    void aTableFileThatIsAFolderIsLeftAlone()
    {
        Scene scene;
        QVERIFY(QDir().mkdir(tableName));
        scene.write(mapName, table::mapOf({1, 2}));
        QCOMPARE(treat(scene), 2);
        QVERIFY(QDir(tableName).exists());
        QCOMPARE(scene.newLog().size(), 1);
    }

    void aBadPixelIsReplacedByTheGoodPixelsNextToIt()
    {
        Scene scene;
        // (10, 10) and its right neighbour.
        const int pixel = 10 * 640 + 10;
        QCOMPARE(replacementOf(scene, {pixel, pixel + 1}, pixel),
                 QVector<int>({pixel - 641, pixel - 640, pixel - 639, pixel - 1, pixel + 639,
                               pixel + 640, pixel + 641}));
    }

    void aBadPixelInTheCornerIsReplacedByPixelsOfTheSensor()
    {
        Scene scene;
        QCOMPARE(replacementOf(scene, {0, 307199}, 0), QVector<int>({1, 640, 641}));
        QCOMPARE(replacementOf(scene, {0, 307199}, 307199),
                 QVector<int>({307199 - 641, 307199 - 640, 307199 - 1}));
        // The last pixel of a line has nothing to do with the first of the next.
        QCOMPARE(replacementOf(scene, {639, 307199}, 639), QVector<int>({638, 1278, 1279}));
    }

    void aBadPixelAmongBadOnesIsReplacedByTheRingAroundThem()
    {
        Scene scene;
        QVector<int> block;
        for (int y = 99; y <= 101; ++y) {
            block += sequence(y * 640 + 99, 1, 3);
        }
        const QVector<int> replacement = replacementOf(scene, block, 100 * 640 + 100);
        QCOMPARE(replacement.size(), 16);
        for (const int pixel : replacement) {
            QCOMPARE(std::max(std::abs(pixel % 640 - 100), std::abs(pixel / 640 - 100)), 2);
        }
    }

    void aBadPixelDeepInABlockIsReplacedByTheNearestGoodOne()
    {
        Scene scene;
        QVector<int> block;
        for (int y = 100; y < 132; ++y) {
            block += sequence(y * 640 + 200, 1, 32);
        }
        // (203, 110) is nearest to the left edge, (229, 120) to the right, (215, 104) to the upper.
        QCOMPARE(replacementOf(scene, block, 110 * 640 + 203), QVector<int>{110 * 640 + 199});
        QCOMPARE(replacementOf(scene, block, 120 * 640 + 228), QVector<int>{120 * 640 + 232});
        QCOMPARE(replacementOf(scene, block, 104 * 640 + 215), QVector<int>{99 * 640 + 215});
    }

    void replacementsAreGoodPixelsAlways()
    {
        std::mt19937 random(1);
        Scene scene;
        for (int round = 0; round < 20; ++round) {
            // Dense, so that bad pixels have bad neighbours.
            QVector<int> pixels;
            for (const int place : sequence(0, 1, 30 * 30)) {
                if (random() % 3 != 0) {
                    pixels.append((200 + place / 30) * 640 + (round == 0 ? 610 : 300) + place % 30);
                }
            }
            scene.write(mapName, table::mapOf(pixels));
            QCOMPARE(treat(scene), pixels.size());
            const table::Reading reading = table::read(table::asSent(scene.read(tableName)));
            for (int number = 0; number < pixels.size(); ++number) {
                const QVector<int> good =
                    table::replacementPixels(pixels.at(number), reading.replacements.at(number));
                QVERIFY(!good.isEmpty());
                for (const int pixel : good) {
                    QVERIFY(pixel >= 0 && pixel < scene::mapSize);
                    QVERIFY(!pixels.contains(pixel));
                }
            }
        }
    }

    // ---- there and back

    void anyMapComesBackAsItWasSentAndNeverStallsTheReader()
    {
        // The variable repeats a run that failed.
        bool repeated = false;
        unsigned seed = qEnvironmentVariable("TAVREL_TEST_SEED").toUInt(&repeated);
        if (!repeated) {
            seed = QRandomGenerator::global()->generate();
        }
        qInfo("TAVREL_TEST_SEED=%u", seed);
        std::mt19937 random(seed);
        QVector<int> sizes = {0, 1, 2, 3, 1022, 1023, 1024};
        for (int round = 0; round < 60; ++round) {
            sizes.append(static_cast<int>(random() % 1025));
        }
        Scene scene;
        ICamera& camera = scene.camera();
        for (const int size : sizes) {
            QVector<int> pixels = randomPixels(random, size);
            if (size > 0 && random() % 2 == 0) {
                pixels[0] = 0;
            }
            const QByteArray map = table::mapOf(pixels);
            scene.write(mapName, map);
            QCOMPARE(treat(scene, camera), size);
            QByteArray region = table::asSent(scene.read(tableName));
            QCOMPARE(camera.writeTableData(4096, 8192, 8, region.data()), Flag{1});
            const table::Reading reading = table::read(readRegion(camera));
            QVERIFY2(!reading.stalls, qPrintable(QString::number(size)));
            QCOMPARE(reading.pixels, pixels);
            QCOMPARE(reading.count, size == 1 ? 2 : size);
            QCOMPARE(table::mapOf(reading.pixels), map);
        }
    }

    void aTableThatWasEditedWrittenAndRestoredIsTheOneOfTheBeginning()
    {
        Scene scene;
        ICamera& camera = scene.camera();
        const QByteArray factory = readRegion(camera);
        const QByteArray backup = table::mapOf(table::read(factory).pixels);
        scene.write(mapName, backup);
        QCOMPARE(camera.addBadPixels(pathOf(scene), all, 17), Flag{1});
        QCOMPARE(camera.addBadPixels(pathOf(scene), 0, 0), Flag{1});
        send(scene, camera);
        QCOMPARE(table::mapOf(table::read(readRegion(camera)).pixels), scene.read(mapName));
        scene.write(mapName, backup);
        send(scene, camera);
        QCOMPARE(readRegion(camera), factory);
    }

private:
    static std::string pathOf(const Scene& scene)
    {
        return scene.path(mapName).toLocal8Bit().toStdString();
    }

    static QByteArray readRegion(ICamera& camera)
    {
        QByteArray region(scene::regionSize, '\0');
        return camera.readTableData(4096, 8192, 9, region.data()) == 0 ? region : QByteArray();
    }

    static Flag edit(Scene& scene, Flag (ICamera::*operation)(const std::string&, quint32, quint32),
                     quint32 x, quint32 y)
    {
        return (scene.camera().*operation)(pathOf(scene), x, y);
    }

    static int treat(const Scene& scene, ICamera& camera,
                     std::vector<ombrix_sdk::ReplacementEntry>& list)
    {
        int height = 480;
        int width = 640;
        camera.loadBadPixelList(pathOf(scene), list, height, width);
        return static_cast<int>(list.size());
    }

    static int treat(const Scene& scene, ICamera& camera)
    {
        std::vector<ombrix_sdk::ReplacementEntry> list;
        return treat(scene, camera, list);
    }

    static int treat(Scene& scene, std::vector<ombrix_sdk::ReplacementEntry>& list)
    {
        return treat(scene, scene.camera(), list);
    }

    static int treat(Scene& scene) { return treat(scene, scene.camera()); }

    static void send(const Scene& scene, ICamera& camera)
    {
        treat(scene, camera);
        QByteArray region = table::asSent(scene.read(tableName));
        QCOMPARE(camera.writeTableData(4096, 8192, 8, region.data()), Flag{1});
    }

    static QVector<int> replacementOf(Scene& scene, const QVector<int>& badPixels, int pixel)
    {
        scene.write(mapName, table::mapOf(badPixels));
        treat(scene);
        const table::Reading reading = table::read(table::asSent(scene.read(tableName)));
        return table::replacementPixels(pixel,
                                        reading.replacements.value(reading.pixels.indexOf(pixel)));
    }
};

QTEST_GUILESS_MAIN(TestBadPixels)
#include "tst_badpixels.moc"
