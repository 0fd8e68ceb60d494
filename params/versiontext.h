// SPDX-License-Identifier: MIT
// The camera's two version words as the operator reads them.
#pragma once

#include <cstdint>
#include <string>

namespace tavrel {

/// Two lines for the versions as the camera reports them: low 16 bits processor firmware, high 16
/// bits FPGA with the 9 Hz (bit 12) and MIPI (bit 13) variants.
std::string versionText(std::uint32_t versions);

} // namespace tavrel
