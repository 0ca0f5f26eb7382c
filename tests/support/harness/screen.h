// SPDX-License-Identifier: MIT
// What a user sees: windows, the focus, pixels.
#pragma once

#include "harness/await.h"
#include "harness/picture.h"
#include "harness/x_connection.h"

#include <optional>
#include <string>
#include <vector>

namespace dwellkey::e2e {

using Window = xcb_window_t;

class Screen {
public:
    explicit Screen(const std::string& display);

    /// Throws after `limit`; looks again at every change of windows and their properties.
    void await(std::string_view what, const Predicate& met, Milliseconds limit = patience) const;
    [[nodiscard]] bool happensBefore(TimePoint end, const Predicate& met) const;

    /// Whether a window manager is running.
    [[nodiscard]] bool isManaged() const;

    /// What the window manager states: the windows that it manages, oldest first, and the active.
    [[nodiscard]] std::vector<Window> managedWindows() const;
    [[nodiscard]] std::optional<Window> activeWindow() const;

    /// The server's own word on who gets the keys.
    [[nodiscard]] Window focusedWindow() const;

    [[nodiscard]] std::string title(Window window) const;
    [[nodiscard]] std::string className(Window window) const;
    [[nodiscard]] bool isViewable(Window window) const;
    [[nodiscard]] Rectangle geometry(Window window) const;

    /// A managed window of this WM_CLASS class, or title, the oldest first.
    [[nodiscard]] std::optional<Window> windowOfClass(const std::string& wanted) const;
    [[nodiscard]] std::optional<Window> windowTitled(const std::string& wanted) const;
    Window awaitWindowOfClass(const std::string& wanted) const; // NOLINT(modernize-use-nodiscard)

    /// Dwellkey's hold panel while it is on the screen.
    [[nodiscard]] std::optional<Window> panel() const;
    Window awaitPanel() const; // NOLINT(modernize-use-nodiscard)
    void awaitNoPanel() const;

    /// Whether the top-level window (or frame) of `upper` covers that of `lower`.
    [[nodiscard]] bool isAbove(Window upper, Window lower) const;

    /// Makes the window the active one, as a taskbar does, and returns once it has the focus.
    void activate(Window window) const;

    /// Asks the window manager to close the window, as its title bar's button does.
    void requestClose(Window window) const;

    /// Leaves the window to the taskbar, and returns once it is off the screen.
    void minimise(Window window) const;

    /// Whether another client has grabbed the key with exactly these modifiers. Asked without
    /// ever being in that client's way.
    [[nodiscard]] bool isGrabbed(xcb_keycode_t key, std::uint16_t modifiers) const;

    [[nodiscard]] Picture picture() const;
    [[nodiscard]] Picture picture(const Rectangle& area) const;

    [[nodiscard]] const XConnection& connection() const { return connection_; }

private:
    [[nodiscard]] std::vector<Window> topLevels() const;
    [[nodiscard]] Window topLevelOf(Window window) const;
    void watch(Window window, std::uint32_t events) const;
    void drainEvents() const;
    void askWindowManager(Window window, const char* message, std::uint32_t first,
                          std::uint32_t second) const;

    XConnection connection_;
};

} // namespace dwellkey::e2e
