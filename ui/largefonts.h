// SPDX-License-Identifier: MIT
// The form's sizes are pixels, its fonts are points: on a finer screen the texts outgrow the places
// that the form fixes.
#pragma once

class Ui_MainWindow;

namespace tavrel {

/// Lets the captions of the information column grow past the width of the fields below them, and
/// gives the fields' margin to their text, as far as the fonts of the moment need it.
void makeRoomForFonts(const Ui_MainWindow& ui);

} // namespace tavrel
