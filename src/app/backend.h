// SPDX-License-Identifier: MIT
// The desktops that Dwellkey runs on, each a bundle of the seam's interfaces.
#pragma once

#include "platform/platform.h"
#include "platform/qt/qt_window_host.h"
#include "support/signal.h"

#include <memory>
#include <string>
#include <string_view>
#include <variant>

namespace dwellkey {

class Backend {
public:
    Backend() = default;
    Backend(const Backend&) = delete;
    Backend& operator=(const Backend&) = delete;
    virtual ~Backend() = default;

    virtual Platform& platform() = 0;
    virtual QtWindowHost& windowHost() = 0;

    /// Tells the desktop that a launch is complete; nothing for an empty id.
    virtual void endStartupNotification(std::string_view startupId) = 0;

    /// Runs the loop until `quit`; returns the status that was given there.
    virtual int run() = 0;
    virtual void quit(int status) = 0;

    /// Emitted when this program is in front and the user held its own quit shortcut to the end.
    Signal<> terminationRequested;

    /// Emitted once, with the cause, when the desktop is gone for good.
    Signal<std::string_view> lost;
};

/// The first backend that starts, or why none did. The environment variable
/// DWELLKEY_BACKEND names the only one to try. `argc` and `argv` must outlive the backend.
std::variant<std::unique_ptr<Backend>, std::string> startBackend(int& argc, char** argv,
                                                                 ErrorLog& errorLog);

} // namespace dwellkey
