// SPDX-License-Identifier: MIT
#include "app/state/alert_manager.h"

#include <gtest/gtest.h>

namespace dwellkey {
namespace {

TEST(AlertManager, showAlert_setsBothTextsBeforeTheFlag) {
    AlertManager alerts;
    std::string seen;
    const auto observation = alerts.isAlertPresented.willChange.subscribe(
        [&](bool) { seen = alerts.title.get() + "/" + alerts.message.get(); });

    alerts.showAlert("Title", "Message");

    EXPECT_EQ(seen, "Title/Message");
    EXPECT_TRUE(alerts.isAlertPresented);
}

TEST(AlertManager, showAlert_whileOneIsPresented_takesTheNewTexts) {
    AlertManager alerts;
    alerts.showAlert("First", "one");
    alerts.showAlert("Second", "two");

    EXPECT_EQ(alerts.title.get(), "Second");
    EXPECT_EQ(alerts.message.get(), "two");
    EXPECT_TRUE(alerts.isAlertPresented);
}

TEST(AlertManager, shared_isOneInstanceThatPresentsNothingYet) {
    EXPECT_EQ(&AlertManager::shared(), &AlertManager::shared());
    EXPECT_FALSE(AlertManager::shared().isAlertPresented);
}

} // namespace
} // namespace dwellkey
