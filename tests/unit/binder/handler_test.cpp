// SPDX-License-Identifier: MIT
#include "binder/handler.h"

#include "fake_timer_window.h"
#include "platform/fake/fake_platform.h"
#include "platform/fake/fake_shortcut_binder.h"

#include <gtest/gtest.h>

namespace dwellkey {
namespace {

using namespace std::chrono_literals;
using Applications = std::vector<std::string>;

const std::string quit = "quitShortcut";
const std::string window = "windowShortcut";

class HandlerTest : public testing::Test {
protected:
    HandlerTest() {
        platform.bundleReader.resources["CloseWindow.scpt"] = "tell <<app>> (<<app>>)";
    }

    Handler& start() {
        handler = std::make_shared<Handler>(platform.platform(), &binder, files);
        return *handler;
    }
    static Url urlOf(const std::string& id) { return Url::fromPath("/apps/" + id + ".desktop"); }
    std::shared_ptr<FakeRunningApplication> launch(const std::string& id) {
        return platform.workspace.launch(id, "The " + id, urlOf(id));
    }
    std::shared_ptr<FakeRunningApplication> launchInFront(const std::string& id) {
        auto application = launch(id);
        platform.workspace.setFrontmost(application);
        return application;
    }
    void expectBound(bool quitIsBound, bool windowIsBound) const {
        EXPECT_EQ(binder.isBound(quit), quitIsBound);
        EXPECT_EQ(binder.isBound(window), windowIsBound);
    }
    void holdToTheEnd() { platform.runLoop.advance(2250ms); }

    FakePlatform platform;
    FakeInterfaceFiles files;
    FakeShortcutBinder binder;
    std::shared_ptr<Handler> handler;
    PanelRecord& panel = files.panel;
};

TEST_F(HandlerTest, scope_decidesAtEachActivation) {
    struct Case {
        DefaultsValue mode;
        bool listedIsGuarded;
        bool otherIsGuarded;
    };
    start();
    expectBound(false, false);
    const auto listed = launch("listed");
    const auto other = launch("other");
    platform.userDefaults.set("apps", Applications{"/apps/listed.desktop"});
    for (const Case& test :
         {Case{"1", false, true}, Case{std::int64_t{0}, false, true},
          Case{std::int64_t{1}, true, false}, Case{std::int64_t{2}, false, false}}) {
        platform.userDefaults.set("exclusionType", test.mode);
        platform.workspace.setFrontmost(listed);
        expectBound(test.listedIsGuarded, test.listedIsGuarded);
        platform.workspace.setFrontmost(other);
        expectBound(test.otherIsGuarded, test.otherIsGuarded);
    }
}

TEST_F(HandlerTest, listOfAnotherTypeOrNone_listsNothing) {
    start();
    platform.userDefaults.set("exclusionType", std::int64_t{1});
    for (const DefaultsValue& apps :
         {DefaultsValue("/apps/one.desktop"), DefaultsValue(std::int64_t{7}),
          DefaultsValue(Applications{"/apps/One.desktop", "/apps/one"})}) {
        platform.userDefaults.set("apps", apps);
        platform.workspace.setFrontmost(nullptr);
        launchInFront("one");
        expectBound(false, false);
    }
    platform.userDefaults.garbleFromOutside("apps");
    launchInFront("two");
    expectBound(false, false);
}

TEST_F(HandlerTest, activationWithoutAnApplicationOrLocation_leavesTheBindings) {
    start();
    launchInFront("one");
    platform.workspace.setFrontmost(nullptr);
    platform.workspace.launchInFront("unlisted program", "name");
    expectBound(true, true);
    EXPECT_EQ(binder.bindCount, 2);
}

TEST_F(HandlerTest, fileManager_isGuardedForItsWindowsOnly) {
    start();
    launchInFront("one");
    const auto manager = launch("files");
    manager->fileManager = true;
    platform.workspace.setFrontmost(manager);
    expectBound(false, true);
    auto nameless = platform.workspace.launch(std::nullopt, "name", urlOf("nameless"));
    platform.workspace.setFrontmost(nameless); // no identifier is not the file manager's
    expectBound(true, true);
}

TEST_F(HandlerTest, eachActivation_breaksBothBindingsFirst) {
    start();
    launchInFront("one");
    EXPECT_EQ(binder.broken, (std::vector{quit, window}));
    launchInFront("two");
    EXPECT_EQ(binder.broken, (std::vector{quit, window, quit, window}));
    EXPECT_EQ(binder.bindCount, 4);
}

TEST_F(HandlerTest, quitHeld_showsThePanelAndAsksTheApplicationOnce) {
    start();
    const auto front = launchInFront("front");
    binder.press(quit);
    EXPECT_EQ(panel.title, "Hold to Quit App");
    EXPECT_EQ(panel.calls, (std::vector<std::string>{"show", "center"}));
    platform.runLoop.advance(2240ms);
    EXPECT_EQ(front->terminateCount, 0);
    EXPECT_TRUE(panel.isVisible);
    platform.runLoop.advance(10ms);
    EXPECT_EQ(front->terminateCount, 1);
    EXPECT_FALSE(panel.isVisible);
    platform.runLoop.advance(10s);
    EXPECT_EQ(front->terminateCount, 1);
    binder.release(quit);
    EXPECT_FALSE(panel.isVisible);
}

TEST_F(HandlerTest, releasedEarly_doesNothing) {
    start();
    const auto front = launchInFront("front");
    for (const std::string& key : {quit, window}) {
        binder.press(key);
        platform.runLoop.advance(2240ms);
        binder.release(key);
        EXPECT_FALSE(panel.isVisible);
        platform.runLoop.advance(10s);
    }
    EXPECT_EQ(front->terminateCount, 0);
    EXPECT_TRUE(platform.scriptHost.compiledSources.empty());
}

TEST_F(HandlerTest, pressedAgainWhileHeld_startsOver) {
    start();
    const auto front = launchInFront("front");
    binder.press(quit);
    platform.runLoop.advance(2s);
    binder.press(quit);
    platform.runLoop.advance(2240ms);
    EXPECT_EQ(front->terminateCount, 0);
    platform.runLoop.advance(10ms);
    EXPECT_EQ(front->terminateCount, 1);
}

TEST_F(HandlerTest, releaseThatABusyProcessHasNotSeen_endsTheHold) {
    start();
    const auto front = launchInFront("front");
    binder.duringConfirmation = [this] { binder.release(quit); };
    binder.press(quit);
    holdToTheEnd();
    EXPECT_EQ(front->terminateCount, 0);
    EXPECT_FALSE(panel.isVisible);
    binder.duringConfirmation = [this] { // let go and pressed again meanwhile: another hold
        binder.duringConfirmation = nullptr;
        binder.release(quit);
        binder.press(quit);
    };
    binder.press(quit);
    holdToTheEnd();
    EXPECT_EQ(front->terminateCount, 0);
    holdToTheEnd();
    EXPECT_EQ(front->terminateCount, 1);
    binder.keysReallyDown = false;
    binder.press(quit);
    holdToTheEnd();
    EXPECT_EQ(front->terminateCount, 1);
}

TEST_F(HandlerTest, activationsInAHold_onlyTheLatestIsAppliedAtTheRelease) {
    start();
    const auto recorded = launchInFront("recorded");
    const auto passing = launch("passing");
    const auto listed = launch("listed");
    platform.userDefaults.set("apps", Applications{"/apps/listed.desktop"});
    binder.press(quit);
    binder.broken.clear();
    platform.workspace.setFrontmost(passing);
    platform.workspace.setFrontmost(listed);
    holdToTheEnd();
    EXPECT_EQ(recorded->terminateCount, 1);
    EXPECT_EQ(passing->terminateCount + listed->terminateCount, 0);
    expectBound(true, true);
    binder.release(quit);
    EXPECT_EQ(binder.broken, (std::vector{quit, window}));
    expectBound(false, false);
}

TEST_F(HandlerTest, otherShortcutStillHeld_activationWaitsForItsRelease) {
    start();
    launchInFront("one");
    platform.userDefaults.set("exclusionType", std::int64_t{2});
    binder.press(quit);
    binder.press(window);
    launchInFront("two");
    binder.release(quit);
    expectBound(true, true);
    binder.release(window);
    expectBound(false, false);
}

TEST_F(HandlerTest, keyUpWithoutKeyDown_hidesThePanelAndAppliesNoActivation) {
    start();
    const auto front = launchInFront("front");
    binder.press(window);
    launchInFront("other");
    binder.broken.clear();
    binder.release(quit);
    EXPECT_TRUE(binder.broken.empty());
    EXPECT_FALSE(panel.isVisible);
    platform.runLoop.advance(10s);
    EXPECT_TRUE(platform.scriptHost.compiledSources.empty());
}

TEST_F(HandlerTest, closeHeld_closesTheWindowOfWhoeverIsInFrontAtTheEnd) {
    start();
    launchInFront("one");
    binder.press(window);
    EXPECT_EQ(panel.title, "Hold to Close Window");
    launchInFront("two");
    std::optional<bool> panelWasVisible;
    binder.duringConfirmation = [&] { panelWasVisible = panel.isVisible; };
    platform.scriptHost.executionError = Script::Error{"refused"};
    holdToTheEnd();
    EXPECT_EQ(platform.scriptHost.executedSources,
              std::vector<std::string>{"tell The two (The two)"});
    EXPECT_EQ(panelWasVisible, true);
    EXPECT_FALSE(panel.isVisible);
    EXPECT_TRUE(platform.errorLog.entries.empty());
    EXPECT_TRUE(platform.alerts.shown.empty());
}

TEST_F(HandlerTest, nothingToActOn_doesNothing) {
    start();
    const auto front = launchInFront("front");
    platform.scriptHost.compiles = false;
    binder.press(window);
    holdToTheEnd();
    binder.release(window);
    EXPECT_TRUE(platform.scriptHost.executedSources.empty());
    platform.workspace.quit(front);
    for (const std::string& key : {quit, window}) {
        binder.press(key);
        holdToTheEnd();
        binder.release(key);
    }
    auto nameless = platform.workspace.launch(std::nullopt, "name", urlOf("nameless"));
    platform.workspace.setFrontmost(nameless);
    binder.press(quit);
    holdToTheEnd();
    EXPECT_EQ(nameless->terminateCount, 0);
}

TEST_F(HandlerTest, shortcutRecordedAnew_isBoundAgainAtTheNextActivation) {
    Handler& subject = start();
    launchInFront("one");
    platform.userDefaults.set(quit, "another");
    expectBound(false, true);
    subject.wShortcutDidChange();
    expectBound(false, false);
    launchInFront("two");
    expectBound(true, true);
    subject.isEnabled = true;
    platform.userDefaults.setFromOutside(quit, "a third");
    platform.userDefaults.remove(window);
    expectBound(true, true);
    binder.broken.clear();
    subject.observeValue("apps");
    subject.observeValue(std::nullopt);
    EXPECT_TRUE(binder.broken.empty());
}

TEST_F(HandlerTest, overrideOrNoBinder_bindsNothing) {
    start().disabledOverride = true;
    launchInFront("one");
    expectBound(false, false);
    handler = std::make_shared<Handler>(platform.platform(), nullptr, files);
    launchInFront("two");
    handler->qShortcutDidChange();
    expectBound(false, false);
}

TEST_F(HandlerTest, brokenInstallation_endsTheProcess) {
    platform.bundleReader.resources.clear();
    EXPECT_DEATH(start(), "^$");
    platform.bundleReader.unreadableResources.insert("CloseWindow.scpt");
    EXPECT_DEATH(start(), "unexpected error: .*CloseWindow.scpt.*Dwellkey/Handler.*line 44");
}

TEST_F(HandlerTest, applicationWithoutAName_endsTheProcessWhenItsWindowIsToBeClosed) {
    start();
    launchInFront("one");
    platform.workspace.launchInFront("two");
    binder.press(window);
    EXPECT_DEATH(holdToTheEnd(), "");
}

TEST_F(HandlerTest, madeByItsName_usesTheProcesssServices) {
    Platform::install(platform.platform());
    ShortcutBinder::install(&binder);
    InterfaceFiles::install(&files);
    const auto made = binderClasses().make("Handler");
    EXPECT_NE(dynamic_cast<Handler*>(made.get()), nullptr);
    EXPECT_EQ(binderClasses().make("handler"), nullptr);
    launchInFront("one");
    expectBound(true, true);
    ShortcutBinder::install(nullptr);
    InterfaceFiles::install(nullptr);
}

} // namespace
} // namespace dwellkey
