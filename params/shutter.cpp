// SPDX-License-Identifier: MIT
#include "params/shutter.h"

namespace tavrel {

ShutterPosition readShutter(ombrix_sdk::ICamera& camera)
{
    std::uint8_t position = 0x37;
    const ombrix_sdk::Flag result = camera.getShutterPosition(&position);
    return {result, position != 0};
}

} // namespace tavrel
