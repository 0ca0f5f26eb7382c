// SPDX-License-Identifier: MIT
#include "binder/hot_key_shortcut_binder.h"

#include "keycommands/key_command_coding.h"

#include <algorithm>
#include <utility>

namespace dwellkey {

HotKeyShortcutBinder::HotKeyShortcutBinder(HotKeys& hotKeys, const UserDefaults& userDefaults,
                                           ErrorLog& errorLog)
    : hotKeys_(hotKeys), userDefaults_(userDefaults), errorLog_(errorLog) {}

HotKeyShortcutBinder::~HotKeyShortcutBinder() {
    for (const Binding& binding : bindings_) {
        hotKeys_.unregisterHotKey(binding.ref);
    }
}

void HotKeyShortcutBinder::bindShortcut(std::string_view defaultsKey, Action toAction,
                                        Action onKeyUp) {
    breakBinding(defaultsKey);
    const auto combination = storedCombination(defaultsKey);
    if (!combination) {
        noteUnreadable(defaultsKey);
        forgetFailure(defaultsKey);
        return;
    }
    const EventHotKeyID id{signature, nextId_++};
    const HotKeys::Registration registration = take(*combination, id);
    if (registration.status != noErr) {
        const bool isOurs =
            std::ranges::find(bindings_, *combination, &Binding::combination) != bindings_.end();
        noteFailure(defaultsKey, {*combination, {registration.status, isOurs}});
        return;
    }
    forgetFailure(defaultsKey);
    bindings_.push_back({std::string(defaultsKey), *combination, id, registration.ref,
                         std::move(toAction), std::move(onKeyUp)});
}

HotKeys::Registration HotKeyShortcutBinder::take(const Combination& combination, EventHotKeyID id) {
    if (const OSStatus status = installHandler(); status != noErr) {
        return {status, {}};
    }
    return hotKeys_.registerHotKey(combination.keyCode, combination.modifiers, id);
}

void HotKeyShortcutBinder::breakBinding(std::string_view defaultsKey) {
    const auto found = std::ranges::find(bindings_, defaultsKey, &Binding::defaultsKey);
    if (found == bindings_.end()) {
        return;
    }
    const Binding broken = std::move(*found);
    bindings_.erase(found);
    hotKeys_.unregisterHotKey(broken.ref);
    if (broken.isPressed) {
        broken.onKeyUp(); // the service will not say so any more
    }
}

std::optional<HotKeyShortcutBinder::Combination>
HotKeyShortcutBinder::storedCombination(std::string_view defaultsKey) const {
    const auto coded = storedKeyCommand(userDefaults_, KeyCommand::Name(std::string(defaultsKey)));
    const auto* stored = coded ? std::get_if<KeyCommandContent>(&*coded) : nullptr;
    if (stored == nullptr || !stored->key || stored->modifiers.empty()) {
        return std::nullopt;
    }
    return Combination{static_cast<std::uint32_t>(rawValue(*stored->key)),
                       hotKeyMask(stored->modifiers)};
}

OSStatus HotKeyShortcutBinder::installHandler() {
    if (handlerLife_) {
        return noErr;
    }
    auto life = std::make_shared<const bool>(true);
    const OSStatus status =
        hotKeys_.installHandler([this, alive = std::weak_ptr(life)](const HotKeyEvent* event) {
            return alive.expired() ? eventNotHandledErr : handle(event);
        });
    if (status == noErr) {
        handlerLife_ = std::move(life);
    }
    return status;
}

OSStatus HotKeyShortcutBinder::handle(const HotKeyEvent* event) {
    if (event == nullptr || !event->hotKeyID) {
        return eventNotHandledErr;
    }
    const auto binding = std::ranges::find(bindings_, *event->hotKeyID, &Binding::id);
    if (binding == bindings_.end()) {
        return eventNotHandledErr;
    }
    const bool isPress = event->kind == kEventHotKeyPressed;
    binding->isPressed = isPress;
    const Action action =
        isPress ? binding->toAction : binding->onKeyUp; // it may break the binding
    action();
    return noErr;
}

std::optional<ShortcutBinder::Failure>
HotKeyShortcutBinder::bindingFailure(std::string_view defaultsKey) const {
    const auto known = failures_.find(defaultsKey);
    const bool isPresent =
        known != failures_.end() && storedCombination(defaultsKey) == known->second.combination;
    return isPresent ? std::optional(known->second.failure) : std::nullopt;
}

/// Once for each cause.
void HotKeyShortcutBinder::noteUnreadable(std::string_view defaultsKey) {
    const std::string key(defaultsKey);
    const auto coded = storedKeyCommand(userDefaults_, KeyCommand::Name(key));
    const auto* error = coded ? std::get_if<CodingError>(&*coded) : nullptr;
    if (error != nullptr
        && std::exchange(unreadable_[key], error->description) != error->description) {
        errorLog_.error("The stored shortcut \"" + key + "\" cannot be used.", error->description);
    }
}

void HotKeyShortcutBinder::noteFailure(std::string_view defaultsKey, const FailedAttempt& attempt) {
    const auto known = failures_.find(defaultsKey);
    if (known != failures_.end() && known->second == attempt) {
        return;
    }
    failures_.insert_or_assign(std::string(defaultsKey), attempt);
    errorLog_.error("The shortcut \"" + std::string(defaultsKey) + "\" could not be bound.",
                    statusDescription(attempt.failure.status));
    bindingFailureDidChange.emit(defaultsKey);
}

void HotKeyShortcutBinder::forgetFailure(std::string_view defaultsKey) {
    if (const auto known = failures_.find(defaultsKey); known != failures_.end()) {
        failures_.erase(known);
        bindingFailureDidChange.emit(defaultsKey);
    }
}

} // namespace dwellkey
