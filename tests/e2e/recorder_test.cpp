// SPDX-License-Identifier: MIT
// Shortcuts recorded with real keys: what is stored and taken, and who gets the keys meanwhile.
#include "end_to_end.h"

#include <nlohmann/json.hpp>

#include <csignal>
#include <optional>
#include <vector>

namespace dwellkey::e2e {

namespace {

namespace position { // of keys in the stored form
constexpr int q = 12;
constexpr int x = 7;
constexpr int tab = 48;
constexpr int f4 = 118;
constexpr int f5 = 96;
} // namespace position

const std::vector<std::string> command{"command"};

struct Shortcut {
    int key = 0;
    std::vector<std::string> modifiers;
    bool operator==(const Shortcut&) const = default;
};

} // namespace

class Recorder : public EndToEnd {
protected:
    /// The preferences of a program that guards Ctrl+Q and Ctrl+W.
    void openPreferences() {
        dwellkey.awaitGuarding();
        starter = desktop.start({Desktop::built("dwellkey")});
        screen.await("the preferences", [&] { return preferences().has_value(); });
        window = *preferences();
        screen.await("the preferences to be active",
                     [&] { return screen.activeWindow() == window; });
    }
    [[nodiscard]] std::optional<Window> preferences() const {
        return screen.windowTitled("Preferences");
    }

    [[nodiscard]] std::optional<Shortcut> stored(const std::string& name) const {
        const auto file = desktop.folder("config") / "dwellkey" / "settings.json";
        const auto values = nlohmann::json::parse(readFile(file));
        if (!values.contains(name)) {
            return std::nullopt;
        }
        const auto entry = nlohmann::json::parse(values[name]["$data"].get<std::string>());
        Shortcut shortcut{entry["key"], {}};
        for (const auto& modifier : entry["modifiers"]) {
            shortcut.modifiers.push_back(modifier.begin().key());
        }
        return shortcut;
    }
    void awaitStored(const std::optional<Shortcut>& expected) const {
        await("the settings to hold the shortcut",
              [&] { return stored("quitApplication") == expected; });
    }

    /// Once it has not changed for a while.
    [[nodiscard]] Picture pictureAtRest(const Rectangle& area) const {
        Picture latest = screen.picture(area);
        constexpr int whole = 10;
        int same = 0;
        screen.await("the window to be drawn", [&] {
            Picture next = screen.picture(area);
            same = latest.differences(next) ? 0 : same + 1;
            latest = std::move(next);
            return same == whole;
        });
        return latest;
    }

    /// Whether no program holds the whole keyboard. Asking takes it for a moment.
    [[nodiscard]] bool isKeyboardFree() const {
        auto* connection = screen.connection().get();
        const Reply<xcb_grab_keyboard_reply_t> reply(xcb_grab_keyboard_reply(
            connection,
            xcb_grab_keyboard(connection, 0, screen.connection().root(), XCB_CURRENT_TIME,
                              XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC),
            nullptr));
        xcb_ungrab_keyboard(connection, XCB_CURRENT_TIME);
        screen.connection().synchronize();
        return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
    }

    void type(xcb_keycode_t letter, const std::vector<xcb_keycode_t>& modifiers = {}) {
        for (const auto modifier : modifiers) {
            keyboard.press(modifier);
        }
        keyboard.tap(letter);
        keyboard.releaseAll();
    }

    /// The recorder lets go of the keyboard a moment after the recorded key went up.
    void awaitRecorded(const Shortcut& expected) const {
        awaitStored(expected);
        screen.await("the keyboard to be free", [&] { return isKeyboardFree(); });
    }

    [[nodiscard]] bool isToldTaken() const {
        return dwellkey.log().find("already grabbed") != std::string::npos;
    }

    /// The reason stands beside the recorder at the same time.
    void awaitRefusal() const {
        screen.await("the combination to be refused",
                     [&] { return isToldTaken() && isKeyboardFree(); });
    }

    /// The first segment of the quit shortcut has the focus when the window opens. `letter` is that
    /// of the present shortcut, which is given back but stays stored.
    void recordQuitShortcut(xcb_keycode_t letter = key::q) {
        const auto before = stored("quitApplication");
        keyboard.tap(key::space);
        dwellkey.awaitStandingDown(letter);
        EXPECT_EQ(stored("quitApplication"), before);
    }
    [[nodiscard]] std::optional<Window> alert() const {
        const auto found = screen.windowTitled("Dwellkey");
        return found != window ? found : std::nullopt;
    }
    void awaitAlertAndAcceptIt() {
        screen.await("an alert in front",
                     [&] { return alert() && screen.activeWindow() == alert(); });
        screen.picture().save(testName() + "-alert");
        keyboard.tap(key::returnKey);
        screen.await("the alert to close and the preferences to be active again",
                     [&] { return !alert() && screen.activeWindow() == window; });
    }

    Dwellkey dwellkey{desktop, {.guardsCloseWindow = true}};
    std::unique_ptr<ChildProcess> starter;
    Window window = XCB_NONE;
    const Shortcut controlQ{position::q, command};
};

TEST_P(Recorder, keyboardAlone_records_evenOverItselfAndOverTheOtherShortcut) {
    openPreferences();
    recordQuitShortcut();
    type(key::q, {key::leftControl});
    awaitRecorded(controlQ);
    dwellkey.awaitGuarding();

    recordQuitShortcut();
    type(key::w, {key::leftControl}); // taken: nothing closes, and nothing is recorded
    EXPECT_FALSE(screen.happensBefore(Clock::now() + afterthought,
                                      [&] { return screen.panel().has_value(); }));
    EXPECT_EQ(stored("quitApplication"), controlQ);
    EXPECT_EQ(stored("closeWindow"), (Shortcut{position::q + 1, command}));
    screen.picture().save(testName() + "-taken");
    keyboard.tap(key::space);
    type(key::f5, {key::leftControl, key::leftShift});
    awaitStored(Shortcut{position::f5, {"shift", "command"}});
    dwellkey.awaitStandingDown();
}

TEST_P(Recorder, windowManagersShortcut_isTheRecorders) {
    openPreferences();
    recordQuitShortcut();
    type(key::tab, {key::leftControl});
    awaitRecorded(Shortcut{position::tab, command});
    recordQuitShortcut(key::tab);
    type(key::f4, {key::leftAlt});
    awaitRecorded(Shortcut{position::f4, {"option"}}); // registered or, the window manager's, told
    EXPECT_EQ(preferences(), window);
    keyboard.tap(key::space);
    keyboard.tap(key::f10); // no menu's either
    type(key::x, {key::leftAlt});
    awaitRecorded(Shortcut{position::x, {"option"}});
}

TEST_P(Recorder, plainKeyThrice_isExplained_andRecordingGoesOn) {
    openPreferences();
    recordQuitShortcut();
    keyboard.tap(key::tab);
    keyboard.tap(key::escape);
    EXPECT_EQ(alert(), std::nullopt);
    keyboard.tap(key::space);
    awaitAlertAndAcceptIt();
    type(key::x, {key::leftControl, key::leftAlt});
    awaitStored(Shortcut{position::x, {"option", "command"}});
}

TEST_P(Recorder, button_clearsAndRecordsByMouse) {
    openPreferences();
    const Rectangle area = screen.geometry(window);
    const Picture before = pictureAtRest(area);
    keyboard.tap(key::tab);
    std::optional<Rectangle> button; // what the mark of the focus surrounds
    screen.await("the button to show that it has the focus", [&] {
        button = before.differences(screen.picture(area));
        return button && button->height > 16;
    });
    ASSERT_LT(button->width, 2 * button->height);
    const auto click = [&](int x) {
        desktop.pointer().moveTo(area.x + x, area.y + button->y + button->height / 2);
        desktop.pointer().click();
    };
    click(button->x + button->width / 2);
    awaitStored(std::nullopt);
    dwellkey.awaitStandingDown();
    const Picture cleared = pictureAtRest(area);
    click(button->x - button->width * 2); // the other segment
    screen.await("a change of looks",
                 [&] { return cleared.differences(screen.picture(area)).has_value(); });
    pictureAtRest(area).save(testName() + "-recording");
    EXPECT_FALSE(isKeyboardFree());
    type(key::q, {key::leftControl});
    awaitStored(controlQ);
}

TEST_P(Recorder, recordedKeyThatStaysDown_startsNoHold) {
    openPreferences();
    recordQuitShortcut();
    pressShortcut();
    dwellkey.awaitGuarding();
    constexpr Milliseconds severalRepeats{1200};
    EXPECT_FALSE(screen.happensBefore(Clock::now() + severalRepeats,
                                      [&] { return screen.panel().has_value(); }));
    keyboard.releaseAll();
    screen.await("the keyboard to be free", [&] { return isKeyboardFree(); });
    beginHold();
}

TEST_P(Recorder, anotherProgramInFront_endsTheRecordingWithoutChange) {
    openPreferences();
    recordQuitShortcut();
    Probe probe(desktop);
    dwellkey.awaitGuarding();
    EXPECT_EQ(stored("quitApplication"), controlQ);
    keyboard.tap(key::x);
    probe.awaitPresses(key::x, 1);
}

TEST_P(Recorder, programThatEndsOrWindowThatClosesWhileRecording_keepsTheShortcut) {
    openPreferences();
    recordQuitShortcut();
    screen.requestClose(window);
    screen.await("the keyboard to be free", [&] { return isKeyboardFree(); });
    EXPECT_EQ(stored("quitApplication"), controlQ);
    openPreferences();
    recordQuitShortcut();
    kill(dwellkey.process().pid(), SIGKILL);
    screen.await("the keyboard to be free", [&] { return isKeyboardFree(); });
    EXPECT_EQ(stored("quitApplication"), controlQ);
}

TEST_P(Recorder, combinationOfAnotherProgram_isTriedAgainWhenTheWindowBecomesActive) {
    std::optional<XConnection> other{desktop.server().display()};
    xcb_grab_key(other->get(), 0, other->root(), XCB_MOD_MASK_CONTROL, key::x, XCB_GRAB_MODE_ASYNC,
                 XCB_GRAB_MODE_ASYNC);
    other->synchronize();
    openPreferences();
    recordQuitShortcut();
    type(key::x, {key::leftControl});
    awaitRefusal();
    screen.picture().save(testName() + "-taken");
    EXPECT_EQ(stored("quitApplication"), (Shortcut{position::x, command})) << "the user's choice";
    other.reset();
    Probe probe(desktop);
    constexpr Milliseconds toolkitsPatience{300}; // before it takes a lost focus for a lost window
    EXPECT_TRUE(probe.staysWithout("focus-out", Clock::now() + toolkitsPatience));
    screen.activate(window);
    dwellkey.awaitGuarding(key::x);
}

INSTANTIATE_TEST_SUITE_P(Desktop, Recorder, everyWindowManager, parameterName);

} // namespace dwellkey::e2e
