// SPDX-License-Identifier: MIT
#include "ctl/watch.h"

#include <utility>

namespace tavrel::ctl {

Watch::Watch(std::chrono::milliseconds timeout, std::function<void()> late)
    : allowed(timeout), whenLate(std::move(late)), thread([this] { look(); })
{}

Watch::~Watch()
{
    {
        const std::lock_guard<std::mutex> lock(mutex);
        leaving = true;
    }
    changed.notify_one();
    thread.join();
}

void Watch::begin()
{
    {
        const std::lock_guard<std::mutex> lock(mutex);
        deadline = std::chrono::steady_clock::now() + allowed;
    }
    changed.notify_one();
}

void Watch::end()
{
    const std::lock_guard<std::mutex> lock(mutex);
    deadline.reset();
}

void Watch::look()
{
    std::unique_lock<std::mutex> lock(mutex);
    while (!leaving) {
        if (!deadline) {
            changed.wait(lock);
        } else if (std::chrono::steady_clock::now() >= *deadline) {
            whenLate();
            deadline.reset();
        } else {
            // Not the deadline itself, which the other thread changes meanwhile.
            const auto until = *deadline;
            changed.wait_until(lock, until);
        }
    }
}

} // namespace tavrel::ctl
