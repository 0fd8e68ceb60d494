// SPDX-License-Identifier: MIT
// How much work another process has done.
#pragma once

#include <QtCore/QtGlobal>

namespace tablefiles {

/// Processor time that a process has used so far, in seconds; below 0 when it is gone.
double processorTime(qint64 process);

} // namespace tablefiles
