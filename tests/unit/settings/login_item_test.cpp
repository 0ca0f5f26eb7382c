// SPDX-License-Identifier: MIT
#include "settings/preferences_view_model.h"

#include "platform/fake/fake_platform.h"

#include <gtest/gtest.h>

namespace dwellkey {
namespace {

class LoginItemSetting : public testing::Test {
protected:
    /// As the preferences window does when it becomes active.
    void openPreferences() { preferences_.refreshLoginItemStatus(); }

    FakePlatform fake_;
    AlertManager alerts_;
    PreferencesViewModel preferences_{fake_.platform(), alerts_};
};

TEST_F(LoginItemSetting, beforeTheFirstRefresh_onlyStoresTheSetting) {
    EXPECT_TRUE(preferences_.isUpdatingLoginItem());
    preferences_.setStartOnLogin(true);
    EXPECT_TRUE(preferences_.startOnLogin());
    EXPECT_EQ(fake_.loginItem.registerCount, 0);
}

TEST_F(LoginItemSetting, assignment_registersAndUnregisters) {
    openPreferences();
    preferences_.setStartOnLogin(true);
    EXPECT_EQ(fake_.loginItem.registerCount, 1);
    preferences_.setStartOnLogin(true);
    EXPECT_EQ(fake_.loginItem.registerCount, 2) << "every assignment applies";
    preferences_.setStartOnLogin(false);
    EXPECT_EQ(fake_.loginItem.unregisterCount, 1);
    EXPECT_FALSE(alerts_.isAlertPresented);
}

TEST_F(LoginItemSetting, registerFails_goesBackAndTellsTheUserOnce) {
    openPreferences();
    fake_.loginItem.registerError = LoginItem::Error{"The disk is full."};
    preferences_.setStartOnLogin(true);

    EXPECT_FALSE(preferences_.startOnLogin());
    EXPECT_EQ(fake_.loginItem.registerCount, 1);
    EXPECT_EQ(fake_.loginItem.unregisterCount, 0) << "going back is not an unregistration";
    EXPECT_EQ(alerts_.title.get(), "Login Item Error");
    EXPECT_EQ(alerts_.message.get(), "Unable to enable launch at login: The disk is full.");
    EXPECT_TRUE(alerts_.isAlertPresented);
    EXPECT_FALSE(preferences_.isUpdatingLoginItem());
}

TEST_F(LoginItemSetting, unregisterFails_goesBackAndTellsTheUser) {
    openPreferences();
    preferences_.setStartOnLogin(true);
    fake_.loginItem.unregisterError = LoginItem::Error{"Read-only."};
    preferences_.setStartOnLogin(false);

    EXPECT_TRUE(preferences_.startOnLogin());
    EXPECT_EQ(fake_.loginItem.registerCount, 1);
    EXPECT_EQ(alerts_.message.get(), "Unable to disable launch at login: Read-only.");
}

TEST_F(LoginItemSetting, refresh_isOnOnlyWhenTheItemIsEnabled) {
    const std::pair<LoginItemStatus, bool> cases[] = {
        {LoginItemStatus::enabled, true},
        {LoginItemStatus::notRegistered, false},
        {LoginItemStatus::requiresApproval, false},
        {LoginItemStatus::notFound, false},
    };
    for (const auto& [status, on] : cases) {
        preferences_.setStartOnLogin(!on);
        const int calls = fake_.loginItem.registerCount + fake_.loginItem.unregisterCount;
        fake_.loginItem.currentStatus = status;
        preferences_.refreshLoginItemStatus();
        EXPECT_EQ(preferences_.startOnLogin(), on) << static_cast<int>(status);
        EXPECT_EQ(fake_.loginItem.registerCount + fake_.loginItem.unregisterCount, calls);
        EXPECT_FALSE(preferences_.isUpdatingLoginItem());
    }
}

} // namespace
} // namespace dwellkey
