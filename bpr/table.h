// SPDX-License-Identifier: MIT
// The camera's bad pixel replacement table and its decoding into a bad pixel map.
#pragma once

#include <opencv2/core/mat.hpp>

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace tavrel::bpr {

inline constexpr int width = 640;
inline constexpr int height = 480;
inline constexpr int pixelCount = width * height;

/// Where the table lies in the camera's table memory, and how long it is, in bytes.
inline constexpr std::uint32_t regionOffset = 4096;
inline constexpr std::uint32_t regionLength = 8192;

/// The camera wants one table id for reading and another one for writing the same region.
inline constexpr std::uint8_t readTableId = 9;
inline constexpr std::uint8_t writeTableId = 8;

inline constexpr std::size_t recordSize = 8;

/// Most bad pixels that the tool takes from a camera or sends to it.
inline constexpr int badPixelLimit = 1024;

using Region = std::array<std::uint8_t, regionLength>;

struct DecodedTable {
    cv::Mat map;         ///< height rows of width bytes, 1 for a bad pixel, 0 for a good one
    int count = 0;       ///< records taken, repeated pixels included
    bool stalls = false; ///< the table ends at record 1, which a reader never gets past
};

/// Decodes a table region. A record is a little-endian 64-bit word whose top 21 bits are the linear
/// index of a bad pixel. Takes any content and never reads beyond the region.
DecodedTable decodeTable(std::span<const std::uint8_t, regionLength> region);

} // namespace tavrel::bpr
