// SPDX-License-Identifier: MIT
#include "params/conversions.h"

#include <cmath>
#include <limits>
#include <locale>
#include <sstream>

namespace tavrel {

namespace {
constexpr double fixedPointOne = 65536.0;
}

int saturatedInt(double value)
{
    using Limits = std::numeric_limits<int>;
    if (std::isnan(value)) {
        return 0;
    }
    if (value <= Limits::min()) {
        return Limits::min();
    }
    if (value >= Limits::max()) {
        return Limits::max();
    }
    return static_cast<int>(value);
}

int saturatedInt(std::uint64_t value)
{
    constexpr auto largest = std::numeric_limits<int>::max();
    return value > static_cast<std::uint64_t>(largest) ? largest : static_cast<int>(value);
}

std::uint32_t lowWord(double value)
{
    // No spin box comes near the ends of 64 bits; the bounds only keep the conversion defined.
    constexpr double bound = 9.0e18;
    if (!(value > -bound && value < bound)) {
        return 0;
    }
    return static_cast<std::uint32_t>(static_cast<std::int64_t>(value));
}

std::uint8_t lowByte(int value)
{
    return static_cast<std::uint8_t>(static_cast<unsigned>(value) & 0xFFU);
}

std::uint32_t fixedPoint(double gamma)
{
    return lowWord(gamma * fixedPointOne);
}

double fromFixedPoint(std::uint32_t gamma)
{
    // Single precision on the way is the operators' reading.
    return static_cast<double>(static_cast<float>(gamma)) / fixedPointOne;
}

std::string numberText(double value)
{
    std::ostringstream stream;
    stream.imbue(std::locale::classic());
    stream << value;
    return stream.str();
}

} // namespace tavrel
