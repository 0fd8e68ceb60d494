// SPDX-License-Identifier: MIT
#include "simulator/simulator.h"

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
    rootObject.releaseAll();
    devices.clear();
    timePiece = {};
    introduced = false;
    load();
}

void Simulator::load()
{
    settings = Settings::load();
    plan.setFile(settings.safe ? QString() : settings.planFile);
    logWriter.setStrict(settings.strict);
    QStringList problems = settings.problems + plan.problems();
    if (settings.strict && !settings.safe && !settings.planFile.isEmpty() && !plan.isThere()) {
        problems << QStringLiteral("%1: there is no such file").arg(settings.planFile);
    }
    if (settings.strict) {
        // Before any file is written, and the log is one.
        logWriter.problems(problems);
    }
    logWriter.setFile(settings.logFile);
    logWriter.problems(problems);
    if (const QString reason = journalWriter.setFile(settings.journalFile); !reason.isEmpty()) {
        logWriter.problem(
            QStringLiteral("journal %1: %2; there is none").arg(settings.journalFile, reason));
    }
    timePiece.setManual(settings.behaviour.manualClock);
    powerCyclesDone = plan.powerCycles();

    memory.setFolder(settings.memoryFolder);
    if (settings.factoryFresh) {
        memory.forgetConfiguration();
    }
    ConfigurationValues values = settings.configuration;
    memory.loadConfiguration(values);
    configurationObject.load(values);
    for (const CameraSettings& camera : settings.cameras) {
        if (settings.factoryFresh) {
            memory.forgetCamera(as<std::uint32_t>(
                camera.values[static_cast<std::size_t>(Parameter::serialNumber)]));
        }
        devices.push_back(
            std::make_unique<Device>(camera, Surroundings{timePiece, memory, settings.behaviour}));
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
                              named(settings.memoryFolder, QStringLiteral("off")), planName)
                         .arg(settings.behaviour.seed));
    for (const CameraSettings& camera : settings.cameras) {
        logWriter.notice(
            QStringLiteral("[%1] serial number %2 on port %3")
                .arg(camera.section)
                .arg(camera.values[static_cast<std::size_t>(Parameter::serialNumber)], 0, 'f', 0)
                .arg(camera.ports.join(QStringLiteral(", "))));
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
    // What the old plan broke must not outlive it.
    for (const auto& device : devices) {
        device->setHanging(false);
    }
    if (plan.powerCycles() != powerCyclesDone) {
        powerCyclesDone = plan.powerCycles();
        logWriter.notice(QStringLiteral("the cameras' power goes off and on"));
        cyclePower();
    }
}

Verdict Simulator::judge(const Call& call)
{
    followPlan();
    Verdict verdict = plan.judge(call);
    timePiece.wait(verdict.delay * microsecondsPerMillisecond);
    return verdict;
}

bool Simulator::reach(Device* device, std::uint32_t linkBaudRate, Operation operation,
                      const Verdict& verdict)
{
    if (device != nullptr) {
        device->passTime();
        if (verdict.hangUp) {
            device->setHanging(true);
        }
    }
    if (!factsOf(operation).transfer) {
        return true;
    }
    if (device == nullptr || verdict.lost || device->isHanging() ||
        device->baudRate() != linkBaudRate) {
        timePiece.wait(settings.behaviour.timeout * microsecondsPerMillisecond);
        return false;
    }
    if (settings.behaviour.latency) {
        timePiece.wait(timeOnTheLink(operation, linkBaudRate));
    }
    return true;
}

QString Simulator::noteOf(bool reached, const Verdict& verdict)
{
    if (!reached) {
        return QStringLiteral("no answer");
    }
    return verdict.planned ? QStringLiteral("plan") : QString();
}

} // namespace simulator
