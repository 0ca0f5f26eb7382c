// SPDX-License-Identifier: MIT
// How the tests write down combinations.
#pragma once

#include "platform/keyboard.h"

#include <cstdint>
#include <utility>
#include <vector>

namespace dwellkey::testing {

inline constexpr std::uint32_t command = 0x100;
inline constexpr std::uint32_t shift = 0x200;
inline constexpr std::uint32_t option = 0x800;
inline constexpr std::uint32_t control = 0x1000;

/// Modifiers and key code.
using Combination = std::pair<std::int64_t, std::int64_t>;

/// Of the entries that are complete and enabled.
inline std::vector<Combination> combinations(const SystemShortcuts::List& list) {
    std::vector<Combination> result;
    for (const SystemShortcuts::Entry& entry : list.entries) {
        if (entry.enabled == true && entry.keyCode && entry.modifiers) {
            result.emplace_back(*entry.modifiers, *entry.keyCode);
        }
    }
    return result;
}

} // namespace dwellkey::testing
