// SPDX-License-Identifier: MIT
// This program's own windows and alerts. std only.
#pragma once

#include <cstdint>
#include <optional>
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

/// What the hold panel needs of the display beyond the toolkit. Windows go by their native number.
class PanelSupport {
public:
    /// In native pixels from the top left of the whole desktop.
    struct Point {
        int x = 0;
        int y = 0;
        bool operator==(const Point&) const = default;
    };

    PanelSupport() = default;
    PanelSupport(const PanelSupport&) = delete;
    PanelSupport& operator=(const PanelSupport&) = delete;
    virtual ~PanelSupport() = default;

    /// The middle of the active window; absent when no window is active.
    [[nodiscard]] virtual std::optional<Point> activeWindowCentre() const = 0;

    /// Whether translucent windows are blended with what is behind them.
    [[nodiscard]] virtual bool isComposited() const = 0;

    /// Keeps the window above all others, fullscreen ones too, whenever it is shown. Once for each
    /// native window.
    virtual void keepAbove(std::uint32_t nativeWindow) = 0;

    /// Asks the compositor to blur what is behind the whole window; no effect where it cannot.
    virtual void blurBehind(std::uint32_t nativeWindow) = 0;
};

} // namespace dwellkey
