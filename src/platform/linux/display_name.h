// SPDX-License-Identifier: MIT
// Names that other programs chose, made fit to be shown and to be put into a script. std only.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace dwellkey {

/// One line of valid UTF-8 of at most 256 bytes without control characters: these and line
/// separators become spaces, invalid bytes U+FFFD, blanks at both ends are dropped. Absent when
/// nothing is left.
std::optional<std::string> displayName(std::string_view text);

} // namespace dwellkey
