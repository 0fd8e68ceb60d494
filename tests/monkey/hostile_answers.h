// SPDX-License-Identifier: MIT
// What the hostile SDK answers, by kind of result.
#pragma once

#include "sdk/ombrix_sdk.h"
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

/// Anything that the type can hold, what is odd more often than chance has it.
template<typename Type> Type any();

template<> inline std::uint8_t any()
{
    return static_cast<std::uint8_t>(draw().oneIn(2) ? draw().below(10) : draw().bits());
}

/// Any 32 bits; small values, every magnitude and the ends of the range all come often.
template<> inline std::uint32_t any()
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

template<> inline std::int32_t any()
{
    return std::bit_cast<std::int32_t>(any<std::uint32_t>());
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
        return static_cast<Real>(any<std::int32_t>()) / 16;
    }
}

template<> inline float any()
{
    return real<float, std::uint32_t>();
}

template<> inline double any()
{
    return real<double, std::uint64_t>();
}

template<> inline ombrix_sdk::Temperatures any()
{
    return {any<float>(), any<float>()};
}

template<> inline ombrix_sdk::OperatingTime any()
{
    return {any<std::uint32_t>(), any<std::uint32_t>()};
}

template<> inline ombrix_sdk::EdgeCorrection any()
{
    return {any<std::uint8_t>(), any<std::uint32_t>(), any<std::uint32_t>(), any<std::uint32_t>()};
}

template<> inline ombrix_sdk::Zoom any()
{
    return {any<float>(), any<std::int32_t>(), any<std::int32_t>(), any<std::uint8_t>()};
}

template<> inline ombrix_sdk::ZoomResolution any()
{
    return {any<std::uint32_t>(), any<std::uint32_t>()};
}

template<> inline ombrix_sdk::AhcGainsLimitation any()
{
    return {any<std::uint8_t>(), any<std::uint8_t>()};
}

/// Fills a record or a byte, or leaves it as the caller prepared it.
template<typename Record> void fill(Record* record, const Record& content)
{
    if (!draw().oneIn(5)) {
        *record = content;
    }
}

} // namespace hostile
