// SPDX-License-Identifier: MIT
#pragma once

#include "platform/os_status.h"
#include "platform/session.h"

#include <string>
#include <string_view>

namespace dwellkey {

/// The one form in which failures of the hot-key service are logged.
inline void logStatus(ErrorLog& log, OSStatus status, std::string_view message) {
    log.error("[OSStatus " + std::to_string(status) + "] " + std::string(message),
              statusDescription(status));
}

} // namespace dwellkey
