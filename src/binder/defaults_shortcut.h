// SPDX-License-Identifier: MIT
// A shortcut that is stored under a settings key, as a recorder changes it. std only.
#pragma once

#include "keycommands/key_command_coding.h"
#include "keycommands/recordable_shortcut.h"
#include "platform/shortcut_binder.h"
#include "platform/user_defaults.h"
#include "support/signal.h"

#include <optional>
#include <string>

namespace dwellkey {

/// Recording only stores: whoever guards the key binds what is stored there. While the user
/// records, the binding is broken, so that the old shortcut does not fire.
class DefaultsShortcut final : public RecordableShortcut {
public:
    /// Store and binder must outlive the shortcut; the binder may be null.
    DefaultsShortcut(UserDefaults& userDefaults, std::string defaultsKey, ShortcutBinder* binder);

    [[nodiscard]] std::optional<Key> key() const override;
    [[nodiscard]] Modifiers modifiers() const override;
    /// Whether there is one to bind.
    [[nodiscard]] bool isRegistered() const override;
    /// Of the present shortcut, which is tried each time that an application comes to the front.
    [[nodiscard]] std::optional<RegistrationFailure> registrationFailure() const override;
    [[nodiscard]] bool menuIsOpen() const override { return false; }

    void set(Key key, Modifiers modifiers) override;
    void clear() override;
    void registerShortcut() override { setSuspended(false); }
    void suspendShortcut() override;

    [[nodiscard]] Subscription observe(std::function<void()> changed) override;

private:
    [[nodiscard]] std::optional<KeyCommandContent> stored() const;
    void setSuspended(bool isSuspended);

    UserDefaults& userDefaults_;
    const std::string defaultsKey_;
    ShortcutBinder* const binder_;
    bool isSuspended_ = false;
    Signal<> didChange_;
    Subscription storeChange_;
    Subscription failureChange_;
};

} // namespace dwellkey
