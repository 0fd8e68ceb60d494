// SPDX-License-Identifier: MIT
// The four detector values of the Expert tab.
#pragma once

#include "params/detectorvalues.h"
#include "params/mirroredpair.h"

#include <array>

namespace tavrel {

struct ExpertValue : DetectorValue {
    DecimalPair pair; ///< one slider step is one unit
};

namespace expert {

using Ui = Ui_MainWindow;

// clang-format off
inline constexpr ExpertValue gsk {detector::gsk,  {&Ui::gskSlider,  &Ui::gskEdit,  {1.0, 1.0, 0.0}}};
inline constexpr ExpertValue gfid{detector::gfid, {&Ui::gfidSlider, &Ui::gfidEdit, {1.0, 1.0, 0.0}}};
inline constexpr ExpertValue gms {detector::gms,  {&Ui::gmsSlider,  &Ui::gmsEdit,  {1.0, 1.0, 0.0}}};
inline constexpr ExpertValue tint{detector::tint, {&Ui::tintSlider, &Ui::tintEdit, {1.0, 1.0, 0.0}}};
// clang-format on

} // namespace expert

/// In the order in which they are set up and read.
inline constexpr std::array<const ExpertValue*, 4> expertValues{&expert::gsk, &expert::gfid,
                                                                &expert::gms, &expert::tint};

} // namespace tavrel
