// SPDX-License-Identifier: MIT
// Conversions between widget values and camera values that are defined for every value.
#pragma once

#include <cstdint>
#include <string>

namespace tavrel {

/// Truncates toward zero; what lies outside an int becomes the nearest int, not-a-number becomes 0.
int saturatedInt(double value);

/// What lies above the largest int becomes the largest int.
int saturatedInt(std::uint64_t value);

/// Truncates toward zero and keeps the low 32 bits: the form in which spin box values travel.
std::uint32_t lowWord(double value);

/// The low byte of a combo box index or spin box value; index -1 (no item) becomes 255.
std::uint8_t lowByte(int value);

/// Gamma as the camera holds it: 16.16 fixed point, what is finer cut off.
std::uint32_t fixedPoint(double gamma);

/// The gamma of a camera's fixed point number.
double fromFixedPoint(std::uint32_t gamma);

/// Decimal text with six significant digits and no trailing zeros.
std::string numberText(double value);

} // namespace tavrel
