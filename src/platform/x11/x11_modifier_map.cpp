// SPDX-License-Identifier: MIT
#include "platform/x11/x11_modifier_map.h"

#include "platform/hot_keys.h"

#include <algorithm>
#include <span>
#include <xkbcommon/xkbcommon-keysyms.h>

namespace dwellkey {
namespace {

struct KeysymTable {
    XcbPtr<xcb_get_keyboard_mapping_reply_t> reply;
    xcb_keycode_t first;

    [[nodiscard]] std::span<const xcb_keysym_t> of(xcb_keycode_t keycode) const {
        if (!reply || keycode < first) {
            return {};
        }
        const auto all = std::span(
            xcb_get_keyboard_mapping_keysyms(reply.get()),
            static_cast<std::size_t>(xcb_get_keyboard_mapping_keysyms_length(reply.get())));
        const std::size_t perKey = reply->keysyms_per_keycode;
        const std::size_t at = static_cast<std::size_t>(keycode - first) * perKey;
        return at + perKey <= all.size() ? all.subspan(at, perKey)
                                         : std::span<const xcb_keysym_t>{};
    }
    [[nodiscard]] bool has(xcb_keycode_t keycode, xcb_keysym_t keysym) const {
        return std::ranges::find(of(keycode), keysym) != of(keycode).end();
    }
};

std::vector<std::uint16_t> subsetsOf(std::uint16_t mask) {
    std::vector<std::uint16_t> subsets{0};
    for (unsigned bit = 0; bit < 8; ++bit) {
        const auto value = static_cast<std::uint16_t>(mask & (1U << bit));
        if (value != 0) {
            const auto count = subsets.size();
            for (std::size_t i = 0; i < count; ++i) {
                subsets.push_back(subsets[i] | value);
            }
        }
    }
    return subsets;
}

} // namespace

std::optional<KeySet> queryPressedKeys(const X11Connection& connection) {
    const XcbPtr<xcb_query_keymap_reply_t> reply(
        xcb_query_keymap_reply(connection.raw(), xcb_query_keymap(connection.raw()), nullptr));
    if (!reply) {
        return std::nullopt;
    }
    KeySet keys;
    for (std::size_t keycode = 0; keycode < keys.size(); ++keycode) {
        keys[keycode] = (reply->keys[keycode / 8] >> (keycode % 8) & 1U) != 0;
    }
    return keys;
}

X11ModifierMap X11ModifierMap::read(const X11Connection& connection) {
    const auto* setup = xcb_get_setup(connection.raw());
    const auto count = static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1);
    const auto mappingCookie = xcb_get_modifier_mapping(connection.raw());
    const auto symbolsCookie =
        xcb_get_keyboard_mapping(connection.raw(), setup->min_keycode, count);
    const XcbPtr<xcb_get_modifier_mapping_reply_t> mapping(
        xcb_get_modifier_mapping_reply(connection.raw(), mappingCookie, nullptr));
    const KeysymTable symbols{
        XcbPtr<xcb_get_keyboard_mapping_reply_t>(
            xcb_get_keyboard_mapping_reply(connection.raw(), symbolsCookie, nullptr)),
        setup->min_keycode};
    X11ModifierMap map;
    if (mapping) {
        const auto* codes = xcb_get_modifier_mapping_keycodes(mapping.get());
        const std::size_t perModifier = mapping->keycodes_per_modifier;
        for (std::size_t i = 0; i < map.keys_.size() * perModifier; ++i) {
            const xcb_keycode_t keycode = codes[i];
            const std::size_t modifier = i / perModifier;
            const auto bit = static_cast<std::uint16_t>(1U << modifier);
            if (keycode == 0) {
                continue;
            }
            map.keys_[modifier].set(keycode);
            if (symbols.has(keycode, XKB_KEY_Alt_L) || symbols.has(keycode, XKB_KEY_Alt_R)) {
                map.alt_ = bit;
            }
            if (symbols.has(keycode, XKB_KEY_Super_L) || symbols.has(keycode, XKB_KEY_Super_R)) {
                map.super_ = bit;
            }
            if (symbols.has(keycode, XKB_KEY_Num_Lock)
                || symbols.has(keycode, XKB_KEY_Scroll_Lock)) {
                map.lockMask_ |= bit;
            }
        }
    }
    map.locks_ = subsetsOf(map.lockMask_);
    return map;
}

std::optional<std::uint16_t> X11ModifierMap::realModifiers(std::uint32_t mask) const {
    std::uint16_t real = 0;
    if ((mask & hot_key_mask::command) != 0) {
        real |= XCB_MOD_MASK_CONTROL;
    }
    if ((mask & hot_key_mask::shift) != 0) {
        real |= XCB_MOD_MASK_SHIFT;
    }
    if ((mask & hot_key_mask::option) != 0) {
        if (alt_ == 0) {
            return std::nullopt;
        }
        real |= alt_;
    }
    if ((mask & hot_key_mask::control) != 0) {
        if (super_ == 0) {
            return std::nullopt;
        }
        real |= super_;
    }
    return real;
}

std::uint16_t X11ModifierMap::modifiersOfKey(xcb_keycode_t keycode) const {
    std::uint16_t mask = 0;
    for (std::size_t modifier = 0; modifier < keys_.size(); ++modifier) {
        if (keys_[modifier][keycode]) {
            mask |= static_cast<std::uint16_t>(1U << modifier);
        }
    }
    return mask;
}

} // namespace dwellkey
