// SPDX-License-Identifier: MIT
#include "platform/linux/key_positions.h"

#include "platform/linux/evdev_key_codes.h"
#include "platform/linux/text_encoding.h"

#include <linux/input-event-codes.h>
#include <xkbcommon/xkbcommon-keysyms.h>
#include <xkbcommon/xkbcommon.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

namespace dwellkey {
namespace {

struct SpecialKey {
    xkb_keysym_t keysym;
    std::uint16_t evdevCode;
};

// The keypad keys have two names each, one for either state of Num Lock.
constexpr auto specialKeys = std::to_array<SpecialKey>({
    {XKB_KEY_Return, KEY_ENTER},
    {XKB_KEY_Tab, KEY_TAB},
    {XKB_KEY_ISO_Left_Tab, KEY_TAB},
    {XKB_KEY_space, KEY_SPACE},
    {XKB_KEY_BackSpace, KEY_BACKSPACE},
    {XKB_KEY_Delete, KEY_DELETE},
    {XKB_KEY_Escape, KEY_ESC},
    {XKB_KEY_XF86AudioRaiseVolume, KEY_VOLUMEUP},
    {XKB_KEY_XF86AudioLowerVolume, KEY_VOLUMEDOWN},
    {XKB_KEY_XF86AudioMute, KEY_MUTE},
    {XKB_KEY_Home, KEY_HOME},
    {XKB_KEY_End, KEY_END},
    {XKB_KEY_Page_Up, KEY_PAGEUP},
    {XKB_KEY_Page_Down, KEY_PAGEDOWN},
    {XKB_KEY_Left, KEY_LEFT},
    {XKB_KEY_Right, KEY_RIGHT},
    {XKB_KEY_Down, KEY_DOWN},
    {XKB_KEY_Up, KEY_UP},
    {XKB_KEY_F1, KEY_F1},
    {XKB_KEY_F2, KEY_F2},
    {XKB_KEY_F3, KEY_F3},
    {XKB_KEY_F4, KEY_F4},
    {XKB_KEY_F5, KEY_F5},
    {XKB_KEY_F6, KEY_F6},
    {XKB_KEY_F7, KEY_F7},
    {XKB_KEY_F8, KEY_F8},
    {XKB_KEY_F9, KEY_F9},
    {XKB_KEY_F10, KEY_F10},
    {XKB_KEY_F11, KEY_F11},
    {XKB_KEY_F12, KEY_F12},
    {XKB_KEY_F13, KEY_F13},
    {XKB_KEY_F14, KEY_F14},
    {XKB_KEY_F15, KEY_F15},
    {XKB_KEY_F16, KEY_F16},
    {XKB_KEY_F17, KEY_F17},
    {XKB_KEY_F18, KEY_F18},
    {XKB_KEY_F19, KEY_F19},
    {XKB_KEY_F20, KEY_F20},
    {XKB_KEY_Num_Lock, KEY_NUMLOCK},
    {XKB_KEY_KP_Enter, KEY_KPENTER},
    {XKB_KEY_KP_Equal, KEY_KPEQUAL},
    {XKB_KEY_KP_Add, KEY_KPPLUS},
    {XKB_KEY_KP_Subtract, KEY_KPMINUS},
    {XKB_KEY_KP_Multiply, KEY_KPASTERISK},
    {XKB_KEY_KP_Divide, KEY_KPSLASH},
    {XKB_KEY_KP_Decimal, KEY_KPDOT},
    {XKB_KEY_KP_Delete, KEY_KPDOT},
    {XKB_KEY_KP_Separator, KEY_KPJPCOMMA},
    {XKB_KEY_KP_0, KEY_KP0},
    {XKB_KEY_KP_Insert, KEY_KP0},
    {XKB_KEY_KP_1, KEY_KP1},
    {XKB_KEY_KP_End, KEY_KP1},
    {XKB_KEY_KP_2, KEY_KP2},
    {XKB_KEY_KP_Down, KEY_KP2},
    {XKB_KEY_KP_3, KEY_KP3},
    {XKB_KEY_KP_Page_Down, KEY_KP3},
    {XKB_KEY_KP_4, KEY_KP4},
    {XKB_KEY_KP_Left, KEY_KP4},
    {XKB_KEY_KP_5, KEY_KP5},
    {XKB_KEY_KP_Begin, KEY_KP5},
    {XKB_KEY_KP_6, KEY_KP6},
    {XKB_KEY_KP_Right, KEY_KP6},
    {XKB_KEY_KP_7, KEY_KP7},
    {XKB_KEY_KP_Home, KEY_KP7},
    {XKB_KEY_KP_8, KEY_KP8},
    {XKB_KEY_KP_Up, KEY_KP8},
    {XKB_KEY_KP_9, KEY_KP9},
    {XKB_KEY_KP_Page_Up, KEY_KP9},
    {XKB_KEY_Muhenkan, KEY_MUHENKAN},
    {XKB_KEY_Hiragana_Katakana, KEY_KATAKANAHIRAGANA},
});

struct CharacterKey {
    char plain;
    char shifted;
    std::uint16_t evdevCode;
};

constexpr auto americanKeys = std::to_array<CharacterKey>({
    {'a', 'A', KEY_A},           {'b', 'B', KEY_B},          {'c', 'C', KEY_C},
    {'d', 'D', KEY_D},           {'e', 'E', KEY_E},          {'f', 'F', KEY_F},
    {'g', 'G', KEY_G},           {'h', 'H', KEY_H},          {'i', 'I', KEY_I},
    {'j', 'J', KEY_J},           {'k', 'K', KEY_K},          {'l', 'L', KEY_L},
    {'m', 'M', KEY_M},           {'n', 'N', KEY_N},          {'o', 'O', KEY_O},
    {'p', 'P', KEY_P},           {'q', 'Q', KEY_Q},          {'r', 'R', KEY_R},
    {'s', 'S', KEY_S},           {'t', 'T', KEY_T},          {'u', 'U', KEY_U},
    {'v', 'V', KEY_V},           {'w', 'W', KEY_W},          {'x', 'X', KEY_X},
    {'y', 'Y', KEY_Y},           {'z', 'Z', KEY_Z},          {'0', ')', KEY_0},
    {'1', '!', KEY_1},           {'2', '@', KEY_2},          {'3', '#', KEY_3},
    {'4', '$', KEY_4},           {'5', '%', KEY_5},          {'6', '^', KEY_6},
    {'7', '&', KEY_7},           {'8', '*', KEY_8},          {'9', '(', KEY_9},
    {'-', '_', KEY_MINUS},       {'=', '+', KEY_EQUAL},      {'[', '{', KEY_LEFTBRACE},
    {']', '}', KEY_RIGHTBRACE},  {'\\', '|', KEY_BACKSLASH}, {';', ':', KEY_SEMICOLON},
    {'\'', '"', KEY_APOSTROPHE}, {',', '<', KEY_COMMA},      {'.', '>', KEY_DOT},
    {'/', '?', KEY_SLASH},       {'`', '~', KEY_GRAVE},
});

// What other keyboards have beside those.
constexpr auto furtherCharacterKeys = std::to_array<std::uint16_t>({KEY_102ND, KEY_YEN, KEY_RO});

std::optional<KeyPosition> at(std::uint32_t evdevCode, bool needsShift = false) {
    const auto code = virtualKeyCode(evdevCode);
    return code ? std::optional(KeyPosition{static_cast<std::uint16_t>(*code), needsShift})
                : std::nullopt;
}

std::optional<KeyPosition> atKeycode(std::string_view hexadecimal) {
    std::uint32_t keycode = 0;
    const auto [end, error] =
        std::from_chars(hexadecimal.data(), hexadecimal.data() + hexadecimal.size(), keycode, 16);
    const bool isNumber = error == std::errc() && end == hexadecimal.data() + hexadecimal.size();
    return isNumber && keycode >= xkbKeycodeOffset ? at(keycode - xkbKeycodeOffset) : std::nullopt;
}

/// "" for one that types nothing.
std::string characterOf(xkb_keysym_t keysym) {
    std::array<char, 8> buffer{};
    xkb_keysym_to_utf8(xkb_keysym_to_lower(keysym), buffer.data(), buffer.size());
    return buffer.data();
}

bool isOneCharacter(const std::string& name) {
    return !name.empty() && utf8SequenceLength(name) == name.size();
}

} // namespace

std::optional<KeyPosition> KeyPositions::find(const std::string& name) {
    if (name == "Above_Tab") { // GNOME's name for a position, whatever it types
        return at(KEY_GRAVE);
    }
    if (name.starts_with("0x")) {
        return atKeycode(std::string_view(name).substr(2));
    }
    // Desktops differ in whether case counts here; no two keys differ in it alone.
    const xkb_keysym_t keysym = xkb_keysym_from_name(name.c_str(), XKB_KEYSYM_CASE_INSENSITIVE);
    const auto special = std::ranges::find(specialKeys, keysym, &SpecialKey::keysym);
    if (special != specialKeys.end()) {
        return at(special->evdevCode);
    }
    if (keysym != XKB_KEY_NoSymbol) {
        return typing(characterOf(keysym));
    }
    return isOneCharacter(name) ? typing(name) : std::nullopt;
}

std::optional<KeyPosition> KeyPositions::typing(const std::string& character) {
    askLayout();
    if (const auto found = typed_.find(character); found != typed_.end()) {
        return KeyPosition{found->second, false};
    }
    if (character.size() != 1) {
        return std::nullopt;
    }
    const auto found = std::ranges::find_if(americanKeys, [&](const CharacterKey& key) {
        return key.plain == character[0] || key.shifted == character[0];
    });
    return found == americanKeys.end() ? std::nullopt
                                       : at(found->evdevCode, found->plain != character[0]);
}

void KeyPositions::askLayout() {
    if (std::exchange(didAskLayout_, true)) {
        return;
    }
    const auto ask = [this](std::uint16_t evdevCode) {
        const auto position = at(evdevCode);
        std::string character = position ? layout_.character(position->keyCode) : "";
        if (!character.empty()) {
            typed_.try_emplace(std::move(character), position->keyCode);
        }
    };
    std::ranges::for_each(americanKeys, ask, &CharacterKey::evdevCode);
    std::ranges::for_each(furtherCharacterKeys, ask);
}

} // namespace dwellkey
