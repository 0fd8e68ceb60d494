// SPDX-License-Identifier: MIT
// The configuration of the hostile SDK.
#pragma once

#include "tests/monkey/hostile_answers.h"

namespace hostile {

class Configuration final : public ombrix_sdk::ISdkConfiguration {
public:
    /// New values and limits, in any order: a minimum may lie above its maximum.
    void redraw()
    {
        for (std::int32_t ombrix_sdk::ISdkConfiguration::*const member :
             {&Configuration::gskValue, &Configuration::gmsValue, &Configuration::gfidValue,
              &Configuration::tintValue, &Configuration::gskMin, &Configuration::gskMax,
              &Configuration::gfidMin, &Configuration::gfidMax, &Configuration::tintMin,
              &Configuration::tintMax, &Configuration::gmsMin, &Configuration::gmsMax}) {
            this->*member = any<std::int32_t>();
        }
    }

// clang-format off
#define SETTING(Type, name, value) Type name() override { return any<Type>(); }
#define SETTING_FLAG(name, value) ombrix_sdk::Flag name() override { return flag(); }
// clang-format on
#include "sdk/operations.def"

    const char* getCommunicationType() override
    {
        static constexpr std::array<const char*, 6> others = {nullptr, "",     "U",
                                                              "UARTS", "uart", "\xFF\xFE"};
        return draw().oneIn(8) ? draw().oneOf(others) : "UART";
    }
    void setBaudRate(std::int32_t) override {}
};

} // namespace hostile
