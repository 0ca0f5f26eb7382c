// SPDX-License-Identifier: MIT
#include "app/app_delegate.h"

#include "platform/fake/fake_platform.h"

#include <gtest/gtest.h>

#include <vector>

namespace dwellkey {
namespace {

class Launch : public testing::Test {
protected:
    [[nodiscard]] bool isFirstLaunch() {
        return UserDefault<bool>(platform.userDefaults, "isFirstLaunch", true).get();
    }

    FakePlatform platform;
    AlertManager alerts;
    AppStateManager appState{platform.platform()};
    PreferencesViewModel preferences{platform.platform(), alerts};
    TimerManager timer{platform.platform(), preferences};
    KeyCommandRegistry registry{platform.platform()};
    KeyboardShortcutsModel shortcuts{platform.platform(), timer, appState, registry};
    AppDelegate delegate{platform.platform(), appState, shortcuts};
};

TEST_F(Launch, firstOne_asksForTheIntroductionBeforeItClearsTheFlag) {
    std::vector<std::string> openedWhenCleared;
    const auto watch = platform.userDefaults.observe(
        "isFirstLaunch", [&](DefaultsChange) { openedWhenCleared = platform.windowHost.opened; });
    delegate.didFinishLaunching();
    EXPECT_EQ(openedWhenCleared, std::vector<std::string>{"IntroView"});
    EXPECT_FALSE(isFirstLaunch());
    EXPECT_EQ(platform.workspace.activateOurselvesCount, 1);
}

TEST_F(Launch, laterOne_opensNothing) {
    appState.isFirstLaunch.set(false);
    delegate.didFinishLaunching();
    EXPECT_TRUE(platform.windowHost.opened.empty());
    EXPECT_EQ(platform.workspace.activateOurselvesCount, 1);
}

TEST_F(Launch, startedAgain_opensThePreferencesWithWindowsOrWithout) {
    EXPECT_TRUE(delegate.shouldHandleReopen(true));
    EXPECT_TRUE(delegate.shouldHandleReopen(false));
    EXPECT_EQ(platform.windowHost.opened,
              (std::vector<std::string>{"PreferencesView", "PreferencesView"}));
}

TEST_F(Launch, termination_storesThatTheApplicationIsClosedAndSaves) {
    platform.userDefaults.set("appIsOpen", true);
    delegate.willTerminate();
    EXPECT_EQ(*platform.userDefaults.find("appIsOpen"), DefaultsValue(false));
    EXPECT_EQ(platform.userDefaults.synchronizeCount, 1);
}

} // namespace
} // namespace dwellkey
