// SPDX-License-Identifier: MIT
#include "bpr/table.h"

#include <opencv2/core.hpp>

namespace tavrel::bpr {

namespace {

constexpr std::size_t recordCount = regionLength / recordSize;

std::uint32_t recordIndex(std::span<const std::uint8_t, regionLength> region, std::size_t record)
{
    constexpr unsigned indexShift = 43;
    std::uint64_t word = 0;
    for (std::size_t byte = recordSize; byte-- > 0;) {
        word = (word << 8U) | region[record * recordSize + byte];
    }
    return static_cast<std::uint32_t>(word >> indexShift);
}

} // namespace

DecodedTable decodeTable(std::span<const std::uint8_t, regionLength> region)
{
    // The first index past the map is still taken: it fills up a table that would end too early.
    constexpr std::uint32_t lastIndex = pixelCount;
    constexpr std::uint32_t lineLength = width;

    DecodedTable table;
    table.map = cv::Mat::zeros(height, width, CV_8UC1);
    for (std::size_t record = 0; record < recordCount; ++record) {
        const std::uint32_t index = recordIndex(region, record);
        // The first record always counts, even with index 0; after it, index 0 ends the list.
        const bool taken = index <= lastIndex && (record == 0 || index > 0);
        if (!taken) {
            table.stalls = record == 1;
            break;
        }
        if (index < lastIndex) {
            table.map.at<std::uint8_t>(static_cast<int>(index / lineLength),
                                       static_cast<int>(index % lineLength)) = 1;
        }
        ++table.count;
    }
    return table;
}

} // namespace tavrel::bpr
