// SPDX-License-Identifier: MIT
// A scratch desktop with settings of its own, whose shortcuts are read.
#pragma once

#include "platform/fake/fake_keyboard.h"
#include "platform/fake/fake_session.h"
#include "platform/linux/system_shortcuts.h"
#include "scratch_folder.h"
#include "shortcut_notation.h"

#include <gmock/gmock.h>

#include <map>
#include <string>
#include <string_view>

namespace dwellkey::testing {

class SystemShortcutsFixture : public ::testing::Test {
protected:
    std::vector<Combination> shortcuts() {
        const auto list = system_.copySymbolicHotKeys();
        EXPECT_EQ(list.status, noErr);
        return combinations(list);
    }
    void writeUserFile(const std::string& name, std::string_view content) {
        writeFile(scratch_ / ("home/" + name), content);
    }
    void writeSystemFile(const std::string& name, std::string_view content) {
        writeFile(scratch_ / ("etc/" + name), content);
    }

    ScratchFolder scratch_;
    std::map<std::string, std::string, std::less<>> variables_{
        {"XDG_CONFIG_HOME", scratch_ / "home"}, {"XDG_CONFIG_DIRS", scratch_ / "etc"}};
    FakeKeyboardLayout layout_;
    FakeErrorLog log_;
    LinuxSystemShortcuts::RunProgram run_ = outputOf;
    LinuxSystemShortcuts system_{[this](std::string_view variable) -> std::optional<std::string> {
                                     const auto found = variables_.find(variable);
                                     return found == variables_.end()
                                                ? std::nullopt
                                                : std::optional(found->second);
                                 },
                                 layout_, log_,
                                 [this](const CommandWords& words, const ChildLimits& limits) {
                                     return run_(words, limits);
                                 }};
};

} // namespace dwellkey::testing
