// SPDX-License-Identifier: MIT
// An SDK that keeps the letter of the boundary and nothing else: every result, record, buffer and
// file that it hands out is drawn from a seed. It never throws, never answers with null where the
// boundary promises an object, and never hands out a table that ends at record 1, for which the
// tool waits for ever by design.
#pragma once

#include "sdk/ombrix_sdk.h"

#include <cstdint>
#include <string>

namespace hostile {

/// The same seed and the same calls give the same answers.
OMBRIX_SDK_API void start(std::uint64_t seed);

/// Everything logged since the last time, a line feed after each record.
OMBRIX_SDK_API std::string takeLogged();

} // namespace hostile
