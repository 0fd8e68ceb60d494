// The tour's steps, chapter by chapter, in the order in which they are taken.
#pragma once

#include "tour/operator.h"

namespace tour {

/// Start window, scan, connect; then a look at every tab.
void connectCamera(Operator& user);
void lookAtTabs(Operator& user);

} // namespace tour
