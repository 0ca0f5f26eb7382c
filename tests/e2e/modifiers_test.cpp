// SPDX-License-Identifier: MIT
// What real hands and keyboards do: other keys, locks, layouts, auto-repeat.
#include "end_to_end.h"

#include <tuple>

namespace dwellkey::e2e {

class Modifiers : public EndToEnd {
protected:
    /// The probe in front, Dwellkey guarding it.
    void SetUp() override { dwellkey.awaitGuarding(); }

    void expectThatTheHoldCompletes(TimePoint down) {
        probe.awaitCount("close-request", 1);
        EXPECT_GE(probe.events("close-request")[0].time, down + delay);
        screen.awaitNoPanel();
        keyboard.releaseAll();
        EXPECT_EQ(probe.process().awaitEnd(), (ExitStatus{0, {}}));
        EXPECT_EQ(probe.count("close-request"), 1U);
    }

    void expectThatNothingHappens(TimePoint down) {
        screen.awaitNoPanel();
        EXPECT_TRUE(probe.staysWithout("close-request", down + delay + afterthought));
        keyboard.releaseAll();
    }

    const Settings settings{.delay = 1.5}; // a busy machine changes its mind in time, too
    const Milliseconds delay = settings.delayInMilliseconds();
    Probe probe{desktop};
    Dwellkey dwellkey{desktop, settings};
};

TEST_P(Modifiers, controlGoesUpBeforeTheKey_cancels) {
    const TimePoint down = beginHold();
    keyboard.release(key::leftControl);
    expectThatNothingHappens(down);
}

TEST_P(Modifiers, thirdKeyTappedDuringTheHold_holdGoesOn) {
    const TimePoint down = beginHold();
    keyboard.tap(key::x);
    keyboard.tap(key::leftShift);
    expectThatTheHoldCompletes(down);
}

TEST_P(Modifiers, anotherKeyHeldBefore_holdCompletes) {
    keyboard.press(key::x);
    expectThatTheHoldCompletes(beginHold());
}

TEST_P(Modifiers, rightControl_guardsTheSame) {
    const TimePoint down = pressShortcut(key::rightControl);
    expectThatTheHoldCompletes(down);
}

TEST_P(Modifiers, oneOfBothControlsGoesUp_holdGoesOn) {
    keyboard.press(key::rightControl);
    const TimePoint down = beginHold();
    keyboard.release(key::rightControl);
    expectThatTheHoldCompletes(down);
}

TEST_P(Modifiers, fastAutoRepeat_isNeitherPressNorRelease) {
    ASSERT_EQ(desktop.start({"xset", "r", "rate", "50", "100"})->awaitEnd(), (ExitStatus{0, {}}));
    const TimePoint down = beginHold();
    EXPECT_TRUE(panelStaysUntil(down + part(0.8, delay)));
    expectThatTheHoldCompletes(down);
}

TEST_P(Modifiers, lockKeys_inAnyStateGuardTheSame) {
    keyboard.toggleCapsLock();
    const TimePoint withCapsLock = beginHold();
    keyboard.releaseAll();
    expectThatNothingHappens(withCapsLock);
    keyboard.toggleNumLock();
    const TimePoint withBoth = beginHold();
    keyboard.releaseAll();
    expectThatNothingHappens(withBoth);
    keyboard.toggleCapsLock();
    expectThatTheHoldCompletes(beginHold());
    EXPECT_EQ(probe.presses(key::q), 0U);
}

TEST_P(Modifiers, layoutSwitchedBetweenHolds_theKeyStaysGuarded) {
    for (const char* layout : {"de", "fr", "ru", "us"}) {
        keyboard.setLayout(layout);
        dwellkey.awaitGuarding();
        const TimePoint down = beginHold();
        keyboard.releaseAll();
        expectThatNothingHappens(down);
    }
    EXPECT_EQ(probe.presses(key::q), 0U);
    expectThatTheHoldCompletes(beginHold());
}

TEST_P(Modifiers, layoutSwitchedDuringAHold_holdGoesOnAndReleaseStillCancels) {
    keyboard.setLayout("us,ru");
    dwellkey.awaitGuarding();
    const TimePoint cancelled = beginHold();
    keyboard.lockGroup(1);
    keyboard.releaseAll();
    expectThatNothingHappens(cancelled);
    const TimePoint down = beginHold();
    keyboard.lockGroup(0);
    keyboard.setLayout("fr");
    expectThatTheHoldCompletes(down);
}

INSTANTIATE_TEST_SUITE_P(Each, Modifiers, testing::Values(WindowManagerKind::openbox),
                         parameterName);

} // namespace dwellkey::e2e
