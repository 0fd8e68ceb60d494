// SPDX-License-Identifier: MIT
#pragma once

namespace tavrel::ctl {

/// The whole program; returns its exit status.
int runProgram(int argc, char** argv);

} // namespace tavrel::ctl
