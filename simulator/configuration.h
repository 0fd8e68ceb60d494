// SPDX-License-Identifier: MIT
// The configuration object of the simulated SDK.
#pragma once

#include "sdk/ombrix_sdk.h"
#include "simulator/fields.h"

#include <QtCore/QByteArray>

#include <array>
#include <cstddef>

namespace simulator {

using ombrix_sdk::Flag;

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

class Configuration final : public ombrix_sdk::ISdkConfiguration {
public:
    void load(const ConfigurationValues& values);
    [[nodiscard]] ConfigurationValues values() const;
    [[nodiscard]] std::uint32_t linkBaudRate() const
    {
        return static_cast<std::uint32_t>(get<std::int32_t>(Setting::baudRate));
    }

// clang-format off
#define SETTING(Type, name, value) Type name() override { return get<Type>(Setting::value); }
#define CONFIGURATION(Result, name, arguments) Result name arguments override;
// clang-format on
#include "sdk/operations.def"

private:
    [[nodiscard]] double at(Setting setting) const
    {
        return settings[static_cast<std::size_t>(setting)];
    }
    template<typename Type> [[nodiscard]] Type get(Setting setting) const
    {
        return as<Type>(at(setting));
    }

    std::array<double, settingCount> settings{};
    QByteArray communicationType;
    QByteArray answeredType; ///< keeps the answer alive for the caller
};

} // namespace simulator
