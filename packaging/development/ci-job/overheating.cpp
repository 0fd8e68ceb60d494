// SPDX-License-Identifier: MIT
#include "overheating.h"

Overheating overheatingOf(ombrix_sdk::ICamera& camera)
{
    constexpr float tooWarm = 343'150; // milli-kelvin, 70 degrees
    ombrix_sdk::Temperatures temperatures{};
    if (camera.getTemperatures(&temperatures) == 0) {
        return Overheating::Unknown;
    }
    return temperatures.sensor > tooWarm ? Overheating::Yes : Overheating::No;
}
