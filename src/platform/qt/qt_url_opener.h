// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace dwellkey {

/// Opens an address with the desktop's handler; the address of the accessibility settings opens
/// the running desktop's own page for them. False when nothing could take it.
bool openUrl(std::string_view address);

} // namespace dwellkey
