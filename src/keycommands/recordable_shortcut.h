// SPDX-License-Identifier: MIT
// What a recorder shows and changes: a key command, or a shortcut that is kept elsewhere.
// Main thread only. std only.
#pragma once

#include "keycommands/key.h"
#include "keycommands/modifier.h"
#include "support/signal.h"

#include <functional>
#include <optional>

namespace dwellkey {

/// Why a combination that the user wants could not be registered with the hot-key service.
enum class RegistrationFailure {
    takenByAnotherProgram,
    takenByAnotherCommand, // of this program
    notOnThisKeyboard,     // it has no such key, or no such modifier
    serviceFailed,         // the log says how
    unreadable             // what is stored is no combination: nothing was tried
};

/// Whoever implements it tells its observers of every change that the getters can show.
class RecordableShortcut {
public:
    RecordableShortcut() = default;
    RecordableShortcut(const RecordableShortcut&) = delete;
    RecordableShortcut& operator=(const RecordableShortcut&) = delete;
    virtual ~RecordableShortcut() = default;

    [[nodiscard]] virtual std::optional<Key> key() const = 0;
    /// In the order in which they are shown.
    [[nodiscard]] virtual Modifiers modifiers() const = 0;
    /// Whether the combination fires.
    [[nodiscard]] virtual bool isRegistered() const = 0;
    /// Why the latest attempt to register the present combination failed, or why there is none
    /// although something is stored; absent otherwise.
    [[nodiscard]] virtual std::optional<RegistrationFailure> registrationFailure() const = 0;
    /// Whether a menu of this program is open, as far as the shortcut follows that.
    [[nodiscard]] virtual bool menuIsOpen() const = 0;

    /// Takes both as one change, stores them as the user's choice and registers nothing.
    virtual void set(Key key, Modifiers modifiers) = 0;
    /// Leaves no key, no modifiers, no registration and nothing stored.
    virtual void clear() = 0;

    /// Makes the combination fire, anew if it does already. No effect when there is none.
    virtual void registerShortcut() = 0;
    /// Stops the combination from firing until `registerShortcut`. It stays stored.
    virtual void suspendShortcut() = 0;

    /// Runs `changed` after any of the getters, `menuIsOpen` aside, may give another answer.
    [[nodiscard]] virtual Subscription observe(std::function<void()> changed) = 0;
};

} // namespace dwellkey
