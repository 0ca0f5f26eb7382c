// SPDX-License-Identifier: MIT
// The texts within values as the settings tools of GLib print them. std only.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace dwellkey {

/// The one of a string, those of an array of strings; none of any other value and of a text that
/// is no value: a setting of another type is not a mistake.
std::vector<std::string> gvariantStrings(std::string_view text);

} // namespace dwellkey
