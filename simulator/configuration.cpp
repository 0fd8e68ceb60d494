// SPDX-License-Identifier: MIT
#include "simulator/configuration.h"

#include "simulator/simulator.h"

#include <mutex>

namespace simulator {

void Configuration::load(const ConfigurationValues& values)
{
    settings = values.settings;
    communicationType = values.communicationType;
    for (std::size_t row = 0; row < memberCount; ++row) {
        this->*memberTable()[row].member = values.members[row];
    }
}

ConfigurationValues Configuration::values() const
{
    ConfigurationValues current;
    current.settings = settings;
    current.communicationType = communicationType;
    for (std::size_t row = 0; row < memberCount; ++row) {
        current.members[row] = this->*memberTable()[row].member;
    }
    return current;
}

const char* Configuration::getCommunicationType()
{
    const std::lock_guard entry(Simulator::instance().gate());
    const CallOutcome outcome = Simulator::instance().decide({Operation::getCommunicationType});
    answeredType = outcome.carryOut ? communicationType : outcome.word.toLocal8Bit();
    return answeredType.constData();
}

void Configuration::setBaudRate(std::int32_t baudRate)
{
    const std::lock_guard entry(Simulator::instance().gate());
    settings[static_cast<std::size_t>(Setting::baudRate)] = baudRate;
    Simulator::instance().journal().write({.subject = QStringLiteral("configuration"),
                                           .operation = nameOf(Operation::setBaudRate),
                                           .arguments = {journalText(baudRate)}});
}

} // namespace simulator
