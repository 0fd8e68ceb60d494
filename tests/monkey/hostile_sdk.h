// SPDX-License-Identifier: MIT
// An SDK that keeps the letter of the boundary and nothing else: every result, record, buffer and
// file that it hands out is drawn from a seed. What is closed or released is freed, so that a
// sanitizer sees every later use. It never throws, never answers with null where the
// boundary promises an object, and never hands out a table that ends at record 1, for which the
// tool waits for ever by design.
#pragma once

#include "sdk/ombrix_sdk.h"

#include <cstdint>
#include <string>

namespace hostile {

/// The same seed and the same calls give the same answers.
OMBRIX_SDK_API void start(std::uint64_t seed);

/// Whether the camera that was opened last has been closed: the tool still knows it, and a handler
/// called by its name would use it.
OMBRIX_SDK_API bool cameraClosed();

/// Everything logged since the last time, a line feed after each record.
OMBRIX_SDK_API std::string takeLogged();

} // namespace hostile
