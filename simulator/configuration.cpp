// SPDX-License-Identifier: MIT
#include "simulator/configuration.h"

#include "simulator/simulator.h"

namespace simulator {
namespace {

using ombrix_sdk::ISdkConfiguration;

namespace fields {
#define KEY(setting, key, kind, initial) constexpr Field setting{#key, Kind::kind, initial};
#include "simulator/configuration.def"
} // namespace fields

constexpr std::array<Field, settingCount> settingRows = {
#define SETTING(Type, name, value) fields::value,
#include "sdk/operations.def"
};

constexpr std::array<MemberFacts, memberCount> memberRows = {{
#define MEMBER(key, initial, saved) {{#key, Kind::Whole, initial}, &ISdkConfiguration::key, saved},
#include "simulator/configuration.def"
}};

} // namespace

const std::array<Field, settingCount>& settingTable()
{
    return settingRows;
}

const std::array<MemberFacts, memberCount>& memberTable()
{
    return memberRows;
}

ConfigurationValues::ConfigurationValues() : communicationType("UART")
{
    for (std::size_t row = 0; row < settingCount; ++row) {
        settings[row] = settingRows[row].initial;
    }
    for (std::size_t row = 0; row < memberCount; ++row) {
        members[row] = as<std::int32_t>(memberRows[row].field.initial);
    }
}

void Configuration::load(const ConfigurationValues& values)
{
    settings = values.settings;
    communicationType = values.communicationType;
    for (std::size_t row = 0; row < memberCount; ++row) {
        this->*memberRows[row].member = values.members[row];
    }
}

ConfigurationValues Configuration::values() const
{
    ConfigurationValues current;
    current.settings = settings;
    current.communicationType = communicationType;
    for (std::size_t row = 0; row < memberCount; ++row) {
        current.members[row] = this->*memberRows[row].member;
    }
    return current;
}

const char* Configuration::getCommunicationType()
{
    const Verdict verdict = Simulator::instance().judge(Operation::getCommunicationType);
    answeredType = verdict.carryOut ? communicationType : verdict.word.toLocal8Bit();
    return answeredType.constData();
}

void Configuration::setBaudRate(std::int32_t baudRate)
{
    settings[static_cast<std::size_t>(Setting::baudRate)] = baudRate;
    Simulator::instance().journal().write({.subject = QStringLiteral("configuration"),
                                           .operation = nameOf(Operation::setBaudRate),
                                           .arguments = {journalText(baudRate)}});
}

} // namespace simulator
