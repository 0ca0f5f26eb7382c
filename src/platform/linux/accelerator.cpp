// SPDX-License-Identifier: MIT
#include "platform/linux/accelerator.h"

#include "platform/hot_keys.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstddef>
#include <span>

namespace dwellkey {
namespace {

struct ModifierName {
    std::string_view name;
    std::uint32_t mask;
};

// X keeps Meta on the Alt key and Hyper on the Super key, unless somebody changed it. "Release"
// says when to act, not what to hold.
constexpr auto gtkModifiers = std::to_array<ModifierName>({
    {"primary", hot_key_mask::command},
    {"control", hot_key_mask::command},
    {"ctrl", hot_key_mask::command},
    {"ctl", hot_key_mask::command},
    {"shift", hot_key_mask::shift},
    {"shft", hot_key_mask::shift},
    {"alt", hot_key_mask::option},
    {"mod1", hot_key_mask::option},
    {"meta", hot_key_mask::option},
    {"super", hot_key_mask::control},
    {"mod4", hot_key_mask::control},
    {"hyper", hot_key_mask::control},
    {"release", 0},
});

// Here Meta is the key with the logo. "Num" only tells the keypad from the rest.
constexpr auto qtModifiers = std::to_array<ModifierName>({
    {"ctrl", hot_key_mask::command},
    {"shift", hot_key_mask::shift},
    {"alt", hot_key_mask::option},
    {"meta", hot_key_mask::control},
    {"num", 0},
});

constexpr auto openboxModifiers = std::to_array<ModifierName>({
    {"c", hot_key_mask::command},
    {"control", hot_key_mask::command},
    {"s", hot_key_mask::shift},
    {"shift", hot_key_mask::shift},
    {"a", hot_key_mask::option},
    {"alt", hot_key_mask::option},
    {"mod1", hot_key_mask::option},
    {"m", hot_key_mask::option},
    {"meta", hot_key_mask::option},
    {"w", hot_key_mask::control},
    {"super", hot_key_mask::control},
    {"mod4", hot_key_mask::control},
    {"h", hot_key_mask::control},
    {"hyper", hot_key_mask::control},
});

struct KeyAlias {
    std::string_view name;
    std::string_view keysym;
};

constexpr auto qtKeys = std::to_array<KeyAlias>({
    {"PgUp", "Page_Up"},
    {"PgDown", "Page_Down"},
    {"Ins", "Insert"},
    {"Del", "Delete"},
    {"Esc", "Escape"},
    {"Enter", "KP_Enter"},
    {"Backtab", "Tab"},
    {"NumLock", "Num_Lock"},
    {"Volume Up", "XF86AudioRaiseVolume"},
    {"Volume Down", "XF86AudioLowerVolume"},
    {"Volume Mute", "XF86AudioMute"},
});

constexpr auto qtKeypadSymbols = std::to_array<KeyAlias>({
    {"+", "KP_Add"},
    {"-", "KP_Subtract"},
    {"*", "KP_Multiply"},
    {"/", "KP_Divide"},
    {".", "KP_Decimal"},
    {",", "KP_Separator"},
    {"=", "KP_Equal"},
    {"Enter", "KP_Enter"},
    {"PgUp", "KP_Page_Up"},
    {"PgDown", "KP_Page_Down"},
    {"Ins", "KP_Insert"},
    {"Del", "KP_Delete"},
    {"Clear", "KP_Begin"},
});

bool addModifier(Accelerator& accelerator, std::string_view name,
                 std::span<const ModifierName> known) {
    std::string lower(name);
    std::ranges::transform(lower, lower.begin(), [](unsigned char c) { return std::tolower(c); });
    const auto found = std::ranges::find(known, lower, &ModifierName::name);
    if (found == known.end()) {
        return false;
    }
    accelerator.modifiers |= found->mask;
    return true;
}

std::optional<Accelerator> withKey(Accelerator accelerator, std::string_view key) {
    if (key.empty()) {
        return std::nullopt;
    }
    accelerator.key = key;
    return accelerator;
}

std::string keysymOfQtKey(std::string_view key, bool isOnKeypad) {
    const std::span<const KeyAlias> aliases =
        isOnKeypad ? std::span<const KeyAlias>(qtKeypadSymbols) : std::span<const KeyAlias>(qtKeys);
    const auto found = std::ranges::find(aliases, key, &KeyAlias::name);
    if (found != aliases.end()) {
        return std::string(found->keysym);
    }
    return (isOnKeypad ? "KP_" : "") + std::string(key);
}

} // namespace

std::optional<Accelerator> parseGtkAccelerator(std::string_view text) {
    Accelerator result;
    while (text.starts_with('<')) {
        const std::size_t end = text.find('>');
        if (end == std::string_view::npos
            || !addModifier(result, text.substr(1, end - 1), gtkModifiers)) {
            return std::nullopt;
        }
        text.remove_prefix(end + 1);
    }
    return withKey(std::move(result), text);
}

std::optional<Accelerator> parseQtShortcut(std::string_view text) {
    text = text.substr(0, text.find(", "));
    Accelerator result;
    result.symbolShift = SymbolShift::implied;
    bool isOnKeypad = false;
    // The key itself may be "+", so a separator is one that something follows.
    while (text.size() > 1) {
        const std::size_t plus = text.find('+', 1);
        if (plus == std::string_view::npos) {
            break;
        }
        const std::string_view name = text.substr(0, plus);
        if (!addModifier(result, name, qtModifiers)) {
            return std::nullopt;
        }
        isOnKeypad = isOnKeypad || name == "Num";
        text.remove_prefix(plus + 1);
    }
    return text.empty() ? std::nullopt
                        : withKey(std::move(result), keysymOfQtKey(text, isOnKeypad));
}

std::optional<Accelerator> parseOpenboxKey(std::string_view text) {
    Accelerator result;
    for (std::size_t dash = text.find('-'); dash != std::string_view::npos; dash = text.find('-')) {
        if (!addModifier(result, text.substr(0, dash), openboxModifiers)) {
            return std::nullopt;
        }
        text.remove_prefix(dash + 1);
    }
    return withKey(std::move(result), text);
}

} // namespace dwellkey
