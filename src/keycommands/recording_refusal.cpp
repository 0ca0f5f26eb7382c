// SPDX-License-Identifier: MIT
#include "keycommands/recording_refusal.h"

#include "keycommands/key_command.h"

#include <utility>

namespace dwellkey {
namespace {

std::string allSymbols() {
    return stringValue(Modifiers(allCases<Modifier>.begin(), allCases<Modifier>.end()));
}

FailureReason reasonOf(const Localizer& localizer, std::string infoText, int count = 0) {
    return {localizer.localized("KeyRecorder", "Cannot record shortcut."), std::move(infoText),
            count};
}

std::string noModifier(const Localizer& localizer) {
    return withArgument(
        localizer.localized("KeyRecorder", "Please include at least one modifier key (%1)."),
        allSymbols());
}

std::string shiftAlone(const Localizer& localizer) {
    const std::string text = localizer.localized(
        "KeyRecorder", "Shift (%1) by itself is not a valid modifier key. Please include at least "
                       "one additional modifier key (%2).");
    return withArgument(withArgument(text, stringValue(Modifier::shift)), allSymbols(), "%2");
}

std::string reserved(const Localizer& localizer, const std::string& combination) {
    const std::string text = localizer.localized(
        "KeyRecorder", "\"%1\" is reserved system-wide. Most system key commands can be changed in "
                       "\"%2\".");
    const std::string path =
        localizer.localized("KeyRecorder", "System Settings › Keyboard › Keyboard Shortcuts");
    return withArgument(withArgument(text, path, "%2"), combination);
}

} // namespace

std::optional<Refusal> refusalOf(Key key, const Modifiers& modifiers, Platform& platform) {
    const Localizer& localizer = platform.localizer;
    if (modifiers.empty()) {
        return Refusal{RefusalKind::typingMistake, reasonOf(localizer, noModifier(localizer))};
    }
    if (modifiers == Modifiers{Modifier::shift}) {
        return Refusal{RefusalKind::typingMistake, reasonOf(localizer, shiftAlone(localizer))};
    }
    if (KeyCommand::isReservedBySystem(key, modifiers, platform)) {
        const std::string combination =
            stringValue(modifiers) + stringValue(key, platform.keyboardLayout);
        return Refusal{RefusalKind::reserved, reasonOf(localizer, reserved(localizer, combination),
                                                       FailureReason::countThatExplains)};
    }
    return std::nullopt;
}

} // namespace dwellkey
