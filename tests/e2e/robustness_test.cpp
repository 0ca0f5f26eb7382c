// SPDX-License-Identifier: MIT
// Neighbours that fail, and failing without harm to them.
#include "end_to_end.h"
#include "flooding_caller.h"
#include "stalling_bus.h"

#include <csignal>
#include <memory>
#include <set>
#include <sstream>

namespace dwellkey::e2e {

class Robustness : public EndToEnd {
protected:
    const Settings settings{.delay = 0.85, .guardsCloseWindow = true};
    const Milliseconds delay = settings.delayInMilliseconds();
};

/// The different lines of the log that hold the text.
std::set<std::string> linesWith(const std::string& text, const std::string& log) {
    std::set<std::string> lines;
    std::istringstream stream(log);
    for (std::string line; std::getline(stream, line);) {
        if (line.find(text) != std::string::npos) {
            lines.insert(line);
        }
    }
    return lines;
}

TEST_P(Robustness, combinationHeldByAnotherProgram_isLoggedWithItsCauseAndTheRestGoesOn) {
    Probe probe(desktop, {"--windows", "2"});
    const XConnection other(desktop.server().display());
    xcb_grab_key(other.get(), 0, other.root(), XCB_MOD_MASK_CONTROL, key::q, XCB_GRAB_MODE_ASYNC,
                 XCB_GRAB_MODE_ASYNC);
    other.synchronize();
    const Dwellkey dwellkey(desktop, settings);
    dwellkey.awaitGuarding(key::w);
    holdToTheEnd(key::w);
    probe.awaitCount("close-request", 1);
    const auto lines = linesWith("Key command registration failed.", dwellkey.log());
    ASSERT_EQ(lines.size(), 1U) << dwellkey.log();
    EXPECT_NE(lines.begin()->find("already grabbed by another program"), std::string::npos)
        << *lines.begin();
}

TEST_P(Robustness, displayLost_endsTheProcessWithAMessage) {
    const Probe probe(desktop);
    Dwellkey dwellkey(desktop, settings);
    dwellkey.awaitGuarding();
    desktop.server().process().terminate();
    const auto status = dwellkey.process().awaitEnd();
    EXPECT_NE(status.code.value_or(0), 0);
    EXPECT_NE(dwellkey.log().find("X server"), std::string::npos) << dwellkey.log();
}

TEST_P(Robustness, noDisplay_endsTheProcessWithAMessage) {
    Dwellkey dwellkey(desktop, settings, {{"DISPLAY", ":nowhere"}});
    EXPECT_EQ(dwellkey.process().awaitEnd(), (ExitStatus{EXIT_FAILURE, {}}));
    EXPECT_NE(dwellkey.log().find("cannot start"), std::string::npos) << dwellkey.log();
}

TEST_P(Robustness, stoppedProcess_neverFreezesTheKeyboardNorQuitsLater) {
    Probe probe(desktop, {"--text"});
    Dwellkey dwellkey(desktop, settings);
    dwellkey.awaitGuarding();
    dwellkey.process().signal(SIGSTOP);
    const TimePoint down = pressShortcut();
    keyboard.releaseAll();
    keyboard.tap(key::x);
    probe.awaitPresses(key::x, 1);
    EXPECT_TRUE(probe.staysWithout("close-request", down + delay));
    dwellkey.process().signal(SIGCONT);
    EXPECT_TRUE(probe.staysWithout("close-request", Clock::now() + delay + afterthought));
    EXPECT_FALSE(screen.panel());
}

TEST_P(Robustness, stoppedDuringAHoldThatIsLetGo_quitsNothingWhenItGoesOn) {
    Probe probe(desktop, {"--text"});
    Dwellkey dwellkey(desktop, settings);
    dwellkey.awaitGuarding();
    const TimePoint down = beginHold();
    dwellkey.process().signal(SIGSTOP);
    keyboard.releaseAll();
    ASSERT_LT(Clock::now(), down + delay) << "the machine is too slow for this test";
    keyboard.tap(key::x);
    probe.awaitPresses(key::x, 1);
    EXPECT_TRUE(probe.staysWithout("close-request", down + delay + afterthought));
    dwellkey.process().signal(SIGCONT);
    screen.awaitNoPanel();
    EXPECT_TRUE(probe.staysWithout("close-request", Clock::now() + delay));
}

TEST_P(Robustness, windowManagerRestartedBetweenHolds_guardsAsBefore) {
    Probe probe(desktop);
    const Dwellkey dwellkey(desktop, settings);
    dwellkey.awaitGuarding();
    desktop.windowManager().restart();
    screen.await("the window to be managed again",
                 [&] { return !screen.managedWindows().empty(); });
    screen.activate(probe.window());
    dwellkey.awaitGuarding();
    holdToTheEnd();
    EXPECT_EQ(probe.process().awaitEnd(), (ExitStatus{0, {}}));
    EXPECT_EQ(probe.count("close-request"), 1U);
}

TEST_P(Robustness, windowManagerGoneForGood_leavesEveryKeyToTheApplications) {
    Probe probe(desktop);
    const Dwellkey dwellkey(desktop, settings);
    dwellkey.awaitGuarding();
    desktop.windowManager().end();
    dwellkey.awaitStandingDown(); // nobody tells any more who is in front
    desktop.windowManager().restart();
    screen.await("the window to be managed again",
                 [&] { return !screen.managedWindows().empty(); });
    screen.activate(probe.window());
    dwellkey.awaitGuarding();
}

TEST_P(Robustness, busesThatStall_holdUpNeitherTheKeysNorTheEnd) {
    for (const auto stalls : {StallingBus::After::nothing, StallingBus::After::greeting,
                              StallingBus::After::firstCall}) {
        SCOPED_TRACE(static_cast<int>(stalls));
        Probe probe(desktop);
        const StallingBus bus(desktop.folder("data") / "stalling-bus", stalls);
        Dwellkey dwellkey(desktop, settings,
                          {{"DBUS_SESSION_BUS_ADDRESS", bus.address()},
                           {"DBUS_SYSTEM_BUS_ADDRESS", bus.address()}});
        dwellkey.awaitGuarding();
        holdToTheEnd();
        EXPECT_EQ(probe.process().awaitEnd(), (ExitStatus{0, {}}));
        dwellkey.process().signal(SIGTERM);
        dwellkey.process().awaitEnd(Milliseconds(10'000)); // far less than the toolkit's patience
    }
}

TEST_P(Robustness, callsWithoutEnd_neitherHoldUpAHoldNorPutOurWindowIntoIt) {
    Probe probe(desktop);
    const Dwellkey dwellkey(desktop, settings);
    dwellkey.awaitGuarding();
    const std::string name = "org.dwellkey.Dwellkey";
    desktop.start({"gdbus", "wait", "--session", name})->awaitEnd();
    beginHold();
    const FloodingCaller caller(desktop.environment().at("DBUS_SESSION_BUS_ADDRESS"), name);
    EXPECT_EQ(probe.process().awaitEnd(), (ExitStatus{0, {}}));
}

TEST_P(Robustness, windowManagerRestartedDuringAHold_holdEndsAndTheNextOneWorks) {
    auto front = std::make_unique<Probe>(desktop);
    Dwellkey dwellkey(desktop, settings);
    dwellkey.awaitGuarding();
    beginHold();
    desktop.windowManager().restart();
    screen.awaitNoPanel();
    keyboard.releaseAll();
    EXPECT_LE(front->count("close-request"), 1U);
    ASSERT_TRUE(dwellkey.process().isRunning());
    front.reset(); // whether it was asked depends on when the new window manager named it active
    Probe next(desktop);
    dwellkey.awaitGuarding();
    holdToTheEnd();
    EXPECT_EQ(next.process().awaitEnd(), (ExitStatus{0, {}}));
}

TEST_P(Robustness, screenLockedDuringAHold_holdEndsAtOnce) {
    Probe probe(desktop);
    const Dwellkey dwellkey(desktop, settings);
    dwellkey.awaitGuarding();
    const TimePoint down = beginHold();
    ASSERT_EQ(desktop
                  .start({"dbus-send", "--session", "--type=signal", "/org/freedesktop/ScreenSaver",
                          "org.freedesktop.ScreenSaver.ActiveChanged", "boolean:true"})
                  ->awaitEnd(),
              (ExitStatus{0, {}}));
    screen.awaitNoPanel();
    EXPECT_TRUE(probe.staysWithout("close-request", down + delay + afterthought));
    keyboard.releaseAll();
    holdToTheEnd();
    EXPECT_EQ(probe.process().awaitEnd(), (ExitStatus{0, {}}));
}

TEST_P(Robustness, askedToEnd_endsAndGivesTheKeysBack) {
    Probe probe(desktop);
    Dwellkey dwellkey(desktop, settings);
    dwellkey.awaitGuarding();
    EXPECT_EQ(dwellkey.process().terminate(), (ExitStatus{0, {}}));
    pressShortcut();
    probe.awaitPresses(key::q, 1);
}

INSTANTIATE_TEST_SUITE_P(Each, Robustness, everyWindowManager, parameterName);

} // namespace dwellkey::e2e
