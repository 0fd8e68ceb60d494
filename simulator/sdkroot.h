// SPDX-License-Identifier: MIT
// The root object of the simulated SDK.
#pragma once

#include "sdk/ombrix_sdk.h"
#include "simulator/seriallink.h"

#include <memory>
#include <vector>

namespace simulator {

class SdkRoot final : public ombrix_sdk::IOmbrixSdk {
public:
    void initialize() override;
    ombrix_sdk::ISdkConfiguration* getConfiguration() override;
    void saveConfiguration() override;
    ombrix_sdk::ISerialLink* createSerialLink() override;
    void releaseSerialLink(ombrix_sdk::ISerialLink** link) override;

    /// Ends every connection, as the end of a process would.
    void releaseAll();

private:
    std::vector<std::unique_ptr<SerialLink>> links;
};

} // namespace simulator
