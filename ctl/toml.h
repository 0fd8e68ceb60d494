// SPDX-License-Identifier: MIT
// toml++, reading only.
#pragma once

#define TOML_ENABLE_FORMATTERS 0

#if defined(__clang__)
// In MSVC mode it knows fewer of that compiler's pragmas.
#    pragma clang diagnostic push
#    pragma clang diagnostic ignored "-Wunknown-pragmas"
#endif
#include <toml++/toml.h>
#if defined(__clang__)
#    pragma clang diagnostic pop
#endif
