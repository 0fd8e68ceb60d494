// SPDX-License-Identifier: MIT
// The frame rates of the camera, in the order of their combo box.
#pragma once

#include <cstdint>

namespace tavrel {

/// Hertz of a combo box index; 0 for an index outside the list.
std::uint8_t frameRateAt(int index);

/// Combo box index of a rate in hertz; fallback for a rate outside the list.
int frameRateIndex(std::uint8_t hertz, int fallback);

} // namespace tavrel
