// What the parts of the simulator share: one per process, never destroyed, because a program may
// log and call until its very end.
#pragma once

#include "simulator/configuration.h"
#include "simulator/device.h"
#include "simulator/log.h"
#include "simulator/operations.h"
#include "simulator/sdkroot.h"

#include <QtCore/QString>

#include <memory>
#include <vector>

namespace simulator {

class Simulator {
public:
    static Simulator& instance();

    /// Says once that this is a simulator.
    void start();

    SdkRoot& root() { return rootObject; }
    Configuration& configuration() { return configurationObject; }
    Log& log() { return logWriter; }

    /// The camera that is plugged into the port, or null.
    Device* deviceAt(const QString& port);

private:
    Simulator();

    SdkRoot rootObject;
    Configuration configurationObject;
    Log logWriter;
    std::vector<std::unique_ptr<Device>> devices;
    bool started = false;
};

} // namespace simulator
