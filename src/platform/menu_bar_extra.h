// SPDX-License-Identifier: MIT
// The item with a menu in the desktop's bar. std only.
#pragma once

#include "platform/hot_keys.h"
#include "support/signal.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace dwellkey {

/// Shown beside a menu entry in the desktop's own notation ("Ctrl+Q"). It is not a hot key.
struct KeyEquivalent {
    char32_t character = 0; // what the key types without modifiers
    std::uint32_t modifiers = hot_key_mask::command;
    bool operator==(const KeyEquivalent&) const = default;
};

struct MenuEntry {
    enum class Kind { command, separator };

    Kind kind = Kind::command;
    std::string title = {}; // in the user's language
    std::optional<KeyEquivalent> keyEquivalent = std::nullopt;
    bool isEnabled = true;
    std::function<void()> action = nullptr; // runs in a turn of its own

    static MenuEntry separator() { return {.kind = Kind::separator}; }
};

/// An item as long as it is in the bar.
struct MenuBarItem {
    std::string title; // also what the pointer is told that rests on it
    std::vector<MenuEntry> menu;
};

class MenuBarExtra {
public:
    MenuBarExtra() = default;
    MenuBarExtra(const MenuBarExtra&) = delete;
    MenuBarExtra& operator=(const MenuBarExtra&) = delete;
    virtual ~MenuBarExtra() = default;

    /// Shows the item until the subscription ends, in every bar that comes or comes back meanwhile.
    /// One item at a time. The subscription must end before the service does.
    [[nodiscard]] virtual Subscription insert(MenuBarItem item) = 0;

    /// False when the desktop has nothing that would show an item; true also while that is not
    /// known yet.
    [[nodiscard]] virtual bool isHosted() const = 0;

    /// Emitted after `isHosted` changed.
    Signal<> hostingDidChange;
};

} // namespace dwellkey
