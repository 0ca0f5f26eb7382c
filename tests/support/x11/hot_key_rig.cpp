// SPDX-License-Identifier: MIT
#include "x11_support/hot_key_rig.h"

#include "harness/failure.h"

#include <algorithm>
#include <utility>

namespace dwellkey {

OtherClient::OtherClient(const std::string& display) : connection_(display) {}

void OtherClient::takeFocus() {
    auto* raw = connection_.get();
    window_ = xcb_generate_id(raw);
    const std::uint32_t events = XCB_EVENT_MASK_KEY_PRESS;
    xcb_create_window(raw, XCB_COPY_FROM_PARENT, window_, connection_.root(), 0, 0, 100, 100, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK,
                      &events);
    xcb_map_window(raw, window_);
    xcb_set_input_focus(raw, XCB_INPUT_FOCUS_NONE, window_, XCB_CURRENT_TIME);
    connection_.synchronize();
}

std::size_t OtherClient::strokes(xcb_keycode_t key) {
    connection_.synchronize();
    readEvents();
    return static_cast<std::size_t>(std::ranges::count(strokes_, key));
}

void OtherClient::readEvents() {
    while (const e2e::Reply<xcb_generic_event_t> event{xcb_poll_for_event(connection_.get())}) {
        if ((event->response_type & 0x7fU) == XCB_KEY_PRESS) {
            strokes_.push_back(
                reinterpret_cast<const xcb_key_press_event_t&>(*event).detail); // NOLINT: xcb's way
        }
    }
}

bool OtherClient::grab(xcb_keycode_t key, std::uint16_t modifiers) {
    const e2e::Reply<xcb_generic_error_t> error(xcb_request_check(
        connection_.get(), xcb_grab_key_checked(connection_.get(), 0, connection_.root(), modifiers,
                                                key, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC)));
    return !error;
}

void OtherClient::ungrab(xcb_keycode_t key, std::uint16_t modifiers) {
    xcb_ungrab_key(connection_.get(), key, connection_.root(), modifiers);
    connection_.synchronize();
}

HotKeyRig::HotKeyRig() {
    connection->attach(loop);
    application.takeFocus();
}

HotKeyRig::~HotKeyRig() {
    keyboard->releaseAll();
    setLocks(false);
}

void HotKeyRig::settle() {
    synchronize(); // what was caused before has arrived by now
    connection->drain();
    loop.runPosted();
}

void HotKeyRig::awaitRepeats(xcb_keycode_t key) {
    settle();
    int seen = 0;
    const auto counter = connection->event.subscribe([&](const xcb_generic_event_t& event) {
        if ((event.response_type & 0x7fU) == XCB_KEY_PRESS
            && reinterpret_cast<const xcb_key_press_event_t&>(event).detail == key) { // NOLINT
            ++seen;
        }
    });
    const auto typedBefore = application.strokes(key);
    e2e::await("the key to repeat itself",
               [&] {
                   settle();
                   return seen >= 2 || application.strokes(key) >= typedBefore + 2;
               },
               {xcb_get_file_descriptor(connection->raw())});
}

void HotKeyRig::setLocks(bool on) {
    if (std::exchange(locksAreOn_, on) != on) {
        keyboard->toggleCapsLock();
        keyboard->toggleNumLock();
    }
}

} // namespace dwellkey
