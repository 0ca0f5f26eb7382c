// SPDX-License-Identifier: MIT
#include "keycommands/key_names.h"

#include <algorithm>
#include <array>
#include <climits>
#include <cwchar>
#include <cwctype>
#include <utility>

namespace dwellkey {
namespace {

// The order in which desktops write them.
constexpr std::array<Modifier, 4> nativeOrder{Modifier::control, Modifier::command,
                                              Modifier::option, Modifier::shift};

/// In capital letters of the process's locale; as it is where that cannot read it.
std::string inCapitals(const std::string& text) {
    std::string capitals;
    std::mbstate_t reading{};
    std::mbstate_t writing{};
    for (std::size_t at = 0; at < text.size();) {
        wchar_t character = 0;
        const std::size_t length =
            std::mbrtowc(&character, text.data() + at, text.size() - at, &reading);
        std::array<char, MB_LEN_MAX> bytes{};
        const std::size_t written =
            length == 0 || length > text.size()
                ? 0
                : std::wcrtomb(bytes.data(), static_cast<wchar_t>(std::towupper(character)),
                               &writing);
        if (written == 0 || written > bytes.size()) {
            return text;
        }
        capitals.append(bytes.data(), written);
        at += length;
    }
    return capitals;
}

/// "" for a key that is called by its symbol or by what it types.
std::string fixedName(Key key, const Localizer& localizer) {
    const auto names = std::to_array<std::pair<Key, std::string>>({
        {Key::return_, localizer.localized("KeyNames", "Return")},
        {Key::tab, localizer.localized("KeyNames", "Tab")},
        {Key::space, localizer.localized("KeyNames", "Space")},
        {Key::delete_, localizer.localized("KeyNames", "Backspace")},
        {Key::forwardDelete, localizer.localized("KeyNames", "Delete")},
        {Key::escape, localizer.localized("KeyNames", "Esc")},
        {Key::volumeUp, localizer.localized("KeyNames", "Volume Up")},
        {Key::volumeDown, localizer.localized("KeyNames", "Volume Down")},
        {Key::mute, localizer.localized("KeyNames", "Mute")},
        {Key::home, localizer.localized("KeyNames", "Home")},
        {Key::end, localizer.localized("KeyNames", "End")},
        {Key::pageUp, localizer.localized("KeyNames", "Page Up")},
        {Key::pageDown, localizer.localized("KeyNames", "Page Down")},
        {Key::leftArrow, localizer.localized("KeyNames", "Left")},
        {Key::rightArrow, localizer.localized("KeyNames", "Right")},
        {Key::downArrow, localizer.localized("KeyNames", "Down")},
        {Key::upArrow, localizer.localized("KeyNames", "Up")},
        {Key::keypadClear, localizer.localized("KeyNames", "Num Lock")},
        {Key::keypadEnter, localizer.localized("KeyNames", "Keypad Enter")},
    });
    const auto* const found = std::ranges::find(names, key, &std::pair<Key, std::string>::first);
    return found == names.end() ? std::string() : found->second;
}

/// What is printed on a key of the keypad: without Num Lock it types something else, or nothing.
std::string_view keypadLabel(Key key) {
    constexpr auto labels = std::to_array<std::pair<Key, std::string_view>>({
        {Key::keypadDecimal, "."},
        {Key::keypadMultiply, "*"},
        {Key::keypadPlus, "+"},
        {Key::keypadDivide, "/"},
        {Key::keypadMinus, "-"},
        {Key::keypadEquals, "="},
        {Key::keypad0, "0"},
        {Key::keypad1, "1"},
        {Key::keypad2, "2"},
        {Key::keypad3, "3"},
        {Key::keypad4, "4"},
        {Key::keypad5, "5"},
        {Key::keypad6, "6"},
        {Key::keypad7, "7"},
        {Key::keypad8, "8"},
        {Key::keypad9, "9"},
    });
    const auto* const found =
        std::ranges::find(labels, key, &std::pair<Key, std::string_view>::first);
    return found == labels.end() ? std::string_view() : found->second;
}

} // namespace

std::string nativeName(Modifier modifier, const Localizer& localizer) {
    switch (modifier) {
    case Modifier::control:
        return localizer.localized("KeyNames", "Super");
    case Modifier::option:
        return localizer.localized("KeyNames", "Alt");
    case Modifier::shift:
        return localizer.localized("KeyNames", "Shift");
    case Modifier::command:
        break;
    }
    return localizer.localized("KeyNames", "Ctrl");
}

std::string nativeName(Key key, const KeyboardLayout& layout, const Localizer& localizer) {
    if (auto name = fixedName(key, localizer); !name.empty()) {
        return name;
    }
    if (const auto label = keypadLabel(key); !label.empty()) {
        return withArgument(localizer.localized("KeyNames", "Keypad %1"), label);
    }
    return inCapitals(stringValue(key, layout));
}

std::string nativeName(Key key, const Modifiers& modifiers, const KeyboardLayout& layout,
                       const Localizer& localizer) {
    std::string name;
    for (const Modifier modifier : nativeOrder) {
        if (std::ranges::find(modifiers, modifier) != modifiers.end()) {
            name += nativeName(modifier, localizer) + "+";
        }
    }
    return name + nativeName(key, layout, localizer);
}

} // namespace dwellkey
