// SPDX-License-Identifier: MIT
#include "tour/adapter.h"

#include <cstdlib>
#include <stdexcept>

namespace tour {

namespace {

std::filesystem::path testbed()
{
    const char* const folder = std::getenv("UMOCKDEV_DIR");
    if (folder == nullptr) {
        throw std::runtime_error("the serial adapters are not simulated");
    }
    return folder;
}

} // namespace

Adapter::Adapter(const std::string& name)
    : entry(testbed() / "sys/class/tty" / name), target(std::filesystem::read_symlink(entry))
{}

void Adapter::unplug() const
{
    std::filesystem::remove(entry);
}

void Adapter::plug() const
{
    std::filesystem::create_symlink(target, entry);
}

} // namespace tour
