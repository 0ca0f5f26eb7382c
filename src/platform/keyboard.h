// SPDX-License-Identifier: MIT
// The keyboard layout, the desktop's own shortcuts and the bell. std only.
#pragma once

#include "platform/os_status.h"
#include "support/signal.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace dwellkey {

class KeyboardLayout {
public:
    KeyboardLayout() = default;
    KeyboardLayout(const KeyboardLayout&) = delete;
    KeyboardLayout& operator=(const KeyboardLayout&) = delete;
    virtual ~KeyboardLayout() = default;

    /// The UTF-8 text that the key types under the present layout with no modifiers; "" when it
    /// types none or the layout cannot be had. Asked afresh each time.
    [[nodiscard]] virtual std::string character(std::uint16_t keyCode) const = 0;
};

/// The shortcuts that the desktop keeps for itself.
class SystemShortcuts {
public:
    /// One shortcut as the desktop lists it; what is missing or mistyped there is absent here.
    struct Entry {
        std::optional<bool> enabled;
        std::optional<std::int64_t> keyCode;   // virtual key code
        std::optional<std::int64_t> modifiers; // hot-key service mask
    };
    struct List {
        OSStatus status = noErr;
        std::vector<Entry> entries; // empty unless `noErr`
    };

    SystemShortcuts() = default;
    SystemShortcuts(const SystemShortcuts&) = delete;
    SystemShortcuts& operator=(const SystemShortcuts&) = delete;
    virtual ~SystemShortcuts() = default;

    /// Read afresh on every call.
    [[nodiscard]] virtual List copySymbolicHotKeys() const = 0;
};

enum class MenuTrackingNotification { didBegin, didEnd };

/// Tells when one of this program's own menus opens and closes.
class MenuTracking {
public:
    MenuTracking() = default;
    MenuTracking(const MenuTracking&) = delete;
    MenuTracking& operator=(const MenuTracking&) = delete;
    virtual ~MenuTracking() = default;

    [[nodiscard]] virtual Subscription observe(MenuTrackingNotification notification,
                                               std::function<void()> block) = 0;
};

class Beeper {
public:
    Beeper() = default;
    Beeper(const Beeper&) = delete;
    Beeper& operator=(const Beeper&) = delete;
    virtual ~Beeper() = default;

    virtual void beep() = 0;
};

} // namespace dwellkey
