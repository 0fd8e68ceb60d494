// SPDX-License-Identifier: MIT
// A limit on the size of files makes a disk full wherever a test wants it.
#pragma once

#include <csignal>

#include <sys/resource.h>

namespace tablefiles {

inline void limitFiles(rlim_t size)
{
    rlimit limit{};
    ::getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = size;
    ::setrlimit(RLIMIT_FSIZE, &limit);
}

/// Every write behind the room that is left fails, as on a full disk.
class FullDisk {
public:
    explicit FullDisk(rlim_t roomLeft) : previous(std::signal(SIGXFSZ, SIG_IGN))
    {
        limitFiles(roomLeft);
    }
    ~FullDisk()
    {
        limitFiles(RLIM_INFINITY);
        (void)std::signal(SIGXFSZ, previous);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    void (*previous)(int);
};

} // namespace tablefiles
