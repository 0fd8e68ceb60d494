// SPDX-License-Identifier: MIT
#include "simulator/configurationvalues.h"

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

} // namespace simulator
