// SPDX-License-Identifier: MIT
#include "tests/bpr/guardedmemory.h"

#include <QtCore/QtGlobal>
#include <QtCore/qt_windows.h>

GuardedMemory::GuardedMemory(std::size_t size)
{
    SYSTEM_INFO system{};
    GetSystemInfo(&system);
    const std::size_t page = system.dwPageSize;
    const std::size_t room = (size + page - 1) / page * page;
    length = room + page;
    memory = VirtualAlloc(nullptr, length, MEM_RESERVE, PAGE_NOACCESS);
    // What is reserved and never committed is out of reach.
    if (memory == nullptr || VirtualAlloc(memory, room, MEM_COMMIT, PAGE_READWRITE) == nullptr) {
        qFatal("no guarded memory");
    }
    first = static_cast<std::uint8_t*>(memory) + room - size;
}

GuardedMemory::~GuardedMemory()
{
    VirtualFree(memory, 0, MEM_RELEASE);
}
