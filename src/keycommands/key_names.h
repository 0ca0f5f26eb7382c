// SPDX-License-Identifier: MIT
// What the keys are called on a keyboard of this desktop, in the user's language. std only.
#pragma once

#include "keycommands/key.h"
#include "keycommands/modifier.h"
#include "platform/keyboard.h"
#include "platform/localization.h"

#include <string>

namespace dwellkey {

/// "Ctrl"
[[nodiscard]] std::string nativeName(Modifier modifier, const Localizer& localizer);

/// "Q", "Page Up"; what the layout types in capital letters. "" for a key that it gives no text.
[[nodiscard]] std::string nativeName(Key key, const KeyboardLayout& layout,
                                     const Localizer& localizer);

/// "Ctrl+Shift+Q": the modifiers in the desktop's order, each once.
[[nodiscard]] std::string nativeName(Key key, const Modifiers& modifiers,
                                     const KeyboardLayout& layout, const Localizer& localizer);

} // namespace dwellkey
