// SPDX-License-Identifier: MIT
#include "keycommands/modifier.h"

#include "platform/hot_keys.h"

#include <cstddef>

namespace dwellkey {
namespace {

struct Row {
    std::string_view symbol;
    std::uint32_t hotKeyMask;
    std::uint64_t eventFlag;
};

constexpr std::array<Row, 4> rows{{
    {"⌃", hot_key_mask::control, 0x40000},
    {"⌥", hot_key_mask::option, 0x80000},
    {"⇧", hot_key_mask::shift, 0x20000},
    {"⌘", hot_key_mask::command, 0x100000},
}};

constexpr const Row& rowOf(Modifier modifier) {
    return rows[static_cast<std::size_t>(modifier)];
}

template <typename Mask>
Modifiers modifiersIn(Mask mask, Mask Row::*bit) {
    Modifiers modifiers;
    for (const Modifier modifier : allCases<Modifier>) {
        if ((mask & rowOf(modifier).*bit) != 0) {
            modifiers.push_back(modifier);
        }
    }
    return modifiers;
}

template <typename Mask>
Mask maskOf(const Modifiers& modifiers, Mask Row::*bit) {
    Mask mask = 0;
    for (const Modifier modifier : modifiers) {
        mask |= rowOf(modifier).*bit;
    }
    return mask;
}

} // namespace

std::string_view stringValue(Modifier modifier) {
    return rowOf(modifier).symbol;
}

std::string stringValue(const Modifiers& modifiers) {
    std::string symbols;
    for (const Modifier modifier : modifiers) {
        symbols += stringValue(modifier);
    }
    return symbols;
}

Modifiers modifiersFromHotKeyMask(std::uint32_t mask) {
    return modifiersIn(mask, &Row::hotKeyMask);
}

Modifiers modifiersFromEventFlags(std::uint64_t flags) {
    return modifiersIn(flags, &Row::eventFlag);
}

std::uint32_t hotKeyMask(const Modifiers& modifiers) {
    return maskOf(modifiers, &Row::hotKeyMask);
}

std::uint64_t eventFlags(const Modifiers& modifiers) {
    return maskOf(modifiers, &Row::eventFlag);
}

} // namespace dwellkey
