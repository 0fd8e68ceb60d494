// SPDX-License-Identifier: MIT
// Feeds arbitrary table regions to the decoding and checks what must hold for every one of them.
// An input that is shorter than a region is continued with zeros, a longer one is cut.
#include "bpr/table.h"
#include "tests/fuzz/require.h"

#include <opencv2/core.hpp>

#include <algorithm>
#include <array>
#include <cstring>
#include <set>
#include <vector>

namespace bpr = tavrel::bpr;

namespace {

/// The top 21 bits of a record: bits 3 to 7 of its byte 5, and its bytes 6 and 7.
unsigned indexOf(const std::vector<std::uint8_t>& region, std::size_t record)
{
    const std::uint8_t* const bytes = region.data() + record * bpr::recordSize;
    return bytes[5] / 8U + bytes[6] * 32U + bytes[7] * 8192U;
}

/// Linear indexes of all elements that are not 0.
std::set<unsigned> marksOf(const cv::Mat& map)
{
    static constexpr std::array<std::uint8_t, 640> noMarks{};
    std::set<unsigned> marks;
    for (unsigned row = 0; row < 480; ++row) {
        const auto* const line = map.ptr<std::uint8_t>(static_cast<int>(row));
        if (std::memcmp(line, noMarks.data(), noMarks.size()) == 0) {
            continue;
        }
        for (unsigned column = 0; column < 640; ++column) {
            require(line[column] <= 1, "a mark is 1");
            if (line[column] == 1) {
                marks.insert(row * 640 + column);
            }
        }
    }
    return marks;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    // On the heap and of the exact length, so that a read outside does not go unnoticed.
    std::vector<std::uint8_t> region(bpr::regionLength);
    std::copy(data, data + std::min(size, region.size()), region.begin());

    const bpr::DecodedTable table =
        bpr::decodeTable(std::span<const std::uint8_t, bpr::regionLength>(region));

    require(table.map.rows == 480 && table.map.cols == 640 && table.map.type() == CV_8UC1,
            "a map has 480 lines of 640 bytes");
    require(table.count >= 0 && table.count <= 1024, "a count is at most 1024");
    const auto count = static_cast<std::size_t>(table.count);
    const auto ends = [&](std::size_t record) {
        const unsigned index = indexOf(region, record);
        return index > 307200 || (index == 0 && record > 0);
    };
    require(count == 1024 || ends(count), "the record behind the last one taken ends the table");
    require(table.stalls == (count == 1), "exactly a table of one record stalls");

    std::set<unsigned> expected;
    for (std::size_t record = 0; record < count; ++record) {
        require(!ends(record), "no record is taken behind the end");
        if (const unsigned index = indexOf(region, record); index < 307200) {
            expected.insert(index);
        }
    }
    const std::set<unsigned> marks = marksOf(table.map);
    require(marks.size() <= count, "there are at most as many marks as records");
    require(marks == expected, "the marks are the records' indexes");
    return 0;
}
