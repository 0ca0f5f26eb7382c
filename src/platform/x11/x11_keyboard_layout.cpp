// SPDX-License-Identifier: MIT
#include "platform/x11/x11_keyboard_layout.h"

#include "platform/linux/evdev_key_codes.h"

#include <memory>
#include <xkbcommon/xkbcommon-x11.h>
#include <xkbcommon/xkbcommon.h>

namespace dwellkey {
namespace {

struct Unref {
    void operator()(xkb_context* context) const { xkb_context_unref(context); }
    void operator()(xkb_keymap* keymap) const { xkb_keymap_unref(keymap); }
    void operator()(xkb_state* state) const { xkb_state_unref(state); }
};
template <typename Object>
using XkbPtr = std::unique_ptr<Object, Unref>;

/// A state with the server's present group and no modifiers.
XkbPtr<xkb_state> unmodifiedState(xcb_connection_t* connection, xkb_keymap* keymap,
                                  std::int32_t device) {
    const XkbPtr<xkb_state> current(xkb_x11_state_new_from_device(keymap, connection, device));
    if (!current) {
        return nullptr;
    }
    XkbPtr<xkb_state> plain(xkb_state_new(keymap));
    if (plain) {
        const auto group = xkb_state_serialize_layout(current.get(), XKB_STATE_LAYOUT_EFFECTIVE);
        xkb_state_update_mask(plain.get(), 0, 0, 0, 0, 0, group);
    }
    return plain;
}

} // namespace

X11KeyboardLayout::X11KeyboardLayout(X11Connection& connection) : connection_(connection) {
    // Without this the server refuses every later question; without XKB each stays unanswered.
    xkb_x11_setup_xkb_extension(connection.raw(), XKB_X11_MIN_MAJOR_XKB_VERSION,
                                XKB_X11_MIN_MINOR_XKB_VERSION, XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS,
                                nullptr, nullptr, nullptr, nullptr);
    connection_.drainLater();
}

std::string X11KeyboardLayout::character(std::uint16_t keyCode) const {
    const auto evdev = evdevKeyCode(keyCode);
    const XkbPtr<xkb_context> context(xkb_context_new(XKB_CONTEXT_NO_FLAGS));
    const std::int32_t device = xkb_x11_get_core_keyboard_device_id(connection_.raw());
    if (!evdev || !context || device < 0) {
        return {};
    }
    const XkbPtr<xkb_keymap> keymap(xkb_x11_keymap_new_from_device(
        context.get(), connection_.raw(), device, XKB_KEYMAP_COMPILE_NO_FLAGS));
    const auto state = keymap ? unmodifiedState(connection_.raw(), keymap.get(), device) : nullptr;
    connection_.drainLater();
    if (!state) {
        return {};
    }
    const xkb_keycode_t keycode = *evdev + xkbKeycodeOffset;
    std::string text(
        static_cast<std::size_t>(xkb_state_key_get_utf8(state.get(), keycode, nullptr, 0)), '\0');
    xkb_state_key_get_utf8(state.get(), keycode, text.data(), text.size() + 1);
    return text;
}

} // namespace dwellkey
