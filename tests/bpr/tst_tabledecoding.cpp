// SPDX-License-Identifier: MIT
// From the camera's table region to the bad pixel map.
#include "bpr/table.h"
#include "tests/bpr/guardedmemory.h"

#include <QtTest/QTest>

#include <opencv2/core.hpp>

#include <algorithm>
#include <numeric>
#include <vector>

using tavrel::bpr::DecodedTable;
using tavrel::bpr::Region;

namespace {

using Indexes = std::vector<std::uint64_t>;

constexpr std::uint64_t pastTheMap = 307200;
constexpr std::uint64_t tooHigh = 307201;
constexpr std::uint64_t highest = (1U << 21U) - 1;

/// A region whose records hold these indexes, with the replacement data given; zero behind them.
Region regionOf(const Indexes& indexes, std::uint64_t replacement = 0)
{
    Region region{};
    std::size_t offset = 0;
    for (const std::uint64_t index : indexes) {
        const std::uint64_t word = index << 43U | replacement;
        for (unsigned shift = 0; shift < 64; shift += 8) {
            region.at(offset++) = static_cast<std::uint8_t>(word >> shift);
        }
    }
    return region;
}

/// Linear indexes of the elements that are not 0.
Indexes marksOf(const cv::Mat& map)
{
    Indexes marks;
    for (int row = 0; row < map.rows; ++row) {
        for (int column = 0; column < map.cols; ++column) {
            if (map.at<std::uint8_t>(row, column) != 0) {
                marks.push_back(static_cast<std::uint64_t>(row) * 640 +
                                static_cast<std::uint64_t>(column));
            }
        }
    }
    return marks;
}

/// Gives OpenCV guarded memory for its matrices while it lives.
class GuardedMatrices : public cv::MatAllocator {
public:
    GuardedMatrices() : previous(cv::Mat::getDefaultAllocator())
    {
        cv::Mat::setDefaultAllocator(this);
    }
    ~GuardedMatrices() override { cv::Mat::setDefaultAllocator(previous); }
    GuardedMatrices(const GuardedMatrices&) = delete;
    GuardedMatrices& operator=(const GuardedMatrices&) = delete;

    cv::UMatData* allocate(int dimensions, const int* sizes, int type, void* /*data*/,
                           std::size_t* steps, cv::AccessFlag /*flags*/,
                           cv::UMatUsageFlags /*usage*/) const override
    {
        auto size = static_cast<std::size_t>(CV_ELEM_SIZE(type));
        for (int dimension = dimensions - 1; dimension >= 0; --dimension) {
            steps[dimension] = size;
            size *= static_cast<std::size_t>(sizes[dimension]);
        }
        auto* const memory = new GuardedMemory(size);
        auto* const data = new cv::UMatData(this);
        data->handle = memory;
        data->data = data->origdata = memory->first;
        data->size = size;
        return data;
    }
    bool allocate(cv::UMatData* /*data*/, cv::AccessFlag /*flags*/,
                  cv::UMatUsageFlags /*usage*/) const override
    {
        return false;
    }
    void deallocate(cv::UMatData* data) const override
    {
        delete static_cast<GuardedMemory*>(data->handle);
        delete data;
    }

private:
    cv::MatAllocator* previous;
};

Indexes upTo(std::uint64_t last)
{
    Indexes indexes(last);
    std::iota(indexes.begin(), indexes.end(), 1);
    return indexes;
}

} // namespace

Q_DECLARE_METATYPE(Indexes)

class TestTableDecoding : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aTableIsTakenUpToItsEnd_data()
    {
        QTest::addColumn<Indexes>("records");
        QTest::addColumn<int>("count");
        QTest::addColumn<Indexes>("marks");
        QTest::addRow("two records") << Indexes{5, 7} << 2 << Indexes{5, 7};
        QTest::addRow("first pixel first") << Indexes{0, 7} << 2 << Indexes{0, 7};
        QTest::addRow("last pixel") << Indexes{307199, 1} << 2 << Indexes{1, 307199};
        QTest::addRow("ends of a line") << Indexes{639, 640, 1279} << 3 << Indexes{639, 640, 1279};
        QTest::addRow("in no order") << Indexes{9, 3, 6} << 3 << Indexes{3, 6, 9};
        QTest::addRow("repeated pixels count again") << Indexes{5, 5, 7, 5} << 4 << Indexes{5, 7};
        QTest::addRow("past the map, later") << Indexes{5, pastTheMap, 7} << 3 << Indexes{5, 7};
        QTest::addRow("past the map, last") << Indexes{5, pastTheMap} << 2 << Indexes{5};
        QTest::addRow("past the map, first") << Indexes{pastTheMap, 7} << 2 << Indexes{7};
        QTest::addRow("past the map only") << Indexes{pastTheMap, pastTheMap} << 2 << Indexes{};
        QTest::addRow("index 0 ends") << Indexes{5, 7, 0, 9} << 2 << Indexes{5, 7};
        QTest::addRow("too high ends") << Indexes{5, 7, tooHigh, 9} << 2 << Indexes{5, 7};
        QTest::addRow("highest ends") << Indexes{5, 7, highest, 9} << 2 << Indexes{5, 7};
        QTest::addRow("too high first") << Indexes{tooHigh, 5, 7} << 0 << Indexes{};
        QTest::addRow("highest first") << Indexes{highest, 5, 7} << 0 << Indexes{};
        QTest::addRow("too high first, then zero") << Indexes{tooHigh} << 0 << Indexes{};
        QTest::addRow("1023 records") << upTo(1023) << 1023 << upTo(1023);
        QTest::addRow("a full region") << upTo(1024) << 1024 << upTo(1024);
        QTest::addRow("a full region of one pixel")
            << Indexes(1024, 307199) << 1024 << Indexes{307199};
    }

    void aTableIsTakenUpToItsEnd()
    {
        QFETCH(Indexes, records);
        QFETCH(int, count);
        QFETCH(Indexes, marks);
        const DecodedTable table = tavrel::bpr::decodeTable(regionOf(records));
        QVERIFY(!table.stalls);
        QCOMPARE(table.count, count);
        QCOMPARE(marksOf(table.map), marks);
    }

    void aTableThatEndsAtItsSecondRecordStalls_data()
    {
        QTest::addColumn<Indexes>("records");
        QTest::addRow("an empty region") << Indexes{};
        QTest::addRow("one bad pixel") << Indexes{5};
        QTest::addRow("the first pixel only") << Indexes{0};
        QTest::addRow("the last pixel only") << Indexes{307199};
        QTest::addRow("past the map only") << Indexes{pastTheMap};
        QTest::addRow("one bad pixel, then too high") << Indexes{5, tooHigh, 7};
        QTest::addRow("one bad pixel, then highest") << Indexes{5, highest, 7};
        QTest::addRow("one bad pixel, then zero, then more") << Indexes{5, 0, 7, 9};
    }

    void aTableThatEndsAtItsSecondRecordStalls()
    {
        QFETCH(Indexes, records);
        QVERIFY(tavrel::bpr::decodeTable(regionOf(records)).stalls);
    }

    void theFillBehindAWrittenTableEndsIt()
    {
        Region region = regionOf({5, 7});
        std::fill(region.begin() + 17, region.end(), std::uint8_t{0xFF});
        const DecodedTable table = tavrel::bpr::decodeTable(region);
        QCOMPARE(table.count, 2);
        QCOMPARE(marksOf(table.map), (Indexes{5, 7}));
    }

    void aRegionOfNothingButFillIsAnEmptyTable()
    {
        Region region;
        region.fill(0xFF);
        const DecodedTable table = tavrel::bpr::decodeTable(region);
        QVERIFY(!table.stalls);
        QCOMPARE(table.count, 0);
        QCOMPARE(marksOf(table.map), Indexes());
    }

    void theBytesOfARecordAreLittleEndian()
    {
        // 0x12345 shifted left by 43 is 0x091A280000000000.
        Region region{0, 0, 0, 0, 0, 0x28, 0x1A, 0x09, 0, 0, 0, 0, 0, 0x08};
        const DecodedTable table = tavrel::bpr::decodeTable(region);
        QCOMPARE(table.count, 2);
        QCOMPARE(marksOf(table.map), (Indexes{1, 0x12345}));
    }

    void replacementDataIsNotPartOfTheIndex()
    {
        const std::uint64_t allBits = (std::uint64_t{1} << 43U) - 1;
        const DecodedTable table =
            tavrel::bpr::decodeTable(regionOf({5, 307199, pastTheMap}, allBits));
        // Behind the three records there is no replacement data and so the end.
        QCOMPARE(table.count, 3);
        QCOMPARE(marksOf(table.map), (Indexes{5, 307199}));
    }

    void theMapHasOneByteForEachPixelAndOneForEachBadOne()
    {
        const DecodedTable table = tavrel::bpr::decodeTable(regionOf({5, 7, 5}));
        QCOMPARE(table.map.rows, 480);
        QCOMPARE(table.map.cols, 640);
        QCOMPARE(table.map.type(), CV_8UC1);
        QCOMPARE(int{table.map.at<std::uint8_t>(0, 5)}, 1);
    }

    void nothingIsReadBehindTheRegion()
    {
        const Region full = regionOf(upTo(1024));
        const GuardedMemory memory(full.size());
        std::copy(full.begin(), full.end(), memory.first);
        const std::span<const std::uint8_t, tavrel::bpr::regionLength> region(memory.first,
                                                                              full.size());
        QCOMPARE(tavrel::bpr::decodeTable(region).count, 1024);
    }

    void nothingIsMarkedBehindTheMap()
    {
        const GuardedMatrices guarded;
        const DecodedTable table =
            tavrel::bpr::decodeTable(regionOf({pastTheMap, 307199, pastTheMap}));
        QCOMPARE(table.count, 3);
        QCOMPARE(marksOf(table.map), (Indexes{307199}));
    }
};

QTEST_APPLESS_MAIN(TestTableDecoding)
#include "tst_tabledecoding.moc"
