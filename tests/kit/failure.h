// SPDX-License-Identifier: MIT
// Fails the running test from inside a helper, which then goes on. The failure is reported at the
// line of the test that called the helper.
#pragma once

#include <QtCore/QString>

#include <source_location>

namespace kit {

/// A line of a test. A helper takes it as its last parameter, Place::current() by default.
using Place = std::source_location;

/// While one lives, failures belong to this line. Of several the outermost counts, because a helper
/// may call another one.
class CalledFrom {
public:
    explicit CalledFrom(const Place& place);
    ~CalledFrom();
    CalledFrom(const CalledFrom&) = delete;
    CalledFrom& operator=(const CalledFrom&) = delete;
};

/// The line to which a failure belongs now: that of the helper at work, or of the latest one.
Place calledFrom();

void fail(const QString& reason, const Place& place = calledFrom());

} // namespace kit
