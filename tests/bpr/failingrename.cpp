// SPDX-License-Identifier: MIT
#include "tests/bpr/failingrename.h"

#include <cerrno>

#include <dlfcn.h>

namespace {

bool failing = false;
int failures = 0;

} // namespace

// The program's own rename comes before the system's, for the libraries as well.
extern "C" __attribute__((visibility("default"))) int rename(const char* from,
                                                             const char* to) noexcept
{
    using Rename = int (*)(const char*, const char*);
    static const auto systemRename = reinterpret_cast<Rename>(::dlsym(RTLD_NEXT, "rename"));
    if (!failing) {
        return systemRename(from, to);
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
