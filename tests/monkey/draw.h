// SPDX-License-Identifier: MIT
// Random values from a seed, the same on every machine.
#pragma once

#include <cstddef>
#include <cstdint>
#include <random>

namespace monkey {

class Draw {
public:
    explicit Draw(std::uint64_t seed) : engine(seed) {}

    std::uint64_t bits() { return engine(); }
    /// 0 to count - 1.
    std::size_t below(std::size_t count) { return static_cast<std::size_t>(engine() % count); }
    /// least to most, both included.
    int between(int least, int most)
    {
        return least + static_cast<int>(below(static_cast<std::size_t>(most - least) + 1));
    }
    bool oneIn(std::size_t count) { return below(count) == 0; }
    /// One element of a container that is not empty.
    template<typename Container> auto& oneOf(Container& container)
    {
        return container[static_cast<decltype(container.size())>(
            below(static_cast<std::size_t>(container.size())))];
    }

private:
    std::mt19937_64 engine;
};

} // namespace monkey
