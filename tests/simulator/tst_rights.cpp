// SPDX-License-Identifier: MIT
// The simulator where the user lacks the right to read or write. The superuser has every right, so
// this program gives up its own before it begins.
#include "tests/kit/rights.h"
#include "tests/simulator/scene.h"
#include "tests/simulator/table.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtTest/QTest>

#include <sys/stat.h>

using ombrix_sdk::Flag;
using ombrix_sdk::ICamera;
using scene::Scene;

namespace {

constexpr mode_t readOnly = S_IRUSR;
constexpr mode_t writeOnly = S_IWUSR;
constexpr mode_t closedFolder = S_IRUSR | S_IXUSR;
constexpr mode_t unlistedFolder = S_IWUSR | S_IXUSR;

/// Changes the rights of a file or folder and gives them back at the end.
class Rights {
public:
    Rights(const QString& path, mode_t rights) : name(QFile::encodeName(path))
    {
        if (::chmod(name.constData(), rights) != 0) {
            qFatal("%s keeps its rights", name.constData());
        }
    }
    ~Rights() { ::chmod(name.constData(), S_IRWXU); }
    Rights(const Rights&) = delete;
    Rights& operator=(const Rights&) = delete;

private:
    QByteArray name;
};

const QString map = QStringLiteral("folder/map.bin");

} // namespace

class TestRights : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aMapIsEditedInPlaceWhereItsFolderForbidsNewFiles()
    {
        Scene scene;
        QDir().mkdir(QStringLiteral("folder"));
        scene.write(map, table::mapOf({5}));
        const Rights closed(scene.path(QStringLiteral("folder")), closedFolder);
        QCOMPARE(scene.camera().addBadPixels("folder/map.bin", 6, 0), Flag{1});
        QCOMPARE(table::pixelsOf(scene.read(map)), QVector<int>({5, 6}));
    }

    void aMapThatMayNotBeWrittenIsRefusedAndLeftAlone_data()
    {
        QTest::addColumn<bool>("folderToo");
        QTest::newRow("the file") << false;
        QTest::newRow("the file and its folder") << true;
    }

    void aMapThatMayNotBeWrittenIsRefusedAndLeftAlone()
    {
        QFETCH(bool, folderToo);
        Scene scene;
        QDir().mkdir(QStringLiteral("folder"));
        scene.write(map, table::mapOf({5}));
        const Rights file(scene.path(map), readOnly);
        const Rights folder(scene.path(QStringLiteral("folder")),
                            folderToo ? closedFolder : S_IRWXU);
        QCOMPARE(scene.camera().addBadPixels("folder/map.bin", 6, 0), Flag{0});
        QCOMPARE(scene.camera().removeBadPixels("folder/map.bin", 5, 0), Flag{0});
        QCOMPARE(table::pixelsOf(scene.read(map)), QVector<int>{5});
        QCOMPARE(QDir(QStringLiteral("folder")).entryList(QDir::Files | QDir::Hidden),
                 QStringList(QStringLiteral("map.bin")));
    }

    void aMapThatMayNotBeReadIsRefused()
    {
        Scene scene;
        QDir().mkdir(QStringLiteral("folder"));
        scene.write(map, table::mapOf({5}));
        {
            const Rights file(scene.path(map), writeOnly);
            QCOMPARE(scene.camera().addBadPixels("folder/map.bin", 6, 0), Flag{0});
        }
        QCOMPARE(table::pixelsOf(scene.read(map)), QVector<int>{5});
    }

    void aTreatmentThatCannotWriteIsTold()
    {
        Scene scene;
        QDir().mkdir(QStringLiteral("folder"));
        scene.write(map, table::mapOf({5, 6}));
        QVERIFY(QDir::setCurrent(scene.path(QStringLiteral("folder"))));
        const Rights folder(scene.path(QStringLiteral("folder")), closedFolder);
        std::vector<ombrix_sdk::ReplacementEntry> list;
        int height = 480;
        int width = 640;
        scene.camera().loadBadPixelList("map.bin", list, height, width);
        QVERIFY(!scene.exists(QStringLiteral("folder/replbp.bin")));
        QCOMPARE(scene.newLog().filter(QStringLiteral("loadBadPixelList")).size(), 1);
    }

    void aTableOfBeforeThatCannotBeDeletedIsOverwritten()
    {
        Scene scene;
        QDir().mkdir(QStringLiteral("folder"));
        scene.write(map, table::mapOf({5, 6}));
        scene.write(QStringLiteral("folder/replbp.bin"), QByteArray(8000, 'x'));
        QVERIFY(QDir::setCurrent(scene.path(QStringLiteral("folder"))));
        const Rights folder(scene.path(QStringLiteral("folder")), closedFolder);
        std::vector<ombrix_sdk::ReplacementEntry> list;
        int height = 480;
        int width = 640;
        scene.camera().loadBadPixelList("map.bin", list, height, width);
        QCOMPARE(table::read(table::asSent(scene.read(QStringLiteral("folder/replbp.bin")))).pixels,
                 QVector<int>({5, 6}));
    }

    void aTableOfBeforeThatCannotBeDeletedIsEmptiedWhenTheTreatmentFails()
    {
        Scene scene;
        QDir().mkdir(QStringLiteral("folder"));
        scene.write(map, "no map");
        scene.write(QStringLiteral("folder/replbp.bin"), QByteArray(8000, 'x'));
        QVERIFY(QDir::setCurrent(scene.path(QStringLiteral("folder"))));
        const Rights folder(scene.path(QStringLiteral("folder")), closedFolder);
        std::vector<ombrix_sdk::ReplacementEntry> list;
        int height = 480;
        int width = 640;
        scene.camera().loadBadPixelList("map.bin", list, height, width);
        QCOMPARE(scene.read(QStringLiteral("folder/replbp.bin")), QByteArray());
    }

    void aTableFileThatFailsWhileItIsReadIsToldAndTheFactorysUsed()
    {
        // Opens like any file; where it begins there is nothing that could be read.
        Scene scene("[camera]\ntableFile=/proc/self/mem\n");
        QByteArray region(scene::regionSize, '\0');
        QCOMPARE(scene.camera().readTableData(4096, 8192, 9, region.data()), 0);
        QCOMPARE(table::read(region).count, 37);
        const QString told = scene.newProblems().value(0);
        QVERIFY2(told.contains(QStringLiteral("\"/proc/self/mem\" is no table region: ")) &&
                     !told.contains(QStringLiteral("does not hold")),
                 qPrintable(told));
    }

    void aMemoryThatCannotBeWrittenIsToldAndTheCameraGoesOn()
    {
        Scene scene("[simulator]\nmemory=kept\n");
        ICamera& camera = scene.camera();
        scene.camera().writeTableData(4096, 8192, 8, QByteArray(8192, '\1').data());
        const Rights file(scene.path(QStringLiteral("kept/camera-20417.ini")), readOnly);
        const Rights folder(scene.path(QStringLiteral("kept")), closedFolder);
        QCOMPARE(camera.setGamma(70000), Flag{1});
        QCOMPARE(camera.getGamma(), 70000U);
        QVERIFY(scene.newProblems().value(0).contains(QStringLiteral("it cannot be written")));
    }

    void aMemoryThatCannotBeLockedIsUsedAllTheSame()
    {
        Scene scene;
        QDir().mkdir(QStringLiteral("kept"));
        const Rights folder(scene.path(QStringLiteral("kept")), unlistedFolder);
        scene.restart("[simulator]\nmemory=kept\n");
        QCOMPARE(scene.camera().setGamma(70000), Flag{1});
        scene.restart("[simulator]\nmemory=kept\n");
        QCOMPARE(scene.camera().getGamma(), 70000U);
        QCOMPARE(scene.newProblems(), QStringList());
    }

    void aMemoryThatCannotBeForgottenIsTold()
    {
        Scene scene("[simulator]\nmemory=kept\n");
        scene.camera().setGamma(70000);
        scene.newLog();
        const Rights folder(scene.path(QStringLiteral("kept")), closedFolder);
        scene.restart("[simulator]\nmemory=kept\nfactoryFresh=true\n");
        QCOMPARE(scene.newProblems().value(0),
                 QStringLiteral("problem  %1: it cannot be deleted")
                     .arg(scene.path(QStringLiteral("kept/camera-20417.ini"))));
    }

    void aDamagedMemoryThatCannotBeSetAsideIsToldAndNotUsed()
    {
        Scene scene("[simulator]\nmemory=kept\n");
        scene.write(QStringLiteral("kept/camera-20417.ini"), "damaged");
        const Rights folder(scene.path(QStringLiteral("kept")), closedFolder);
        scene.restart();
        QCOMPARE(scene.camera().getGamma(), 65536U);
        QVERIFY(scene.newProblems().value(0).endsWith(
            QStringLiteral("; the damaged file is not used")));
    }
};

int main(int argc, char* argv[])
{
    if (!kit::giveUpRights()) {
        qFatal("this program keeps its rights");
    }
    QCoreApplication application(argc, argv);
    TestRights test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_rights.moc"
