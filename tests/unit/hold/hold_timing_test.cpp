// SPDX-License-Identifier: MIT
// When a hold acts, and above all when it does not.
#include "allocation_counter.h"
#include "hold_fixture.h"

#include <cmath>

namespace dwellkey {
namespace {

class HoldTiming : public HoldFixture {
protected:
    std::shared_ptr<FakeRunningApplication> editor_ = inFront("editor");
};

TEST_F(HoldTiming, heldToTheEnd_quitsTheApplicationOnce) {
    pressQuit();
    EXPECT_TRUE(timer_.isTimerViewVisible);
    EXPECT_EQ(timer_.timerViewTitle.get(), "Hold to Quit App");
    advance(1s);
    EXPECT_DOUBLE_EQ(timer_.progress, 0.5);
    advance(990ms);
    EXPECT_EQ(editor_->terminateCount, 0);
    advance(10ms);
    EXPECT_EQ(editor_->terminateCount, 1);
    expectIdle();
}

TEST_F(HoldTiming, everyDelay_isReachedExactlyAndNeverEarly) {
    for (const double delay : PreferencesViewModel::delayOptions) {
        preferences_.setDelayUntilActivation(delay);
        const int before = editor_->terminateCount;
        const auto exactly = std::chrono::milliseconds(std::lround(delay * 1000));
        pressQuit();
        advance(exactly - 1ns);
        EXPECT_EQ(editor_->terminateCount, before) << delay;
        advance(1ns);
        EXPECT_EQ(editor_->terminateCount, before + 1) << delay;
        releaseQuit();
    }
}

TEST_F(HoldTiming, releasedAtTheLastMoment_leavesTheApplicationAlone) {
    for (const auto held : {0ms, 5ms, 1900ms, 1999ms}) {
        pressQuit();
        advance(held);
        releaseQuit();
        expectIdle();
        advance(5s);
        EXPECT_EQ(editor_->terminateCount, 0) << held.count();
    }
}

TEST_F(HoldTiming, modifierReleasedFirst_cancels) {
    pressQuit();
    advance(1900ms);
    desktop_.hotKeys.modifiersUp(command);
    expectIdle();
    advance(5s);
    EXPECT_EQ(editor_->terminateCount, 0);
}

TEST_F(HoldTiming, secondKeyDown_startsOverWithItsOwnMethod) {
    pressQuit();
    advance(1900ms);
    pressClose();
    EXPECT_EQ(timer_.timerViewTitle.get(), "Hold to Close Window");
    advance(10ms);
    EXPECT_DOUBLE_EQ(timer_.progress, 0.005);
    advance(1980ms);
    EXPECT_EQ(closedWindows(), 0U);
    advance(10ms);
    EXPECT_EQ(closedWindows(), 1U);
    EXPECT_EQ(editor_->terminateCount, 0);
    expectIdle();
}

TEST_F(HoldTiming, eitherRelease_endsTheHold) {
    pressClose();
    pressQuit();
    desktop_.hotKeys.keyUp(w);
    expectIdle();
    advance(5s);
    EXPECT_EQ(editor_->terminateCount, 0);
}

TEST_F(HoldTiming, delayChangedMidHold_countsFromTheNextTick) {
    preferences_.setDelayUntilActivation(3.0);
    pressQuit();
    advance(1s);
    preferences_.setDelayUntilActivation(0.25);
    EXPECT_EQ(editor_->terminateCount, 0);
    advance(10ms);
    EXPECT_EQ(editor_->terminateCount, 1);
}

TEST_F(HoldTiming, keysStillDownAfterTheEnd_beginNoHoldOnTheNextApplication) {
    editor_->onTerminate = [this] { desktop_.workspace.quit(editor_); };
    pressQuit();
    advance(2s);
    const auto next = inFront("next");
    desktop_.hotKeys.keyDown(q); // auto-repeat
    advance(5s);
    EXPECT_EQ(next->terminateCount, 0);
    expectIdle();

    releaseQuit();
    pressQuit();
    advance(2s);
    EXPECT_EQ(next->terminateCount, 1);
}

TEST_F(HoldTiming, frontmostChangedMidHold_actsOnTheNewOne) {
    pressQuit();
    advance(1s);
    const auto other = inFront("other");
    advance(1s);
    EXPECT_EQ(editor_->terminateCount, 0);
    EXPECT_EQ(other->terminateCount, 1);
}

TEST_F(HoldTiming, frontmostOutOfScopeAtTheEnd_actsOnNobody) {
    exclude("other");
    pressQuit();
    advance(1s);
    const auto other = inFront("other");
    advance(1s);
    expectIdle();
    EXPECT_EQ(editor_->terminateCount + other->terminateCount, 0);
}

TEST_F(HoldTiming, applicationEnds_takesItsHoldWithIt) {
    const auto next = desktop_.workspace.launch("next");
    pressQuit();
    advance(1s);
    editor_->terminated = true;
    desktop_.workspace.setFrontmost(next);
    expectIdle();
    advance(5s);
    EXPECT_EQ(next->terminateCount, 0);
}

TEST_F(HoldTiming, applicationStillListedWhenTheNextOneComesToTheFront_isMissedAtTheEnd) {
    const auto next = desktop_.workspace.launch("next");
    pressQuit();
    advance(1s);
    desktop_.workspace.setFrontmost(next);
    editor_->terminated = true;
    advance(1s);
    expectIdle();
    EXPECT_EQ(next->terminateCount, 0);
}

TEST_F(HoldTiming, displayContradictsAboutTheFrontmost_actsOnWhoReallyIs) {
    const auto other = desktop_.workspace.launch("other");
    pressQuit();
    advance(1s);
    desktop_.workspace.unannouncedFrontmost = other;
    advance(1s);
    EXPECT_EQ(editor_->terminateCount, 0);
    EXPECT_EQ(other->terminateCount, 1);
}

TEST_F(HoldTiming, nothingInFrontAtTheEnd_endsQuietly) {
    pressQuit();
    advance(1s);
    desktop_.workspace.setFrontmost(nullptr);
    advance(1s);
    expectIdle();
    EXPECT_EQ(editor_->terminateCount, 0);
}

TEST_F(HoldTiming, fileManager_losesAWindowAndIsNeverQuit) {
    const auto files = fileManagerInFront();
    pressQuit();
    EXPECT_EQ(timer_.timerViewTitle.get(), "Hold to Close Window");
    advance(2s);
    EXPECT_EQ(closedWindows(), 1U);
    EXPECT_EQ(files->terminateCount, 0);
}

// The process stalls while the bar is almost full, and the release waits unread.
TEST_F(HoldTiming, releaseNotReadYet_isReadBeforeActing) {
    pressQuit();
    advance(1900ms);
    desktop_.hotKeys.holdsEventsBack = true;
    releaseQuit();
    desktop_.clock.advance(10s);
    advance(10ms);
    EXPECT_EQ(editor_->terminateCount, 0);
    expectIdle();
}

TEST_F(HoldTiming, releaseAndPressNotReadYet_giveTheNewHoldItsFullTime) {
    pressQuit();
    advance(1900ms);
    desktop_.hotKeys.holdsEventsBack = true;
    releaseQuit();
    pressQuit();
    desktop_.clock.advance(10s);
    advance(10ms);
    EXPECT_EQ(editor_->terminateCount, 0);
    EXPECT_TRUE(timer_.isTimerViewVisible);
    advance(1980ms);
    EXPECT_EQ(editor_->terminateCount, 0);
    advance(10ms);
    EXPECT_EQ(editor_->terminateCount, 1);
}

// No release ever comes, yet the keyboard says that the keys are up.
TEST_F(HoldTiming, keyboardContradictsAtTheEnd_cancels) {
    pressQuit();
    advance(1900ms);
    desktop_.hotKeys.keysReallyDown = false;
    advance(5s);
    EXPECT_EQ(editor_->terminateCount, 0);
    expectIdle();
}

TEST_F(HoldTiming, shortcutClearedMidHold_cancels) {
    pressQuit();
    advance(1s);
    model_.quitApplicationCommand.remove(); // a press that is down gives no release any more
    releaseQuit();
    advance(5s);
    EXPECT_EQ(editor_->terminateCount, 0);
    expectIdle();
}

TEST_F(HoldTiming, stopWithoutAHold_changesNothing) {
    int announcements = 0;
    const auto observation = timer_.objectWillChange.subscribe([&] { ++announcements; });
    timer_.stopHold();
    EXPECT_EQ(announcements, 0);
    expectIdle();
}

TEST_F(HoldTiming, tick_publishesProgressAndAllocatesNothing) {
    int announcements = 0;
    const auto observation = timer_.progress.willChange.subscribe([&](double) { ++announcements; });
    pressQuit();
    advance(100ms); // the loop's own posting is over
    const std::size_t before = allocationCount();
    advance(1s);
    EXPECT_EQ(allocationCount() - before, 0U);
    EXPECT_EQ(announcements, 110);
}

} // namespace
} // namespace dwellkey
