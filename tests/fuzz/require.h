// SPDX-License-Identifier: MIT
// What a fuzzer demands of every input.
#pragma once

#include <cstdio>
#include <cstdlib>

/// Ends the program, which the fuzzer takes for a finding.
inline void require(bool holds, const char* what)
{
    if (!holds) {
        std::fprintf(stderr, "does not hold: %s\n", what);
        std::abort();
    }
}
