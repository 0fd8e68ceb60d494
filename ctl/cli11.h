// SPDX-License-Identifier: MIT
// CLI11, for all C libraries of MSVC.
#pragma once

#if defined(_MSC_VER) && defined(__clang__)
#    include <cstddef>

// It asks for this one under that compiler, and not every set of headers has it.
extern "C" __declspec(dllimport) int __cdecl _dupenv_s(char** buffer, std::size_t* size,
                                                       const char* name);
#endif

#include <CLI/CLI.hpp>
