// SPDX-License-Identifier: MIT
// Memory behind which nothing can be touched without ending the program.
#pragma once

#include <cstddef>
#include <cstdint>

class GuardedMemory {
public:
    explicit GuardedMemory(std::size_t size);
    ~GuardedMemory();
    GuardedMemory(const GuardedMemory&) = delete;
    GuardedMemory& operator=(const GuardedMemory&) = delete;

    std::uint8_t* first; ///< the last byte of the size asked for is followed by the barred page

private:
    void* memory;
    std::size_t length;
};
