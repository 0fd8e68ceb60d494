// SPDX-License-Identifier: MIT
// The camera's two version words as the operator reads them.
#pragma once

#include <cstdint>
#include <string>

namespace tavrel {

/// Three hexadecimal digits with dots, of the low and of the high word of the camera's versions.
std::string processorVersion(std::uint32_t versions);
std::string fpgaVersion(std::uint32_t versions);

/// "60Hz", "9Hz", "MIPI 60Hz" or "MIPI 9Hz".
const char* variantName(std::uint32_t versions);

/// Two lines for the versions as the camera reports them: low 16 bits processor firmware, high 16
/// bits FPGA with the 9 Hz (bit 12) and MIPI (bit 13) variants.
std::string versionText(std::uint32_t versions);

} // namespace tavrel
