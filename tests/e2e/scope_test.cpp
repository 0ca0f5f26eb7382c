// SPDX-License-Identifier: MIT
// Who is guarded, and that the others do not notice.
#include "end_to_end.h"

namespace dwellkey::e2e {

class Scoped : public EndToEnd {
protected:
    /// An installed application whose windows the probe shows with --class.
    std::string install(const std::string& id) {
        return desktop.addDesktopEntry(id, "The " + id, id + "-class");
    }
    static std::vector<std::string> as(const std::string& id) { return {"--class", id + "-class"}; }

    void expectThatItsOwnKeyReaches(Probe& probe) {
        probe.forget();
        pressShortcut();
        probe.awaitPresses(key::q, 1);
        EXPECT_FALSE(screen.panel());
        keyboard.releaseAll();
        probe.awaitCount("key-release", 2);
        EXPECT_EQ(probe.count("close-request"), 0U);
    }

    void expectThatAHoldIsShown(Probe& probe) {
        probe.forget();
        beginHold();
        keyboard.releaseAll();
        screen.awaitNoPanel();
        EXPECT_EQ(probe.presses(key::q), 0U);
    }

    const Settings settings{.delay = 2.0};
};

TEST_P(Scoped, listedApplicationInFront_getsItsOwnShortcutWithAutoRepeat) {
    const auto listed = install("listed");
    Probe guarded(desktop, as("guarded"));
    Probe excluded(desktop, as("listed"));
    const Dwellkey dwellkey(desktop, {.delay = 0.25, .listedApplications = {listed}});
    screen.activate(guarded.window());
    dwellkey.awaitGuarding();
    screen.activate(excluded.window());
    dwellkey.awaitStandingDown();
    excluded.forget();
    const TimePoint down = pressShortcut();
    excluded.awaitPresses(key::q, 1);
    await("auto-repeat", [&] { return excluded.events("key-press").back().isAutoRepeat; });
    EXPECT_TRUE(excluded.staysWithout("close-request", down + afterthought));
    EXPECT_FALSE(screen.panel());
    keyboard.releaseAll();
    screen.activate(guarded.window());
    dwellkey.awaitGuarding();
    expectThatAHoldIsShown(guarded);
}

TEST_P(Scoped, settingsEditedFromOutside_applyAtOnce) {
    const auto location = install("editor");
    Probe probe(desktop, as("editor"));
    Dwellkey dwellkey(desktop, settings);
    dwellkey.awaitGuarding();
    Settings edited = settings;
    edited.listedApplications = {location};
    dwellkey.editSettings(edited);
    dwellkey.awaitStandingDown();
    expectThatItsOwnKeyReaches(probe);
    edited.scope = Scope::onlyListed;
    dwellkey.editSettings(edited);
    dwellkey.awaitGuarding();
    expectThatAHoldIsShown(probe);
    edited.listedApplications = {};
    dwellkey.editSettings(edited);
    dwellkey.awaitStandingDown();
    expectThatItsOwnKeyReaches(probe);
}

TEST_P(Scoped, onlyListedApplications_areGuarded) {
    Settings onlyListed = settings;
    onlyListed.scope = Scope::onlyListed;
    onlyListed.listedApplications = {install("listed")};
    Probe listed(desktop, as("listed"));
    const Dwellkey dwellkey(desktop, onlyListed);
    dwellkey.awaitGuarding();
    Probe other(desktop, as("other"));
    dwellkey.awaitStandingDown();
    expectThatItsOwnKeyReaches(other);
    screen.activate(listed.window());
    dwellkey.awaitGuarding();
    expectThatAHoldIsShown(listed);
}

TEST_P(Scoped, fileManagerInFront_closesOneWindowAndNeverQuits) {
    desktop.setFileManager("pcmanfm.desktop");
    const auto fileManager = desktop.start({"pcmanfm", "--new-win", desktop.folder("home")});
    screen.awaitWindowOfClass("Pcmanfm");
    desktop.start({"pcmanfm", "--new-win", desktop.folder("data")})->awaitEnd();
    screen.await("two folder windows", [&] { return screen.managedWindows().size() == 2; });
    const auto front = screen.managedWindows().back();
    screen.activate(front);
    const Dwellkey dwellkey(desktop, {.delay = 0.25});
    dwellkey.awaitGuarding();
    const TimePoint down = holdToTheEnd();
    screen.await("one window less", [&] { return screen.managedWindows().size() == 1; });
    EXPECT_NE(screen.managedWindows().front(), front);
    EXPECT_FALSE(screen.happensBefore(down + afterthought,
                                      [&] { return screen.managedWindows().size() != 1; }));
    EXPECT_TRUE(fileManager->isRunning());
}

TEST_P(Scoped, desktopWindowActive_nothingIsClosed) {
    Probe background(desktop, {"--desktop-window"});
    Probe application(desktop);
    const Dwellkey dwellkey(desktop, {.delay = 0.25});
    dwellkey.awaitGuarding();
    application.process().terminate();
    screen.await("the desktop to be in front", [&] {
        return screen.managedWindows().size() == 1
               && screen.activeWindow().value_or(background.window()) == background.window();
    });
    const TimePoint down = pressShortcut();
    EXPECT_TRUE(background.staysWithout("close-request", down + afterthought));
    keyboard.releaseAll();
    EXPECT_TRUE(background.process().isRunning());
}

INSTANTIATE_TEST_SUITE_P(Each, Scoped, everyWindowManager, parameterName);

} // namespace dwellkey::e2e
