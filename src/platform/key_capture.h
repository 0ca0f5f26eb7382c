// SPDX-License-Identifier: MIT
// The whole keyboard for one window of this program, while the user records a shortcut. std only.
#pragma once

#include "support/signal.h"

#include <cstdint>
#include <optional>

namespace dwellkey {

/// While a capture lasts, every key goes to its window: neither the window manager's shortcuts nor
/// any hot key, our own included, take one away. It ends by itself with the window or the process.
/// It also keeps a screen locker from locking, so it must never be forgotten.
class KeyCapture {
public:
    KeyCapture() = default;
    KeyCapture(const KeyCapture&) = delete;
    KeyCapture& operator=(const KeyCapture&) = delete;
    virtual ~KeyCapture() = default;

    /// Takes the keyboard for a window that is on the screen, from another one too. False when
    /// that cannot be had: then the window gets the keys that others leave to it.
    virtual bool begin(std::uint32_t nativeWindow) = 0;

    /// Gives the keyboard back. No effect without a capture.
    virtual void end() = 0;

    /// The virtual key code of the key whose events carry this native scan code; absent when it is
    /// none of ours.
    [[nodiscard]] virtual std::optional<std::uint32_t>
    keyCode(std::uint32_t nativeScanCode) const = 0;

    /// Emitted when the keyboard is needed elsewhere at once: whoever captures ends it.
    Signal<> mustEnd;
};

} // namespace dwellkey
