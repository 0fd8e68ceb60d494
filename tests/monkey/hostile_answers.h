// SPDX-License-Identifier: MIT
// What the hostile SDK answers, by kind of result.
#pragma once

#include "tests/monkey/draw.h"

#include <array>
#include <bit>
#include <cstdint>
#include <limits>

namespace hostile {

/// The one source of all answers.
monkey::Draw& draw();

/// Any byte, 1 and 0 more often than the others.
inline std::uint8_t flag()
{
    const std::size_t kind = draw().below(10);
    if (kind < 6) {
        return 1;
    }
    return kind < 8 ? std::uint8_t{0} : static_cast<std::uint8_t>(draw().bits());
}

inline std::uint8_t byte()
{
    return static_cast<std::uint8_t>(draw().oneIn(2) ? draw().below(10) : draw().bits());
}

/// Any 32 bits; small values, every magnitude and the ends of the range all come often.
inline std::uint32_t word()
{
    static constexpr std::array<std::uint32_t, 8> ends = {
        0, 1, 0x7FFFFFFE, 0x7FFFFFFF, 0x80000000, 0x80000001, 0xFFFFFFFE, 0xFFFFFFFF};
    switch (draw().below(4)) {
    case 0:
        return static_cast<std::uint32_t>(draw().below(700));
    case 1:
        return draw().oneOf(ends);
    default:
        return static_cast<std::uint32_t>(draw().bits()) >> draw().below(32);
    }
}

inline std::int32_t number()
{
    return std::bit_cast<std::int32_t>(word());
}

/// Any bit pattern of the type, the special ones more often than chance has it.
template<typename Real, typename Bits> Real real()
{
    using Limits = std::numeric_limits<Real>;
    static constexpr std::array<Real, 9> specials = {
        Limits::quiet_NaN(), Limits::signaling_NaN(), Limits::infinity(),
        -Limits::infinity(), Limits::max(),           Limits::lowest(),
        Limits::min(),       Limits::denorm_min(),    -Real{0}};
    switch (draw().below(3)) {
    case 0:
        return draw().oneOf(specials);
    case 1:
        return std::bit_cast<Real>(static_cast<Bits>(draw().bits()));
    default:
        return static_cast<Real>(number()) / 16;
    }
}

inline float shortReal()
{
    return real<float, std::uint32_t>();
}

inline double longReal()
{
    return real<double, std::uint64_t>();
}

/// Fills a record or a byte, or leaves it as the caller prepared it.
template<typename Record> void fill(Record* record, const Record& content)
{
    if (!draw().oneIn(5)) {
        *record = content;
    }
}

} // namespace hostile
