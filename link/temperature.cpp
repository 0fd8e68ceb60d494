// SPDX-License-Identifier: MIT
#include "link/temperature.h"

namespace tavrel {

QString temperatureText(float milliKelvin)
{
    // 273000, not 273150: the reading that operators compare with is 0.15 degrees high.
    constexpr float zeroCelsius = 273000.0F;
    const float celsius = (milliKelvin - zeroCelsius) / 1000.0F;
    return QString::number(static_cast<double>(celsius), 'g', 6) + QLatin1String(" C");
}

} // namespace tavrel
