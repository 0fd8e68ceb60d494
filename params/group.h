// SPDX-License-Identifier: MIT
// What belongs together among the switches and the values of the camera.
#pragma once

namespace tavrel {

/// Switches and values that a read shows together, and that stand together where all are set.
enum class Group { ImageProcessing, Lut, Contrast, Filter, Zoom, Expert };

} // namespace tavrel
