// SPDX-License-Identifier: MIT
// Our own conversation with the X server, separate from the toolkit's. Main thread only.
#pragma once

#include "platform/run_loop.h"
#include "support/signal.h"

#include <cstdint>
#include <cstdlib>
#include <functional>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <variant>
#include <vector>
#include <xcb/xcb.h>

namespace dwellkey {

struct FreeDeleter {
    void operator()(void* memory) const {
        std::free(memory);
    } // NOLINT: xcb hands out malloc'd memory
};
/// A reply, error or event of xcb's, owned.
template <typename Message>
using XcbPtr = std::unique_ptr<Message, FreeDeleter>;

/// The atoms that this backend speaks of, interned in one round trip.
struct X11Atoms {
    xcb_atom_t netActiveWindow, netClientList, netSupported, netSupportingWmCheck, netWmWindowType,
        netWmWindowTypeDesktop, netWmWindowTypeDock, netWmWindowTypeNormal, netWmState,
        netWmStateModal, wmProtocols, wmDeleteWindow, gtkApplicationId, gtkUniqueBusName,
        gtkApplicationObjectPath;
};

class X11Connection {
public:
    /// Opens the display that $DISPLAY names, or says why it cannot.
    static std::variant<std::unique_ptr<X11Connection>, std::string> open();

    /// Starts to dispatch events from the loop, which must outlive the connection. Until then only
    /// replies are read.
    void attach(RunLoop& runLoop);

    X11Connection(const X11Connection&) = delete;
    X11Connection& operator=(const X11Connection&) = delete;
    ~X11Connection();

    [[nodiscard]] xcb_connection_t* raw() const { return connection_.get(); }
    [[nodiscard]] xcb_window_t root() const { return root_; }
    [[nodiscard]] const X11Atoms& atoms() const { return atoms_; }

    /// Every event of the server's own, in its order: what another client sent in its name is
    /// nobody's word. A listener may wait for replies.
    Signal<const xcb_generic_event_t&> event;

    /// Emitted once when the server is gone.
    Signal<> lost;

    /// Dispatches all that has arrived.
    void drain();

    /// Waiting for a reply also reads events into xcb's queue, after which the descriptor is
    /// silent: whoever waited outside of an event calls this so that they are not left there.
    void drainLater();

    void flush() const { xcb_flush(raw()); }

    /// Selects events on a window until the subscription ends, beside those that others of us
    /// select there: a window may be several things at once, or be said to be.
    [[nodiscard]] Subscription select(xcb_window_t window, std::uint32_t eventMask);

private:
    X11Connection(xcb_connection_t* connection, int screen);

    using Selections = std::multimap<xcb_window_t, std::uint32_t>; // the server knows their union
    void applySelections(xcb_window_t window) const;

    struct Disconnect {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };

    RunLoop* runLoop_ = nullptr; // absent until attached
    std::unique_ptr<xcb_connection_t, Disconnect> connection_;
    xcb_window_t root_ = XCB_WINDOW_NONE;
    X11Atoms atoms_{};
    Selections selections_;
    bool drainPosted_ = false;
    bool isLost_ = false;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true); // for posted tasks
    Subscription watch_;
};

/// A property's 32-bit items; empty when it is missing or of another
/// format.
std::vector<std::uint32_t> propertyItems(const xcb_get_property_reply_t* reply);

/// A property's bytes; empty when it is missing or not text.
std::string propertyText(const xcb_get_property_reply_t* reply);

/// Asks for a whole property of any type (bounded at 64 KiB).
xcb_get_property_cookie_t requestProperty(const X11Connection& connection, xcb_window_t window,
                                          xcb_atom_t property);
/// Sees to it that events which arrive meanwhile are dispatched.
XcbPtr<xcb_get_property_reply_t> awaitProperty(X11Connection& connection,
                                               xcb_get_property_cookie_t cookie);

} // namespace dwellkey
