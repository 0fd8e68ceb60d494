// SPDX-License-Identifier: MIT
// The four detector values of the Expert tab.
#pragma once

#include "params/detectorvalues.h"
#include "params/mirroredpair.h"

#include <array>

namespace tavrel {

struct ExpertValue : DetectorValue {
    MirroredPair<double> mirrored; ///< one slider step is one unit
};

namespace expert {

inline constexpr ExpertValue gsk{detector::gsk, pair::gsk};
inline constexpr ExpertValue gfid{detector::gfid, pair::gfid};
inline constexpr ExpertValue gms{detector::gms, pair::gms};
inline constexpr ExpertValue tint{detector::tint, pair::tint};

} // namespace expert

/// In the order in which they are set up and read.
inline constexpr std::array<const ExpertValue*, 4> expertValues{&expert::gsk, &expert::gfid,
                                                                &expert::gms, &expert::tint};

} // namespace tavrel
