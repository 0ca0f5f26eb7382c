// SPDX-License-Identifier: MIT
// The modifier keys of a combination and their two bit vocabularies. std only.
#pragma once

#include "keycommands/key.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace dwellkey {

enum class Modifier { control, option, shift, command };

template <>
inline constexpr std::array<Modifier, 4> allCases<Modifier>{Modifier::control, Modifier::option,
                                                            Modifier::shift, Modifier::command};

/// In the order in which they were given, which is the order in which they are shown.
using Modifiers = std::vector<Modifier>;

[[nodiscard]] std::string_view stringValue(Modifier modifier);
[[nodiscard]] std::string stringValue(const Modifiers& modifiers);

/// Unknown bits are ignored; the result is in the order of `allCases`.
[[nodiscard]] Modifiers modifiersFromHotKeyMask(std::uint32_t mask);
[[nodiscard]] Modifiers modifiersFromEventFlags(std::uint64_t flags);

[[nodiscard]] std::uint32_t hotKeyMask(const Modifiers& modifiers);
[[nodiscard]] std::uint64_t eventFlags(const Modifiers& modifiers);

} // namespace dwellkey
