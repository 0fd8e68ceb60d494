// SPDX-License-Identifier: MIT
#include "simulator/operations.h"

#include "sdk/ombrix_sdk.h"
#include "simulator/badpixels.h"

#include <array>
#include <initializer_list>
#include <type_traits>

namespace simulator {
namespace {

using namespace ombrix_sdk;

/// Bytes that a record needs on the link: its fields, without what fills it up in memory.
template<typename Record> constexpr int fieldBytes = sizeof(Record);
template<> constexpr int fieldBytes<EdgeCorrection> = 3 * sizeof(std::uint32_t) + 1;
template<> constexpr int fieldBytes<Zoom> = 3 * sizeof(std::uint32_t) + 1;

/// Bytes of an argument: numbers and constant records are sent, the other records come back. The
/// content of a buffer without a type is not counted.
template<typename Argument> constexpr Transfer transferOf()
{
    using Pointee = std::remove_pointer_t<Argument>;
    if constexpr (!std::is_pointer_v<Argument>) {
        return {.sent = sizeof(Argument)};
    } else if constexpr (std::is_void_v<Pointee>) {
        return {};
    } else if constexpr (std::is_const_v<Pointee>) {
        return {.sent = fieldBytes<std::remove_const_t<Pointee>>};
    } else {
        return {.received = fieldBytes<Pointee>};
    }
}

/// An operation answers with the record that it fills, or else with its result, if only with the
/// byte that says that it was done.
template<typename Result, typename... Arguments>
constexpr Transfer transferOf(Result (ICamera::*)(Arguments...))
{
    Transfer all;
    for (const Transfer& one : std::initializer_list<Transfer>{transferOf<Arguments>()...}) {
        all.sent += one.sent;
        all.received += one.received;
    }
    if (all.received == 0) {
        all.received = 1;
        if constexpr (std::is_arithmetic_v<Result>) {
            all.received = sizeof(Result);
        }
    }
    return all;
}

// The index of a region is one byte on the link.
constexpr Transfer readCoordinate{.sent = 1, .received = 4};
constexpr Transfer writeCoordinate{.sent = 4 + 1 + 3, .received = 1};

/// What an operation answers; getVersions answers with the word that it fills.
template<typename Result, typename... Arguments>
constexpr std::optional<Kind> answerOf(Result (ICamera::*)(Arguments...))
{
    if constexpr (std::is_same_v<Result, std::uint8_t>) {
        return Kind::Byte;
    } else if constexpr (std::is_same_v<Result, std::int32_t>) {
        return Kind::Whole;
    } else if constexpr (std::is_same_v<Result, std::uint32_t> ||
                         (std::is_same_v<Arguments, std::uint32_t*> || ...)) {
        return Kind::Word;
    } else {
        return std::nullopt;
    }
}

/// What the types do not tell: how long a table is, and what the library does without the camera.
constexpr OperationFacts factsOf(Operation operation, const char* name, Transfer transfer,
                                 std::optional<Kind> answer)
{
    switch (operation) {
    case Operation::loadBadPixelList:
    case Operation::addBadPixels:
    case Operation::removeBadPixels:
        return {name, std::nullopt, answer};
    case Operation::readTableData:
        transfer.received = tableLength;
        break;
    case Operation::writeTableData:
        transfer.sent += tableLength;
        break;
    default:
        break;
    }
    return {name, transfer, answer};
}

constexpr std::array<OperationFacts, operationCount> operationRows = {{
    {"getCommunicationType", std::nullopt, std::nullopt},
    {"saveConfiguration", std::nullopt, std::nullopt},
    {"openCamera", Transfer{.sent = 0, .received = 4}, std::nullopt},
#define FACTS(name, transfer) factsOf(Operation::name, #name, transfer, answerOf(&ICamera::name)),
#define CAMERA(Result, name, arguments) FACTS(name, transferOf(&ICamera::name))
#define GET_ROI(name, coordinate) FACTS(name, readCoordinate)
#define SET_ROI(name, coordinate) FACTS(name, writeCoordinate)
#include "sdk/operations.def"
#undef FACTS
}};

constexpr int frameBytes = 12;  ///< head and checksum around every request and every answer
constexpr int bitsPerByte = 10; ///< eight data bits between a start and a stop bit

} // namespace

const OperationFacts& factsOf(Operation operation)
{
    return operationRows[static_cast<std::size_t>(operation)];
}

QString nameOf(Operation operation)
{
    return QString::fromLatin1(factsOf(operation).name);
}

qint64 timeOnTheLink(Operation operation, std::uint32_t baudRate)
{
    const std::optional<Transfer>& transfer = factsOf(operation).transfer;
    if (!transfer || baudRate == 0) {
        return 0;
    }
    const qint64 bytes = frameBytes + transfer->sent + frameBytes + transfer->received;
    return bytes * bitsPerByte * 1'000'000 / baudRate;
}

} // namespace simulator
