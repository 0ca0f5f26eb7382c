// SPDX-License-Identifier: MIT
#pragma once

#include "keycommands/key_command.h"
#include "keycommands/key_command_proxy.h"
#include "keycommands/recordable_shortcut.h"

#include <utility>

namespace dwellkey {

/// A key command as a recorder changes it. The command's registry must outlive it.
class KeyCommandShortcut final : public RecordableShortcut {
public:
    explicit KeyCommandShortcut(KeyCommand keyCommand);

    [[nodiscard]] std::optional<Key> key() const override { return proxy_.key(); }
    [[nodiscard]] Modifiers modifiers() const override { return proxy_.modifiers(); }
    [[nodiscard]] bool isRegistered() const override { return proxy_.isRegistered(); }
    [[nodiscard]] std::optional<RegistrationFailure> registrationFailure() const override;
    [[nodiscard]] bool menuIsOpen() const override { return proxy_.menuIsOpen(); }

    void set(Key key, Modifiers modifiers) override { proxy_.choose(key, std::move(modifiers)); }
    void clear() override { keyCommand_.remove(); }
    void registerShortcut() override { proxy_.registerHotKey(); }
    void suspendShortcut() override { proxy_.suspend(); }

    [[nodiscard]] Subscription observe(std::function<void()> changed) override;

private:
    KeyCommand keyCommand_;
    KeyCommandProxy& proxy_;
};

} // namespace dwellkey
