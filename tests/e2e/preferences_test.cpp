// SPDX-License-Identifier: MIT
// The preferences of the running program, in the user's hands.
#include "end_to_end.h"

#include <nlohmann/json.hpp>

#include <filesystem>
#include <optional>
#include <string>

namespace dwellkey::e2e {

class Preferences : public EndToEnd {
protected:
    /// The controls by how often Tab leads there from where the window opens, its first control.
    /// The list is passed over in this, and the button that removes while nothing is selected.
    enum Control { delay = 4, scope = 5, list = 6, plus = 7, menuBarIcon = 8, openAtLogin = 9 };

    void startAgain() {
        EXPECT_EQ(desktop.start({Desktop::built("dwellkey")})->awaitEnd(), (ExitStatus{0, {}}));
    }

    Window awaitActive(const std::string& title) {
        std::optional<Window> found;
        screen.await("the window \"" + title + "\" to be active", [&] {
            found = screen.windowTitled(title);
            return found && screen.activeWindow() == found && screen.focusedWindow() == found;
        });
        return *found;
    }

    void open() {
        startAgain();
        window = awaitActive("Preferences");
        letItFinish();
        place = screen.geometry(window);
    }

    /// Until the program has done what it was told before now, such as asking once more to be
    /// active: between two answers its loop takes a whole turn.
    void letItFinish() {
        for (int answer = 0; answer < 2; ++answer) {
            desktop
                .start({"gdbus", "call", "--session", "--dest=org.dwellkey.Dwellkey",
                        "--object-path=/org/dwellkey/Dwellkey",
                        "--method=org.freedesktop.Application.ActivateAction", "none", "[]", "{}"})
                ->awaitEnd();
        }
    }

    void go(Control control) {
        for (int tabs = 0; tabs < control; ++tabs) {
            keyboard.tap(key::tab);
        }
    }

    [[nodiscard]] Picture seen() const { return screen.picture(place); }

    /// The window's picture once it has stood still for a while.
    [[nodiscard]] Picture settled() const {
        constexpr Milliseconds still{150};
        Picture last = seen();
        TimePoint since = Clock::now();
        screen.await("the picture of the window to stand still", [&] {
            Picture now = seen();
            if (now.differences(last)) {
                last = std::move(now);
                since = Clock::now();
            }
            return Clock::now() - since >= still;
        });
        return last;
    }

    /// Until the window looks different; where.
    Rectangle awaitChange(const std::string& of, const Picture& before) const {
        std::optional<Rectangle> changed;
        screen.await(of + " to look different",
                     [&] { return (changed = seen().differences(before)).has_value(); });
        return *settled().differences(before);
    }

    /// Until the window looks as it did, from the upper edge of the area downwards: what is above
    /// it may have been painted anew, and a style need not paint twice the same.
    void awaitSame(const std::string& what, const Picture& as, const Rectangle& area) const {
        screen.await(what + " to look as before", [&] {
            const auto different = seen().differences(as);
            return !different || different->y + different->height <= area.y;
        });
    }

    /// Where the button is, by its focus ring. The focus is where the window opened.
    Rectangle findPlus() {
        go(list);
        const Picture before = settled();
        keyboard.tap(key::tab);
        const Rectangle ring = awaitChange("the plus button, reached with Tab,", before);
        return {place.x + ring.x, place.y + ring.y, ring.width, ring.height};
    }

    void pointAt(const Rectangle& control) {
        desktop.pointer().moveTo(control.x + control.width / 2, control.y + control.height / 2);
    }

    [[nodiscard]] nlohmann::json stored(const std::string& name) const {
        const auto text = readFile(desktop.folder("config") / "dwellkey/settings.json");
        return nlohmann::json::parse(text).value(name, nlohmann::json());
    }

    void awaitStored(const std::string& name, const nlohmann::json& value) const {
        screen.await("settings.json to say " + name + " " + value.dump(),
                     [&] { return stored(name) == value; });
    }

    Window window = XCB_NONE;
    Rectangle place; // of the window, when it opened
};

TEST_P(Preferences, applicationChosenInThePicker_getsItsOwnShortcutFromThenOn) {
    const auto location = desktop.addDesktopEntry("quokka", "Quokka Notes", "quokka-class");
    Probe probe(desktop, {"--class", "quokka-class"});
    const Dwellkey dwellkey(desktop);
    dwellkey.awaitGuarding();
    open();
    pointAt(findPlus());
    desktop.pointer().click();
    awaitActive("Add Application");
    keyboard.type("okka");
    keyboard.tap(key::returnKey);
    awaitActive("Preferences");
    awaitStored("appURLs", {location});
    screen.activate(probe.window());
    dwellkey.awaitStandingDown();
    probe.forget();
    pressShortcut();
    probe.awaitPresses(key::q, 1);
    EXPECT_FALSE(screen.panel());
}

TEST_P(Preferences, applicationDroppedFromAFileManager_isListedAndStaysWhereItWas) {
    const auto location = desktop.addDesktopEntry("quokka", "Quokka Notes", "quokka-class");
    Probe files(desktop, {"--drag", location});
    const Dwellkey dwellkey(desktop);
    dwellkey.awaitGuarding();
    open();
    const Picture before = settled();
    Rectangle aboveThePlus = findPlus();
    aboveThePlus.y -= 2 * aboveThePlus.height;
    const Rectangle source = screen.geometry(files.window());
    desktop.pointer().moveTo(source.x + 10, source.y + 10);
    desktop.pointer().press();
    pointAt(aboveThePlus);
    files.awaitCount("drag-welcome", 1);
    desktop.pointer().release();
    await("the drag to end",
          [&] { return files.count("drag-ended") + files.count("moved-away") > 0; });
    EXPECT_EQ(files.count("moved-away"), 0U); // then a file manager deletes it
    awaitStored("appURLs", {location});
    awaitChange("the list", before);
}

TEST_P(Preferences, sliderMovedByKeyboard_setsHowLongTheNextHoldLasts) {
    Probe first(desktop, {"--class", "first"});
    Probe second(desktop, {"--class", "second"});
    Dwellkey dwellkey(desktop, {.delay = 3.0});
    dwellkey.awaitGuarding();
    open();
    go(delay);
    keyboard.tap(key::end);
    awaitStored("delayUntilActivation", 0.25);
    screen.activate(second.window());
    dwellkey.awaitGuarding();
    const TimePoint fastest = holdToTheEnd();
    EXPECT_EQ(second.process().awaitEnd(), (ExitStatus{0, {}}));
    EXPECT_LT(Clock::now() - fastest, Milliseconds(3000));

    screen.activate(window);
    keyboard.tap(key::left);
    awaitStored("delayUntilActivation", 0.4);
    screen.activate(first.window());
    dwellkey.awaitGuarding();
    const TimePoint next = holdToTheEnd();
    EXPECT_EQ(first.process().awaitEnd(), (ExitStatus{0, {}}));
    EXPECT_GE(Clock::now() - next, Milliseconds(400));
}

TEST_P(Preferences, settingsEditedOutside_showWhileTheWindowIsOpen) {
    const auto location = desktop.addDesktopEntry("quokka", "Quokka Notes", "quokka-class");
    const Probe probe(desktop);
    Dwellkey dwellkey(desktop);
    dwellkey.awaitGuarding();
    open();
    Settings settings;
    int above = 0; // where the control before it ended: they stand below each other
    const auto expectChange = [&](const std::string& control) {
        const Picture before = settled();
        dwellkey.editSettings(settings);
        const Rectangle changed = awaitChange(control, before);
        EXPECT_GE(changed.y, above) << control;
        above = changed.y + changed.height;
    };
    settings.delay = 1.9;
    expectChange("the slider");
    settings.scope = Scope::onlyListed;
    expectChange("the scope");
    settings.listedApplications = {location};
    expectChange("the list");
    settings.showsMenuBarIcon = false;
    expectChange("the check box of the menu-bar icon");
    settings.guardsCloseWindow = true;
    above = 0;
    expectChange("the recorder of the shortcut that closes windows");
}

TEST_P(Preferences, listedApplicationUninstalled_isToldUntilItIsInstalledAgain) {
    const auto install = [&] {
        return desktop.addDesktopEntry("quokka", "Quokka Notes", "quokka-class");
    };
    const auto location = install();
    const Probe probe(desktop);
    const Dwellkey dwellkey(desktop, {.listedApplications = {location}});
    dwellkey.awaitGuarding();
    open();
    const Picture before = settled();
    std::filesystem::remove(desktop.folder("share/applications") / "quokka.desktop");
    const Rectangle row = awaitChange("the row of the uninstalled application", before);
    EXPECT_EQ(stored("appURLs"), nlohmann::json({location}));
    install();
    awaitSame("the row of the application installed again", before, row);
}

TEST_P(Preferences, menuBarIconHidden_windowComesBackByStartingAgain) {
    const Probe probe(desktop);
    const Dwellkey dwellkey(desktop);
    dwellkey.awaitGuarding();
    open();
    go(menuBarIcon);
    keyboard.tap(key::space);
    awaitStored("showMenuBarIcon", false);
    keyboard.press(key::leftControl);
    keyboard.tap(key::w);
    keyboard.releaseAll();
    screen.await("the preferences to close", [&] { return !screen.windowTitled("Preferences"); });
    open();
}

class PreferencesInFront : public Preferences {};

TEST_P(PreferencesInFront, startedAgain_comesToTheFrontFromBehindAndFromTheTaskbar) {
    const Probe probe(desktop, {"--fullscreen"});
    const Dwellkey dwellkey(desktop);
    dwellkey.awaitGuarding();
    open();
    screen.activate(probe.window());
    ASSERT_TRUE(screen.isAbove(probe.window(), window));
    open();
    EXPECT_TRUE(screen.isAbove(window, probe.window()));
    screen.minimise(window);
    open();
    EXPECT_TRUE(screen.isViewable(window));
}

INSTANTIATE_TEST_SUITE_P(Each, Preferences, testing::Values(WindowManagerKind::openbox),
                         parameterName);
INSTANTIATE_TEST_SUITE_P(Each, PreferencesInFront, everyWindowManager, parameterName);

} // namespace dwellkey::e2e
