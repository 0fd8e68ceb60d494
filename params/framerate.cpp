// SPDX-License-Identifier: MIT
#include "params/framerate.h"

#include <algorithm>
#include <array>

namespace tavrel {

namespace {
constexpr std::array<std::uint8_t, 5> frameRates{9, 25, 30, 50, 60};
}

std::uint8_t frameRateAt(int index)
{
    const auto position = static_cast<std::size_t>(index);
    return index >= 0 && position < frameRates.size() ? frameRates[position] : std::uint8_t{0};
}

int frameRateIndex(std::uint8_t hertz, int fallback)
{
    const auto found = std::find(frameRates.begin(), frameRates.end(), hertz);
    return found == frameRates.end() ? fallback : static_cast<int>(found - frameRates.begin());
}

} // namespace tavrel
