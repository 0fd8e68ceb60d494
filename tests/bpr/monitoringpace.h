// SPDX-License-Identifier: MIT
// Tells apart a monitoring timer that was left alone, stopped, or started again.
#pragma once

#include "tests/kit/operator.h"

#include <QtCore/QTimer>

namespace kit {

class MonitoringPace {
public:
    /// Starts the timer at a pace that the tool never uses, too slow to tick during a test.
    explicit MonitoringPace(Operator& user) : timer(user.timer())
    {
        timer.start(foreignPace);
        id = timer.timerId();
    }

    /// Neither stopped nor started since; a start gives a timer a new number.
    [[nodiscard]] bool leftAlone() const
    {
        return timer.isActive() && timer.timerId() == id && timer.interval() == foreignPace;
    }
    [[nodiscard]] bool stopped() const { return !timer.isActive(); }
    /// Runs, and ticks once a second.
    [[nodiscard]] bool startedAgain() const
    {
        constexpr int ownPace = 1000;
        return timer.isActive() && timer.interval() == ownPace;
    }

private:
    static constexpr int foreignPace = 60000; // milliseconds
    QTimer& timer;
    int id = 0;
};

/// The box that every table operation shows without a camera.
inline Box notConnected(const std::string& port = {})
{
    return {.title = "Camera not connected", .text = "Unable to connect to " + port};
}

/// Lets a button of the tabs be pressed although no camera is connected.
inline void unlockTabs(Operator& user)
{
    user.widget("tabWidget").setEnabled(true);
}

} // namespace kit
