// SPDX-License-Identifier: MIT
// Scope decision, delay slider and the values of the store.
#include "settings/preferences_view_model.h"

#include "allocation_counter.h"
#include "platform/fake/fake_platform.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace dwellkey {
namespace {

class Preferences : public testing::Test {
protected:
    FakePlatform fake_;
    AlertManager alerts_;
    PreferencesViewModel preferences_{fake_.platform(), alerts_};
};

TEST_F(Preferences, freshInstall_readsTheDefaults) {
    EXPECT_EQ(preferences_.appScopeOptions(),
              (std::vector{AppScopeMode::excludeApps, AppScopeMode::includeApps}));
    EXPECT_EQ(preferences_.selectedAppScope(), AppScopeMode::excludeApps);
    EXPECT_TRUE(preferences_.showMenuBarIcon());
    EXPECT_FALSE(preferences_.startOnLogin());
    EXPECT_DOUBLE_EQ(preferences_.delayUntilActivation(), 2.0);
    EXPECT_DOUBLE_EQ(preferences_.delaySliderValue(), 3.0);
    EXPECT_EQ(fake_.userDefaults.keyCount(), 0U);
}

TEST_F(Preferences, assignments_areStoredUnderTheirKeys) {
    preferences_.setSelectedAppScope(AppScopeMode::includeApps);
    preferences_.setShowMenuBarIcon(false);
    preferences_.setStartOnLogin(true);
    preferences_.setDelayUntilActivation(0.6);

    const auto& store = fake_.userDefaults;
    EXPECT_EQ(*store.find("selectedAppScope"),
              DefaultsValue("Only use Dwellkey with the following apps..."));
    EXPECT_EQ(*store.find("showMenuBarIcon"), DefaultsValue(false));
    EXPECT_EQ(*store.find("startOnLogin"), DefaultsValue(true));
    EXPECT_EQ(*store.find("delayUntilActivation"), DefaultsValue(0.6));
    const PreferencesViewModel other(fake_.platform(), alerts_);
    EXPECT_EQ(other.selectedAppScope(), AppScopeMode::includeApps);
}

TEST_F(Preferences, wrongValuesInTheStore_readAsDefaults) {
    fake_.userDefaults.setFromOutside("showMenuBarIcon", "no");
    EXPECT_TRUE(preferences_.showMenuBarIcon());
    using Limits = std::numeric_limits<double>;
    for (const DefaultsValue& wrong :
         {DefaultsValue("1.0"), DefaultsValue(0.0), DefaultsValue(std::int64_t{0}),
          DefaultsValue(-5.0), DefaultsValue(Limits::infinity()),
          DefaultsValue(Limits::quiet_NaN())}) {
        fake_.userDefaults.setFromOutside("delayUntilActivation", wrong);
        EXPECT_DOUBLE_EQ(preferences_.delayUntilActivation(), 2.0);
        EXPECT_DOUBLE_EQ(preferences_.delaySliderValue(), 3.0);
    }
    for (const DefaultsValue& wrong : {DefaultsValue("some other text"), DefaultsValue(true)}) {
        fake_.userDefaults.setFromOutside("selectedAppScope", wrong);
        EXPECT_EQ(preferences_.selectedAppScope(), AppScopeMode::excludeApps);
    }
}

TEST_F(Preferences, editFromOutside_isAnnounced) {
    int announcements = 0;
    const auto observation = preferences_.objectWillChange.subscribe([&] { ++announcements; });
    fake_.userDefaults.setFromOutside("delayUntilActivation", 1.4);
    fake_.userDefaults.setFromOutside("selectedAppScope", std::string("x"));
    fake_.userDefaults.setFromOutside("showMenuBarIcon", false);
    fake_.userDefaults.setFromOutside("startOnLogin", true);
    EXPECT_EQ(announcements, 4);
    EXPECT_EQ(fake_.loginItem.registerCount, 0);
}

TEST_F(Preferences, sliderRead_showsTheNearestDelayAndTheSlowerOfTwo) {
    const std::pair<double, double> cases[] = {
        {3.0, 0},  {2.7, 1},   {2.2, 2},  {1.9, 3},  {1.4, 4},  {1.05, 5},
        {0.85, 6}, {0.6, 7},   {0.4, 8},  {0.25, 9}, {2.0, 3},  {1.65, 3},
        {2.45, 1}, {1.649, 4}, {2.06, 2}, {60.0, 0}, {0.01, 9},
    };
    for (const auto& [delay, slider] : cases) {
        preferences_.setDelayUntilActivation(delay);
        EXPECT_DOUBLE_EQ(preferences_.delaySliderValue(), slider) << delay;
    }
}

TEST_F(Preferences, sliderWrite_roundsHalvesAwayFromZeroAndClamps) {
    const std::pair<double, double> cases[] = {
        {0.0, 3.0},   {-0.4, 3.0}, {-7.0, 3.0},  {0.5, 2.7},   {0.49, 3.0},
        {4.5, 1.05},  {4.49, 1.4}, {8.5, 0.25},  {9.0, 0.25},  {9.4, 0.25},
        {12.0, 0.25}, {-0.5, 3.0}, {9e18, 0.25}, {-9e18, 3.0}, {2.0, 2.2},
    };
    for (const auto& [slider, delay] : cases) {
        preferences_.setDelaySliderValue(slider);
        EXPECT_DOUBLE_EQ(preferences_.delayUntilActivation(), delay) << slider;
    }
}

TEST_F(Preferences, sliderWrite_ofWhatIsNoPosition_endsTheProcess) {
    using Limits = std::numeric_limits<double>;
    for (const double wrong : {Limits::quiet_NaN(), Limits::infinity(), -Limits::infinity(),
                               std::ldexp(1.0, 63), -std::ldexp(1.0, 64)}) {
        EXPECT_DEATH(preferences_.setDelaySliderValue(wrong), "slider") << wrong;
    }
}

TEST_F(Preferences, frontmostApplication_withoutIdentifierOrNone_isNeverGuarded) {
    for (const AppScopeMode mode : allAppScopeModes) {
        preferences_.setSelectedAppScope(mode);
        fake_.workspace.setFrontmost(nullptr);
        EXPECT_FALSE(preferences_.isFrontmostAppGuarded());
        fake_.workspace.launchInFront(std::nullopt, "nameless");
        EXPECT_FALSE(preferences_.isFrontmostAppGuarded());
    }
}

TEST_F(Preferences, frontmostApplication_isJudgedByScopeAndList) {
    const Url url = Url::fromPath("/apps/gimp.desktop");
    fake_.bundleReader.install(url, {"gimp", "GIMP"});
    preferences_.addApp(url);
    const auto gimp = fake_.workspace.launch("gimp");
    const auto firefox = fake_.workspace.launch("firefox");
    for (const AppScopeMode mode : allAppScopeModes) {
        preferences_.setSelectedAppScope(mode);
        fake_.workspace.setFrontmost(gimp);
        EXPECT_EQ(preferences_.isFrontmostAppGuarded(), mode == AppScopeMode::includeApps);
        fake_.workspace.setFrontmost(firefox);
        EXPECT_EQ(preferences_.isFrontmostAppGuarded(), mode == AppScopeMode::excludeApps);
    }
}

TEST_F(Preferences, scopeDecision_allocatesNothing) {
    preferences_.setSelectedAppScope(AppScopeMode::includeApps);
    preferences_.addApp(Url::fromPath("/apps/gimp.desktop"));
    fake_.workspace.launchInFront("org.example.an.identifier.too.long.for.small.strings");
    const std::size_t before = allocationCount();
    const bool guarded = preferences_.isFrontmostAppGuarded();
    EXPECT_EQ(allocationCount() - before, 0U);
    EXPECT_FALSE(guarded);
}

} // namespace
} // namespace dwellkey
