// SPDX-License-Identifier: MIT
#include "hold_fixture.h"

namespace dwellkey {
namespace {

class CloseFrontWindow : public HoldFixture {
protected:
    void expectOneAlert(const std::string& text) {
        ASSERT_EQ(desktop_.alerts.shown.size(), 1U);
        const Alert& alert = desktop_.alerts.shown.front();
        EXPECT_EQ(alert.messageText, "Unable to Close Window");
        EXPECT_EQ(alert.informativeText, text);
        EXPECT_EQ(alert.style, AlertStyle::warning);
        EXPECT_EQ(alert.buttons, std::vector<std::string>{"OK"});
    }
};

TEST_F(CloseFrontWindow, script_namesTheApplicationInEveryPlace) {
    desktop_.bundleReader.resources["CloseWindow.scpt"] = "<<app>>: a <<App>> b <<app>><<app>>";
    TimerManager timer(desktop_.platform(), preferences_);
    desktop_.workspace.launchInFront("x", "A <<app>> name");
    timer.closeFrontWindow();
    EXPECT_EQ(desktop_.scriptHost.executedSources,
              std::vector<std::string>{"A <<app>> name: a <<App>> b A <<app>> nameA <<app>> name"});
    EXPECT_TRUE(desktop_.alerts.shown.empty());
}

TEST_F(CloseFrontWindow, withoutPermission_offersTheSettingsPageAndNothingElse) {
    inFront("editor");
    desktop_.accessibilityTrust.trusted = false;
    timer_.closeFrontWindow();

    ASSERT_EQ(desktop_.alerts.shown.size(), 1U);
    const Alert& alert = desktop_.alerts.shown.front();
    EXPECT_EQ(alert.messageText, "Accessibility Permission Needed");
    EXPECT_EQ(alert.informativeText,
              "Dwellkey needs accessibility permission to close app windows. Click 'Open System "
              "Preferences' and enable Dwellkey in the Accessibility section.");
    EXPECT_EQ(alert.buttons, (std::vector<std::string>{"Open System Preferences", "Cancel"}));
    EXPECT_EQ(desktop_.workspace.openedUrls,
              std::vector<std::string>{"x-apple.systempreferences:com.apple.preference.security?"
                                       "Privacy_Accessibility"});
    EXPECT_EQ(closedWindows(), 0U);
}

TEST_F(CloseFrontWindow, lackThatNobodyCanGrant_isNamedAndOffersNothing) {
    inFront("editor");
    desktop_.accessibilityTrust.trusted = false;
    desktop_.accessibilityTrust.whatIsLacking = {"No window manager runs.", false};
    timer_.closeFrontWindow();
    expectOneAlert("No window manager runs.");
    EXPECT_TRUE(desktop_.workspace.openedUrls.empty());
}

TEST_F(CloseFrontWindow, permissionAlertCancelled_opensNothing) {
    desktop_.accessibilityTrust.trusted = false;
    desktop_.alerts.responses = {alertFirstButtonReturn + 1};
    timer_.requestAccessibility();
    EXPECT_EQ(desktop_.alerts.shown.size(), 1U);
    EXPECT_TRUE(desktop_.workspace.openedUrls.empty());
}

TEST_F(CloseFrontWindow, requestAccessibility_whenGranted_asksNothing) {
    timer_.requestAccessibility();
    EXPECT_TRUE(desktop_.alerts.shown.empty());
}

TEST_F(CloseFrontWindow, scriptMissing_isReportedOnlyWhenItIsNeeded) {
    desktop_.bundleReader.resources.clear();
    TimerManager timer(desktop_.platform(), preferences_);
    timer.closeFrontWindow();
    EXPECT_TRUE(desktop_.alerts.shown.empty()) << "nothing is in front";
    inFront("editor");
    timer.closeFrontWindow();
    expectOneAlert("Missing app files, please reinstall the application.");
}

TEST_F(CloseFrontWindow, scriptFails_tellsTheUserWhichAndTheLogWhy) {
    desktop_.scriptHost.executionError = Script::Error{"no such window"};
    inFront("editor");
    timer_.closeFrontWindow();
    expectOneAlert("Could not close the window for editor name.");
    ASSERT_EQ(desktop_.errorLog.entries.size(), 1U);
    EXPECT_EQ(desktop_.errorLog.entries.front().cause, "no such window");
}

TEST_F(CloseFrontWindow, nothingToClose_isSilent) {
    timer_.closeFrontWindow();
    desktop_.workspace.launchInFront("nameless");
    timer_.closeFrontWindow();
    EXPECT_TRUE(desktop_.scriptHost.compiledSources.empty());

    desktop_.scriptHost.compiles = false;
    inFront("editor");
    timer_.closeFrontWindow();
    EXPECT_EQ(desktop_.scriptHost.compiledSources.size(), 1U);
    EXPECT_TRUE(desktop_.alerts.shown.empty());
}

} // namespace
} // namespace dwellkey
