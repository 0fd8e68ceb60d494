// SPDX-License-Identifier: MIT
// The calls that a window made of the SDK, made once more in a loop without any window.
#pragma once

#include "tests/kit/recording_sdk.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace bench {

/// The objects of the SDK, as the calls bring them forth.
struct Objects {
    ombrix_sdk::IOmbrixSdk* sdk = nullptr;
    ombrix_sdk::ISdkConfiguration* configuration = nullptr;
    ombrix_sdk::ISerialLink* link = nullptr;
    ombrix_sdk::ICamera* camera = nullptr;
    std::byte context{}; ///< what the camera's connect is handed
};

/// What a call was given. Flags are numbers.
struct Arguments {
    std::array<std::uint32_t, 3> numbers{};
    std::string text;
    int severity = 0; ///< of a log record
};

class Replay {
public:
    /// Takes the calls and log records of a connection; one that it cannot make ends the program.
    explicit Replay(const std::vector<recording::Entry>& journal);

    /// Makes every call and writes every log record, in their order.
    void run();

    /// How many calls there are, log records left out.
    [[nodiscard]] std::size_t calls() const { return callCount; }
    [[nodiscard]] std::size_t records() const { return steps.size() - callCount; }

private:
    struct Step {
        void (*call)(Objects&, const Arguments&);
        Arguments arguments;
    };
    std::vector<Step> steps;
    std::size_t callCount = 0;
    Objects objects;
};

} // namespace bench
