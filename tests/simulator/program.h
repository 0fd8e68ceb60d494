// SPDX-License-Identifier: MIT
// A process of its own that uses the simulated SDK, and what it says.
#pragma once

#include <QtCore/QStringList>

namespace program {

struct Output {
    int exitCode = -1; ///< -1: it did not end
    QStringList standardOutput;
    QStringList standardError;
};

/// Runs the probe in the current directory with no other variables of the simulator than these.
Output run(const QStringList& variables = {}, const QStringList& arguments = {});

/// The lines of a log as "event    text"; one without time and mark says so.
QStringList withoutTime(QStringList lines);

} // namespace program
