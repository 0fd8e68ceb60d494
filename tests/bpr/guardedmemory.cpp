// SPDX-License-Identifier: MIT
#include "tests/bpr/guardedmemory.h"

#include <QtCore/QtGlobal>

#include <sys/mman.h>
#include <unistd.h>

GuardedMemory::GuardedMemory(std::size_t size)
{
    const auto page = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
    const std::size_t room = (size + page - 1) / page * page;
    length = room + page;
    memory = ::mmap(nullptr, length, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    auto* const barred = static_cast<std::uint8_t*>(memory) + room;
    if (memory == MAP_FAILED || ::mprotect(barred, page, PROT_NONE) != 0) {
        qFatal("no guarded memory");
    }
    first = barred - size;
}

GuardedMemory::~GuardedMemory()
{
    ::munmap(memory, length);
}
