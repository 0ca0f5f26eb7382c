// SPDX-License-Identifier: MIT
#include "platform/x11/x11_connection.h"

#include <array>
#include <string_view>
#include <utility>

namespace dwellkey {
namespace {

struct AtomName {
    xcb_atom_t X11Atoms::*atom;
    std::string_view name;
};

constexpr std::uint8_t sentByAClient = 0x80; // set in the type of an event that SendEvent made

constexpr auto atomNames = std::to_array<AtomName>({
    {&X11Atoms::netActiveWindow, "_NET_ACTIVE_WINDOW"},
    {&X11Atoms::netClientList, "_NET_CLIENT_LIST"},
    {&X11Atoms::netSupported, "_NET_SUPPORTED"},
    {&X11Atoms::netSupportingWmCheck, "_NET_SUPPORTING_WM_CHECK"},
    {&X11Atoms::netWmWindowType, "_NET_WM_WINDOW_TYPE"},
    {&X11Atoms::netWmWindowTypeDesktop, "_NET_WM_WINDOW_TYPE_DESKTOP"},
    {&X11Atoms::netWmWindowTypeDock, "_NET_WM_WINDOW_TYPE_DOCK"},
    {&X11Atoms::netWmWindowTypeNormal, "_NET_WM_WINDOW_TYPE_NORMAL"},
    {&X11Atoms::netWmState, "_NET_WM_STATE"},
    {&X11Atoms::netWmStateModal, "_NET_WM_STATE_MODAL"},
    {&X11Atoms::wmProtocols, "WM_PROTOCOLS"},
    {&X11Atoms::wmDeleteWindow, "WM_DELETE_WINDOW"},
    {&X11Atoms::gtkApplicationId, "_GTK_APPLICATION_ID"},
    {&X11Atoms::gtkUniqueBusName, "_GTK_UNIQUE_BUS_NAME"},
    {&X11Atoms::gtkApplicationObjectPath, "_GTK_APPLICATION_OBJECT_PATH"},
});

X11Atoms internAtoms(xcb_connection_t* connection) {
    std::array<xcb_intern_atom_cookie_t, atomNames.size()> cookies{};
    for (std::size_t i = 0; i < atomNames.size(); ++i) {
        const auto name = atomNames[i].name;
        cookies[i] =
            xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
    }
    X11Atoms atoms{};
    for (std::size_t i = 0; i < atomNames.size(); ++i) {
        const XcbPtr<xcb_intern_atom_reply_t> reply(
            xcb_intern_atom_reply(connection, cookies[i], nullptr));
        atoms.*atomNames[i].atom = reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    }
    return atoms;
}

xcb_window_t rootOf(xcb_connection_t* connection, int screen) {
    auto iterator = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (int i = 0; i < screen && iterator.rem > 1; ++i) {
        xcb_screen_next(&iterator);
    }
    return iterator.data->root;
}

} // namespace

std::variant<std::unique_ptr<X11Connection>, std::string> X11Connection::open() {
    int screen = 0;
    xcb_connection_t* connection = xcb_connect(nullptr, &screen);
    if (xcb_connection_has_error(connection) != 0) {
        xcb_disconnect(connection);
        const char* display = std::getenv("DISPLAY");
        return display == nullptr
                   ? std::string("DISPLAY is not set: there is no X server to talk to")
                   : "no X server answers at display \"" + std::string(display) + '"';
    }
    return std::unique_ptr<X11Connection>(new X11Connection(connection, screen));
}

X11Connection::X11Connection(xcb_connection_t* connection, int screen)
    : connection_(connection), root_(rootOf(connection, screen)), atoms_(internAtoms(connection)) {}

void X11Connection::attach(RunLoop& runLoop) {
    runLoop_ = &runLoop;
    watch_ = runLoop.watch(xcb_get_file_descriptor(raw()), [this] { drain(); });
    drainLater();
}

X11Connection::~X11Connection() {
    *alive_ = false;
    watch_.cancel(); // before the descriptor closes
}

void X11Connection::drain() {
    const auto alive = alive_; // a listener may end everything
    while (*alive) {
        const XcbPtr<xcb_generic_event_t> next(xcb_poll_for_event(raw()));
        if (!next) {
            break;
        }
        // Errors arrive here too; all our unchecked requests name windows that may be gone by now.
        const bool isSent = (next->response_type & sentByAClient) != 0;
        if (next->response_type != 0 && !isSent) {
            event.emit(*next);
        }
    }
    if (*alive && !isLost_ && xcb_connection_has_error(raw()) != 0) {
        isLost_ = true;
        watch_.cancel();
        lost.emit();
    }
}

void X11Connection::drainLater() {
    if (runLoop_ == nullptr || std::exchange(drainPosted_, true)) {
        return;
    }
    runLoop_->post([this, alive = alive_] {
        if (*alive) {
            drainPosted_ = false;
            drain();
        }
    });
}

Subscription X11Connection::select(xcb_window_t window, std::uint32_t eventMask) {
    const auto selection = selections_.emplace(window, eventMask);
    applySelections(window);
    return Subscription([this, alive = alive_, selection, window] {
        if (*alive) {
            selections_.erase(selection);
            applySelections(window);
        }
    });
}

void X11Connection::applySelections(xcb_window_t window) const {
    std::uint32_t mask = XCB_EVENT_MASK_NO_EVENT;
    const auto [first, last] = selections_.equal_range(window);
    for (auto at = first; at != last; ++at) {
        mask |= at->second;
    }
    xcb_change_window_attributes(raw(), window, XCB_CW_EVENT_MASK, &mask);
    flush();
}

std::vector<std::uint32_t> propertyItems(const xcb_get_property_reply_t* reply) {
    if (reply == nullptr || reply->format != 32) {
        return {};
    }
    const auto* items = static_cast<const std::uint32_t*>(xcb_get_property_value(reply));
    return {items, items + reply->value_len};
}

std::string propertyText(const xcb_get_property_reply_t* reply) {
    if (reply == nullptr || reply->format != 8) {
        return {};
    }
    return {static_cast<const char*>(xcb_get_property_value(reply)), reply->value_len};
}

xcb_get_property_cookie_t requestProperty(const X11Connection& connection, xcb_window_t window,
                                          xcb_atom_t property) {
    constexpr std::uint32_t words = 16384;
    return xcb_get_property(connection.raw(), 0, window, property, XCB_GET_PROPERTY_TYPE_ANY, 0,
                            words);
}

XcbPtr<xcb_get_property_reply_t> awaitProperty(X11Connection& connection,
                                               xcb_get_property_cookie_t cookie) {
    connection.drainLater();
    return XcbPtr<xcb_get_property_reply_t>(
        xcb_get_property_reply(connection.raw(), cookie, nullptr));
}

} // namespace dwellkey
