// SPDX-License-Identifier: MIT
// Makes pictures of the screen small: 256 colours are plenty for widgets and text.
#pragma once

#include <QtGui/QImage>

namespace tour {

/// The picture with a palette of its own: groups of nearly equal colours become their average, the
/// rarest groups their nearest kin.
QImage withPalette(const QImage& picture);

} // namespace tour
