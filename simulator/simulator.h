// SPDX-License-Identifier: MIT
// What the parts of the simulator share: one per process, never destroyed, because a program may
// log and call until its very end.
#pragma once

#include "simulator/clock.h"
#include "simulator/configuration.h"
#include "simulator/device.h"
#include "simulator/gate.h"
#include "simulator/journal.h"
#include "simulator/listener.h"
#include "simulator/log.h"
#include "simulator/memory.h"
#include "simulator/operations.h"
#include "simulator/plan.h"
#include "simulator/sdkroot.h"
#include "simulator/settings.h"

#include <QtCore/QString>

#include <array>
#include <memory>
#include <vector>

namespace simulator {

class Simulator {
public:
    static Simulator& instance();
    Simulator(const Simulator&) = delete;
    Simulator& operator=(const Simulator&) = delete;

    /// Says once that this is a simulator, and what it runs on.
    void introduce();
    /// Forgets everything but the memory on disk, as if the program were started again.
    void restart();
    void cyclePower();
    void saveConfiguration();

    SdkRoot& root() { return rootObject; }
    Configuration& configuration() { return configurationObject; }
    Clock& clock() { return timePiece; }
    /// Whoever calls from outside of the simulator comes in here.
    Gate& gate() { return entrance; }
    Journal& journal() { return journalWriter; }
    Log& log() { return logWriter; }

    /// The camera that is plugged into the port, or null.
    Device* deviceAt(const QString& port);

    /// The camera of a section of the settings, or else of a serial number; or null.
    Device* deviceNamed(const QString& name);
    /// The cameras in the order of the settings.
    [[nodiscard]] const std::vector<std::unique_ptr<Device>>& cameras() const { return devices; }

    /// Takes the faults of a text that has been read, before those of the plan. Returns why none of
    /// it is taken.
    QStringList putFaults(IniFile& ini);
    /// Takes the fault of a section away, or all of them when it is empty. False when there is
    /// none.
    bool liftFault(const QString& section);
    /// Sections of the faults that were put.
    [[nodiscard]] QStringList faultSections() const { return faults.sections(); }
    /// How often the operation has been called since the start.
    [[nodiscard]] qint64 calls(Operation operation) const
    {
        return callCounts[static_cast<std::size_t>(operation)];
    }

    /// What plan and faults want of this call; its delay has passed.
    CallOutcome decide(const Call& call);
    /// Whether the call arrives at the camera, null when there is none, and its answer comes back.
    /// Takes the time that this takes. What needs no camera always arrives.
    bool reach(Device* device, std::uint32_t linkBaudRate, Operation operation,
               const CallOutcome& outcome);

    /// The journal's note on a call.
    static const char* noteOf(bool reached, const CallOutcome& outcome);

private:
    Simulator();
    void load();
    /// Switches the cameras on as the memory kept them.
    void remember();
    void openFiles();
    void reportJournal(const QString& reason);
    /// Takes commands from other processes. False when it cannot.
    bool listen();
    /// Forgets what is to be forgotten, keeps that the cameras have started, and empties the
    /// journal.
    void begin();
    void followPlan();
    CallOutcome outcomeOf(const Call& call);
    /// What rules broke must not outlive them.
    void endHanging(bool planHasChanged);

    Log logWriter;
    Clock timePiece;
    Journal journalWriter;
    Plan plan;
    Plan faults; ///< put while the program runs
    std::array<qint64, operationCount> callCounts{};
    Memory memory{logWriter};
    Settings settings;
    Configuration configurationObject;
    std::vector<std::unique_ptr<Device>> devices;
    SdkRoot rootObject;
    qint64 powerCyclesDone = 0;
    bool introduced = false;
    Gate entrance;
    Listener listener;
};

} // namespace simulator
