// SPDX-License-Identifier: MIT
// A hold to the end acts once, and only a hold to the end.
#include "end_to_end.h"

namespace dwellkey::e2e {

class Hold : public EndToEnd {
protected:
    const Settings settings{.delay = 0.85};
    const Milliseconds delay = settings.delayInMilliseconds();
};

TEST_P(Hold, heldToTheEnd_everyNormalWindow_isAskedOnceAndTheApplicationQuits) {
    Probe probe(desktop, {"--windows", "2"});
    const Dwellkey dwellkey(desktop, settings);
    dwellkey.awaitGuarding();
    const TimePoint down = holdToTheEnd();
    EXPECT_EQ(probe.process().awaitEnd(), (ExitStatus{0, {}}));
    const auto requests = probe.events("close-request");
    ASSERT_EQ(requests.size(), 2U);
    EXPECT_NE(requests[0].window, requests[1].window);
    EXPECT_GE(requests[0].time, down + delay) << "the hold completed early";
    EXPECT_EQ(probe.presses(key::q), 0U);
}

TEST_P(Hold, heldToTheEnd_applicationWithModalDialog_dialogIsNotAsked) {
    Probe probe(desktop, {"--windows", "2", "--dialog"});
    const Dwellkey dwellkey(desktop, settings);
    dwellkey.awaitGuarding();
    const TimePoint down = holdToTheEnd();
    probe.awaitCount("close-request", 2);
    EXPECT_TRUE(probe.staysWithout("dialog-closed", down + 2 * delay));
    const auto requests = probe.events("close-request");
    ASSERT_EQ(requests.size(), 2U);
    for (const auto& request : requests) {
        EXPECT_TRUE(request.window == probe.window(0) || request.window == probe.window(1));
    }
}

TEST_P(Hold, heldToTheEnd_applicationWithQuitAction_quits) {
    const auto editor = desktop.start({"mousepad"});
    screen.activate(screen.awaitWindowOfClass("Mousepad"));
    const Dwellkey dwellkey(desktop, settings);
    dwellkey.awaitGuarding();
    holdToTheEnd();
    EXPECT_EQ(editor->awaitEnd(), (ExitStatus{0, {}}));
}

TEST_P(Hold, heldToTheEnd_applicationAsksAboutUnsavedChanges_staysWithItsPrompt) {
    Probe probe(desktop, {"--refuse"});
    const Dwellkey dwellkey(desktop, settings);
    dwellkey.awaitGuarding();
    const TimePoint down = beginHold();
    probe.awaitCount("prompt-opened", 1);
    screen.awaitNoPanel();
    // The keys stay down: the prompt comes to the front and must not be the next victim.
    EXPECT_TRUE(probe.staysWithout("prompt-closed", down + 3 * delay));
    keyboard.releaseAll();
    EXPECT_EQ(probe.count("close-request"), 1U);
    EXPECT_TRUE(probe.process().isRunning());
}

TEST_P(Hold, releasedEarly_atAnyMoment_nothingHappens) {
    Probe probe(desktop);
    const Settings slow{.delay = 3.0}; // a busy machine lets go in time, too
    const Milliseconds whole = slow.delayInMilliseconds();
    const Dwellkey dwellkey(desktop, slow);
    dwellkey.awaitGuarding();
    for (const double moment : {0.0, 0.6}) {
        const TimePoint down = moment == 0.0 ? pressShortcut() : beginHold();
        EXPECT_TRUE(probe.staysWithout("close-request", down + part(moment, whole)));
        keyboard.releaseAll();
        screen.awaitNoPanel();
        EXPECT_TRUE(probe.staysWithout("close-request", down + whole + afterthought));
    }
    EXPECT_EQ(probe.presses(key::q), 0U);
    EXPECT_TRUE(probe.process().isRunning());
}

TEST_P(Hold, secondHoldRightAfterTheFirst_startsFromZero) {
    Probe probe(desktop);
    const Dwellkey dwellkey(desktop, settings);
    dwellkey.awaitGuarding();
    const TimePoint first = beginHold();
    EXPECT_TRUE(probe.staysWithout("close-request", first + part(0.7, delay)));
    keyboard.release(key::q);
    const TimePoint second = keyboard.press(key::q);
    probe.awaitCount("close-request", 1);
    EXPECT_GE(probe.events("close-request")[0].time, second + delay);
}

TEST_P(Hold, keysKeptDownAfterTheBarFilled_nextApplicationIsLeftAlone) {
    Probe next(desktop, {"--class", "next"});
    Probe front(desktop, {"--class", "front"});
    const Dwellkey dwellkey(desktop, settings);
    dwellkey.awaitGuarding();
    beginHold();
    front.process().awaitEnd();
    screen.await("the next window to be active",
                 [&] { return screen.activeWindow() == next.window(); });
    EXPECT_TRUE(next.staysWithout("close-request", Clock::now() + 2 * delay));
    keyboard.releaseAll();
    EXPECT_FALSE(screen.panel());
    holdToTheEnd();
    next.process().awaitEnd();
    EXPECT_EQ(next.count("close-request"), 1U);
}

TEST_P(Hold, focusMovedDuringTheHold_theApplicationInFrontAtTheEndIsAsked) {
    Probe other(desktop, {"--class", "other"});
    Probe front(desktop, {"--class", "front"});
    const Dwellkey dwellkey(desktop, settings);
    dwellkey.awaitGuarding();
    beginHold();
    screen.activate(other.window());
    other.process().awaitEnd();
    keyboard.releaseAll();
    EXPECT_EQ(front.count("close-request"), 0U);
}

TEST_P(Hold, applicationEndsDuringTheHold_nothingElseIsAsked) {
    Probe next(desktop, {"--class", "next"});
    Probe front(desktop, {"--class", "front"});
    Dwellkey dwellkey(desktop, settings);
    dwellkey.awaitGuarding();
    const TimePoint down = beginHold();
    front.process().terminate();
    screen.awaitNoPanel();
    EXPECT_TRUE(next.staysWithout("close-request", down + delay + afterthought));
    keyboard.releaseAll();
    holdToTheEnd();
    EXPECT_EQ(next.process().awaitEnd(), (ExitStatus{0, {}}));
}

TEST_P(Hold, closeWindowShortcut_ofTwoWindows_closesTheFrontOne) {
    Probe probe(desktop, {"--windows", "2"});
    const Dwellkey dwellkey(desktop, {.delay = settings.delay, .guardsCloseWindow = true});
    dwellkey.awaitGuarding(key::w);
    const auto front = screen.activeWindow().value();
    holdToTheEnd(key::w);
    probe.awaitCount("close", 1);
    EXPECT_EQ(probe.events("close")[0].window, front);
    EXPECT_EQ(probe.count("close-request"), 1U);
    EXPECT_TRUE(probe.process().isRunning());
}

INSTANTIATE_TEST_SUITE_P(Each, Hold, everyWindowManager, parameterName);

} // namespace dwellkey::e2e
