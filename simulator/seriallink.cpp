// SPDX-License-Identifier: MIT
#include "simulator/seriallink.h"

#include "simulator/simulator.h"

#include <algorithm>
#include <mutex>

namespace simulator {
namespace {

const QString linkSubject = QStringLiteral("link");

/// Why no camera was opened, for the log: the program learns only that there is none.
QString reasonOfSilence(const Device* device, std::uint32_t baudRate, const CallOutcome& outcome)
{
    if (device == nullptr) {
        return QStringLiteral("no camera is plugged in there");
    }
    if (device->isPulledOut()) {
        return QStringLiteral("the camera is pulled out");
    }
    if (outcome.lost) {
        return QStringLiteral("the connection is lost, by the plan");
    }
    if (device->isHanging()) {
        return QStringLiteral("the camera hangs");
    }
    if (device->baudRate() != baudRate) {
        return QStringLiteral("baud rate mismatch: camera %1, link %2")
            .arg(device->baudRate())
            .arg(baudRate);
    }
    return QStringLiteral("no answer, by the plan");
}

} // namespace

ombrix_sdk::ICamera* SerialLink::openCamera(const char* portName)
{
    Simulator& simulator = Simulator::instance();
    const std::lock_guard entry(simulator.gate());
    if (released || portName == nullptr) {
        simulator.log().misuse(released ? QStringLiteral("openCamera on a link that is released")
                                        : QStringLiteral("openCamera with a null pointer"));
        return nullptr;
    }
    const QString port = QString::fromLocal8Bit(portName);
    Device* const device = simulator.deviceAt(port);
    Call call{Operation::openCamera};
    call.port = port;
    if (device != nullptr) {
        call.camera = device->get<std::uint32_t>(Parameter::serialNumber);
    }
    const CallOutcome outcome = simulator.decide(call);
    const bool reached = simulator.reach(device, baudRate, Operation::openCamera, outcome);
    const bool answers = reached && outcome.carryOut;
    if (answers) {
        cameras.push_back(std::make_unique<Camera>(*device, baudRate, port));
    } else {
        simulator.log().notice(QStringLiteral("openCamera %1: %2")
                                   .arg(port, reasonOfSilence(device, baudRate, outcome)));
    }
    simulator.journal().write({.subject = linkSubject,
                               .operation = nameOf(Operation::openCamera),
                               .arguments = {journalText(portName)},
                               .answer = answers ? cameras.back()->name() : QStringLiteral("null"),
                               .note = QLatin1String(Simulator::noteOf(reached, outcome))});
    return answers ? cameras.back().get() : nullptr;
}

void SerialLink::closeCamera(ombrix_sdk::ICamera* camera)
{
    Simulator& simulator = Simulator::instance();
    const std::lock_guard entry(simulator.gate());
    // Compared by address only: a pointer that is not ours must not be followed.
    const auto found = std::find_if(cameras.begin(), cameras.end(),
                                    [camera](const auto& known) { return known.get() == camera; });
    if (found == cameras.end() || !(*found)->isOpen()) {
        simulator.log().misuse(
            QStringLiteral("closeCamera of a camera that is not open on this link"));
        return;
    }
    (*found)->close();
    simulator.journal().write({.subject = linkSubject,
                               .operation = QStringLiteral("closeCamera"),
                               .arguments = {(*found)->name()}});
}

void SerialLink::release()
{
    for (const auto& camera : cameras) {
        camera->close();
    }
    released = true;
}

} // namespace simulator
