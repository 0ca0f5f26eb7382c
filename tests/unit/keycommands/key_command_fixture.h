// SPDX-License-Identifier: MIT
#pragma once

#include "keycommands/key_command.h"
#include "keycommands/key_command_registry.h"
#include "platform/fake/fake_platform.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace dwellkey {

class KeyCommandTest : public testing::Test {
protected:
    static constexpr FakeHotKeys::Combination commandQ{12, 0x100};
    static constexpr FakeHotKeys::Combination commandW{13, 0x100};

    [[nodiscard]] KeyCommand command(const std::string& name) const {
        return KeyCommand(KeyCommand::Name(name), *registry_);
    }
    /// The quit command with Command-Q, not registered yet.
    [[nodiscard]] KeyCommand quitCommand() const {
        return {KeyCommand::Name("quitApplication"), Key::q, {Modifier::command}, *registry_};
    }
    [[nodiscard]] const Data* stored(std::string_view key) const {
        const DefaultsValue* value = platform.userDefaults.find(key);
        return value == nullptr ? nullptr : std::get_if<Data>(value);
    }
    /// The program ends and starts again with the same settings.
    void restart() {
        registry_.reset();
        registry_ = std::make_unique<KeyCommandRegistry>(platform.platform());
    }
    void typeCommandQ() {
        platform.hotKeys.press(commandQ.keyCode, commandQ.modifiers);
        platform.hotKeys.release(commandQ.keyCode, commandQ.modifiers);
    }

    FakePlatform platform;
    std::unique_ptr<KeyCommandRegistry> registry_ =
        std::make_unique<KeyCommandRegistry>(platform.platform());
};

} // namespace dwellkey
