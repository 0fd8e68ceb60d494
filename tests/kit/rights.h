// SPDX-License-Identifier: MIT
// For tests of missing rights to files: the superuser has every right, so such a program gives up
// its own before it begins.
#pragma once

#include <sys/prctl.h>
#include <unistd.h>

namespace kit {

/// Goes on as an ordinary user if this is the superuser. False if the system does not allow that.
inline bool giveUpRights()
{
    constexpr uid_t nobody = 65534;
    if (::geteuid() != 0) {
        return true;
    }
    // Dumpable again, because the leak check looks into its own process.
    return ::setgid(nobody) == 0 && ::setuid(nobody) == 0 &&
           ::prctl(PR_SET_DUMPABLE, 1, 0, 0, 0) == 0;
}

} // namespace kit
