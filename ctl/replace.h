// SPDX-License-Identifier: MIT
// Files that the program writes for its user.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace tavrel::ctl {

/// Replaces a file, or the one that a link leads to, as a whole; throws and leaves what was there
/// when it cannot.
void replaceFile(const QString& file, const QByteArray& content);

} // namespace tavrel::ctl
