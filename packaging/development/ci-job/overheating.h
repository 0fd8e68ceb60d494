// SPDX-License-Identifier: MIT
// The code under test: whether a camera is too warm.
#pragma once

#include <sdk/ombrix_sdk.h>

enum class Overheating { No, Yes, Unknown };

/// Unknown when the camera does not tell its temperatures.
Overheating overheatingOf(ombrix_sdk::ICamera& camera);
