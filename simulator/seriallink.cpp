#include "simulator/seriallink.h"

#include "simulator/simulator.h"

#include <algorithm>

namespace simulator {

ombrix_sdk::ICamera* SerialLink::openCamera(const char* portName)
{
    Log& log = Simulator::instance().log();
    if (released) {
        log.misuse(QStringLiteral("openCamera on a link that is released"));
        return nullptr;
    }
    if (portName == nullptr) {
        log.misuse(QStringLiteral("openCamera with a null pointer"));
        return nullptr;
    }
    Device* device = Simulator::instance().deviceAt(QString::fromLocal8Bit(portName));
    if (device == nullptr || device->baudRate() != baudRate) {
        return nullptr;
    }
    cameras.push_back(std::make_unique<Camera>(*device, baudRate));
    return cameras.back().get();
}

void SerialLink::closeCamera(ombrix_sdk::ICamera* camera)
{
    // Compared by address only: a pointer that is not ours must not be followed.
    const auto found = std::find_if(cameras.begin(), cameras.end(),
                                    [camera](const auto& known) { return known.get() == camera; });
    if (found == cameras.end() || !(*found)->isOpen()) {
        Simulator::instance().log().misuse(
            QStringLiteral("closeCamera of a camera that is not open on this link"));
        return;
    }
    (*found)->close();
}

void SerialLink::release()
{
    for (const auto& camera : cameras) {
        camera->close();
    }
    released = true;
}

} // namespace simulator
