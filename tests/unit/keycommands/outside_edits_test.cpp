// SPDX-License-Identifier: MIT
// What becomes of a registered command when its entry in the settings file is edited.
#include "key_command_fixture.h"

namespace dwellkey {
namespace {

class EditedKeyCommand : public KeyCommandTest {
protected:
    EditedKeyCommand() { quit.enable(); }

    static Data entry(int key, const std::string& modifier) {
        return {R"({"key":)" + std::to_string(key) + R"(,"modifiers":[{")" + modifier
                + R"(":{}}],"name":{"rawValue":"quitApplication","prefix":"","separator":""}})"};
    }
    [[nodiscard]] bool guards(FakeHotKeys::Combination combination) {
        platform.runLoop.runPosted();
        const int before = presses;
        platform.hotKeys.press(combination.keyCode, combination.modifiers);
        platform.hotKeys.release(combination.keyCode, combination.modifiers);
        return presses > before;
    }

    KeyCommand quit = quitCommand();
    int presses = 0;
    KeyCommand::Observation observation =
        quit.observe(KeyCommand::EventType::keyDown, [this] { ++presses; });
};

TEST_F(EditedKeyCommand, anotherCombination_isTakenAndTheOldOneGivenBack) {
    platform.userDefaults.setFromOutside("quitApplication", entry(13, "command"));
    EXPECT_TRUE(guards(commandW));
    EXPECT_FALSE(guards(commandQ));
    EXPECT_EQ(*stored("quitApplication"), entry(13, "command"));
}

TEST_F(EditedKeyCommand, entryTakenOut_clearsTheCommand) {
    platform.userDefaults.removeFromOutside("quitApplication");
    EXPECT_FALSE(quit.key());
    EXPECT_FALSE(guards(commandQ));
}

TEST_F(EditedKeyCommand, unreadableEntry_keepsWhatIsInForceAndTheEntryAndIsLogged) {
    const auto expectKept = [&](const char* what) {
        EXPECT_TRUE(guards(commandQ)) << what;
        EXPECT_FALSE(platform.errorLog.entries.empty()) << what;
        platform.errorLog.entries.clear();
    };
    platform.userDefaults.setFromOutside("quitApplication", std::string("Ctrl+W"));
    EXPECT_EQ(*platform.userDefaults.find("quitApplication"), DefaultsValue(std::string("Ctrl+W")));
    expectKept("a text");
    platform.userDefaults.setFromOutside("quitApplication", Data{R"({"key":13,)"});
    expectKept("cut off");
    platform.userDefaults.garbleFromOutside("quitApplication");
    expectKept("an object that is no data");
}

TEST_F(EditedKeyCommand, combinationThatAnotherProgramHolds_isNotRegisteredButStaysInTheFile) {
    platform.hotKeys.takeByOther(commandW);
    platform.userDefaults.setFromOutside("quitApplication", entry(13, "command"));
    EXPECT_FALSE(quit.isEnabled());
    EXPECT_FALSE(guards(commandQ));
    ASSERT_NE(stored("quitApplication"), nullptr);
    EXPECT_EQ(*stored("quitApplication"), entry(13, "command"));
}

TEST_F(EditedKeyCommand, twoCommandsThatChangePlaces_areBothRegistered) {
    const KeyCommand close(KeyCommand::Name("closeWindow"), Key::w, {Modifier::command},
                           *registry_);
    close.enable();
    Data entryOfClose = entry(12, "command");
    entryOfClose.bytes.replace(entryOfClose.bytes.find("quitApplication"), 15, "closeWindow");
    platform.userDefaults.setFromOutside("quitApplication", entry(13, "command"));
    platform.userDefaults.setFromOutside("closeWindow", entryOfClose);
    EXPECT_TRUE(guards(commandW));
    EXPECT_TRUE(close.isEnabled());
    EXPECT_TRUE(platform.errorLog.entries.empty());
}

TEST_F(KeyCommandTest, failedRegistration_isLoggedOnceForACombination) {
    platform.hotKeys.takeByOther(commandQ);
    const KeyCommand quit = quitCommand();
    quit.enable();
    quit.enable();
    EXPECT_EQ(platform.errorLog.entries.size(), 1U);
}

} // namespace
} // namespace dwellkey
