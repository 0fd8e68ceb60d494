// SPDX-License-Identifier: MIT
// The simulator's time, in which delays, latency, warming up and the NUC pass.
#pragma once

#include <QtCore/QElapsedTimer>

namespace simulator {

class Gate;

class Clock {
public:
    explicit Clock(double speed = 1) : factor(speed) { running.start(); }

    static constexpr double slowest = 0.001;
    static constexpr double fastest = 1000;

    /// How many of its seconds pass in a real one: from slowest to fastest, or 0. Then it stands
    /// still but for waiting and advance, and its waits take no real time.
    void setSpeed(double factor);
    [[nodiscard]] double speed() const { return factor; }
    /// Milliseconds since the start of the simulator.
    [[nodiscard]] qint64 now() const { return microseconds() / 1000; }
    /// Lets the time pass: a running clock sleeps, one that stands jumps. Others may come in
    /// through the gate meanwhile, and set the clock.
    void wait(qint64 durationInMicroseconds, Gate& gate);
    /// Jumps forward; not back, and not past the end of its numbers.
    void advance(qint64 milliseconds);

private:
    [[nodiscard]] qint64 microseconds() const
    {
        const qint64 passed = (running.nsecsElapsed() - lastChange) / 1000;
        return begin +
               (factor == 1 ? passed : static_cast<qint64>(static_cast<double>(passed) * factor));
    }

    QElapsedTimer running;
    qint64 lastChange = 0; ///< of the speed: nanoseconds since the start
    qint64 begin = 0;      ///< the time at that change, and what was jumped since: microseconds
    double factor;
};

} // namespace simulator
