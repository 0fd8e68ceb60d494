// SPDX-License-Identifier: MIT
#include "tests/bpr/processortime.h"

#include <QtCore/qt_windows.h>

namespace tablefiles {

namespace {

double seconds(const FILETIME& time)
{
    constexpr double tickLength = 1e-7;
    const auto ticks = DWORD64{time.dwHighDateTime} << 32U | time.dwLowDateTime;
    return static_cast<double>(ticks) * tickLength;
}

} // namespace

double processorTime(qint64 process)
{
    const HANDLE handle =
        OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, static_cast<DWORD>(process));
    FILETIME created{};
    FILETIME ended{};
    FILETIME inSystem{};
    FILETIME inProgram{};
    const bool known =
        handle != nullptr && GetProcessTimes(handle, &created, &ended, &inSystem, &inProgram);
    CloseHandle(handle);
    return known ? seconds(inSystem) + seconds(inProgram) : -1;
}

} // namespace tablefiles
