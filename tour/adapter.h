// SPDX-License-Identifier: MIT
// A serial adapter of the simulated machine, pulled out and plugged in again while the program
// runs. The machine is an umockdev testbed; a port is on the list as long as the class of terminals
// has a link to it.
#pragma once

#include <filesystem>
#include <string>

namespace tour {

class Adapter {
public:
    /// name: the device name, for example "ttyUSB0". Throws when the process does not run in a
    /// testbed that has the adapter.
    explicit Adapter(const std::string& name);

    void unplug() const;
    void plug() const;

private:
    std::filesystem::path entry;  ///< the link
    std::filesystem::path target; ///< where it leads
};

} // namespace tour
