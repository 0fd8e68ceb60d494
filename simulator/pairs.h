// SPDX-License-Identifier: MIT
// Pairs of key=value that somebody gives from outside, one in a line.
#pragma once

#include <QtCore/QStringList>

namespace simulator {

/// Why the lines are not pairs, each of another key; empty when they are.
QString reasonAgainstPairs(const QStringList& lines);

} // namespace simulator
