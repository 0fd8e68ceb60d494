// SPDX-License-Identifier: MIT
// The fields of the boundary's records, in their order: what the journal writes of them, what a
// plan says of them, and what they need on the link.
#pragma once

#include "sdk/ombrix_sdk.h"
#include "simulator/fields.h"

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <tuple>
#include <type_traits>
#include <vector>

namespace simulator {

template<typename Type, typename Record>
concept Either = std::same_as<std::remove_const_t<Type>, Record>;

constexpr auto fieldsOf(Either<ombrix_sdk::Temperatures> auto& record)
{
    return std::tie(record.sensor, record.fpga);
}

constexpr auto fieldsOf(Either<ombrix_sdk::OperatingTime> auto& record)
{
    return std::tie(record.minutes, record.startups);
}

constexpr auto fieldsOf(Either<ombrix_sdk::EdgeCorrection> auto& record)
{
    return std::tie(record.type, record.gain, record.firstThreshold, record.secondThreshold);
}

constexpr auto fieldsOf(Either<ombrix_sdk::Zoom> auto& record)
{
    return std::tie(record.factor, record.xCenter, record.yCenter, record.method);
}

constexpr auto fieldsOf(Either<ombrix_sdk::ZoomResolution> auto& record)
{
    return std::tie(record.x, record.y);
}

constexpr auto fieldsOf(Either<ombrix_sdk::AhcGainsLimitation> auto& record)
{
    return std::tie(record.black, record.white);
}

/// A byte that is filled like a record.
constexpr auto fieldsOf(Either<std::uint8_t> auto& record)
{
    return std::tie(record);
}

template<typename Record>
concept HasFields = requires(Record& record)
{
    fieldsOf(record);
};

/// The kind of a number that crosses the boundary.
template<typename Number> constexpr Kind kindOf()
{
    if constexpr (std::is_same_v<Number, float>) {
        return Kind::Single;
    } else if constexpr (std::is_same_v<Number, std::uint8_t>) {
        return Kind::Byte;
    } else {
        return std::is_signed_v<Number> ? Kind::Whole : Kind::Word;
    }
}

/// The kinds of a record's fields.
template<HasFields Record> std::vector<Kind> kindsOf()
{
    Record record{};
    return std::apply(
        [](auto&... fields) {
            return std::vector<Kind>{kindOf<std::remove_reference_t<decltype(fields)>>()...};
        },
        fieldsOf(record));
}

/// Fills a record with numbers, one for each field, that are known to be of its kinds.
template<HasFields Record> void fillIn(Record& record, const std::vector<double>& numbers)
{
    std::size_t next = 0;
    std::apply(
        [&](auto&... fields) {
            ((fields = as<std::remove_reference_t<decltype(fields)>>(numbers.at(next++))), ...);
        },
        fieldsOf(record));
}

} // namespace simulator
