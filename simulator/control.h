// SPDX-License-Identifier: MIT
// What a test does to the simulator behind the program's back. Exported beside the boundary.
#pragma once

#include "sdk/ombrix_sdk.h"

#include <cstdint>

namespace ombrix_simulator {

/// Forgets everything but the memory on disk and reads environment, settings and plan again, as if
/// the program were started anew. Links and cameras of before are closed.
OMBRIX_SDK_API void restart();

/// Switches every camera's power off and on.
OMBRIX_SDK_API void cyclePower();

/// Moves the simulator's clock forward.
OMBRIX_SDK_API void advanceClock(std::int64_t milliseconds);

} // namespace ombrix_simulator
