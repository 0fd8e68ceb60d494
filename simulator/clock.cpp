// SPDX-License-Identifier: MIT
#include "simulator/clock.h"

#include "simulator/gate.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <limits>
#include <thread>

namespace simulator {
namespace {

/// A longer wait is made of several: the time at its end might not fit into the numbers of a clock.
constexpr std::chrono::microseconds longestPause = std::chrono::hours(1);

} // namespace

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

void Clock::wait(qint64 durationInMicroseconds, Gate& gate)
{
    if (durationInMicroseconds <= 0) {
        return;
    }
    const auto realTime = [this](qint64 microseconds) {
        return std::chrono::microseconds(
            static_cast<qint64>(std::ceil(static_cast<double>(microseconds) / factor)));
    };
    if (factor != 0 && !gate.isOn()) {
        std::this_thread::sleep_for(realTime(durationInMicroseconds));
        return;
    }
    const qint64 end = microseconds() + durationInMicroseconds;
    while (factor != 0 && microseconds() < end) {
        gate.standAside(std::min(realTime(end - microseconds()), longestPause));
    }
    begin += std::max<qint64>(end - microseconds(), 0);
}

} // namespace simulator
