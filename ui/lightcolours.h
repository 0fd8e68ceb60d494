// SPDX-License-Identifier: MIT
// The form is white on every desktop; the colours around it come from the desktop. Where these are
// made for a dark window, the program takes light ones of its own.
#pragma once

class QObject;
class QPalette;

namespace tavrel {

/// The least contrast at which a text counts as readable, as a ratio of luminances.
inline constexpr double readableContrast = 4.5;

/// Whether texts in these colours can be read, on the form's white as well as on their own grounds.
bool canBeRead(const QPalette& palette);

/// Dark texts on light grounds, in every role and group.
QPalette lightPalette();

/// Leaves colours and style that can be read as they are. Otherwise gives the application the light
/// colours, and the style that paints by the palette alone: a dark one would go on painting dark.
void keepColoursReadable();

/// The same for colours or a style that have just changed under a window.
void keepColoursReadable(QObject& window);

} // namespace tavrel
