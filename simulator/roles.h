// SPDX-License-Identifier: MIT
// What each of the simulator's files is for. One file has one role: what is written must not be
// what is read.
#pragma once

#include <QtCore/QStringList>

namespace simulator {

struct Settings;

/// Leaves a file that has two roles to the one that reads it, or that comes first in the settings,
/// and takes its path from the other. Opens nothing. Returns a line for each.
QStringList keepRolesApart(Settings& settings);

} // namespace simulator
