// SPDX-License-Identifier: MIT
// Where the keys of the virtual key codes sit on a Linux keyboard: position by position.
#pragma once

#include <cstdint>
#include <optional>

namespace dwellkey {

/// X and xkb count keys from 8.
inline constexpr std::uint32_t xkbKeycodeOffset = 8;

/// The kernel's evdev code of the key with this virtual key code; absent for codes of no key.
std::optional<std::uint32_t> evdevKeyCode(std::uint32_t virtualKeyCode);

/// The way back, for keys that the user types into the recorder.
std::optional<std::uint32_t> virtualKeyCode(std::uint32_t evdevCode);

} // namespace dwellkey
