// SPDX-License-Identifier: MIT
// The desktop's startup notification.
#pragma once

#include "platform/x11/x11_connection.h"

#include <string_view>

namespace dwellkey {

/// Tells the desktop that the launch with this id is complete, so that it stops showing a busy
/// pointer. The toolkit does so when it shows its first window; a program in the background shows
/// none. Nothing for an empty id, or one over 4096 bytes. Telling twice does no harm.
void endStartupNotification(X11Connection& connection, std::string_view startupId);

} // namespace dwellkey
