// SPDX-License-Identifier: MIT
// The regions of interest as the camera knows them.
#pragma once

#include "sdk/ombrix_sdk.h"

#include <array>
#include <cstdint>

namespace tavrel {

/// In the order of the index that every camera operation takes. The first one is always on.
inline constexpr std::array<const char*, 4> regionNames{"ROI0 inclusive", "ROI0 exclusive",
                                                        "ROI1 inclusive", "ROI1 exclusive"};

/// The camera tells by its first coordinate whether a region is on.
constexpr bool isRegionOn(std::uint32_t x1)
{
    return x1 != 0;
}

/// The rule of a region's two coordinates in one direction.
constexpr bool areInOrder(std::int64_t low, std::int64_t high)
{
    return low <= high;
}

/// One of the four coordinates of every region.
struct RegionCoordinate {
    const char* name;
    std::uint32_t (ombrix_sdk::ICamera::*get)(std::uint32_t region);
    ombrix_sdk::Flag (ombrix_sdk::ICamera::*set)(std::uint32_t coordinate, std::uint32_t region,
                                                 bool roi1Inclusive, bool roi0Exclusive,
                                                 bool roi1Exclusive);
};

inline constexpr RegionCoordinate regionX1{"X1", &ombrix_sdk::ICamera::getRoiX1,
                                           &ombrix_sdk::ICamera::setRoiX1};
inline constexpr RegionCoordinate regionX2{"X2", &ombrix_sdk::ICamera::getRoiX2,
                                           &ombrix_sdk::ICamera::setRoiX2};
inline constexpr RegionCoordinate regionY1{"Y1", &ombrix_sdk::ICamera::getRoiY1,
                                           &ombrix_sdk::ICamera::setRoiY1};
inline constexpr RegionCoordinate regionY2{"Y2", &ombrix_sdk::ICamera::getRoiY2,
                                           &ombrix_sdk::ICamera::setRoiY2};

} // namespace tavrel
