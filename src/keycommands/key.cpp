// SPDX-License-Identifier: MIT
#include "keycommands/key.h"

#include <algorithm>
#include <utility>

namespace dwellkey {
namespace {

// The volume keys have no symbol on purpose: what the layout says of them is shown.
constexpr std::array<std::pair<Key, std::string_view>, 34> fixedSymbols{{
    {Key::return_, "⏎"},       {Key::tab, "⇥"},      {Key::space, "␣"},     {Key::delete_, "⌫"},
    {Key::forwardDelete, "⌦"}, {Key::escape, "⎋"},   {Key::home, "⇱"},      {Key::end, "⇲"},
    {Key::pageUp, "⇞"},        {Key::pageDown, "⇟"}, {Key::leftArrow, "←"}, {Key::rightArrow, "→"},
    {Key::downArrow, "↓"},     {Key::upArrow, "↑"},  {Key::f1, "F1"},       {Key::f2, "F2"},
    {Key::f3, "F3"},           {Key::f4, "F4"},      {Key::f5, "F5"},       {Key::f6, "F6"},
    {Key::f7, "F7"},           {Key::f8, "F8"},      {Key::f9, "F9"},       {Key::f10, "F10"},
    {Key::f11, "F11"},         {Key::f12, "F12"},    {Key::f13, "F13"},     {Key::f14, "F14"},
    {Key::f15, "F15"},         {Key::f16, "F16"},    {Key::f17, "F17"},     {Key::f18, "F18"},
    {Key::f19, "F19"},         {Key::f20, "F20"},
}};

} // namespace

std::optional<Key> keyFromRawValue(std::int64_t code) {
    const auto* const found =
        std::ranges::find_if(allCases<Key>, [&](Key key) { return rawValue(key) == code; });
    return found == allCases<Key>.end() ? std::nullopt : std::optional(*found);
}

std::string layoutCharacter(Key key, const KeyboardLayout& layout) {
    return layout.character(static_cast<std::uint16_t>(rawValue(key)));
}

std::string stringValue(Key key, const KeyboardLayout& layout) {
    const auto* const symbol =
        std::ranges::find(fixedSymbols, key, &std::pair<Key, std::string_view>::first);
    return symbol == fixedSymbols.end() ? layoutCharacter(key, layout)
                                        : std::string(symbol->second);
}

std::optional<Key> keyFromCharacter(std::string_view text, const KeyboardLayout& layout) {
    const auto* const found = std::ranges::find_if(
        allCases<Key>, [&](Key key) { return layoutCharacter(key, layout) == text; });
    return found == allCases<Key>.end() ? std::nullopt : std::optional(*found);
}

} // namespace dwellkey
