// SPDX-License-Identifier: MIT
#include "harness/input.h"

#include "harness/failure.h"
#include "harness/xcb_xkb.h"

#include <utility>

#include <xcb/xcb.h>
#ifdef __clang__
#pragma clang diagnostic ignored "-Wkeyword-macro"
#endif
#include <xcb/xtest.h>

namespace dwellkey::e2e {

namespace {

constexpr std::uint8_t leftButton = 1;

void fakeInput(const XConnection& connection, std::uint8_t type, std::uint8_t detail, int x = 0,
               int y = 0) {
    const auto cookie = xcb_test_fake_input_checked(
        connection.get(), type, detail, XCB_CURRENT_TIME, connection.root(),
        static_cast<std::int16_t>(x), static_cast<std::int16_t>(y), 0);
    const Reply<xcb_generic_error_t> error(xcb_request_check(connection.get(), cookie));
    if (error) {
        throw Failure("the server does not take injected input");
    }
}

} // namespace

Keyboard::Keyboard(const std::string& display, Environment environment,
                   std::filesystem::path logFolder)
    : connection_(display), environment_(std::move(environment)), logFolder_(std::move(logFolder)) {
    const Reply<xcb_xkb_use_extension_reply_t> reply(xcb_xkb_use_extension_reply(
        connection_.get(),
        xcb_xkb_use_extension(connection_.get(), XCB_XKB_MAJOR_VERSION, XCB_XKB_MINOR_VERSION),
        nullptr));
    if (!reply || reply->supported == 0) {
        throw Failure("the server has no XKB");
    }
}

Keyboard::~Keyboard() {
    try {
        releaseAll();
    } catch (const std::exception&) { // NOLINT(bugprone-empty-catch): then the server is gone
    }
}

void Keyboard::send(std::uint8_t type, xcb_keycode_t key) {
    fakeInput(connection_, type, key);
}

TimePoint Keyboard::press(xcb_keycode_t key) {
    const TimePoint before = Clock::now();
    held_.insert(key);
    send(XCB_KEY_PRESS, key);
    return before;
}

void Keyboard::release(xcb_keycode_t key) {
    send(XCB_KEY_RELEASE, key);
    held_.erase(key);
}

void Keyboard::tap(xcb_keycode_t key) {
    press(key);
    release(key);
}

void Keyboard::releaseAll() {
    while (!held_.empty()) {
        release(*held_.begin());
    }
}

void Keyboard::type(std::string_view letters) {
    for (const char letter : letters) {
        tap(keyFor(static_cast<xcb_keysym_t>(letter))); // a letter's symbol is its ASCII code
    }
}

std::uint8_t Keyboard::lockedModifiers() const {
    const Reply<xcb_xkb_get_state_reply_t> state(xcb_xkb_get_state_reply(
        connection_.get(), xcb_xkb_get_state(connection_.get(), XCB_XKB_ID_USE_CORE_KBD), nullptr));
    if (!state) {
        throw Failure("the server does not tell the keyboard's state");
    }
    return state->lockedMods;
}

void Keyboard::toggle(xcb_keycode_t key) {
    const auto before = lockedModifiers();
    tap(key);
    await("the lock key to take effect", [&] { return lockedModifiers() != before; });
}

void Keyboard::toggleCapsLock() {
    toggle(key::capsLock);
}

void Keyboard::toggleNumLock() {
    toggle(key::numLock);
}

void Keyboard::setLayout(const std::string& layouts) {
    ChildProcess process(
        {{"setxkbmap", "-layout", layouts}, environment_, logFolder_ / "setxkbmap.log"});
    if (process.awaitEnd() != ExitStatus{0, {}}) {
        throw Failure("setxkbmap refused the layout " + layouts + ": " + process.log());
    }
}

void Keyboard::lockGroup(std::uint8_t group) {
    xcb_xkb_latch_lock_state(connection_.get(), XCB_XKB_ID_USE_CORE_KBD, 0, 0, 1, group, 0, 0, 0);
    connection_.synchronize();
}

xcb_keycode_t Keyboard::keyFor(xcb_keysym_t symbol) const {
    const auto* setup = xcb_get_setup(connection_.get());
    const auto count = static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1);
    const Reply<xcb_get_keyboard_mapping_reply_t> reply(xcb_get_keyboard_mapping_reply(
        connection_.get(), xcb_get_keyboard_mapping(connection_.get(), setup->min_keycode, count),
        nullptr));
    if (!reply) {
        throw Failure("the server does not tell the keyboard's layout");
    }
    const auto* symbols = xcb_get_keyboard_mapping_keysyms(reply.get());
    for (std::uint8_t i = 0; i < count; ++i) {
        if (symbols[std::size_t{i} * reply->keysyms_per_keycode] == symbol) {
            return static_cast<xcb_keycode_t>(setup->min_keycode + i);
        }
    }
    throw Failure("no key types the symbol " + std::to_string(symbol));
}

Pointer::Pointer(const std::string& display) : connection_(display) {}

void Pointer::moveTo(int x, int y) {
    fakeInput(connection_, XCB_MOTION_NOTIFY, 0, x, y);
}

void Pointer::press() {
    fakeInput(connection_, XCB_BUTTON_PRESS, leftButton);
}

void Pointer::release() {
    fakeInput(connection_, XCB_BUTTON_RELEASE, leftButton);
}

void Pointer::click() {
    press();
    release();
}

} // namespace dwellkey::e2e
