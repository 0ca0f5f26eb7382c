// SPDX-License-Identifier: MIT
// The end of the process where going on makes no sense. std only.
#pragma once

#include <string_view>

namespace dwellkey {

/// Writes the message as one line to standard error and aborts.
[[noreturn]] void fatalError(std::string_view message);

} // namespace dwellkey
