// SPDX-License-Identifier: MIT
#include "simulator/clock.h"

#include <chrono>
#include <thread>

namespace simulator {

void Clock::wait(qint64 durationInMicroseconds)
{
    if (durationInMicroseconds <= 0) {
        return;
    }
    if (manual) {
        offset += durationInMicroseconds;
    } else {
        std::this_thread::sleep_for(std::chrono::microseconds(durationInMicroseconds));
    }
}

} // namespace simulator
