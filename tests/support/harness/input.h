// SPDX-License-Identifier: MIT
// The user's hands, by XTEST.
#pragma once

#include "harness/await.h"
#include "harness/child_process.h"
#include "harness/x_connection.h"

#include <cstdint>
#include <set>
#include <string>
#include <string_view>

namespace dwellkey::e2e {

/// X key codes of an evdev keyboard, by position, with the label of a US keyboard.
namespace key {
inline constexpr xcb_keycode_t escape = 9;
inline constexpr xcb_keycode_t tab = 23;
inline constexpr xcb_keycode_t q = 24;
inline constexpr xcb_keycode_t w = 25;
inline constexpr xcb_keycode_t returnKey = 36;
inline constexpr xcb_keycode_t a = 38;
inline constexpr xcb_keycode_t x = 53;
inline constexpr xcb_keycode_t leftControl = 37;
inline constexpr xcb_keycode_t comma = 59;
inline constexpr xcb_keycode_t rightControl = 105;
inline constexpr xcb_keycode_t leftShift = 50;
inline constexpr xcb_keycode_t leftAlt = 64;
inline constexpr xcb_keycode_t space = 65;
inline constexpr xcb_keycode_t capsLock = 66;
inline constexpr xcb_keycode_t f4 = 70;
inline constexpr xcb_keycode_t f5 = 71;
inline constexpr xcb_keycode_t f10 = 76;
inline constexpr xcb_keycode_t numLock = 77;
inline constexpr xcb_keycode_t left = 113;
inline constexpr xcb_keycode_t end = 115;
} // namespace key

class Keyboard {
public:
    /// `environment` is what setxkbmap runs in.
    Keyboard(const std::string& display, Environment environment, std::filesystem::path logFolder);
    Keyboard(const Keyboard&) = delete;
    Keyboard& operator=(const Keyboard&) = delete;
    /// Lets go of what is still held.
    ~Keyboard();

    /// Each returns when the server has taken the event; press tells when.
    TimePoint press(xcb_keycode_t key);
    void release(xcb_keycode_t key);
    void tap(xcb_keycode_t key);
    void releaseAll();

    /// Types lower-case letters.
    void type(std::string_view letters);

    /// Presses and releases the lock key, and waits until the server's state has followed.
    void toggleCapsLock();
    void toggleNumLock();

    /// Sets the layout or list of layouts ("us,ru") with setxkbmap.
    void setLayout(const std::string& layouts);
    /// Switches to the n-th layout of the list, as a layout key does.
    void lockGroup(std::uint8_t group);

    /// The key that types the symbol unshifted in the first layout.
    [[nodiscard]] xcb_keycode_t keyFor(xcb_keysym_t symbol) const;

private:
    void send(std::uint8_t type, xcb_keycode_t key);
    [[nodiscard]] std::uint8_t lockedModifiers() const;
    void toggle(xcb_keycode_t key);

    XConnection connection_;
    Environment environment_;
    std::filesystem::path logFolder_;
    std::set<xcb_keycode_t> held_;
};

class Pointer {
public:
    explicit Pointer(const std::string& display);

    void moveTo(int x, int y);
    void press();
    void release();
    void click();

private:
    XConnection connection_;
};

} // namespace dwellkey::e2e
