// SPDX-License-Identifier: MIT
#include "params/versiontext.h"

#include <array>

namespace tavrel {

namespace {

std::string digits(std::uint32_t word)
{
    static constexpr char names[] = "0123456789abcdef";
    const auto digit = [&](unsigned place) {
        return names[(word >> place) & 0xFU];
    };
    return {digit(8), '.', digit(4), '.', digit(0)};
}

} // namespace

std::string processorVersion(std::uint32_t versions)
{
    return digits(versions & 0xFFFFU);
}

std::string fpgaVersion(std::uint32_t versions)
{
    return digits(versions >> 16U);
}

const char* variantName(std::uint32_t versions)
{
    const std::uint32_t fpga = versions >> 16U;
    //                                             9 Hz is bit 0 of the index, MIPI bit 1
    static constexpr std::array<const char*, 4> variants{"60Hz", "9Hz", "MIPI 60Hz", "MIPI 9Hz"};
    return variants.at((fpga >> 12U) & 0x3U);
}

std::string versionText(std::uint32_t versions)
{
    return "RISC-V version = " + processorVersion(versions) +
           "\nFPGA version = " + fpgaVersion(versions) + ' ' + variantName(versions);
}

} // namespace tavrel
