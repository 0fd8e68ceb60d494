// SPDX-License-Identifier: MIT
// The configuration of the recording SDK.
#pragma once

#include "tests/kit/recording_library.h"

namespace recording {

using ombrix_sdk::Flag;

class Configuration final : public ombrix_sdk::ISdkConfiguration {
public:
    Configuration()
    {
        gskValue = 2;
        gskMin = 1;
        gskMax = 3;
        gfidValue = 300;
        gfidMin = 0;
        gfidMax = 1000;
        gmsValue = 40;
        gmsMin = 0;
        gmsMax = 50;
        tintValue = 5;
        tintMin = 0;
        tintMax = 20;
    }

// clang-format off
#define SETTING(Type, name, value)                                                                 \
    Type name() override { return read("config." #name, state().value); }
// clang-format on
#include "sdk/operations.def"

    const char* getCommunicationType() override
    {
        library().enter("config.getCommunicationType", 0);
        return state().communicationType.c_str();
    }
    void setBaudRate(std::int32_t baudRate) override
    {
        library().enter("config.setBaudRate", 0, baudRate);
        state().baudRate = baudRate;
    }

private:
    static Library& library()
    {
        return Library::instance();
    }
    static ConfigurationState& state()
    {
        return library().door.configuration;
    }

    template<typename Value> static Value read(std::string_view operation, const Value& stored)
    {
        library().enter(operation, 0);
        return library().answerOr(operation, stored);
    }
};

} // namespace recording
