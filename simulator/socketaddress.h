// SPDX-License-Identifier: MIT
// The address of a socket in the file system. The program that sends commands uses it, too, and no
// toolkit.
#pragma once

#include <cstdio>
#include <cstring>
#include <string>

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace simulator {

/// An address holds about a hundred bytes. A longer path is reached through its folder, which stays
/// open as long as the address.
class SocketAddress {
public:
    explicit SocketAddress(const std::string& path)
    {
        address.sun_family = AF_UNIX;
        const std::string::size_type slash = path.rfind('/');
        if (fits(path) || slash == std::string::npos) {
            put(path);
            return;
        }
        folder = open(path.substr(0, slash + 1).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        put("/proc/self/fd/" + std::to_string(folder) + path.substr(slash));
    }
    ~SocketAddress()
    {
        if (folder >= 0) {
            close(folder);
        }
    }
    SocketAddress(const SocketAddress&) = delete;
    SocketAddress& operator=(const SocketAddress&) = delete;

    /// False when the name itself is too long.
    [[nodiscard]] bool isValid() const { return valid; }
    [[nodiscard]] const sockaddr* get() const
    {
        return reinterpret_cast<const sockaddr*>(&address);
    }
    [[nodiscard]] static socklen_t size() { return sizeof(sockaddr_un); }
    [[nodiscard]] const char* path() const { return address.sun_path; }

private:
    [[nodiscard]] bool fits(const std::string& path) const
    {
        return path.size() < sizeof address.sun_path;
    }
    void put(const std::string& path)
    {
        valid = !path.empty() && fits(path);
        if (valid) {
            std::memcpy(address.sun_path, path.c_str(), path.size() + 1);
        }
    }

    sockaddr_un address{};
    int folder = -1;
    bool valid = false;
};

} // namespace simulator
