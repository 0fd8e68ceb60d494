// SPDX-License-Identifier: MIT
// The four values that tune the detector, as camera and SDK configuration hold them.
#pragma once

#include "sdk/ombrix_sdk.h"

#include <cstdint>

namespace tavrel {

struct DetectorValue {
    const char* name;
    std::uint32_t (ombrix_sdk::ICamera::*get)();
    ombrix_sdk::Flag (ombrix_sdk::ICamera::*set)(std::uint32_t value);
    std::int32_t ombrix_sdk::ISdkConfiguration::*configured;
    std::int32_t ombrix_sdk::ISdkConfiguration::*minimum;
    std::int32_t ombrix_sdk::ISdkConfiguration::*maximum;
    bool hasLimits; ///< whether what may be entered is held to the configured limits
};

namespace detector {

using Camera = ombrix_sdk::ICamera;
using Configuration = ombrix_sdk::ISdkConfiguration;

// clang-format off
inline constexpr DetectorValue gsk{
    "GSK", &Camera::getGsk, &Camera::setGsk,
    &Configuration::gskValue, &Configuration::gskMin, &Configuration::gskMax, true};
inline constexpr DetectorValue gfid{
    "GFID", &Camera::getGfid, &Camera::setGfid,
    &Configuration::gfidValue, &Configuration::gfidMin, &Configuration::gfidMax, true};
// GMS keeps its wide range, so its spin box can show more than its slider.
inline constexpr DetectorValue gms{
    "GMS", &Camera::getGms, &Camera::setGms,
    &Configuration::gmsValue, &Configuration::gmsMin, &Configuration::gmsMax, false};
inline constexpr DetectorValue tint{
    "TINT", &Camera::getTint, &Camera::setTint,
    &Configuration::tintValue, &Configuration::tintMin, &Configuration::tintMax, true};
// clang-format on

} // namespace detector

} // namespace tavrel
