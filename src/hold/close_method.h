// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace dwellkey {

/// What a hold does to the frontmost application at its end.
enum class CloseMethod : std::uint8_t { quitApp = 0, closeWindow = 1 };

} // namespace dwellkey
