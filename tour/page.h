// SPDX-License-Identifier: MIT
// The page that shows pictures and log side by side; one file that needs no other.
#pragma once

#include "tour/report.h"

namespace tour {

/// Writes index.html into the report's folder.
void writePage(const Report& report);

} // namespace tour
