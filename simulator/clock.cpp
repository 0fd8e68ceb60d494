// SPDX-License-Identifier: MIT
#include "simulator/clock.h"

#include <algorithm>
#include <chrono>
#include <limits>
#include <thread>

namespace simulator {

void Clock::setSpeed(double newFactor)
{
    begin = microseconds();
    lastChange = running.nsecsElapsed();
    factor = newFactor;
}

void Clock::advance(qint64 milliseconds)
{
    constexpr qint64 end = std::numeric_limits<qint64>::max() / 2;
    const qint64 most = (end - std::min(begin, end)) / 1000;
    begin += std::clamp<qint64>(milliseconds, 0, most) * 1000;
}

void Clock::wait(qint64 durationInMicroseconds)
{
    if (durationInMicroseconds <= 0) {
        return;
    }
    if (factor == 0) {
        begin += durationInMicroseconds;
    } else {
        std::this_thread::sleep_for(std::chrono::microseconds(
            static_cast<qint64>(static_cast<double>(durationInMicroseconds) / factor)));
    }
}

} // namespace simulator
