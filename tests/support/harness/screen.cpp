// SPDX-License-Identifier: MIT
#include "harness/screen.h"

#include "harness/failure.h"

#include <algorithm>

namespace dwellkey::e2e {

Screen::Screen(const std::string& display) : connection_(display) {
    watch(connection_.root(), XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_PROPERTY_CHANGE);
}

void Screen::watch(Window window, std::uint32_t events) const {
    xcb_change_window_attributes(connection_.get(), window, XCB_CW_EVENT_MASK, &events);
    xcb_flush(connection_.get());
}

void Screen::drainEvents() const {
    while (const Reply<xcb_generic_event_t> event{xcb_poll_for_event(connection_.get())}) {
        // Only that something changed is of interest; the predicates look for themselves.
    }
    if (xcb_connection_has_error(connection_.get()) != 0) {
        throw Failure("the display is gone");
    }
}

bool Screen::happensBefore(TimePoint end, const Predicate& met) const {
    return e2e::happensBefore(end,
                              [&] {
                                  drainEvents();
                                  return met();
                              },
                              {connection_.descriptor()});
}

void Screen::await(std::string_view what, const Predicate& met, Milliseconds limit) const {
    e2e::await(
        what,
        [&] {
            drainEvents();
            return met();
        },
        {connection_.descriptor()}, limit);
}

bool Screen::isManaged() const {
    const auto check = connection_.numbersProperty(connection_.root(), "_NET_SUPPORTING_WM_CHECK");
    return !check.empty()
           && connection_.numbersProperty(check.front(), "_NET_SUPPORTING_WM_CHECK") == check;
}

std::vector<Window> Screen::managedWindows() const {
    return connection_.numbersProperty(connection_.root(), "_NET_CLIENT_LIST");
}

std::optional<Window> Screen::activeWindow() const {
    const auto active = connection_.numbersProperty(connection_.root(), "_NET_ACTIVE_WINDOW");
    if (active.empty() || active.front() == XCB_NONE) {
        return std::nullopt;
    }
    return active.front();
}

Window Screen::focusedWindow() const {
    const Reply<xcb_get_input_focus_reply_t> reply(xcb_get_input_focus_reply(
        connection_.get(), xcb_get_input_focus(connection_.get()), nullptr));
    return reply ? reply->focus : XCB_NONE;
}

std::string Screen::title(Window window) const {
    auto title = connection_.textProperty(window, "_NET_WM_NAME");
    return title.empty() ? connection_.textProperty(window, "WM_NAME") : title;
}

std::string Screen::className(Window window) const {
    const auto both = connection_.textProperty(window, "WM_CLASS"); // instance NUL class NUL
    const auto end = both.find('\0');
    if (end == std::string::npos) {
        return {};
    }
    return both.substr(end + 1, both.find('\0', end + 1) - end - 1);
}

bool Screen::isViewable(Window window) const {
    xcb_generic_error_t* error = nullptr;
    const Reply<xcb_get_window_attributes_reply_t> reply(xcb_get_window_attributes_reply(
        connection_.get(), xcb_get_window_attributes(connection_.get(), window), &error));
    const Reply<xcb_generic_error_t> dropped(error);
    return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
}

Rectangle Screen::geometry(Window window) const {
    auto* connection = connection_.get();
    const auto geometryCookie = xcb_get_geometry(connection, window);
    const auto originCookie =
        xcb_translate_coordinates(connection, window, connection_.root(), 0, 0);
    const Reply<xcb_get_geometry_reply_t> geometry(
        xcb_get_geometry_reply(connection, geometryCookie, nullptr));
    const Reply<xcb_translate_coordinates_reply_t> origin(
        xcb_translate_coordinates_reply(connection, originCookie, nullptr));
    if (!geometry || !origin) {
        throw Failure("a window whose place was asked for is gone");
    }
    return {origin->dst_x, origin->dst_y, geometry->width, geometry->height};
}

std::optional<Window> Screen::windowOfClass(const std::string& wanted) const {
    for (const Window window : managedWindows()) {
        if (className(window) == wanted) {
            return window;
        }
    }
    return std::nullopt;
}

std::optional<Window> Screen::windowTitled(const std::string& wanted) const {
    for (const Window window : managedWindows()) {
        if (title(window) == wanted) {
            return window;
        }
    }
    return std::nullopt;
}

Window Screen::awaitWindowOfClass(const std::string& wanted) const {
    std::optional<Window> found;
    await("a window of class " + wanted,
          [&] { return (found = windowOfClass(wanted)).has_value(); });
    return *found;
}

std::optional<Window> Screen::panel() const {
    const auto windows = topLevels();
    const auto found = std::find_if(windows.rbegin(), windows.rend(), [&](Window window) {
        return isViewable(window) && title(window) == "Timer" && className(window) == "dwellkey";
    });
    return found == windows.rend() ? std::nullopt : std::optional(*found);
}

Window Screen::awaitPanel() const {
    std::optional<Window> found;
    await("the hold panel", [&] { return (found = panel()).has_value(); });
    return *found;
}

void Screen::awaitNoPanel() const {
    await("the hold panel to go", [&] { return !panel(); });
}

std::vector<Window> Screen::topLevels() const {
    const Reply<xcb_query_tree_reply_t> reply(xcb_query_tree_reply(
        connection_.get(), xcb_query_tree(connection_.get(), connection_.root()), nullptr));
    if (!reply) {
        throw Failure("the display is gone (asking for its windows)");
    }
    const Window* children = xcb_query_tree_children(reply.get());
    return {children, children + xcb_query_tree_children_length(reply.get())};
}

Window Screen::topLevelOf(Window window) const {
    Window parent = window;
    while (parent != connection_.root()) {
        window = parent;
        const Reply<xcb_query_tree_reply_t> reply(xcb_query_tree_reply(
            connection_.get(), xcb_query_tree(connection_.get(), window), nullptr));
        if (!reply) {
            throw Failure("a window whose frame was asked for is gone");
        }
        parent = reply->parent;
    }
    return window;
}

bool Screen::isAbove(Window upper, Window lower) const {
    const auto bottomToTop = topLevels();
    return std::find(bottomToTop.begin(), bottomToTop.end(), topLevelOf(upper))
           > std::find(bottomToTop.begin(), bottomToTop.end(), topLevelOf(lower));
}

void Screen::askWindowManager(Window window, const char* message, std::uint32_t first,
                              std::uint32_t second) const {
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = connection_.atom(message);
    event.data.data32[0] = first;
    event.data.data32[1] = second;
    xcb_send_event(connection_.get(), 0, connection_.root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&event));
    xcb_flush(connection_.get());
}

void Screen::requestClose(Window window) const {
    constexpr std::uint32_t asTaskbar = 2;
    askWindowManager(window, "_NET_CLOSE_WINDOW", XCB_CURRENT_TIME, asTaskbar);
}

void Screen::minimise(Window window) const {
    constexpr std::uint32_t iconicState = 3;
    askWindowManager(window, "WM_CHANGE_STATE", iconicState, 0);
    await("the minimised window to leave the screen", [&] { return !isViewable(window); });
}

void Screen::activate(Window window) const {
    constexpr std::uint32_t asTaskbar = 2;
    askWindowManager(window, "_NET_ACTIVE_WINDOW", asTaskbar, 0);
    // The focus too: a window manager may go on naming a window that is gone, and the server gives
    // its number to the next program.
    await("the activated window to be the active one", [&] {
        const Window focused = focusedWindow();
        return activeWindow() == window && focused != XCB_NONE
               && focused != XCB_INPUT_FOCUS_POINTER_ROOT
               && topLevelOf(focused) == topLevelOf(window);
    });
}

bool Screen::isGrabbed(xcb_keycode_t key, std::uint16_t modifiers) const {
    auto* connection = connection_.get();
    // While the server serves only us nobody can meet the grab that we try.
    xcb_grab_server(connection);
    const auto attempt = xcb_grab_key_checked(connection, 0, connection_.root(), modifiers, key,
                                              XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    xcb_ungrab_key(connection, key, connection_.root(), modifiers);
    xcb_ungrab_server(connection);
    xcb_flush(connection);
    const Reply<xcb_generic_error_t> error(xcb_request_check(connection, attempt));
    return error && error->error_code == XCB_ACCESS;
}

Picture Screen::picture() const {
    return picture(
        {0, 0, connection_.screen().width_in_pixels, connection_.screen().height_in_pixels});
}

Picture Screen::picture(const Rectangle& area) const {
    const auto cookie = xcb_get_image(
        connection_.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, connection_.root(),
        static_cast<std::int16_t>(area.x), static_cast<std::int16_t>(area.y),
        static_cast<std::uint16_t>(area.width), static_cast<std::uint16_t>(area.height), ~0U);
    const Reply<xcb_get_image_reply_t> reply(
        xcb_get_image_reply(connection_.get(), cookie, nullptr));
    if (!reply) {
        throw Failure("the server gives no picture of the screen");
    }
    const auto* pixels = reinterpret_cast<const std::uint32_t*>(xcb_get_image_data(reply.get()));
    const auto count = static_cast<std::size_t>(area.width) * static_cast<std::size_t>(area.height);
    return {area.width, area.height, {pixels, pixels + count}};
}

} // namespace dwellkey::e2e
