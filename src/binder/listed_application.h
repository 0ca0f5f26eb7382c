// SPDX-License-Identifier: MIT
// How a path in the list of applications is shown. std only.
#pragma once

#include <string>
#include <string_view>

namespace dwellkey {

/// The path's last component without the suffix of a desktop entry and without any ".app" in it:
/// that rule is shared with lists that were written on other desktops.
[[nodiscard]] std::string listedApplicationName(std::string_view path);

} // namespace dwellkey
