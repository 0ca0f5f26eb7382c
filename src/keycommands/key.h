// SPDX-License-Identifier: MIT
// The keys of the keyboard. std only.
#pragma once

#include "platform/keyboard.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace dwellkey {

/// A key by its position: the value is the virtual key code of that position on an ANSI keyboard,
/// whatever the layout prints on it.
// clang-format off
enum class Key : int {
    a = 0, b = 11, c = 8, d = 2, e = 14, f = 3, g = 5, h = 4, i = 34, j = 38, k = 40,
    l = 37, m = 46, n = 45, o = 31, p = 35, q = 12, r = 15, s = 1, t = 17, u = 32, v = 9,
    w = 13, x = 7, y = 16, z = 6, zero = 29, one = 18, two = 19, three = 20, four = 21,
    five = 23, six = 22, seven = 26, eight = 28, nine = 25, minus = 27, equals = 24,
    leftBracket = 33, rightBracket = 30, backslash = 42, semicolon = 41, quote = 39,
    comma = 43, period = 47, slash = 44, grave = 50, keypadDecimal = 65,
    keypadMultiply = 67, keypadPlus = 69, keypadClear = 71, keypadDivide = 75,
    keypadEnter = 76, keypadMinus = 78, keypadEquals = 81, keypad0 = 82, keypad1 = 83,
    keypad2 = 84, keypad3 = 85, keypad4 = 86, keypad5 = 87, keypad6 = 88, keypad7 = 89,
    keypad8 = 91, keypad9 = 92, return_ = 36, tab = 48, space = 49, delete_ = 51,
    forwardDelete = 117, escape = 53, volumeUp = 72, volumeDown = 73, mute = 74, home = 115,
    end = 119, pageUp = 116, pageDown = 121, leftArrow = 123, rightArrow = 124,
    downArrow = 125, upArrow = 126, f1 = 122, f2 = 120, f3 = 99, f4 = 118, f5 = 96, f6 = 97,
    f7 = 98, f8 = 100, f9 = 101, f10 = 109, f11 = 103, f12 = 111, f13 = 105, f14 = 107,
    f15 = 113, f16 = 106, f17 = 64, f18 = 79, f19 = 80, f20 = 90, isoSection = 10,
    jisYen = 93, jisUnderscore = 94, jisKeypadComma = 95, jisEisu = 102, jisKana = 104
};

/// All cases of an enumeration in their significant order: searches take the first match.
template <typename Enumeration>
inline constexpr auto allCases = nullptr;

template <>
inline constexpr std::array<Key, 108> allCases<Key>{
    Key::a, Key::b, Key::c, Key::d, Key::e, Key::f, Key::g, Key::h, Key::i, Key::j, Key::k,
    Key::l, Key::m, Key::n, Key::o, Key::p, Key::q, Key::r, Key::s, Key::t, Key::u, Key::v,
    Key::w, Key::x, Key::y, Key::z, Key::zero, Key::one, Key::two, Key::three, Key::four,
    Key::five, Key::six, Key::seven, Key::eight, Key::nine, Key::minus, Key::equals,
    Key::leftBracket, Key::rightBracket, Key::backslash, Key::semicolon, Key::quote,
    Key::comma, Key::period, Key::slash, Key::grave, Key::keypadDecimal,
    Key::keypadMultiply, Key::keypadPlus, Key::keypadClear, Key::keypadDivide,
    Key::keypadEnter, Key::keypadMinus, Key::keypadEquals, Key::keypad0, Key::keypad1,
    Key::keypad2, Key::keypad3, Key::keypad4, Key::keypad5, Key::keypad6, Key::keypad7,
    Key::keypad8, Key::keypad9, Key::return_, Key::tab, Key::space, Key::delete_,
    Key::forwardDelete, Key::escape, Key::volumeUp, Key::volumeDown, Key::mute, Key::home,
    Key::end, Key::pageUp, Key::pageDown, Key::leftArrow, Key::rightArrow, Key::downArrow,
    Key::upArrow, Key::f1, Key::f2, Key::f3, Key::f4, Key::f5, Key::f6, Key::f7, Key::f8,
    Key::f9, Key::f10, Key::f11, Key::f12, Key::f13, Key::f14, Key::f15, Key::f16, Key::f17,
    Key::f18, Key::f19, Key::f20, Key::isoSection, Key::jisYen, Key::jisUnderscore,
    Key::jisKeypadComma, Key::jisEisu, Key::jisKana};
// clang-format on

[[nodiscard]] constexpr int rawValue(Key key) {
    return static_cast<int>(key);
}

/// The key with this code; absent when there is none.
[[nodiscard]] std::optional<Key> keyFromRawValue(std::int64_t code);

/// What the key types under the present layout with no modifiers; "" when that is nothing.
[[nodiscard]] std::string layoutCharacter(Key key, const KeyboardLayout& layout);

/// How the user sees the key: its fixed symbol if it has one, else its layout character.
[[nodiscard]] std::string stringValue(Key key, const KeyboardLayout& layout);

/// The first key whose layout character (never its symbol) is exactly this text.
[[nodiscard]] std::optional<Key> keyFromCharacter(std::string_view text,
                                                  const KeyboardLayout& layout);

} // namespace dwellkey
