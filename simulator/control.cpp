// SPDX-License-Identifier: MIT
#include "simulator/control.h"

#include "simulator/simulator.h"

namespace ombrix_simulator {

void restart()
{
    simulator::Simulator::instance().restart();
}

void cyclePower()
{
    simulator::Simulator::instance().cyclePower();
}

void advanceClock(std::int64_t milliseconds)
{
    simulator::Simulator::instance().clock().advance(milliseconds);
}

} // namespace ombrix_simulator
