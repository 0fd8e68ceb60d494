// SPDX-License-Identifier: MIT
// The configuration object of the simulated SDK.
#pragma once

#include "sdk/ombrix_sdk.h"
#include "simulator/configurationvalues.h"

#include <QtCore/QByteArray>

#include <array>

namespace simulator {

using ombrix_sdk::Flag;

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
