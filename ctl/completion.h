// SPDX-License-Identifier: MIT
// What others ask the program about its own words: the shell, and whoever makes the manual page.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

namespace tavrel::ctl {

/// How the last of these words may go on; the words before it are whole. Nothing stands for files.
/// Touches no camera and no SDK.
QStringList completions(const QStringList& words);

/// Commands, options and parameters as a manual page has them, in the markup of man(7).
QString manualText();

} // namespace tavrel::ctl
