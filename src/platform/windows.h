// SPDX-License-Identifier: MIT
// This program's own windows and alerts. std only.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace dwellkey {

enum class AlertStyle { warning, informational, critical };

struct Alert {
    std::string messageText;
    std::string informativeText;
    AlertStyle style = AlertStyle::warning;
    std::vector<std::string> buttons; // the first one is the default
};

/// The response of an alert's first button; the next ones follow by one each.
inline constexpr int alertFirstButtonReturn = 1000;

class Alerts {
public:
    Alerts() = default;
    Alerts(const Alerts&) = delete;
    Alerts& operator=(const Alerts&) = delete;
    virtual ~Alerts() = default;

    /// Shows the alert and runs a nested loop until the user answered. Closing it without a
    /// button answers with the last button.
    virtual int runModal(const Alert& alert) = 0;
};

class WindowHost {
public:
    WindowHost() = default;
    WindowHost(const WindowHost&) = delete;
    WindowHost& operator=(const WindowHost&) = delete;
    virtual ~WindowHost() = default;

    /// Opens the window declared under the identifier, or brings it forward when it is open.
    /// An identifier that nothing is declared for is reported through the error log.
    virtual void open(std::string_view identifier) = 0;
};

} // namespace dwellkey
