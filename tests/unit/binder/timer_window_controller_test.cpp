// SPDX-License-Identifier: MIT
#include "binder/timer_window_controller.h"

#include "fake_timer_window.h"
#include "platform/fake/fake_platform.h"

#include <gtest/gtest.h>

#include <cmath>
#include <optional>

namespace dwellkey {
namespace {

using namespace std::chrono_literals;

class HoldPanel : public testing::Test {
protected:
    HoldPanel() {
        controller->action = [this] { ++completions; };
        controller->showWindow();
    }
    void advance(std::chrono::nanoseconds duration) { platform.runLoop.advance(duration); }

    FakePlatform platform;
    FakeInterfaceFiles files;
    std::unique_ptr<TimerWindowController> controller = std::make_unique<TimerWindowController>(
        "TimerWindowController", platform.platform(), files);
    PanelRecord& panel = files.panel;
    int completions = 0;
};

TEST_F(HoldPanel, firstUse_loadsItsFileOnceAndMakesAFloatingPanelOfIt) {
    EXPECT_EQ(panel.appearance, (WindowAppearance{3, false, true, 8.0}));
    controller->close();
    controller->showWindow();
    EXPECT_EQ(files.loaded, std::vector<std::string>{"TimerWindowController"});
    advance(0ms);
    EXPECT_EQ(panel.fillWidth, 0.0);
}

struct HoldTime {
    std::optional<DefaultsValue> delay;
    std::chrono::milliseconds duration;
};

class HoldTimes : public HoldPanel, public testing::WithParamInterface<HoldTime> {};

TEST_P(HoldTimes, bar_isFullExactlyAfterTheLongestHoldLessTheStoredDelay) {
    if (GetParam().delay) {
        platform.userDefaults.set("delay", *GetParam().delay);
    }
    controller->startTimer();
    advance(GetParam().duration - 1ns);
    EXPECT_EQ(completions, 0);
    EXPECT_LT(panel.fillWidth, panel.trackWidth);
    advance(1ns);
    EXPECT_EQ(completions, 1);
    EXPECT_FALSE(controller->timer->isValid());
    platform.runLoop.runPosted();
    EXPECT_GE(panel.fillWidth, panel.trackWidth);
    advance(10s);
    EXPECT_EQ(completions, 1);
}

INSTANTIATE_TEST_SUITE_P(Each, HoldTimes,
                         testing::Values(HoldTime{std::nullopt, 2250ms},
                                         HoldTime{"of another type", 2250ms},
                                         HoldTime{0.75, 1500ms}, HoldTime{1.0, 1250ms},
                                         HoldTime{std::int64_t{1}, 1250ms},
                                         HoldTime{-0.75, 3000ms}));

TEST_F(HoldPanel, delayOfTheLongestHold_completesAtTheFirstTickAfterTheStart) {
    platform.userDefaults.set("delay", 2.25);
    controller->startTimer();
    platform.runLoop.runPosted(); // a tick at the very start divides zero by zero
    EXPECT_EQ(completions, 0);
    advance(10ms);
    EXPECT_EQ(completions, 1);
    EXPECT_TRUE(std::isinf(panel.fillWidth) || panel.fillWidth >= panel.trackWidth);
}

TEST_F(HoldPanel, delayBeyondTheLongestHold_neverCompletes) {
    platform.userDefaults.set("delay", 3.0);
    controller->startTimer();
    advance(1min);
    EXPECT_EQ(completions, 0);
    EXPECT_LT(panel.fillWidth, 0.0);
}

TEST_F(HoldPanel, delayChangedInTheHold_countsFromTheNextTickOn) {
    controller->startTimer();
    advance(1s);
    platform.userDefaults.setFromOutside("delay", 1.25);
    advance(10ms);
    EXPECT_EQ(completions, 1);
}

TEST_F(HoldPanel, startedWhileFilling_startsOverWithOneTimer) {
    controller->startTimer();
    advance(2s);
    controller->startTimer();
    EXPECT_EQ(platform.runLoop.activeTimerCount(), 1U);
    advance(2240ms);
    EXPECT_EQ(completions, 0);
    advance(10ms);
    EXPECT_EQ(completions, 1);
}

TEST_F(HoldPanel, menuOrAlertOfOurOwn_standsStillUntilItIsClosed) {
    controller->startTimer();
    advance(1s);
    panel.isTrackingEvents = true;
    advance(5s);
    EXPECT_EQ(completions, 0);
    EXPECT_NEAR(panel.fillWidth, panel.trackWidth / 2.25, 0.01);
    panel.isTrackingEvents = false;
    advance(10ms);
    EXPECT_EQ(completions, 1);
}

TEST_F(HoldPanel, controllerGoneInTheHold_nothingIsTouchedAnyMore) {
    controller->startTimer();
    advance(1s);
    controller->setProgress(0.5);
    controller.reset();
    advance(5s);
    EXPECT_EQ(completions, 0);
    EXPECT_EQ(platform.runLoop.activeTimerCount(), 0U);
}

TEST_F(HoldPanel, outletThatTheFileLacks_endsTheProcessNamingBothWhenItIsUsed) {
    panel.hasTitleLabel = false;
    TimerWindowController other("TimerWindowController", platform.platform(), files);
    EXPECT_DEATH(other.titleLabel->setStringValue("before loading"), "TimerWindowController.ui");
    other.showWindow();
    EXPECT_DEATH(other.titleLabel->setStringValue("lacking"),
                 "TimerWindowController.ui connects no outlet \"titleLabel\"");
}

} // namespace
} // namespace dwellkey
