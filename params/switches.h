// SPDX-License-Identifier: MIT
// Every feature of the camera that is on or off, as the camera knows it.
#pragma once

#include "sdk/ombrix_sdk.h"

namespace tavrel {

struct Switch {
    ombrix_sdk::Flag (ombrix_sdk::ICamera::*get)();
    ombrix_sdk::Flag (*set)(ombrix_sdk::ICamera& camera, bool on);
};

template<auto setter> ombrix_sdk::Flag send(ombrix_sdk::ICamera& camera, bool on)
{
    return (camera.*setter)(on);
}

inline ombrix_sdk::Flag sendNucControl(ombrix_sdk::ICamera& camera, bool on)
{
    return camera.setNucControl(on ? 2 : 0);
}

namespace feature {

using Camera = ombrix_sdk::ICamera;

// clang-format off
inline constexpr Switch vignettingCorrection{&Camera::getVignettingCorrection, &send<&Camera::setVignettingCorrection>};
inline constexpr Switch columnCorrection    {&Camera::getColumnCorrection,     &send<&Camera::setColumnCorrection>};
inline constexpr Switch nuc                 {&Camera::getNucControl,           &sendNucControl};
inline constexpr Switch testPattern         {&Camera::getTestPattern,          &send<&Camera::setTestPattern>};
inline constexpr Switch sdiOutput           {&Camera::getBt656SdiOutput,       &send<&Camera::setBt656SdiOutput>};
inline constexpr Switch parallelOutput      {&Camera::getParallelOutput,       &send<&Camera::setParallelOutput>};
inline constexpr Switch mipiOutput          {&Camera::getMipiOutput,           &send<&Camera::setMipiOutput>};
inline constexpr Switch polarity            {&Camera::getPolarity,             &send<&Camera::setPolarity>};
inline constexpr Switch horizontalFlip      {&Camera::getHorizontalFlip,       &send<&Camera::setHorizontalFlip>};
inline constexpr Switch bprCorrection       {&Camera::getBprCorrection,        &send<&Camera::setBprCorrection>};
inline constexpr Switch offsetCorrection    {&Camera::getOffsetCorrection,     &send<&Camera::setOffsetCorrection>};
inline constexpr Switch gainCorrection      {&Camera::getGainCorrection,       &send<&Camera::setGainCorrection>};
inline constexpr Switch verticalFlip        {&Camera::getVerticalFlip,         &send<&Camera::setVerticalFlip>};
// clang-format on

} // namespace feature

} // namespace tavrel
