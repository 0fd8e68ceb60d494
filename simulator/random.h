// SPDX-License-Identifier: MIT
// Numbers that look random and are the same everywhere for the same seed.
#pragma once

#include <cstdint>

namespace simulator {

class Random {
public:
    explicit Random(std::uint64_t seed) : state(seed) {}

    std::uint64_t next()
    {
        state += 0x9E3779B97F4A7C15U;
        std::uint64_t mixed = state;
        mixed = (mixed ^ (mixed >> 30U)) * 0xBF58476D1CE4E5B9U;
        mixed = (mixed ^ (mixed >> 27U)) * 0x94D049BB133111EBU;
        return mixed ^ (mixed >> 31U);
    }

    /// 0 to limit - 1.
    int below(int limit) { return static_cast<int>(next() % static_cast<unsigned>(limit)); }

    /// 0 up to, but without, 1.
    double fraction() { return static_cast<double>(next() >> 11U) * 0x1p-53; }

private:
    std::uint64_t state;
};

} // namespace simulator
