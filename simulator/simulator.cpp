#include "simulator/simulator.h"

#include "simulator/settings.h"

namespace simulator {
namespace {

constexpr QLatin1String everyPort("*");

} // namespace

Simulator& Simulator::instance()
{
    static auto* const simulator = new Simulator;
    return *simulator;
}

Simulator::Simulator()
{
    configurationObject.load(ConfigurationValues());
    devices.push_back(std::make_unique<Device>(CameraSettings()));
}

void Simulator::start()
{
    if (!started) {
        started = true;
        log().notice(QStringLiteral("no camera hardware is used: this SDK is a simulator"));
    }
}

Device* Simulator::deviceAt(const QString& port)
{
    for (const QString& name : {port, QString(everyPort)}) {
        for (const auto& device : devices) {
            if (device->settings().ports.contains(name)) {
                return device.get();
            }
        }
    }
    return nullptr;
}

} // namespace simulator
