// SPDX-License-Identifier: MIT
#include "app/menu_bar_scene.h"

#include "platform/fake/fake_platform.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace dwellkey {
namespace {

using testing::ElementsAre;

class MenuBar : public testing::Test {
protected:
    void show(bool shown) {
        preferences.setShowMenuBarIcon(shown);
        platform.runLoop.runPosted();
    }
    [[nodiscard]] bool isInBar() const { return platform.menuBarExtra.item.has_value(); }
    [[nodiscard]] const std::vector<MenuEntry>& menu() const {
        return platform.menuBarExtra.item->menu;
    }

    FakePlatform platform;
    AlertManager alerts;
    PreferencesViewModel preferences{platform.platform(), alerts};
    int terminations = 0;
    TimerManager timer{platform.platform(), preferences};
    OutsideRequests requests{platform.runLoop, timer};
    MenuBarScene scene{platform.platform(), preferences, requests, [this] { ++terminations; }};
};

TEST_F(MenuBar, item_followsTheSetting) {
    scene.appear();
    EXPECT_TRUE(isInBar());
    show(false);
    EXPECT_FALSE(isInBar());
    show(true);
    EXPECT_TRUE(isInBar());
    preferences.setDelayUntilActivation(1.4);
    platform.runLoop.runPosted();
    EXPECT_EQ(platform.menuBarExtra.insertCount, 2) << "a change of something else inserted it";
    scene.disappear();
    EXPECT_FALSE(isInBar());
    show(true);
    EXPECT_FALSE(isInBar());
}

TEST_F(MenuBar, hiddenAtLaunch_neverAppears) {
    preferences.setShowMenuBarIcon(false);
    scene.appear();
    platform.runLoop.runPosted();
    EXPECT_EQ(platform.menuBarExtra.insertCount, 0);
}

TEST_F(MenuBar, takenAwayWithTheProgram_leavesTheSettingAlone) {
    scene.appear();
    scene.disappear();
    EXPECT_TRUE(preferences.showMenuBarIcon());
    EXPECT_EQ(platform.userDefaults.find("showMenuBarIcon"), nullptr);
}

TEST_F(MenuBar, menu_showsItsEntriesInTheUsersLanguageWithTheirKeys) {
    platform.localizer.translations = {{"Quit Dwellkey", "Dwellkey beenden"}};
    scene.appear();
    EXPECT_EQ(platform.menuBarExtra.item->title, "Dwellkey");
    ASSERT_EQ(menu().size(), 4U);
    EXPECT_EQ(menu()[0].title, "Preferences...");
    EXPECT_EQ(menu()[0].keyEquivalent, (KeyEquivalent{U',', hot_key_mask::command}));
    EXPECT_EQ(menu()[1].title, "About...");
    EXPECT_FALSE(menu()[1].keyEquivalent);
    EXPECT_EQ(menu()[2].kind, MenuEntry::Kind::separator);
    EXPECT_EQ(menu()[3].title, "Dwellkey beenden");
    EXPECT_EQ(menu()[3].keyEquivalent, (KeyEquivalent{U'q', hot_key_mask::command}));
}

TEST_F(MenuBar, entries_openTheirWindowInFrontOrEndTheProgram) {
    scene.appear();
    menu()[0].action();
    menu()[1].action();
    platform.runLoop.runPosted();
    EXPECT_THAT(platform.windowHost.opened, ElementsAre("PreferencesView", "AboutView"));
    EXPECT_EQ(platform.workspace.activateOurselvesCount, 2);
    EXPECT_EQ(terminations, 0);
    menu()[3].action();
    platform.runLoop.runPosted();
    EXPECT_EQ(terminations, 1);
}

TEST_F(MenuBar, entryChosenAgainAndAgain_isCarriedOutOnceAndOnlyWhenNoHoldRuns) {
    scene.appear();
    const auto choose = [this] {
        menu()[0].action();
        menu()[0].action();
        platform.runLoop.runPosted();
    };
    choose();
    EXPECT_EQ(platform.windowHost.opened.size(), 1U);
    timer.startTimer(CloseMethod::quitApp);
    choose();
    EXPECT_EQ(platform.windowHost.opened.size(), 1U) << "our window would be what the hold ends";
    timer.stopHold();
    platform.runLoop.runPosted();
    EXPECT_EQ(platform.windowHost.opened.size(), 2U);
}

} // namespace
} // namespace dwellkey
