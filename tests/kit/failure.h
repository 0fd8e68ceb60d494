// SPDX-License-Identifier: MIT
// Fails the running test from inside a helper, which then goes on.
#pragma once

#include <QtCore/QString>

namespace kit {

void fail(const QString& reason);

} // namespace kit
