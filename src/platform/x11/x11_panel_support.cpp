// SPDX-License-Identifier: MIT
#include "platform/x11/x11_panel_support.h"

#include <string>
#include <string_view>

namespace dwellkey {
namespace {

// Another window that insists on being on top as well would otherwise start an endless contest.
constexpr int raisesPerShowing = 8;

xcb_atom_t atomNamed(const X11Connection& connection, std::string_view name) {
    const XcbPtr<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        connection.raw(),
        xcb_intern_atom(connection.raw(), 0, static_cast<std::uint16_t>(name.size()), name.data()),
        nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

} // namespace

X11PanelSupport::X11PanelSupport(X11Connection& connection)
    : connection_(connection), windows_(connection),
      compositingManager_(atomNamed(connection, "_NET_WM_CM_S0")),
      blurRegion_(atomNamed(connection, "_KDE_NET_WM_BLUR_BEHIND_REGION")),
      events_(connection.event.subscribe([this](const auto& event) { handleEvent(event); })) {}

std::optional<PanelSupport::Point> X11PanelSupport::activeWindowCentre() const {
    const xcb_window_t window = windows_.activeWindow();
    if (window == XCB_WINDOW_NONE) {
        return std::nullopt;
    }
    auto* raw = connection_.raw();
    const auto sizeCookie = xcb_get_geometry(raw, window);
    const auto originCookie = xcb_translate_coordinates(raw, window, connection_.root(), 0, 0);
    const XcbPtr<xcb_get_geometry_reply_t> size(xcb_get_geometry_reply(raw, sizeCookie, nullptr));
    const XcbPtr<xcb_translate_coordinates_reply_t> origin(
        xcb_translate_coordinates_reply(raw, originCookie, nullptr));
    if (!size || !origin) {
        return std::nullopt;
    }
    return Point{origin->dst_x + size->width / 2, origin->dst_y + size->height / 2};
}

bool X11PanelSupport::isComposited() const {
    const XcbPtr<xcb_get_selection_owner_reply_t> owner(xcb_get_selection_owner_reply(
        connection_.raw(), xcb_get_selection_owner(connection_.raw(), compositingManager_),
        nullptr));
    connection_.drainLater();
    return owner && owner->owner != XCB_WINDOW_NONE;
}

void X11PanelSupport::keepAbove(std::uint32_t nativeWindow) {
    raisesLeft_.clear(); // a panel has one window at a time
    raisesLeft_[nativeWindow] = raisesPerShowing;
    panelEvents_ = connection_.select(nativeWindow, XCB_EVENT_MASK_VISIBILITY_CHANGE
                                                        | XCB_EVENT_MASK_STRUCTURE_NOTIFY);
}

void X11PanelSupport::blurBehind(std::uint32_t nativeWindow) {
    // An empty region stands for the whole window.
    xcb_change_property(connection_.raw(), XCB_PROP_MODE_REPLACE, nativeWindow, blurRegion_,
                        XCB_ATOM_CARDINAL, 32, 0, nullptr);
    connection_.flush();
}

void X11PanelSupport::handleEvent(const xcb_generic_event_t& event) {
    const auto type = event.response_type & 0x7fU;
    if (type == XCB_MAP_NOTIFY) {
        const auto window = reinterpret_cast<const xcb_map_notify_event_t&>(event).window; // NOLINT
        if (const auto kept = raisesLeft_.find(window); kept != raisesLeft_.end()) {
            kept->second = raisesPerShowing;
            raise(window);
        }
    } else if (type == XCB_VISIBILITY_NOTIFY) {
        const auto& change =
            reinterpret_cast<const xcb_visibility_notify_event_t&>(event); // NOLINT
        const auto kept = raisesLeft_.find(change.window);
        if (change.state != XCB_VISIBILITY_UNOBSCURED && kept != raisesLeft_.end()
            && kept->second-- > 0) {
            raise(change.window);
        }
    }
}

void X11PanelSupport::raise(xcb_window_t window) const {
    const std::uint32_t above = XCB_STACK_MODE_ABOVE;
    xcb_configure_window(connection_.raw(), window, XCB_CONFIG_WINDOW_STACK_MODE, &above);
    connection_.flush();
}

} // namespace dwellkey
