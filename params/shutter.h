// SPDX-License-Identifier: MIT
#pragma once

#include "sdk/ombrix_sdk.h"

namespace tavrel {

struct ShutterPosition {
    ombrix_sdk::Flag result; ///< 0: the camera does not tell
    bool closed;
};

/// Asks the camera. One that reports success without writing the position reads as closed.
ShutterPosition readShutter(ombrix_sdk::ICamera& camera);

} // namespace tavrel
