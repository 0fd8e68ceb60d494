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

#define SWITCH(group, name, word, get, set, ...)                                                   \
    inline constexpr Switch name{&ombrix_sdk::ICamera::get, &set};
#include "params/switches.def"

} // namespace feature

} // namespace tavrel
