// SPDX-License-Identifier: MIT
#include "tests/bpr/failingrename.h"

#include <cerrno>

#include <dlfcn.h>

namespace {

bool failing = false;
int failures = 0;

} // namespace

// The program's own renameat comes before the system's.
extern "C" __attribute__((visibility("default"))) int
renameat(int fromFolder, const char* from, int toFolder, const char* to) noexcept
{
    using Rename = int (*)(int, const char*, int, const char*);
    static const auto systemRename = reinterpret_cast<Rename>(::dlsym(RTLD_NEXT, "renameat"));
    if (!failing) {
        return systemRename(fromFolder, from, toFolder, to);
    }
    ++failures;
    errno = EBUSY;
    return -1;
}

namespace tablefiles {

FailingRename::FailingRename()
{
    failures = 0;
    failing = true;
}

FailingRename::~FailingRename()
{
    failing = false;
}

int FailingRename::count() const
{
    return failures;
}

} // namespace tablefiles
