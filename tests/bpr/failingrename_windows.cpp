// SPDX-License-Identifier: MIT
#include "tests/bpr/failingrename.h"

#include "tests/bpr/importedcall_windows.h"

namespace {

bool failing = false;
int failures = 0;

using Rename = BOOL WINAPI(LPCWSTR, LPCWSTR, DWORD);
Rename* systemRename = nullptr;

BOOL WINAPI moveFile(LPCWSTR from, LPCWSTR to, DWORD flags)
{
    if (!failing) {
        return systemRename(from, to, flags);
    }
    ++failures;
    SetLastError(ERROR_SHARING_VIOLATION);
    return FALSE;
}

} // namespace

namespace tablefiles {

FailingRename::FailingRename()
{
    if (systemRename == nullptr) {
        systemRename = lead(Importer::Program, "MoveFileExW", moveFile);
    }
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
