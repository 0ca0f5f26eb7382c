// SPDX-License-Identifier: MIT
// Which shortcuts are guarded from the start on.
#include "hold_fixture.h"

namespace dwellkey {
namespace {

using Combinations = std::vector<FakeHotKeys::Combination>;

class FirstLaunch : public testing::Test {
protected:
    /// The program runs once on this desktop; `use` is what happens meanwhile.
    template <typename Use>
    void launch(Use use) {
        PreferencesViewModel preferences(desktop_.platform(), alertManager_);
        TimerManager timer(desktop_.platform(), preferences);
        AppStateManager appState(desktop_.platform());
        KeyCommandRegistry registry(desktop_.platform());
        KeyboardShortcutsModel model(desktop_.platform(), timer, appState, registry);
        appState.isFirstLaunch.set(false);
        use(model);
    }

    FakeDesktop desktop_;
    AlertManager alertManager_;
};

TEST_F(FirstLaunch, emptyStore_guardsCommandQOnly) {
    launch([&](KeyboardShortcutsModel& model) {
        EXPECT_EQ(desktop_.hotKeys.registeredCombinations(), (Combinations{{12, 0x100}}));
        EXPECT_TRUE(model.quitApplicationCommand.isEnabled());
        EXPECT_FALSE(model.closeWindowCommand.isEnabled());
        EXPECT_NE(desktop_.userDefaults.find("quitApplication"), nullptr);
        EXPECT_EQ(desktop_.userDefaults.find("closeWindow"), nullptr);
    });
}

TEST_F(FirstLaunch, layoutWithQElsewhere_guardsTheKeyThatTypesIt) {
    desktop_.keyboardLayout.characters[12] = "a"; // as on a French keyboard
    desktop_.keyboardLayout.characters[0] = "q";
    launch([&](KeyboardShortcutsModel&) {
        EXPECT_EQ(desktop_.hotKeys.registeredCombinations(), (Combinations{{0, 0x100}}));
    });
}

TEST_F(FirstLaunch, layoutWithoutQ_guardsItsPosition) {
    desktop_.keyboardLayout.characters.clear();
    launch([&](KeyboardShortcutsModel&) {
        EXPECT_EQ(desktop_.hotKeys.registeredCombinations(), (Combinations{{12, 0x100}}));
    });
}

TEST_F(FirstLaunch, laterLaunch_keepsTheRecordedShortcuts) {
    launch([&](KeyboardShortcutsModel& model) {
        model.quitApplicationCommand.setKey(Key::k);
        model.closeWindowCommand.setKey(Key::w);
        model.closeWindowCommand.setModifiers({Modifier::command, Modifier::shift});
        model.closeWindowCommand.enable();
    });
    launch([&](KeyboardShortcutsModel&) {
        EXPECT_EQ(desktop_.hotKeys.registeredCombinations(),
                  (Combinations{{40, 0x100}, {13, 0x300}}));
    });
}

TEST_F(FirstLaunch, combinationOfAnotherProgram_isGuardedByTheFirstLaterLaunchThatCan) {
    desktop_.hotKeys.takeByOther({12, 0x100});
    const auto expectNothing = [&](KeyboardShortcutsModel&) {
        EXPECT_TRUE(desktop_.hotKeys.registeredCombinations().empty());
    };
    launch(expectNothing);
    launch(expectNothing);
    desktop_.hotKeys.giveBackByOther({12, 0x100});
    launch([&](KeyboardShortcutsModel&) {
        EXPECT_EQ(desktop_.hotKeys.registeredCombinations(), (Combinations{{12, 0x100}}));
    });
}

TEST_F(FirstLaunch, laterLaunch_keepsAClearedShortcutCleared) {
    launch([](KeyboardShortcutsModel& model) { model.quitApplicationCommand.remove(); });
    launch([&](KeyboardShortcutsModel&) {
        EXPECT_TRUE(desktop_.hotKeys.registeredCombinations().empty());
    });
}

} // namespace
} // namespace dwellkey
