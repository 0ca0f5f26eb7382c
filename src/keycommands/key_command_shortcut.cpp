// SPDX-License-Identifier: MIT
#include "keycommands/key_command_shortcut.h"

#include <memory>
#include <utility>

namespace dwellkey {

KeyCommandShortcut::KeyCommandShortcut(KeyCommand keyCommand)
    : keyCommand_(std::move(keyCommand)), proxy_(keyCommand_.proxy()) {}

std::optional<RegistrationFailure> KeyCommandShortcut::registrationFailure() const {
    const auto& failure = proxy_.registrationFailure();
    if (!failure) {
        return std::nullopt;
    }
    if (failure->isUnreadable) {
        return RegistrationFailure::unreadable;
    }
    switch (failure->status) {
    case eventHotKeyExistsErr:
        return failure->isHeldByAnotherCommand ? RegistrationFailure::takenByAnotherCommand
                                               : RegistrationFailure::takenByAnotherProgram;
    case eventHotKeyInvalidErr:
        return RegistrationFailure::notOnThisKeyboard;
    default:
        return RegistrationFailure::serviceFailed;
    }
}

Subscription KeyCommandShortcut::observe(std::function<void()> changed) {
    struct Observed {
        Subscription combination;
        Subscription registration;
        Subscription failure;
    };
    auto observed = std::make_shared<Observed>(Observed{
        proxy_.observeKeyAndModifierChanges(changed), proxy_.observeRegistrationState(changed),
        proxy_.observeRegistrationFailure(changed)});
    return Subscription([observed] { *observed = {}; });
}

} // namespace dwellkey
