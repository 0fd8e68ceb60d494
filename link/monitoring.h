// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>

namespace tavrel {

/// Time between two looks at the port and the temperatures while a camera is connected.
inline constexpr std::chrono::milliseconds monitoringInterval{1000};

} // namespace tavrel
