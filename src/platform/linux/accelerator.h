// SPDX-License-Identifier: MIT
// Key combinations as the desktops write them down. std only.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace dwellkey {

/// Whether a symbol that needs Shift to be typed ("plus") asks for Shift without naming it.
enum class SymbolShift { stated, implied };

struct Accelerator {
    std::uint32_t modifiers = 0; ///< hot-key service mask
    std::string key;             ///< a keysym name, "0x" and an X keycode, or one character
    SymbolShift symbolShift = SymbolShift::stated;

    friend bool operator==(const Accelerator&, const Accelerator&) = default;
};

// Each is absent for a text that is no combination, and for one with a modifier that a hot key
// cannot have. Whether there is such a key is not asked here.

/// "<Primary><Alt>t", "XF86AudioMute": GNOME, Cinnamon, MATE and Xfce.
std::optional<Accelerator> parseGtkAccelerator(std::string_view text);

/// "Meta+Shift+PgUp", "Ctrl++": KDE. Of a sequence ("Ctrl+K, Ctrl+S") the first combination,
/// which is the one that is kept from applications.
std::optional<Accelerator> parseQtShortcut(std::string_view text);

/// "C-A-Left", "W-e": one combination of an Openbox key binding.
std::optional<Accelerator> parseOpenboxKey(std::string_view text);

} // namespace dwellkey
