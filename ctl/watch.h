// SPDX-License-Identifier: MIT
// Looks after calls that block: none of them keeps the program for ever.
#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>

namespace tavrel::ctl {

class Watch {
public:
    /// late: called on a thread of its own when a call takes longer than the time-out; it ends the
    /// program, because a call of the SDK cannot be broken off.
    Watch(std::chrono::milliseconds timeout, std::function<void()> late);
    ~Watch();
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;

    void begin();
    void end();

private:
    void look();

    const std::chrono::milliseconds allowed;
    const std::function<void()> whenLate;
    std::mutex mutex;
    std::condition_variable changed;
    std::optional<std::chrono::steady_clock::time_point> deadline; ///< of the call that runs
    bool leaving = false;
    std::thread thread; ///< last, because it uses all of the above
};

} // namespace tavrel::ctl
