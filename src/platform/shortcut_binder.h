// SPDX-License-Identifier: MIT
// System-wide shortcuts, known by the settings key that they are stored under. std only.
#pragma once

#include "platform/os_status.h"
#include "support/signal.h"

#include <functional>
#include <optional>
#include <string_view>

namespace dwellkey {

class ShortcutBinder {
public:
    using Action = std::function<void()>;

    /// Why a stored shortcut could not be taken.
    struct Failure {
        OSStatus status = noErr;
        bool isTakenByOtherBinding = false; // of this binder, not by another program
        bool operator==(const Failure&) const = default;
    };

    ShortcutBinder() = default;
    ShortcutBinder(const ShortcutBinder&) = delete;
    ShortcutBinder& operator=(const ShortcutBinder&) = delete;
    virtual ~ShortcutBinder() = default;

    /// Takes the shortcut that is stored under the key at this moment, system-wide. `toAction` runs
    /// on each press and `onKeyUp` once after each, on the main thread. A binding that the key has
    /// already is replaced. With no stored shortcut, or one that cannot be taken, nothing is bound.
    virtual void bindShortcut(std::string_view defaultsKey, Action toAction, Action onKeyUp) = 0;

    /// Gives the key's shortcut back, if it is bound. If it is pressed, `onKeyUp` runs first.
    virtual void breakBinding(std::string_view defaultsKey) = 0;

    /// Of the latest attempt to bind the shortcut that is stored under the key now; absent when
    /// there was none, or when it went well.
    [[nodiscard]] virtual std::optional<Failure>
    bindingFailure(std::string_view defaultsKey) const = 0;
    /// Emitted with the settings key after its failure changed.
    Signal<std::string_view> bindingFailureDidChange;

    /// Positive evidence for a hold: delivers every key event that has arrived until now, then
    /// asks the keyboard itself whether a bound shortcut is still down.
    virtual bool confirmPressed() = 0;

    /// The process's binder; null when it has none.
    static ShortcutBinder* sharedBinder();

    /// Called once, by the composition root. The binder stays the caller's; null takes it out.
    static void install(ShortcutBinder* binder);
};

} // namespace dwellkey
