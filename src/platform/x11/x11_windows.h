// SPDX-License-Identifier: MIT
// What windows say of themselves, asked in as few round trips as there are kinds of question.
#pragma once

#include "platform/linux/application_actions.h"
#include "platform/x11/x11_connection.h"

#include <optional>
#include <string>
#include <sys/types.h>
#include <vector>

namespace dwellkey {

struct X11Window {
    xcb_window_t id = XCB_WINDOW_NONE;
    bool exists = false;
    std::string classInstance; // first text of WM_CLASS
    std::string className;     // second text of WM_CLASS
    std::optional<std::string> gtkApplicationId;
    std::optional<ActionAddress> actions;
    /// From the server, not from the client; absent for a client on another machine.
    std::optional<pid_t> process;
    bool isDesktop = false;
    bool isDock = false;
    bool isNormal = false; // stated, or implied by stating nothing and being nobody's dialog
    bool isTransient = false;
    bool isModal = false;
    bool acceptsDelete = false; // speaks WM_DELETE_WINDOW
};

enum class WindowManagement { none, withoutActiveWindow, complete };

/// Waits for its answers; events that arrive meanwhile are dispatched in a later turn.
class X11Windows {
public:
    explicit X11Windows(X11Connection& connection);

    /// Windows that are gone by now come back with nothing but their id.
    [[nodiscard]] std::vector<X11Window> describe(const std::vector<xcb_window_t>& windows) const;
    [[nodiscard]] X11Window describe(xcb_window_t window) const;

    /// The window that the window manager calls active; none also without a window manager.
    [[nodiscard]] xcb_window_t activeWindow() const;

    /// The managed windows, oldest first.
    [[nodiscard]] std::vector<xcb_window_t> clientWindows() const;

    /// The window that the window manager keeps while it runs; none without one.
    [[nodiscard]] xcb_window_t windowManagerWindow() const;

    /// Whether a window manager runs, and whether it tells which window is active.
    [[nodiscard]] WindowManagement windowManagement() const;

    /// Whether two windows belong to one client of the server.
    [[nodiscard]] bool haveSameClient(xcb_window_t one, xcb_window_t other) const;

    /// Asks the window to close, as its close button would: only ever called for a window that
    /// accepts it, and sent to the window itself, since some window managers kill the client of
    /// a window that stopped accepting it.
    void requestClose(xcb_window_t window) const;

    /// Asks the window manager to activate the window, as a pager would.
    void requestActivation(xcb_window_t window) const;

private:
    void sendClientMessage(xcb_window_t to, xcb_window_t about, xcb_atom_t type,
                           std::uint32_t first, std::uint32_t second, std::uint32_t mask) const;

    X11Connection& connection_;
    bool hasXRes_ = false;
};

} // namespace dwellkey
