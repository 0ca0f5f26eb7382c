// SPDX-License-Identifier: MIT
#include "binder/defaults_shortcut.h"

#include <utility>
#include <variant>

namespace dwellkey {

DefaultsShortcut::DefaultsShortcut(UserDefaults& userDefaults, std::string defaultsKey,
                                   ShortcutBinder* binder)
    : userDefaults_(userDefaults), defaultsKey_(std::move(defaultsKey)), binder_(binder),
      storeChange_(
          userDefaults.observe(defaultsKey_, [this](DefaultsChange) { didChange_.emit(); })) {
    if (binder_ != nullptr) {
        failureChange_ =
            binder_->bindingFailureDidChange.subscribe([this](std::string_view changedKey) {
                if (changedKey == defaultsKey_) {
                    didChange_.emit();
                }
            });
    }
}

std::optional<KeyCommandContent> DefaultsShortcut::stored() const {
    auto coded = storedKeyCommand(userDefaults_, KeyCommand::Name(defaultsKey_));
    auto* content = coded ? std::get_if<KeyCommandContent>(&*coded) : nullptr;
    const bool isComplete = content != nullptr && content->key && !content->modifiers.empty();
    return isComplete ? std::optional(std::move(*content)) : std::nullopt;
}

std::optional<Key> DefaultsShortcut::key() const {
    const auto content = stored();
    return content ? content->key : std::nullopt;
}

Modifiers DefaultsShortcut::modifiers() const {
    const auto content = stored();
    return content ? content->modifiers : Modifiers();
}

bool DefaultsShortcut::isRegistered() const {
    return !isSuspended_ && stored();
}

std::optional<RegistrationFailure> DefaultsShortcut::registrationFailure() const {
    const auto coded = storedKeyCommand(userDefaults_, KeyCommand::Name(defaultsKey_));
    if (coded && std::holds_alternative<CodingError>(*coded)) {
        return RegistrationFailure::unreadable;
    }
    const auto failure = binder_ == nullptr ? std::nullopt : binder_->bindingFailure(defaultsKey_);
    if (!failure || !isRegistered()) {
        return std::nullopt;
    }
    switch (failure->status) {
    case eventHotKeyExistsErr:
        return failure->isTakenByOtherBinding ? RegistrationFailure::takenByAnotherCommand
                                              : RegistrationFailure::takenByAnotherProgram;
    case eventHotKeyInvalidErr:
        return RegistrationFailure::notOnThisKeyboard;
    default:
        return RegistrationFailure::serviceFailed;
    }
}

void DefaultsShortcut::set(Key key, Modifiers modifiers) {
    auto text =
        encode(KeyCommandContent{key, std::move(modifiers), KeyCommand::Name(defaultsKey_)});
    userDefaults_.set(defaultsKey_, Data{std::get<std::string>(std::move(text))});
}

void DefaultsShortcut::clear() {
    userDefaults_.remove(defaultsKey_);
}

void DefaultsShortcut::suspendShortcut() {
    if (binder_ != nullptr) {
        binder_->breakBinding(defaultsKey_);
    }
    setSuspended(true);
}

void DefaultsShortcut::setSuspended(bool isSuspended) {
    if (std::exchange(isSuspended_, isSuspended) != isSuspended) {
        didChange_.emit();
    }
}

Subscription DefaultsShortcut::observe(std::function<void()> changed) {
    return didChange_.subscribe(std::move(changed));
}

} // namespace dwellkey
