// SPDX-License-Identifier: MIT
#include "simulator/simulator.h"

#include "simulator/commands.h"
#include "simulator/roles.h"

#include <algorithm>
#include <cstdlib>
#include <mutex>
#include <optional>
#include <utility>

namespace simulator {
namespace {

constexpr qint64 microsecondsPerMillisecond = 1000;

} // namespace

Simulator& Simulator::instance()
{
    static auto* const simulator = new Simulator;
    return *simulator;
}

Simulator::Simulator()
{
    load();
}

void Simulator::restart()
{
    listener.stop();
    entrance.setOn(false);
    rootObject.releaseAll();
    devices.clear();
    faults = {};
    callCounts = {};
    introduced = false;
    load();
}

void Simulator::load()
{
    settings = Settings::load();
    QStringList problems = settings.problems + keepRolesApart(settings);
    plan.setFile(settings.safe ? QString() : settings.planFile);
    problems += plan.problems();
    if (settings.strict && !settings.safe && !settings.planFile.isEmpty() && !plan.isThere()) {
        problems << QStringLiteral("%1: there is no such file").arg(settings.planFile);
    }
    logWriter.setStrict(settings.strict);
    // What ends a strict program is told before any file is written, and the log is one.
    logWriter.setFile(settings.strict ? QString() : settings.logFile);
    logWriter.problems(problems);
    timePiece = Clock(settings.behaviour.manualClock ? 0 : 1);
    powerCyclesDone = plan.powerCycles();

    bool listening = !settings.controlFile.isEmpty();
    entrance.setOn(listening);
    {
        // Whoever sends a command waits until everything is there.
        const std::lock_guard entry(entrance);
        // All that may fail comes before what destroys something.
        remember();
        openFiles();
        listening = listening && listen();
        begin();
    }
    if (!listening) {
        entrance.setOn(false);
    }
}

void Simulator::remember()
{
    memory.setFolder(settings.memoryFolder);
    ConfigurationValues values = settings.configuration;
    if (!settings.factoryFresh) {
        memory.loadConfiguration(values);
    }
    configurationObject.load(values);
    for (const CameraSettings& camera : settings.cameras) {
        devices.push_back(std::make_unique<Device>(
            camera, Surroundings{timePiece, memory, settings.behaviour}, settings.factoryFresh));
    }
}

void Simulator::openFiles()
{
    if (settings.strict) {
        logWriter.setFile(settings.logFile);
    }
    if (const QString reason = journalWriter.setFile(settings.journalFile); !reason.isEmpty()) {
        reportJournal(reason);
    }
}

void Simulator::reportJournal(const QString& reason)
{
    logWriter.problem(
        QStringLiteral("journal %1: %2; there is none").arg(settings.journalFile, reason));
}

bool Simulator::listen()
{
    // At the end of the program: the thread must not see what is taken down then.
    [[maybe_unused]] static const int registered = std::atexit([] { instance().listener.stop(); });
    const QString reason = listener.start(settings.controlFile, answerTo);
    if (!reason.isEmpty()) {
        logWriter.problem(QStringLiteral("control %1: %2; no commands are taken")
                              .arg(settings.controlFile, reason));
    }
    return reason.isEmpty();
}

void Simulator::begin()
{
    if (settings.factoryFresh) {
        memory.forgetConfiguration();
    }
    for (const auto& device : devices) {
        if (settings.factoryFresh) {
            device->forget();
        }
        device->keep();
    }
    if (const QString reason = journalWriter.begin(); !reason.isEmpty()) {
        reportJournal(reason);
    }
}

void Simulator::introduce()
{
    if (introduced) {
        return;
    }
    introduced = true;
    const auto named = [](const QString& name, const QString& otherwise) {
        return name.isEmpty() ? otherwise : name;
    };
    logWriter.notice(QStringLiteral("no camera hardware is used: this SDK is a simulator"));
    QString planName = named(settings.planFile, QStringLiteral("none"));
    if (settings.safe) {
        planName += QStringLiteral(", not followed: safe mode");
    } else if (!settings.planFile.isEmpty() && !plan.isThere()) {
        planName += QStringLiteral(", which is not there yet");
    }
    logWriter.notice(QStringLiteral("settings: %1; memory: %2; plan: %3; seed: %4")
                         .arg(named(settings.file, QStringLiteral("built in")),
                              named(memory.folderInUse(), QStringLiteral("off")), planName,
                              QString::number(settings.behaviour.seed)));
    for (const auto& device : devices) {
        logWriter.notice(device->description());
    }
}

void Simulator::cyclePower()
{
    for (const auto& device : devices) {
        device->cyclePower();
    }
}

void Simulator::saveConfiguration()
{
    memory.saveConfiguration(configurationObject.values());
}

Device* Simulator::deviceAt(const QString& port)
{
    for (const QString& name : {port, CameraSettings::everyPort()}) {
        for (const auto& device : devices) {
            if (device->settings().ports.contains(name)) {
                return device.get();
            }
        }
    }
    return nullptr;
}

void Simulator::followPlan()
{
    if (!plan.refresh()) {
        return;
    }
    logWriter.notice(QStringLiteral("the plan has changed: %1").arg(settings.planFile));
    logWriter.problems(plan.problems());
    endHanging(true);
    if (plan.powerCycles() != powerCyclesDone) {
        powerCyclesDone = plan.powerCycles();
        logWriter.notice(QStringLiteral("the cameras' power goes off and on"));
        cyclePower();
    }
}

void Simulator::endHanging(bool planHasChanged)
{
    for (const auto& device : devices) {
        device->endHangingBy(
            [&](int fault) { return fault == 0 ? planHasChanged : !faults.hasFault(fault); });
    }
}

Device* Simulator::deviceNamed(const QString& name)
{
    const std::optional<double> number = parseField(Kind::Word, name);
    Device* numbered = nullptr;
    for (const auto& device : devices) {
        if (device->settings().section == name) {
            return device.get();
        }
        if (number && device->get<double>(Parameter::serialNumber) == *number) {
            numbered = device.get();
        }
    }
    return numbered;
}

QStringList Simulator::putFaults(IniFile& ini)
{
    if (settings.safe) {
        return {QStringLiteral("no fault is put: safe mode")};
    }
    QStringList problems = faults.put(ini);
    endHanging(false);
    return problems;
}

bool Simulator::liftFault(const QString& section)
{
    const QStringList lifted = section.isEmpty() ? faults.sections() : QStringList(section);
    if (!std::all_of(lifted.begin(), lifted.end(),
                     [this](const QString& name) { return faults.lift(name); })) {
        return false;
    }
    endHanging(false);
    return true;
}

CallOutcome Simulator::decide(const Call& call)
{
    ++callCounts[static_cast<std::size_t>(call.operation)];
    if (plan.isOn()) {
        followPlan();
    }
    CallOutcome outcome = outcomeOf(call);
    timePiece.wait(outcome.delay * microsecondsPerMillisecond, entrance);
    return outcome;
}

CallOutcome Simulator::outcomeOf(const Call& call)
{
    if (!faults.isEmpty()) {
        CallOutcome outcome = faults.decide(call);
        if (outcome.planned) {
            return outcome;
        }
    }
    return plan.isEmpty() ? CallOutcome{} : plan.decide(call);
}

bool Simulator::reach(Device* device, std::uint32_t linkBaudRate, Operation operation,
                      const CallOutcome& outcome)
{
    if (device != nullptr) {
        device->passTime();
        // It may have been lifted while the call waited.
        if (outcome.hangUp && (outcome.fault == 0 || faults.hasFault(outcome.fault))) {
            device->hangUp(outcome.fault);
        }
    }
    if (!factsOf(operation).transfer) {
        return true;
    }
    if (device == nullptr || device->isPulledOut() || outcome.lost || device->isHanging() ||
        device->baudRate() != linkBaudRate) {
        timePiece.wait(settings.behaviour.timeout * microsecondsPerMillisecond, entrance);
        return false;
    }
    if (settings.behaviour.latency) {
        timePiece.wait(timeOnTheLink(operation, linkBaudRate), entrance);
    }
    return true;
}

const char* Simulator::noteOf(bool reached, const CallOutcome& outcome)
{
    if (!reached) {
        return "no answer";
    }
    return outcome.planned ? "plan" : "";
}

} // namespace simulator
