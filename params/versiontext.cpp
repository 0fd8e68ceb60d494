// SPDX-License-Identifier: MIT
#include "params/versiontext.h"

#include <array>
#include <locale>
#include <sstream>

namespace tavrel {

std::string versionText(std::uint32_t versions)
{
    const std::uint32_t processor = versions & 0xFFFFU;
    const std::uint32_t fpga = versions >> 16U;
    //                                              9 Hz is bit 0 of the index, MIPI bit 1
    static constexpr std::array<const char*, 4> variants{" 60Hz", " 9Hz", " MIPI 60Hz",
                                                         " MIPI 9Hz"};
    std::ostringstream stream;
    stream.imbue(std::locale::classic());
    stream << std::hex;
    const auto digits = [&stream](std::uint32_t word) {
        stream << ((word >> 8U) & 0xFU) << '.' << ((word >> 4U) & 0xFU) << '.' << (word & 0xFU);
    };
    stream << "RISC-V version = ";
    digits(processor);
    stream << "\nFPGA version = ";
    digits(fpga);
    stream << variants.at((fpga >> 12U) & 0x3U);
    return stream.str();
}

} // namespace tavrel
