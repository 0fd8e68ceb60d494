// SPDX-License-Identifier: MIT
// The four detector values of the Expert tab.
#pragma once

#include "params/mirroredpair.h"
#include "sdk/ombrix_sdk.h"

#include <array>
#include <cstdint>

namespace tavrel {

struct ExpertValue {
    const char* name;
    DecimalPair pair; ///< one slider step is one unit
    std::uint32_t (ombrix_sdk::ICamera::*get)();
    ombrix_sdk::Flag (ombrix_sdk::ICamera::*set)(std::uint32_t value);
    std::int32_t ombrix_sdk::ISdkConfiguration::*configured;
    std::int32_t ombrix_sdk::ISdkConfiguration::*minimum;
    std::int32_t ombrix_sdk::ISdkConfiguration::*maximum;
    bool boxHasLimits; ///< whether the spin box takes the configured limits, too
};

namespace expert {

using Ui = Ui_MainWindow;
using Camera = ombrix_sdk::ICamera;
using Configuration = ombrix_sdk::ISdkConfiguration;

// clang-format off
inline constexpr ExpertValue gsk{
    "GSK", {&Ui::gskSlider, &Ui::gskEdit, 1.0, 1.0, 0.0}, &Camera::getGsk, &Camera::setGsk,
    &Configuration::gskValue, &Configuration::gskMin, &Configuration::gskMax, true};
inline constexpr ExpertValue gfid{
    "GFID", {&Ui::gfidSlider, &Ui::gfidEdit, 1.0, 1.0, 0.0}, &Camera::getGfid, &Camera::setGfid,
    &Configuration::gfidValue, &Configuration::gfidMin, &Configuration::gfidMax, true};
// The GMS box keeps its wide range, so it can show more than its slider.
inline constexpr ExpertValue gms{
    "GMS", {&Ui::gmsSlider, &Ui::gmsEdit, 1.0, 1.0, 0.0}, &Camera::getGms, &Camera::setGms,
    &Configuration::gmsValue, &Configuration::gmsMin, &Configuration::gmsMax, false};
inline constexpr ExpertValue tint{
    "TINT", {&Ui::tintSlider, &Ui::tintEdit, 1.0, 1.0, 0.0}, &Camera::getTint, &Camera::setTint,
    &Configuration::tintValue, &Configuration::tintMin, &Configuration::tintMax, true};
// clang-format on

} // namespace expert

/// In the order in which they are set up and read.
inline constexpr std::array<const ExpertValue*, 4> expertValues{&expert::gsk, &expert::gfid,
                                                                &expert::gms, &expert::tint};

} // namespace tavrel
