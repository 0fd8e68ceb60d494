// SPDX-License-Identifier: MIT
// The program's command line.
#pragma once

#include <optional>

namespace tavrel {

/// Answers what needs no window: --help, --version and a wrong option, which is refused on standard
/// error with status 2. Returns the program's exit status then, and nothing when the window is
/// wanted. The options of the toolkit are left to it. Touches neither display nor SDK.
std::optional<int> answerCommandLine(int& argc, char** argv);

} // namespace tavrel
