// SPDX-License-Identifier: MIT
#include "desktop/window_events.h"

#include <optional>

namespace dwellkey::bench {

namespace {

using e2e::Reply;

constexpr std::uint8_t sentFlag = 0x80;

std::optional<WindowEvent> interpreted(const xcb_generic_event_t& event) {
    const auto now = e2e::Clock::now();
    switch (event.response_type & ~sentFlag) {
    case XCB_CREATE_NOTIFY: {
        const auto& created = reinterpret_cast<const xcb_create_notify_event_t&>(event);
        return WindowEvent{WindowEvent::Kind::created, created.window, now, created.width};
    }
    case XCB_MAP_NOTIFY:
        return WindowEvent{WindowEvent::Kind::mapped,
                           reinterpret_cast<const xcb_map_notify_event_t&>(event).window, now};
    case XCB_UNMAP_NOTIFY:
        return WindowEvent{WindowEvent::Kind::unmapped,
                           reinterpret_cast<const xcb_unmap_notify_event_t&>(event).window, now};
    default:
        return std::nullopt;
    }
}

} // namespace

WindowEvents::WindowEvents(const std::string& display) : connection_(display) {
    const std::uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(connection_.get(), connection_.root(), XCB_CW_EVENT_MASK, &events);
    connection_.synchronize();
}

WindowEvent WindowEvents::await(std::string_view what,
                                const std::function<bool(const WindowEvent&)>& wanted) {
    WindowEvent found;
    const auto arrived = [&] {
        while (const Reply<xcb_generic_event_t> raw{xcb_poll_for_event(connection_.get())}) {
            if (const auto event = interpreted(*raw); event && wanted(*event)) {
                found = *event;
                return true;
            }
        }
        return false;
    };
    e2e::await(what, arrived, {connection_.descriptor()});
    return found;
}

WindowEvent WindowEvents::awaitPanel() {
    return await("the hold panel to appear", [&](const WindowEvent& event) {
        return event.kind == WindowEvent::Kind::mapped
               && connection_.textProperty(event.window, "_NET_WM_NAME") == "Timer";
    });
}

WindowEvent WindowEvents::awaitGone(e2e::Window window) {
    return await("a window to go", [&](const WindowEvent& event) {
        return event.kind == WindowEvent::Kind::unmapped && event.window == window;
    });
}

void WindowEvents::forget() {
    connection_.synchronize();
    while (const Reply<xcb_generic_event_t> event{xcb_poll_for_event(connection_.get())}) {
    }
}

} // namespace dwellkey::bench
