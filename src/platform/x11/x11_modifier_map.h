// SPDX-License-Identifier: MIT
// Which of the server's eight modifiers is which here: read from the server, never assumed.
#pragma once

#include "platform/x11/x11_connection.h"

#include <array>
#include <bitset>
#include <cstdint>
#include <optional>
#include <vector>

namespace dwellkey {

/// The keys that are down, by keycode.
using KeySet = std::bitset<256>;

/// The keys that are down right now, from the server itself; absent when it is gone.
std::optional<KeySet> queryPressedKeys(const X11Connection& connection);

class X11ModifierMap {
public:
    /// Two round trips' worth of questions, asked together.
    static X11ModifierMap read(const X11Connection& connection);

    /// The server's modifiers for a hot-key service mask; absent when this keyboard has no key
    /// for one of them.
    [[nodiscard]] std::optional<std::uint16_t> realModifiers(std::uint32_t mask) const;

    /// Every combination of the lock modifiers (Caps Lock, Num Lock, Scroll Lock), none included.
    [[nodiscard]] const std::vector<std::uint16_t>& lockCombinations() const { return locks_; }

    /// The modifier bits of an event's state that decide which combination it is.
    [[nodiscard]] std::uint16_t relevantState(std::uint16_t state) const {
        return static_cast<std::uint16_t>(state & 0xffU & ~lockMask_);
    }

    /// The keys that act as the real modifier with this index (0 Shift ... 7 Mod5).
    [[nodiscard]] const KeySet& keysOf(std::size_t realModifier) const {
        return keys_.at(realModifier);
    }

    /// The real modifiers, as a mask, that this key acts as; 0 for an ordinary key.
    [[nodiscard]] std::uint16_t modifiersOfKey(xcb_keycode_t keycode) const;

    bool operator==(const X11ModifierMap&) const = default;

private:
    std::array<KeySet, 8> keys_{};
    std::uint16_t alt_ = 0;
    std::uint16_t super_ = 0;
    std::uint16_t lockMask_ = XCB_MOD_MASK_LOCK;
    std::vector<std::uint16_t> locks_;
};

} // namespace dwellkey
