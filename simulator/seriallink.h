// SPDX-License-Identifier: MIT
// One serial connection of the simulated SDK.
#pragma once

#include "sdk/ombrix_sdk.h"
#include "simulator/camera.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace simulator {

/// Stays allocated after it was released, like the cameras that it opened.
class SerialLink final : public ombrix_sdk::ISerialLink {
public:
    explicit SerialLink(std::uint32_t rate) : baudRate(rate) {}

    ombrix_sdk::ICamera* openCamera(const char* portName) override;
    void closeCamera(ombrix_sdk::ICamera* camera) override;

    [[nodiscard]] bool isReleased() const { return released; }
    /// Closes what is still open.
    void release();

private:
    std::uint32_t baudRate;
    bool released = false;
    std::vector<std::unique_ptr<Camera>> cameras;
};

} // namespace simulator
