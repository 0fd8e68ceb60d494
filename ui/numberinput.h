// SPDX-License-Identifier: MIT
// How numbers are typed: the same keys in every language, and never another number than was typed.
#pragma once

class QWidget;

namespace tavrel {

/// Makes dot and comma the decimal sign in every number field of the window, however it shows its
/// numbers. Decimals for which a field has no room are left out. Any other text with such a sign
/// that is no number of its field stays as it was typed until the edit ends; then the field is back
/// at the value from before the edit.
void takeDotAsDecimalSign(QWidget& window);

} // namespace tavrel
