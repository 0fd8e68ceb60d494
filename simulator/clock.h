// SPDX-License-Identifier: MIT
// The simulator's time, in which delays, latency, warming up and the NUC pass.
#pragma once

#include <QtCore/QElapsedTimer>

namespace simulator {

class Clock {
public:
    Clock() { running.start(); }

    /// A manual clock stands still but for waiting and advance; its waits take no real time.
    void setManual(bool on) { manual = on; }
    /// Milliseconds since the start of the simulator.
    [[nodiscard]] qint64 now() const { return microseconds() / 1000; }
    /// Lets the time pass: a real clock sleeps, a manual one jumps.
    void wait(qint64 durationInMicroseconds);
    /// Jumps forward.
    void advance(qint64 milliseconds) { offset += milliseconds * 1000; }

private:
    [[nodiscard]] qint64 microseconds() const
    {
        return offset + (manual ? 0 : running.nsecsElapsed() / 1000);
    }

    QElapsedTimer running;
    qint64 offset = 0; ///< microseconds
    bool manual = false;
};

} // namespace simulator
