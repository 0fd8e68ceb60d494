// SPDX-License-Identifier: MIT
// Lets one thread at a time into the simulator, as long as there is more than one.
#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>

namespace simulator {

/// A lock that costs nothing while it is off. Taken by std::lock_guard.
class Gate {
public:
    /// Only while no other thread is near.
    void setOn(bool on) { isUsed = on; }
    [[nodiscard]] bool isOn() const { return isUsed; }

    void lock()
    {
        if (isUsed) {
            mutex.lock();
        }
    }
    void unlock()
    {
        if (isUsed) {
            mutex.unlock();
        }
    }

    /// Lets the others in for that long, or until one of them calls the waiting one back. The gate
    /// is on and taken.
    void standAside(std::chrono::microseconds duration) { waiting.wait_for(mutex, duration); }
    void callBack() { waiting.notify_all(); }

private:
    std::mutex mutex;
    std::condition_variable_any waiting;
    bool isUsed = false;
};

} // namespace simulator
