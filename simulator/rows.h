// SPDX-License-Identifier: MIT
// Tables with one row per value of an enumeration.
#pragma once

#include <cstddef>

namespace simulator {

/// Whether row n stands for the enumeration's value n. key: the member that names the row's value.
template<auto key, typename Rows> constexpr bool followTheEnumeration(const Rows& rows)
{
    for (std::size_t number = 0; number < rows.size(); ++number) {
        if (static_cast<std::size_t>(rows[number].*key) != number) {
            return false;
        }
    }
    return true;
}

} // namespace simulator
