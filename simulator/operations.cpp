// SPDX-License-Identifier: MIT
#include "simulator/operations.h"

#include "sdk/ombrix_sdk.h"
#include "simulator/badpixels.h"
#include "simulator/records.h"

#include <QtCore/QStringList>

#include <algorithm>
#include <array>
#include <initializer_list>
#include <limits>
#include <tuple>
#include <type_traits>

namespace simulator {
namespace {

using namespace ombrix_sdk;

/// Bytes that a record needs on the link: its fields, without what fills it up in memory.
template<typename Record> constexpr int fieldBytes()
{
    Record record{};
    return std::apply([](const auto&... fields) { return static_cast<int>((sizeof fields + ...)); },
                      fieldsOf(record));
}
template<> constexpr int fieldBytes<std::uint32_t>()
{
    return sizeof(std::uint32_t);
}

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
        return {.sent = fieldBytes<std::remove_const_t<Pointee>>()};
    } else {
        return {.received = fieldBytes<Pointee>()};
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

using Kinds = std::vector<Kind> (*)();

/// The fields of the record that an operation fills.
template<typename Result, typename... Arguments>
constexpr Kinds recordOf(Result (ICamera::*)(Arguments...))
{
    Kinds kinds = nullptr;
    [[maybe_unused]] const auto look = [&kinds]<typename Argument>(std::type_identity<Argument>) {
        using Record = std::remove_pointer_t<Argument>;
        if constexpr (std::is_pointer_v<Argument> && HasFields<Record> &&
                      !std::is_const_v<Record>) {
            kinds = &kindsOf<Record>;
        }
    };
    (look(std::type_identity<Arguments>()), ...);
    return kinds;
}

/// What the types do not tell: how long a table is, and what the library does without the camera.
constexpr OperationFacts refine(Operation operation, OperationFacts facts)
{
    switch (operation) {
    case Operation::loadBadPixelList:
    case Operation::addBadPixels:
    case Operation::removeBadPixels:
        return {facts.name, std::nullopt, facts.answer, facts.arguments, facts.record};
    case Operation::readTableData:
        facts.transfer->received = tableLength;
        break;
    case Operation::writeTableData:
        facts.transfer->sent += tableLength;
        break;
    default:
        break;
    }
    return facts;
}

constexpr std::array<OperationFacts, operationCount> operationRows = {{
    {"getCommunicationType", std::nullopt, std::nullopt, "()", nullptr},
    {"saveConfiguration", std::nullopt, std::nullopt, "()", nullptr},
    {"openCamera", Transfer{.sent = 0, .received = 4}, std::nullopt, "(const char* portName)",
     nullptr},
#define FACTS(name, transfer, arguments)                                                           \
    refine(Operation::name,                                                                        \
           {#name, transfer, answerOf(&ICamera::name), arguments, recordOf(&ICamera::name)}),
#define CAMERA(Result, name, arguments) FACTS(name, transferOf(&ICamera::name), #arguments)
#define GET_ROI(name, coordinate) FACTS(name, readCoordinate, "(std::uint32_t region)")
#define SET_ROI(name, coordinate)                                                                  \
    FACTS(name, writeCoordinate,                                                                   \
          "(std::uint32_t " #coordinate ", std::uint32_t region, bool roi1Inclusive, "             \
          "bool roi0Exclusive, bool roi1Exclusive)")
#include "sdk/operations.def"
#undef FACTS
}};

std::int64_t highestOf(const QString& argument)
{
    if (argument.startsWith(QLatin1String("bool "))) {
        return 1;
    }
    return argument.startsWith(QLatin1String("std::uint8_t "))
               ? std::numeric_limits<std::uint8_t>::max()
               : std::numeric_limits<std::uint32_t>::max();
}

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

std::optional<Operation> operationNamed(const QString& name)
{
    for (std::size_t number = 0; number < operationCount; ++number) {
        if (name == QLatin1String(operationRows[number].name)) {
            return static_cast<Operation>(number);
        }
    }
    return std::nullopt;
}

bool isInLibrary(const QString& name)
{
    constexpr auto names = std::to_array<const char*>({
#define OPERATION(Interface, Result, name, arguments) #name,
#include "sdk/operations.def"
    });
    return std::any_of(names.begin(), names.end(),
                       [&name](const char* known) { return name == QLatin1String(known); });
}

std::optional<NumberArgument> argumentNamed(Operation operation, const QString& name)
{
    const QString declared = QString::fromLatin1(factsOf(operation).arguments);
    const QStringList arguments =
        declared.mid(1, declared.size() - 2).split(QStringLiteral(", "), Qt::SkipEmptyParts);
    for (int place = 0; place < arguments.size(); ++place) {
        const QString& argument = arguments.at(place);
        const bool isNumber =
            !argument.contains(QLatin1Char('*')) && !argument.contains(QLatin1Char('&'));
        if (isNumber && argument.endsWith(QLatin1Char(' ') + name)) {
            return NumberArgument{static_cast<std::size_t>(place), highestOf(argument)};
        }
    }
    return std::nullopt;
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
