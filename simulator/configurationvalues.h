// SPDX-License-Identifier: MIT
// What the configuration of the simulated SDK holds: its keys in the settings file, its built-in
// values.
#pragma once

#include "sdk/ombrix_sdk.h"
#include "simulator/fields.h"

#include <QtCore/QByteArray>

#include <array>
#include <cstddef>

namespace simulator {

/// What the configuration's getters answer.
enum class Setting : std::size_t {
#define SETTING(Type, name, value) value,
#include "sdk/operations.def"
    count
};

constexpr std::size_t settingCount = static_cast<std::size_t>(Setting::count);

/// A data member that program and SDK share.
struct MemberFacts {
    Field field;
    std::int32_t ombrix_sdk::ISdkConfiguration::*member;
    bool saved; ///< kept by saveConfiguration
};

constexpr std::size_t memberCount = 12;

const std::array<Field, settingCount>& settingTable();
const std::array<MemberFacts, memberCount>& memberTable();

/// Every value of the configuration as the settings file gives it.
struct ConfigurationValues {
    ConfigurationValues(); ///< the built-in values

    std::array<double, settingCount> settings{};
    std::array<std::int32_t, memberCount> members{};
    QByteArray communicationType;
};

} // namespace simulator
