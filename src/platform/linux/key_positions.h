// SPDX-License-Identifier: MIT
// From the names that X gives to keys to their positions. std only; xkbcommon inside.
#pragma once

#include "platform/keyboard.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>

namespace dwellkey {

struct KeyPosition {
    std::uint16_t keyCode = 0; ///< virtual key code
    bool needsShift = false;   ///< the named symbol is typed with Shift held

    friend bool operator==(const KeyPosition&, const KeyPosition&) = default;
};

/// Where the keys are under one layout. It asks the layout once, at the first key that types a
/// character, and keeps the answers: make a new one when the layout may have changed.
///
/// A character that no key types without a modifier is looked for where an American keyboard has
/// it. That is right for what a desktop defines under a layout that is not Latin (Ctrl+Q while
/// Russian is typed), because desktops then look among the other layouts, of which the American
/// one is nearly always one. For a symbol that another Latin layout has elsewhere behind Shift it
/// is a guess: it may refuse one combination too many or too few in the recorder, nothing worse.
class KeyPositions {
public:
    explicit KeyPositions(const KeyboardLayout& layout) : layout_(layout) {}

    /// `name` is a keysym name, "0x" and an X keycode, or one character. Absent for unknown names
    /// and for keys that no hot key can have, such as Print.
    [[nodiscard]] std::optional<KeyPosition> find(const std::string& name);

private:
    [[nodiscard]] std::optional<KeyPosition> typing(const std::string& character);
    void askLayout();

    const KeyboardLayout& layout_;
    bool didAskLayout_ = false;
    std::map<std::string, std::uint16_t> typed_;
};

} // namespace dwellkey
