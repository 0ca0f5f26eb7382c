// SPDX-License-Identifier: MIT
// The shortcut-binder path: who is guarded, for how long, and who is asked.
#include "binder_program.h"

#include <gmock/gmock.h>

#include <csignal>
#include <filesystem>

namespace dwellkey::e2e {

class Binder : public EndToEnd {
protected:
    /// Installs an application whose windows `show` opens; the path of its desktop entry.
    std::string install(const std::string& id) const {
        desktop.addDesktopEntry(id, "The " + id, id + "-class");
        return (desktop.folder("share/applications") / (id + ".desktop")).string();
    }
    Probe show(const std::string& id) { return Probe(desktop, {"--class", id + "-class"}); }

    /// Both shortcuts taken, or neither.
    static void awaitGuarding(const BinderProgram& program, xcb_keycode_t quitKey = key::q) {
        program.awaitBound(quitKey);
        program.awaitBound(key::w);
    }
    static void awaitStandingDown(const BinderProgram& program) {
        program.awaitUnbound(key::q);
        program.awaitUnbound(key::w);
    }

    static constexpr Milliseconds holdTime{750}; // of the default settings
};

TEST_P(Binder, heldToTheEnd_lastsTheLongestHoldLessTheStoredDelay) {
    struct Case {
        std::optional<double> delay;
        Milliseconds hold;
    };
    install("one");
    BinderProgram program(desktop);
    for (const Case& test : {Case{{}, Milliseconds(2250)}, Case{1.0, Milliseconds(1250)},
                             Case{2.25, Milliseconds(0)}}) {
        program.editSettings({.delay = test.delay});
        Probe probe = show("one");
        awaitGuarding(program);
        const TimePoint down = pressShortcut();
        probe.awaitCount("close-request", 1);
        keyboard.releaseAll();
        EXPECT_GE(probe.events("close-request")[0].time, down + test.hold);
        EXPECT_LT(probe.events("close-request")[0].time, down + test.hold + Milliseconds(950));
        EXPECT_EQ(probe.process().awaitEnd(), (ExitStatus{0, {}}));
    }
}

TEST_P(Binder, delayBeyondTheLongestHold_neverActs) {
    install("one");
    const BinderProgram program(desktop, {.delay = 3.0});
    Probe probe = show("one");
    awaitGuarding(program);
    const TimePoint down = beginHold();
    EXPECT_TRUE(probe.staysWithout("close-request", down + Milliseconds(2500)));
    EXPECT_TRUE(screen.panel());
    keyboard.releaseAll();
    screen.awaitNoPanel();
}

TEST_P(Binder, releasedEarly_doesNothingAndTheFocusStays) {
    install("one");
    const BinderProgram program(desktop, {.delay = 0.25});
    constexpr Milliseconds whole{2000}; // a busy machine lets go in time, too
    Probe probe = show("one");
    awaitGuarding(program);
    const auto focused = screen.focusedWindow();
    for (const auto letter : {key::q, key::w}) {
        const TimePoint down = beginHold(letter);
        EXPECT_TRUE(panelStaysUntil(down + whole / 4));
        const Picture shown = screen.picture();
        EXPECT_EQ(screen.focusedWindow(), focused);
        EXPECT_EQ(screen.activeWindow(), probe.window());
        keyboard.release(key::leftControl); // the modifier first
        screen.awaitNoPanel();
        shown.save(testName());
        EXPECT_TRUE(probe.staysWithout("close-request", down + whole + afterthought));
        keyboard.releaseAll();
    }
    EXPECT_EQ(probe.presses(key::q), 0U);
}

TEST_P(Binder, keysLetGoWhileTheProgramIsStopped_nothingIsAsked) {
    install("one");
    BinderProgram program(desktop);
    Probe probe = show("one");
    awaitGuarding(program);
    const TimePoint down = beginHold();
    program.process().signal(SIGSTOP);
    keyboard.releaseAll();
    EXPECT_TRUE(probe.staysWithout("close-request", down + holdTime + afterthought));
    program.process().signal(SIGCONT);
    screen.awaitNoPanel();
    EXPECT_TRUE(probe.staysWithout("close-request", Clock::now() + afterthought));
}

TEST_P(Binder, eachActivation_appliesTheScope) {
    BinderSettings settings{.apps = {install("listed")}};
    install("other");
    BinderProgram program(desktop, settings);
    Probe listed = show("listed");
    Probe other = show("other");
    awaitGuarding(program);
    screen.activate(listed.window());
    awaitStandingDown(program);
    listed.forget();
    pressShortcut();
    listed.awaitPresses(key::q, 1); // its own key again
    keyboard.releaseAll();
    screen.activate(other.window());
    awaitGuarding(program);
    settings.exclusionType = 1;
    settings.quitKey = virtualX; // whose binding breaks when the program has read the file
    program.editSettings(settings);
    program.awaitUnbound(key::q);
    screen.activate(listed.window());
    program.awaitBound(key::x);
    screen.activate(other.window());
    program.awaitUnbound(key::w);
    screen.activate(listed.window());
    awaitGuarding(program, key::x);
    settings.exclusionType = 2;
    settings.quitKey = virtualQ;
    program.editSettings(settings);
    program.awaitUnbound(key::x);
    screen.activate(other.window());
    awaitStandingDown(program);
    screen.activate(listed.window());
    awaitStandingDown(program);
}

TEST_P(Binder, listOfAnotherType_excludesNobody) {
    install("one");
    const BinderProgram program(desktop, {.appsText = "no list"});
    const Probe probe = show("one");
    awaitGuarding(program);
}

TEST_P(Binder, activationInAHold_isAppliedAtTheReleaseAndTheRecordedApplicationQuits) {
    const BinderProgram program(desktop, {.apps = {install("listed")}});
    install("recorded");
    Probe listed = show("listed");
    Probe recorded = show("recorded");
    awaitGuarding(program);
    beginHold();
    screen.activate(listed.window());
    recorded.process().awaitEnd();
    screen.awaitNoPanel();
    EXPECT_EQ(listed.count("close-request"), 0U);
    EXPECT_TRUE(program.isBound(key::w));
    keyboard.releaseAll();
    awaitStandingDown(program);
}

TEST_P(Binder, closeHeld_closesTheFrontWindowOfWhoeverIsInFrontAtTheEnd) {
    install("first");
    install("second");
    const BinderProgram program(desktop);
    Probe second = show("second");
    Probe first = show("first");
    awaitGuarding(program);
    beginHold(key::w);
    screen.activate(second.window());
    second.process().awaitEnd();
    keyboard.releaseAll();
    EXPECT_EQ(first.count("close-request"), 0U);
}

TEST_P(Binder, quitHeldInItsOwnWindow_endsItAndNobodyElse) {
    install("one");
    BinderProgram program(desktop);
    Probe one = show("one");
    awaitGuarding(program);
    const auto again = desktop.start({Desktop::built("dwellkey-binder")});
    EXPECT_EQ(again->awaitEnd(), (ExitStatus{0, {}})) << "one is enough for a display";
    screen.await("the preferences to be brought forward", [&] {
        return screen.activeWindow() == screen.windowTitled("Dwellkey Preferences");
    });
    pressShortcut();
    screen.await("the window to close",
                 [&] { return !screen.windowTitled("Dwellkey Preferences"); });
    keyboard.releaseAll();
    EXPECT_EQ(program.process().awaitEnd(), (ExitStatus{0, {}}));
    EXPECT_EQ(one.count("close-request"), 0U);
}

TEST_P(Binder, fileManagerInFront_isGuardedForItsWindowsOnly) {
    desktop.setFileManager("pcmanfm.desktop");
    install("one");
    const BinderProgram program(desktop);
    const Probe probe = show("one");
    awaitGuarding(program);
    const auto fileManager = desktop.start({"pcmanfm", "--new-win", desktop.folder("home")});
    screen.activate(screen.awaitWindowOfClass("Pcmanfm"));
    program.awaitUnbound(key::q);
    program.awaitBound(key::w);
    holdToTheEnd(key::w);
    screen.await("its window to close", [&] { return !screen.windowOfClass("Pcmanfm"); });
}

TEST_P(Binder, shortcutRecordedAnew_isBoundAtTheNextActivation) {
    install("one");
    install("two");
    BinderProgram program(desktop);
    Probe two = show("two");
    Probe one = show("one");
    awaitGuarding(program);
    program.editSettings({.quitKey = virtualX});
    program.awaitUnbound(key::q);
    EXPECT_FALSE(program.isBound(key::x));
    EXPECT_TRUE(program.isBound(key::w));
    screen.activate(two.window());
    program.awaitBound(key::x);
    // Taken away in the middle of a hold: that is its end.
    const TimePoint down = beginHold(key::x);
    program.editSettings({.quitKey = {}});
    screen.awaitNoPanel();
    EXPECT_TRUE(two.staysWithout("close-request", down + holdTime + afterthought));
    keyboard.releaseAll();
    screen.activate(one.window());
    program.awaitBound(key::w);
    EXPECT_FALSE(program.isBound(key::x));
}

TEST_P(Binder, brokenInstallation_endsTheProgram) {
    const auto prefix = desktop.folder("home") / "prefix";
    const auto program = prefix / "bin" / "dwellkey-binder";
    const auto script = prefix / "share" / "dwellkey" / "CloseWindow.scpt";
    std::filesystem::create_directories(program.parent_path());
    std::filesystem::copy_file(Desktop::built("dwellkey-binder"), program);
    const ExitStatus aborted{{}, SIGABRT};
    EXPECT_EQ(desktop.start({program.string()})->awaitEnd(), aborted);
    std::filesystem::create_directories(script); // there, and no file that can be read
    const auto unreadable = desktop.start({program.string()});
    EXPECT_EQ(unreadable->awaitEnd(), aborted);
    EXPECT_THAT(unreadable->log(), testing::HasSubstr("Dwellkey/Handler, line 44"));
}

INSTANTIATE_TEST_SUITE_P(Each, Binder, everyWindowManager, parameterName);

} // namespace dwellkey::e2e
