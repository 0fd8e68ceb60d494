// SPDX-License-Identifier: MIT
// The simulated camera as it comes: what it answers, what it accepts, and what it does with calls
// that no correct program makes.
#include "tests/params/pairrows.h"
#include "tests/simulator/scene.h"

#include <QtTest/QTest>

#include <cmath>
#include <functional>
#include <limits>

using ombrix_sdk::Flag;
using ombrix_sdk::ICamera;
using scene::Scene;

namespace {

/// A value of one number: how it is read and set, and which numbers the camera takes and refuses.
struct Value {
    const char* name;
    std::function<quint32(ICamera&)> get;
    std::function<Flag(ICamera&, quint32)> set;
    QVector<quint32> accepted;
    QVector<quint32> refused;
};

template<typename Written>
Value number(const char* name, const std::function<quint32(ICamera&)>& get,
             Flag (ICamera::*set)(Written), QVector<quint32> accepted, QVector<quint32> refused)
{
    return {name, get,
            [set](ICamera& camera, quint32 value) {
                return (camera.*set)(static_cast<Written>(value));
            },
            std::move(accepted), std::move(refused)};
}

/// What the camera takes and refuses of the value that an operation sets.
struct Range {
    QVector<quint32> accepted;
    QVector<quint32> refused;
};

QMap<QByteArray, Range> ranges()
{
    QMap<QByteArray, Range> all = {
        {"camera.setFrameRate", {{9, 25, 30, 50, 60}, {0, 10, 24, 61, 255}}},
        {"camera.setVideoOutput", {{0, 6, 8}, {9, 255}}},
        {"camera.configureContrastType", {{1, 0}, {2, 255}}},
        {"camera.setColorLut", {{7, 0}, {8, 255}}},
    };
    for (const pairrows::Row& row : pairrows::rows) {
        if (row.lowest == row.highest) {
            continue;
        }
        Range& range = all[row.operation];
        range.accepted = {row.lowest, (row.lowest + row.highest) / 2, row.highest};
        range.refused = {row.highest + 1, std::numeric_limits<quint32>::max()};
        if (row.lowest > 0) {
            range.refused.append(row.lowest - 1);
        }
    }
    return all;
}

/// The getter that belongs to a setter by its name: what the list of operations says of the two is
/// what is tried.
QByteArray getterOf(QByteArray setter)
{
    for (const char* const beginning : {"set", "configure"}) {
        if (setter.startsWith(beginning)) {
            return "get" + setter.mid(static_cast<int>(qstrlen(beginning)));
        }
    }
    return setter;
}

/// All numbers that have an operation of their own, and all that is on or off.
QVector<Value> values()
{
    QMap<QByteArray, std::function<quint32(ICamera&)>> getters;
#define GET(Type, name, value)                                                                     \
    getters[#name] = [](ICamera& camera) {                                                         \
        return quint32{camera.name()};                                                             \
    };
#include "sdk/operations.def"
    const QMap<QByteArray, Range> known = ranges();
    QVector<Value> all;
    const auto add = [&](const char* name, const char* setter, auto set, const Range& range) {
        const QByteArray getter = getterOf(setter);
        if (!range.accepted.isEmpty() && getters.contains(getter)) {
            all.append(number(name, getters[getter], set, range.accepted, range.refused));
        }
    };
#define SET(Type, name, value) add(#value, #name, &ICamera::name, known["camera." #name]);
#define SET_FLAG(name, value) add(#value, #name, &ICamera::name, {{1, 0, 1}, {}});
#include "sdk/operations.def"
    return all;
}

/// Every value that the program can set by itself.
constexpr const char* listedValues[] = {
#define SET(Type, name, value) #value,
#include "sdk/operations.def"
};

using GetCoordinate = quint32 (ICamera::*)(quint32);
using SetCoordinate = Flag (ICamera::*)(quint32, quint32, bool, bool, bool);

struct Coordinate {
    GetCoordinate get;
    SetCoordinate set;
    quint32 limit;
};

constexpr Coordinate coordinates[] = {{&ICamera::getRoiX1, &ICamera::setRoiX1, 639},
                                      {&ICamera::getRoiX2, &ICamera::setRoiX2, 639},
                                      {&ICamera::getRoiY1, &ICamera::setRoiY1, 479},
                                      {&ICamera::getRoiY2, &ICamera::setRoiY2, 479}};

} // namespace

class TestCamera : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void anyPortHasACameraThatTellsItsIdentity()
    {
        Scene scene;
        ICamera& camera = scene.camera("COM7");
        quint32 versions = 0;
        camera.getVersions(&versions);
        QCOMPARE(versions, 0x22070142U); // MIPI, 60 Hz, FPGA 2.0.7, firmware 1.4.2
        camera.refresh();
        QCOMPARE(camera.getSerialNumber(), scene::builtInSerial);
        QCOMPARE(camera.getSensorSerialNumber(), 730155U);
        ombrix_sdk::OperatingTime time{};
        QCOMPARE(camera.getOperatingTime(&time), Flag{1});
        QCOMPARE(time.minutes, 5263U);
        QCOMPARE(time.startups, 118U);
        ombrix_sdk::Temperatures temperatures{};
        QCOMPARE(camera.getTemperatures(&temperatures), Flag{1});
        QCOMPARE(temperatures.sensor, 304500.0F);
        QCOMPARE(temperatures.fpga, 318250.0F);
        QVERIFY(scene.newLog().isEmpty());
    }

    void everyValueThatCanBeSetIsTried()
    {
        // The NUC and the shutter have tests of their own below.
        QStringList tried = {QStringLiteral("nucControl"), QStringLiteral("shutterClosed")};
        const QVector<Value> all = values();
        for (const Value& value : all) {
            tried << QLatin1String(value.name);
        }
        for (const char* const value : listedValues) {
            QVERIFY2(tried.contains(QLatin1String(value)), value);
        }
    }

    void aValueIsReadAsItWasSet_data() { valueRows(); }

    void aValueIsReadAsItWasSet()
    {
        QFETCH(int, row);
        const Value value = values().at(row);
        Scene scene;
        ICamera& camera = scene.camera();
        for (const quint32 accepted : value.accepted) {
            QCOMPARE(value.set(camera, accepted), Flag{1});
            QCOMPARE(value.get(camera), accepted);
        }
    }

    void aValueThatTheCameraCannotTakeIsRefused_data() { valueRows(); }

    void aValueThatTheCameraCannotTakeIsRefused()
    {
        QFETCH(int, row);
        const Value value = values().at(row);
        Scene scene;
        ICamera& camera = scene.camera();
        const quint32 before = value.get(camera);
        for (const quint32 refused : value.refused) {
            QCOMPARE(value.set(camera, refused), Flag{0});
            QCOMPARE(value.get(camera), before);
        }
    }

    void noValueChangesAnother()
    {
        Scene scene;
        ICamera& camera = scene.camera();
        const QVector<Value> all = values();
        QVector<quint32> expected;
        for (const Value& value : all) {
            const quint32 before = value.get(camera);
            const auto other = std::find_if(value.accepted.begin(), value.accepted.end(),
                                            [before](quint32 next) { return next != before; });
            QVERIFY2(other != value.accepted.end(), value.name);
            QCOMPARE(value.set(camera, *other), Flag{1});
            expected.append(*other);
        }
        for (int row = 0; row < all.size(); ++row) {
            QVERIFY2(all[row].get(camera) == expected[row], all[row].name);
        }
    }

    void zoomIsSetAsAWholeOrNotAtAll()
    {
        Scene scene;
        ICamera& camera = scene.camera();
        const ombrix_sdk::Zoom wanted{2.5F, 100, 200, 0};
        QCOMPARE(camera.configureZoom(&wanted), Flag{1});
        for (const ombrix_sdk::Zoom& refused :
             {ombrix_sdk::Zoom{8.5F, 1, 1, 1}, ombrix_sdk::Zoom{0.5F, 1, 1, 1},
              ombrix_sdk::Zoom{std::nanf(""), 1, 1, 1}, ombrix_sdk::Zoom{2, -1, 1, 1},
              ombrix_sdk::Zoom{2, 1, 481, 1}, ombrix_sdk::Zoom{2, 1, 1, 2}}) {
            QCOMPARE(camera.configureZoom(&refused), Flag{0});
        }
        ombrix_sdk::Zoom zoom{};
        QCOMPARE(camera.getZoom(&zoom), Flag{1});
        QCOMPARE(zoom.factor, 2.5F);
        QCOMPARE(zoom.xCenter, 100);
        QCOMPARE(zoom.yCenter, 200);
        QCOMPARE(zoom.method, std::uint8_t{0});
    }

    void zoomResolutionIsSetAsAWholeOrNotAtAll()
    {
        Scene scene;
        ICamera& camera = scene.camera();
        QCOMPARE(camera.configureZoomResolution(1024, 10), Flag{1});
        QCOMPARE(camera.configureZoomResolution(1025, 100), Flag{0});
        QCOMPARE(camera.configureZoomResolution(100, 9), Flag{0});
        ombrix_sdk::ZoomResolution resolution{};
        QCOMPARE(camera.getZoomResolution(&resolution), Flag{1});
        QCOMPARE(resolution.x, 1024U);
        QCOMPARE(resolution.y, 10U);
    }

    void ahcGainLimitsAreSetTogetherOrNotAtAll()
    {
        Scene scene;
        ICamera& camera = scene.camera();
        QCOMPARE(camera.setAhcGainsLimitation(0, 100), Flag{1});
        QCOMPARE(camera.setAhcGainsLimitation(50, 101), Flag{0});
        QCOMPARE(camera.setAhcGainsLimitation(101, 50), Flag{0});
        ombrix_sdk::AhcGainsLimitation limits{7, 7};
        QCOMPARE(camera.getAhcGainsLimitation(&limits), Flag{1});
        QCOMPARE(limits.black, std::uint8_t{0});
        QCOMPARE(limits.white, std::uint8_t{100});
    }

    void theSecondEdgeThresholdFollowsTheFirstBy40()
    {
        Scene scene;
        ICamera& camera = scene.camera();
        QCOMPARE(camera.configureEdgeCorrection(2, 1024, 255), Flag{1});
        QCOMPARE(camera.configureEdgeCorrection(3, 1, 1), Flag{0});
        QCOMPARE(camera.configureEdgeCorrection(1, 1025, 1), Flag{0});
        QCOMPARE(camera.configureEdgeCorrection(1, 1, 256), Flag{0});
        ombrix_sdk::EdgeCorrection area{};
        const ombrix_sdk::EdgeCorrection* const record = camera.getEdgeCorrection(&area);
        QCOMPARE(record, static_cast<const ombrix_sdk::EdgeCorrection*>(&area));
        QCOMPARE(record->type, std::uint8_t{2});
        QCOMPARE(record->gain, 1024U);
        QCOMPARE(record->firstThreshold, 255U);
        QCOMPARE(record->secondThreshold, 295U);
    }

    void everyCoordinateOfEveryRegionIsItsOwn()
    {
        Scene scene;
        ICamera& camera = scene.camera();
        quint32 next = 10;
        for (quint32 region = 0; region < 4; ++region) {
            for (const Coordinate& coordinate : coordinates) {
                QCOMPARE((camera.*coordinate.set)(next++, region, true, true, true), Flag{1});
            }
        }
        quint32 expected = 10;
        for (quint32 region = 0; region < 4; ++region) {
            for (const Coordinate& coordinate : coordinates) {
                QCOMPARE((camera.*coordinate.get)(region), expected++);
            }
        }
    }

    void aCoordinateOutsideTheSensorIsRefused()
    {
        Scene scene;
        ICamera& camera = scene.camera();
        for (const Coordinate& coordinate : coordinates) {
            QCOMPARE((camera.*coordinate.set)(coordinate.limit, 0, true, true, true), Flag{1});
            QCOMPARE((camera.*coordinate.set)(coordinate.limit + 1, 0, true, true, true), Flag{0});
            QCOMPARE((camera.*coordinate.get)(0), coordinate.limit);
        }
    }

    void aRegionThatIsOffAnswers0AsX1AndKeepsItsCoordinates()
    {
        Scene scene;
        ICamera& camera = scene.camera();
        camera.setRoiX1(100, 3, true, true, true);
        camera.setRoiX2(200, 3, true, true, true);
        camera.setRoiY1(50, 0, false, false, false);
        QCOMPARE(firstCoordinates(camera), QVector<quint32>({5, 0, 0, 0}));
        QCOMPARE(camera.getRoiX2(3), 200U);
        // The flags are those of ROI1 inclusive, ROI0 exclusive and ROI1 exclusive, in this order.
        camera.setRoiY1(50, 0, true, false, false);
        QCOMPARE(firstCoordinates(camera), QVector<quint32>({5, 0, 160, 0}));
        camera.setRoiY1(50, 0, false, true, false);
        QCOMPARE(firstCoordinates(camera), QVector<quint32>({5, 10, 0, 0}));
        camera.setRoiY1(50, 0, false, false, true);
        QCOMPARE(firstCoordinates(camera), QVector<quint32>({5, 0, 0, 100}));
    }

    void theNucIsSwitchedBy2And0Only()
    {
        Scene scene;
        ICamera& camera = scene.camera();
        QCOMPARE(camera.setNucControl(0), Flag{1});
        QCOMPARE(camera.getNucControl(), Flag{0});
        QCOMPARE(camera.setNucControl(1), Flag{0});
        QCOMPARE(camera.getNucControl(), Flag{0});
        QCOMPARE(camera.setNucControl(2), Flag{1});
        QCOMPARE(camera.getNucControl(), Flag{1});
    }

    void aNucRequestSwitchesTheNucOn_data()
    {
        QTest::addColumn<int>("automatic");
        QTest::newRow("by the user") << 0;
        QTest::newRow("automatic") << 1;
    }

    void aNucRequestSwitchesTheNucOn()
    {
        QFETCH(int, automatic);
        Scene scene;
        ICamera& camera = scene.camera();
        camera.setNucControl(0);
        QCOMPARE(camera.requestNuc(static_cast<std::uint8_t>(automatic)), Flag{1});
        QCOMPARE(camera.getNucControl(), Flag{1});
        QCOMPARE(camera.requestNuc(2), Flag{0});
    }

    void theShutterStaysWhereItIsPutUntilTheAutomaticRoutineOpensIt()
    {
        Scene scene;
        ICamera& camera = scene.camera();
        QCOMPARE(shutter(camera), 0);
        QCOMPARE(camera.setShutterPosition(true), Flag{1});
        QCOMPARE(shutter(camera), 1);
        camera.requestNuc(0);
        QCOMPARE(shutter(camera), 1);
        camera.requestNuc(1);
        QCOMPARE(shutter(camera), 0);
    }

    void theTableRegionIsReadAsItWasWritten()
    {
        Scene scene;
        ICamera& camera = scene.camera();
        QByteArray written(scene::regionSize, '\0');
        for (int index = 0; index < written.size(); ++index) {
            written[index] = static_cast<char>(index * 7);
        }
        QCOMPARE(camera.writeTableData(4096, 8192, 8, written.data()), Flag{1});
        QByteArray readBack(scene::regionSize, '\0');
        QCOMPARE(camera.readTableData(4096, 8192, 9, readBack.data()), 0);
        QCOMPARE(readBack, written);
    }

    void aRequestForAnythingButTheTableRegionIsRefused_data()
    {
        QTest::addColumn<quint32>("offset");
        QTest::addColumn<quint32>("length");
        QTest::addColumn<int>("readId");
        QTest::addColumn<int>("writeId");
        QTest::newRow("offset") << 0U << 8192U << 9 << 8;
        QTest::newRow("shorter") << 4096U << 8191U << 9 << 8;
        QTest::newRow("longer") << 4096U << 8193U << 9 << 8;
        QTest::newRow("ids exchanged") << 4096U << 8192U << 8 << 9;
    }

    void aRequestForAnythingButTheTableRegionIsRefused()
    {
        QFETCH(quint32, offset);
        QFETCH(quint32, length);
        QFETCH(int, readId);
        QFETCH(int, writeId);
        Scene scene;
        ICamera& camera = scene.camera();
        const QByteArray before(9000, 'x');
        QByteArray buffer = before;
        QCOMPARE(
            camera.readTableData(offset, length, static_cast<std::uint8_t>(readId), buffer.data()),
            -2);
        QCOMPARE(buffer, before);
        QCOMPARE(camera.writeTableData(offset, length, static_cast<std::uint8_t>(writeId),
                                       buffer.data()),
                 Flag{0});
        QCOMPARE(scene.newLog().filter(QStringLiteral("misuse")).size(), 2);
        camera.readTableData(4096, 8192, 9, buffer.data());
        QVERIFY(buffer.left(8192) != before.left(8192));
    }

    void nullPointersAreReportedAndRefused()
    {
        Scene scene;
        ICamera& camera = scene.camera();
        camera.getVersions(nullptr);
        QCOMPARE(camera.getTemperatures(nullptr), Flag{0});
        QCOMPARE(camera.getOperatingTime(nullptr), Flag{0});
        QVERIFY(camera.getEdgeCorrection(nullptr) != nullptr);
        QCOMPARE(camera.configureZoom(nullptr), Flag{0});
        QCOMPARE(camera.getZoom(nullptr), Flag{0});
        QCOMPARE(camera.getZoomResolution(nullptr), Flag{0});
        QCOMPARE(camera.getAhcGainsLimitation(nullptr), Flag{0});
        QCOMPARE(camera.connect(nullptr), std::uint8_t{0});
        QCOMPARE(camera.readTableData(4096, 8192, 9, nullptr), -2);
        QCOMPARE(camera.writeTableData(4096, 8192, 8, nullptr), Flag{0});
        QCOMPARE(camera.getShutterPosition(nullptr), Flag{0});
        QVERIFY(scene.link()->openCamera(nullptr) == nullptr);
        scene.link()->closeCamera(nullptr);
        scene.sdk().releaseSerialLink(nullptr);
        ombrix_sdk::ISerialLink* none = nullptr;
        scene.sdk().releaseSerialLink(&none);
        {
            ombrix_sdk::SDKLogger logger(ombrix_sdk::event_severity);
            logger.GetILogger() << "text" << static_cast<const char*>(nullptr);
        }
        QCOMPARE(
            scene.newLog(),
            QStringList(
                {QStringLiteral("misuse   getVersions with a null pointer"),
                 QStringLiteral("misuse   getTemperatures with a null pointer"),
                 QStringLiteral("misuse   getOperatingTime with a null pointer"),
                 QStringLiteral("misuse   getEdgeCorrection with a null pointer"),
                 QStringLiteral("misuse   configureZoom with a null pointer"),
                 QStringLiteral("misuse   getZoom with a null pointer"),
                 QStringLiteral("misuse   getZoomResolution with a null pointer"),
                 QStringLiteral("misuse   getAhcGainsLimitation with a null pointer"),
                 QStringLiteral("misuse   connect with a null pointer"),
                 QStringLiteral("misuse   readTableData with a null pointer"),
                 QStringLiteral("misuse   writeTableData with a null pointer"),
                 QStringLiteral("misuse   getShutterPosition with a null pointer"),
                 QStringLiteral("misuse   openCamera with a null pointer"),
                 QStringLiteral("misuse   closeCamera of a camera that is not open on this link"),
                 QStringLiteral("misuse   releaseSerialLink with a null pointer"),
                 QStringLiteral("misuse   releaseSerialLink of a link that is not open"),
                 QStringLiteral("misuse   a log record is given a null pointer"),
                 QStringLiteral("event    text")}));
    }

    void aRegionThatDoesNotExistIsReportedAndRefused()
    {
        Scene scene;
        ICamera& camera = scene.camera();
        for (const quint32 region : {4U, 0xFFFFFFFFU}) {
            for (const Coordinate& coordinate : coordinates) {
                QCOMPARE((camera.*coordinate.get)(region), 0U);
                QCOMPARE((camera.*coordinate.set)(100, region, true, true, true), Flag{0});
            }
        }
        QCOMPARE(scene.newLog().filter(QStringLiteral("misuse")).size(), 16);
    }

    void aClosedCameraRefusesEverythingAndReportsIt()
    {
        Scene scene;
        ICamera& camera = scene.camera();
        scene.link()->closeCamera(&camera);
        QCOMPARE(camera.setGamma(65536), Flag{0});
        QCOMPARE(camera.getGamma(), 0U);
        quint32 versions = 1;
        camera.getVersions(&versions);
        QCOMPARE(versions, 0U);
        QCOMPARE(camera.readTableData(4096, 8192, 9, &versions), -1);
        ombrix_sdk::EdgeCorrection area{1, 2, 3, 4};
        QCOMPARE(camera.getEdgeCorrection(&area)->secondThreshold, 0U);
        scene.link()->closeCamera(&camera);
        QCOMPARE(
            scene.newLog(),
            QStringList({QStringLiteral("misuse   setGamma on a camera that is closed"),
                         QStringLiteral("misuse   getGamma on a camera that is closed"),
                         QStringLiteral("misuse   getVersions on a camera that is closed"),
                         QStringLiteral("misuse   readTableData on a camera that is closed"),
                         QStringLiteral("misuse   getEdgeCorrection on a camera that is closed"),
                         QStringLiteral(
                             "misuse   closeCamera of a camera that is not open on this link")}));
    }

    void aReleasedLinkClosesItsCamerasAndOpensNoMore()
    {
        Scene scene;
        ICamera& camera = scene.camera();
        ombrix_sdk::ISerialLink* const link = scene.link();
        scene.sdk().releaseSerialLink(&scene.link());
        QVERIFY(scene.link() == nullptr);
        QCOMPARE(camera.getGamma(), 0U);
        QVERIFY(link->openCamera("ttyUSB0") == nullptr);
        link->closeCamera(&camera);
        ombrix_sdk::ISerialLink* again = link;
        scene.sdk().releaseSerialLink(&again);
        QVERIFY(again == link);
        QCOMPARE(scene.newLog().filter(QStringLiteral("misuse")).size(), 4);
    }

    void aCameraOfAnotherLinkIsNotClosed()
    {
        Scene scene;
        ICamera& first = scene.camera();
        scene.camera();
        scene.link()->closeCamera(&first);
        QCOMPARE(first.getGamma(), 65536U);
        QCOMPARE(scene.newLog().size(), 1);
    }

    void aSecondConnectionFindsTheCameraAsTheFirstLeftIt()
    {
        Scene scene;
        ICamera& camera = scene.camera();
        camera.setGamma(144179);
        scene.link()->closeCamera(&camera);
        scene.sdk().releaseSerialLink(&scene.link());
        QCOMPARE(scene.camera().getGamma(), 144179U);
    }

    void theSdkAnswersTheSameObjectsOnEveryCall()
    {
        Scene scene;
        QCOMPARE(ombrix_sdk::OmbrixSdk::get_instance(), ombrix_sdk::OmbrixSdk::get_instance());
        QCOMPARE(scene.sdk().getConfiguration(), scene.sdk().getConfiguration());
    }

private:
    static void valueRows()
    {
        QTest::addColumn<int>("row");
        const QVector<Value> all = values();
        for (int row = 0; row < all.size(); ++row) {
            QTest::newRow(all[row].name) << row;
        }
    }

    static QVector<quint32> firstCoordinates(ICamera& camera)
    {
        return {camera.getRoiX1(0), camera.getRoiX1(1), camera.getRoiX1(2), camera.getRoiX1(3)};
    }

    static int shutter(ICamera& camera)
    {
        std::uint8_t closed = 0x37;
        return camera.getShutterPosition(&closed) == 1 ? closed : -1;
    }
};

QTEST_GUILESS_MAIN(TestCamera)
#include "tst_camera.moc"
