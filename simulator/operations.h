// SPDX-License-Identifier: MIT
// The operations of the boundary that can take time or go wrong: as plans, the journal and the
// latency know them.
#pragma once

#include "simulator/fields.h"

#include <QtCore/QString>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace simulator {

enum class Operation : std::size_t {
    // Of the SDK and the link.
    getCommunicationType,
    saveConfiguration,
    openCamera,
#define CAMERA(Result, name, arguments) name,
#include "sdk/operations.def"
    count
};

constexpr Operation firstCameraOperation = Operation::getVersions;
constexpr std::size_t operationCount = static_cast<std::size_t>(Operation::count);

/// Bytes of a request and of the answer to it, without their frames.
struct Transfer {
    int sent = 0;
    int received = 0;
};

struct OperationFacts {
    const char* name;
    std::optional<Transfer> transfer; ///< nothing: the library's own work, without the camera
    std::optional<Kind> answer;       ///< what its answer is when it is a number
    const char* arguments;            ///< as they are declared
    std::vector<Kind> (*record)();    ///< kinds of the fields that it fills; null: it fills none
};

const OperationFacts& factsOf(Operation operation);

QString nameOf(Operation operation);

/// The operation of a name, or nothing.
std::optional<Operation> operationNamed(const QString& name);

/// Whether the library has an operation of this name, one without faults included.
bool isInLibrary(const QString& name);

/// An argument that is a number.
struct NumberArgument {
    std::size_t place;    ///< among the operation's arguments
    std::int64_t highest; ///< that its type holds; of a switch 1
};

/// The argument of a name, or nothing when the operation has no such number.
std::optional<NumberArgument> argumentNamed(Operation operation, const QString& name);

/// Time in microseconds that the operation's bytes need at the baud rate, frames included.
qint64 timeOnTheLink(Operation operation, std::uint32_t baudRate);

} // namespace simulator
