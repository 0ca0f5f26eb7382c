// SPDX-License-Identifier: MIT
#pragma once

#include "keycommands/key.h"

#include <array>

namespace dwellkey {

/// The looks of a recorder: the desktop's push button, a pill, an outline only, two buttons side
/// by side, a small box with square corners.
enum class BezelStyle { rounded, capsule, flat, separated, square };

template <>
inline constexpr std::array<BezelStyle, 5> allCases<BezelStyle>{
    BezelStyle::rounded, BezelStyle::capsule, BezelStyle::flat, BezelStyle::separated,
    BezelStyle::square};

} // namespace dwellkey
