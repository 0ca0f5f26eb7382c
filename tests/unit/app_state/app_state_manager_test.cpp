// SPDX-License-Identifier: MIT
#include "app/state/app_state_manager.h"

#include "platform/fake/fake_platform.h"

#include <gtest/gtest.h>

namespace dwellkey {
namespace {

TEST(AppStateManager, emptyStore_isAFirstLaunchOfAnApplicationThatIsNotOpen) {
    FakePlatform fake;
    const AppStateManager state(fake.platform());
    EXPECT_TRUE(state.isFirstLaunch.get());
    EXPECT_FALSE(state.isAppOpen.get());
    EXPECT_FALSE(state.hasVisibleWindows);
    EXPECT_EQ(state.appCase.get(), 0);
    EXPECT_EQ(fake.userDefaults.keyCount(), 0U) << "reading must not store the defaults";
}

TEST(AppStateManager, flags_liveInTheStoreUnderTheirKeys) {
    FakePlatform fake;
    AppStateManager state(fake.platform());
    state.isFirstLaunch.set(false);
    state.isAppOpen.set(true);

    const AppStateManager later(fake.platform());
    EXPECT_FALSE(later.isFirstLaunch.get());
    EXPECT_TRUE(later.isAppOpen.get());
    EXPECT_EQ(*fake.userDefaults.find("isFirstLaunch"), DefaultsValue(false));
    EXPECT_EQ(*fake.userDefaults.find("appIsOpen"), DefaultsValue(true));
}

TEST(AppStateManager, write_announcesOnceAndBeforeItTakesEffect) {
    FakePlatform fake;
    AppStateManager state(fake.platform());
    std::vector<bool> seen;
    const auto observation =
        state.objectWillChange.subscribe([&] { seen.push_back(state.isFirstLaunch.get()); });

    state.isFirstLaunch.set(false);

    EXPECT_EQ(seen, std::vector{true});
}

TEST(AppStateManager, editFromOutside_isAnnouncedToo) {
    FakePlatform fake;
    AppStateManager state(fake.platform());
    int announcements = 0;
    const auto observation = state.objectWillChange.subscribe([&] { ++announcements; });

    fake.userDefaults.setFromOutside("isFirstLaunch", false);

    EXPECT_EQ(announcements, 1);
    EXPECT_FALSE(state.isFirstLaunch.get());
}

} // namespace
} // namespace dwellkey
