// SPDX-License-Identifier: MIT
// What the desktop tells a program about its being started. std only.
#pragma once

#include "platform/linux/environment.h"

#include <string>

namespace dwellkey {

struct Launch {
    /// Of the desktop's startup notification, which shows that something is being started until it
    /// hears that it was. Empty when there is none.
    std::string startupId;

    /// Of this process's own start.
    static Launch from(const Environment& environment) {
        return {environment("DESKTOP_STARTUP_ID").value_or("")};
    }
};

} // namespace dwellkey
