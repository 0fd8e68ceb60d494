// SPDX-License-Identifier: MIT
// Compiles only when the boundary's header brings everything it needs.
#include "sdk/ombrix_sdk.h"
