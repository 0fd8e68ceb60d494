// SPDX-License-Identifier: MIT
// Names, paths and files of the bad pixel table.
#include "app/platform.h"
#include "bpr/files.h"
#include "tests/bpr/failingread.h"
#include "tests/bpr/failingrename.h"
#include "tests/bpr/tablefiles.h"

#include <QtTest/QTest>

#include <opencv2/core.hpp>

#include <limits>
#include <memory>

namespace bpr = tavrel::bpr;
using tavrel::platform::currentDirectory;
using tavrel::platform::pathSeparator;

Q_DECLARE_METATYPE(tablefiles::FailingRead::Failure)

namespace {

std::string inDirectory(const char* name)
{
    return currentDirectory() + pathSeparator + name;
}

/// A map as it stands after decoding; its content tells the rows and columns apart.
cv::Mat numberedMap()
{
    cv::Mat map(480, 640, CV_8UC1);
    for (int row = 0; row < map.rows; ++row) {
        for (int column = 0; column < map.cols; ++column) {
            map.at<std::uint8_t>(row, column) = static_cast<std::uint8_t>(row * 7 + column);
        }
    }
    return map;
}

QByteArray bytesOf(const cv::Mat& map)
{
    return {map.ptr<char>(), map.rows * map.cols};
}

} // namespace

class TestTableFiles : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { workFolder = std::make_unique<tablefiles::WorkFolder>(); }
    void cleanup() { workFolder.reset(); }

    void aFileIsNamedAfterTheCamera_data()
    {
        QTest::addColumn<std::uint32_t>("serial");
        QTest::addColumn<QString>("name");
        QTest::addRow("none") << std::uint32_t{0} << QStringLiteral("bpr_SN0.bin");
        QTest::addRow("usual") << std::uint32_t{12345} << QStringLiteral("bpr_SN12345.bin");
        QTest::addRow("unsigned") << std::uint32_t{2147483648}
                                  << QStringLiteral("bpr_SN2147483648.bin");
        QTest::addRow("highest") << std::numeric_limits<std::uint32_t>::max()
                                 << QStringLiteral("bpr_SN4294967295.bin");
    }

    void aFileIsNamedAfterTheCamera()
    {
        QFETCH(std::uint32_t, serial);
        QFETCH(QString, name);
        QCOMPARE(QString::fromStdString(bpr::bprFileName(serial)), name);
    }

    void aPathLeadsFromTheCurrentDirectoryThroughTheFolder()
    {
        QCOMPARE(QString::fromStdString(bpr::pathInFolder(bpr::workingFolder, "bpr_SN1.bin")),
                 tablefiles::full(tablefiles::working(QStringLiteral("1"))));
        QCOMPARE(QString::fromStdString(bpr::pathInFolder(bpr::backupFolder, "bpr_SN1.bin")),
                 tablefiles::full(tablefiles::backup(QStringLiteral("1"))));
    }

    void theDirectoryIsTheOneThatIsCurrentNow()
    {
        QVERIFY(QDir().mkdir(QStringLiteral("below")));
        const std::string above = currentDirectory();
        QVERIFY(QDir::setCurrent(QStringLiteral("below")));
        QCOMPARE(currentDirectory(), above + pathSeparator + "below");
    }

    void aFileExistsWhenItCanBeRead()
    {
        tablefiles::put(QStringLiteral("empty"), {});
        tablefiles::put(QStringLiteral("full"), "content");
        QVERIFY(QDir().mkdir(QStringLiteral("folder")));
        QVERIFY(bpr::fileExists(inDirectory("empty")));
        QVERIFY(bpr::fileExists(inDirectory("full")));
        QVERIFY(!bpr::fileExists(inDirectory("missing")));
        QVERIFY(!bpr::fileExists(inDirectory("folder")));
        QVERIFY(!bpr::fileExists(inDirectory("full/below")));
    }

    void aLookAtAFileChangesNothing()
    {
        tablefiles::put(QStringLiteral("full"), "content");
        QVERIFY(bpr::fileExists(inDirectory("full")));
        QVERIFY(!bpr::fileExists(inDirectory("missing")));
        QCOMPARE(tablefiles::content(QStringLiteral("full")), QByteArray("content"));
        QCOMPARE(tablefiles::entries(QStringLiteral(".")), QStringList(QStringLiteral("full")));
    }

    void aCopyHasEveryByteOfItsSource_data()
    {
        QTest::addColumn<QByteArray>("source");
        QTest::addColumn<QByteArray>("before");
        const QByteArray map = tablefiles::mapOf({0, 5, 307199});
        const QByteArray lineEnds("\r\n\n\r\x1A\0\xFF", 7);
        QTest::addRow("to a new file") << map << QByteArray();
        QTest::addRow("over a shorter file") << map << QByteArray("short");
        QTest::addRow("over a longer file") << QByteArray("short") << map;
        QTest::addRow("bytes that text modes touch") << lineEnds << QByteArray();
        QTest::addRow("nothing") << QByteArray("") << map;
        // Larger than what is copied at once, with long rows of zeros at the beginning, in the
        // middle and at the end.
        const QByteArray zeros(2500000, '\0');
        QTest::addRow("more than one piece") << zeros + "x" + zeros + "y" + zeros << map;
        // 1 MiB is copied at once.
        QTest::addRow("zeros that end with a piece")
            << QByteArray(1048576, 'x') + QByteArray(1048576, '\0') << map;
        QTest::addRow("over a longer one of zeros") << zeros << QByteArray(6000000, 'x');
    }

    void aCopyHasEveryByteOfItsSource()
    {
        QFETCH(QByteArray, source);
        QFETCH(QByteArray, before);
        tablefiles::put(QStringLiteral("source"), source);
        if (!before.isNull()) {
            tablefiles::put(QStringLiteral("copy"), before);
        }
        QVERIFY(bpr::copyFile(inDirectory("source"), inDirectory("copy")));
        QVERIFY(tablefiles::content(QStringLiteral("copy")) == source);
        QVERIFY(tablefiles::content(QStringLiteral("source")) == source);
        QCOMPARE(tablefiles::entries(QStringLiteral(".")),
                 (QStringList{QStringLiteral("copy"), QStringLiteral("source")}));
    }

    void aCopyWithoutASourceLeavesTheDestinationAlone_data()
    {
        QTest::addColumn<QString>("source");
        QTest::addRow("missing") << QStringLiteral("missing");
        QTest::addRow("a folder") << QStringLiteral("folder");
    }

    void aCopyWithoutASourceLeavesTheDestinationAlone()
    {
        QFETCH(QString, source);
        QVERIFY(QDir().mkdir(QStringLiteral("folder")));
        tablefiles::put(QStringLiteral("copy"), "old");
        QVERIFY(!bpr::copyFile(inDirectory(qPrintable(source)), inDirectory("copy")));
        QVERIFY(!bpr::copyFile(inDirectory(qPrintable(source)), inDirectory("new")));
        QCOMPARE(tablefiles::content(QStringLiteral("copy")), QByteArray("old"));
        QVERIFY(!QFile::exists(QStringLiteral("new")));
    }

    void aCopyThatHasNowhereToGoIsRefused_data()
    {
        QTest::addColumn<QString>("destination");
        QTest::addRow("a folder") << QStringLiteral("folder");
        QTest::addRow("in a missing folder") << QStringLiteral("missing/copy");
        QTest::addRow("below a file") << QStringLiteral("source/copy");
    }

    void aCopyThatHasNowhereToGoIsRefused()
    {
        QFETCH(QString, destination);
        QVERIFY(QDir().mkdir(QStringLiteral("folder")));
        tablefiles::put(QStringLiteral("source"), "content");
        QVERIFY(!bpr::copyFile(inDirectory("source"), inDirectory(qPrintable(destination))));
        QCOMPARE(tablefiles::content(QStringLiteral("source")), QByteArray("content"));
        QCOMPARE(tablefiles::entries(QStringLiteral(".")),
                 (QStringList{QStringLiteral("folder"), QStringLiteral("source")}));
        QCOMPARE(tablefiles::entries(QStringLiteral("folder")), QStringList());
    }

    void aSourceThatCannotBeReadReplacesNothing_data()
    {
        QTest::addColumn<tablefiles::FailingRead::Failure>("failure");
        QTest::addColumn<int>("size");
        QTest::addRow("from the beginning") << tablefiles::FailingRead::Error << 3;
        QTest::addRow("half way") << tablefiles::FailingRead::Late << 3000000;
    }

    void aSourceThatCannotBeReadReplacesNothing()
    {
        QFETCH(tablefiles::FailingRead::Failure, failure);
        QFETCH(int, size);
        tablefiles::put(QStringLiteral("source"), QByteArray(size, 'n'));
        tablefiles::put(QStringLiteral("copy"), "old");
        const tablefiles::FailingRead failing("source", failure);
        QVERIFY(bpr::copyFile(inDirectory("source"), inDirectory("copy")));
        QVERIFY(failing.count() > 0);
        QCOMPARE(tablefiles::content(QStringLiteral("copy")), QByteArray("old"));
        QCOMPARE(tablefiles::entries(QStringLiteral(".")),
                 (QStringList{QStringLiteral("copy"), QStringLiteral("source")}));
    }

    void aFileWhosePlaceNoOtherCanTakeIsWrittenOver()
    {
        const QByteArray map = QByteArray(2500000, '\0') + tablefiles::mapOf({0, 5, 307199});
        tablefiles::put(QStringLiteral("source"), map);
        tablefiles::put(QStringLiteral("copy"), QByteArray(4000000, 'x'));
        tablefiles::put(QStringLiteral("map"), QByteArray(400000, 'x'));
        {
            const tablefiles::FailingRename failing;
            QVERIFY(bpr::copyFile(inDirectory("source"), inDirectory("copy")));
            bpr::writeMap(numberedMap(), inDirectory("map"));
            QCOMPARE(failing.count(), 2);
        }
        QVERIFY(tablefiles::content(QStringLiteral("copy")) == map);
        QVERIFY(tablefiles::content(QStringLiteral("map")) == bytesOf(numberedMap()));
        QCOMPARE(
            tablefiles::entries(QStringLiteral(".")),
            (QStringList{QStringLiteral("copy"), QStringLiteral("map"), QStringLiteral("source")}));
    }

    void aNewFileThatCannotComeToItsPlaceIsRefused()
    {
        tablefiles::put(QStringLiteral("source"), "content");
        {
            const tablefiles::FailingRename failing;
            QVERIFY(!bpr::copyFile(inDirectory("source"), inDirectory("new")));
            QCOMPARE(failing.count(), 1);
        }
        QCOMPARE(tablefiles::entries(QStringLiteral(".")), QStringList(QStringLiteral("source")));
    }

    void aMapIsWrittenLineByLine()
    {
        const cv::Mat map = numberedMap();
        tablefiles::put(QStringLiteral("longer"), QByteArray(400000, 'x'));
        bpr::writeMap(map, inDirectory("new"));
        bpr::writeMap(map, inDirectory("longer"));
        QCOMPARE(tablefiles::content(QStringLiteral("new")).size(), tablefiles::mapSize);
        QVERIFY(tablefiles::content(QStringLiteral("new")) == bytesOf(map));
        QVERIFY(tablefiles::content(QStringLiteral("longer")) == bytesOf(map));
        QCOMPARE(tablefiles::entries(QStringLiteral(".")),
                 (QStringList{QStringLiteral("longer"), QStringLiteral("new")}));
    }

    void aMapThatCannotBeWrittenLeavesNoTrace()
    {
        QVERIFY(QDir().mkdir(QStringLiteral("folder")));
        bpr::writeMap(numberedMap(), inDirectory("missing/map"));
        bpr::writeMap(numberedMap(), inDirectory("folder"));
        bpr::writeNewMap(numberedMap(), inDirectory("missing/map"));
        QCOMPARE(tablefiles::entries(QStringLiteral(".")), QStringList(QStringLiteral("folder")));
        QCOMPARE(tablefiles::entries(QStringLiteral("folder")), QStringList());
    }

    void aNewMapIsWrittenOnce()
    {
        bpr::writeNewMap(numberedMap(), inDirectory("new"));
        QVERIFY(tablefiles::content(QStringLiteral("new")) == bytesOf(numberedMap()));
        bpr::writeNewMap(cv::Mat::zeros(480, 640, CV_8UC1), inDirectory("new"));
        QVERIFY(tablefiles::content(QStringLiteral("new")) == bytesOf(numberedMap()));
    }

private:
    std::unique_ptr<tablefiles::WorkFolder> workFolder;
};

QTEST_APPLESS_MAIN(TestTableFiles)
#include "tst_tablefiles.moc"
