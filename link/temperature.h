// SPDX-License-Identifier: MIT
// Temperatures as the camera counts them and as the operator reads them.
#pragma once

#include <QtCore/QString>

namespace tavrel {

/// Text for a temperature in milli-kelvin: degrees Celsius with six significant digits and " C".
QString temperatureText(float milliKelvin);

} // namespace tavrel
