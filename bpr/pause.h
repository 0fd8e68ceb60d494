// SPDX-License-Identifier: MIT
#pragma once

#include "link/monitoring.h"

#include <QtCore/QTimer>

namespace tavrel {

/// Stops the monitoring for the length of a table transfer, boxes included, and starts it on every
/// way out.
class MonitoringPause {
public:
    explicit MonitoringPause(QTimer& monitoring) : timer(monitoring) { timer.stop(); }
    ~MonitoringPause() { timer.start(monitoringInterval); }
    MonitoringPause(const MonitoringPause&) = delete;
    MonitoringPause& operator=(const MonitoringPause&) = delete;

private:
    QTimer& timer;
};

} // namespace tavrel
