// SPDX-License-Identifier: MIT
#pragma once

#include "platform/keyboard.h"
#include "platform/x11/x11_connection.h"

namespace dwellkey {

/// What the server's present keymap and group make of a key. The keymap is fetched on each call:
/// calls are rare (a recorder's label, the first launch), and nothing can go stale.
class X11KeyboardLayout final : public KeyboardLayout {
public:
    explicit X11KeyboardLayout(X11Connection& connection);

    [[nodiscard]] std::string character(std::uint16_t keyCode) const override;

private:
    X11Connection& connection_;
};

} // namespace dwellkey
