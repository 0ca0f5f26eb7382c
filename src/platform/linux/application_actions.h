// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <sys/types.h>

namespace dwellkey {

/// Where an application says that it exports its actions on the session bus.
struct ActionAddress {
    std::string busName;    // a unique or well-known name
    std::string objectPath; // of the application, not of a window
};

/// Reaches the actions that applications export (org.gtk.Actions).
class ApplicationActions {
public:
    ApplicationActions() = default;
    ApplicationActions(const ApplicationActions&) = delete;
    ApplicationActions& operator=(const ApplicationActions&) = delete;
    virtual ~ApplicationActions() = default;

    /// Activates the action, once, if the bus name belongs to `process` and the action exists
    /// there and is enabled. Otherwise runs `otherwise`. Which of the two may show only in a
    /// later turn of the run loop. The owner is checked because the address comes from window
    /// properties, in which a client can write what it likes.
    virtual void activate(const ActionAddress& address, pid_t process, std::string_view action,
                          std::function<void()> otherwise) = 0;
};

} // namespace dwellkey
