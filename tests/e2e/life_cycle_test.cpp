// SPDX-License-Identifier: MIT
// Started, started again, hung, killed, asked to end.
#include "end_to_end.h"
#include "session_manager.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdint>
#include <filesystem>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

namespace dwellkey::e2e {

class LifeCycle : public EndToEnd {
protected:
    std::unique_ptr<ChildProcess> startAgain(const Environment& additions = {}) {
        return desktop.start({Desktop::built("dwellkey")}, additions);
    }

    [[nodiscard]] bool arePreferencesOpen() const {
        return screen.windowTitled("Preferences").has_value();
    }

    /// In front, with the keys.
    void awaitPreferences() const {
        screen.await("the preferences to be in front", [&] {
            const auto window = screen.windowTitled("Preferences");
            return window && screen.activeWindow() == window && screen.focusedWindow() == window;
        });
    }

    void awaitKeysTaken() const {
        screen.await("Ctrl+Q to be taken",
                     [&] { return screen.isGrabbed(key::q, XCB_MOD_MASK_CONTROL); });
    }

    [[nodiscard]] nlohmann::json storedSettings() const {
        return nlohmann::json::parse(readFile(desktop.folder("config") / "dwellkey/settings.json"));
    }

    /// "appIsOpen" in the settings: only an end in order makes it false.
    void storeAsOpen() const {
        auto settings = nlohmann::json::parse(Settings{}.json());
        settings["appIsOpen"] = true;
        writeFile(desktop.folder("config") / "dwellkey/settings.json", settings.dump());
    }

    std::unique_ptr<ChildProcess> startStoredAsOpen(SessionManager* session = nullptr) {
        storeAsOpen();
        auto program = session == nullptr ? startAgain()
                                          : startAgain({{"SESSION_MANAGER", session->address()}});
        if (session != nullptr) {
            session->awaitClient();
        }
        awaitKeysTaken();
        return program;
    }

    [[nodiscard]] std::string namesOnTheBus() {
        const auto call = desktop.start(
            {"gdbus", "call", "--session", "--dest=org.freedesktop.DBus",
             "--object-path=/org/freedesktop/DBus", "--method=org.freedesktop.DBus.ListNames"},
            {}, ChildProcess::Output::toPipe);
        call->awaitEnd();
        return call->readLine().value_or("no answer");
    }

    /// Speaks to the program as launchers do; the arguments in GVariant's notation.
    ExitStatus callBus(const std::string& method, const std::vector<std::string>& arguments) {
        std::vector<std::string> command{"gdbus",
                                         "call",
                                         "--session",
                                         "--dest=org.dwellkey.Dwellkey",
                                         "--object-path=/org/dwellkey/Dwellkey",
                                         "--method=org.freedesktop.Application." + method};
        command.insert(command.end(), arguments.begin(), arguments.end());
        return desktop.start(command)->awaitEnd();
    }

    void awaitBusName() {
        EXPECT_EQ(
            desktop.start({"gdbus", "wait", "--session", "org.dwellkey.Dwellkey"})->awaitEnd(),
            ended);
    }

    const Environment noBus{{"DBUS_SESSION_BUS_ADDRESS", "disabled:"},
                            {"DBUS_SYSTEM_BUS_ADDRESS", "disabled:"}};
    const ExitStatus ended{0, {}};
};

TEST_P(LifeCycle, startedAgain_opensThePreferencesOfTheFirstAndEnds) {
    const Probe probe(desktop);
    Dwellkey first(desktop);
    first.awaitGuarding();
    EXPECT_EQ(startAgain()->awaitEnd(), ended);
    awaitPreferences();
    EXPECT_TRUE(first.process().isRunning());
    screen.activate(probe.window());
    EXPECT_EQ(startAgain()->awaitEnd(), ended);
    awaitPreferences(); // brought forward
}

TEST_P(LifeCycle, eachStart_endsTheBusyPointerOfItsLauncher) {
    const XConnection listener(desktop.server().display());
    const std::uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(listener.get(), listener.root(), XCB_CW_EVENT_MASK, &mask);
    listener.synchronize();
    std::string notices;
    const auto awaitNotice = [&](const std::string& notice) {
        await(notice,
              [&] {
                  while (
                      const Reply<xcb_generic_event_t> event{xcb_poll_for_event(listener.get())}) {
                      if ((event->response_type & 0x7fU) == XCB_CLIENT_MESSAGE) {
                          const auto& piece =
                              reinterpret_cast<const xcb_client_message_event_t&>(*event); // NOLINT
                          notices.append(std::begin(piece.data.data8), std::end(piece.data.data8));
                      }
                  }
                  return notices.find(notice) != std::string::npos;
              },
              {listener.descriptor()});
    };
    const auto first = startAgain({{"DESKTOP_STARTUP_ID", "launcher-1-menu_TIME100"}});
    awaitNotice("remove: ID=\"launcher-1-menu_TIME100\"");
    const auto second = startAgain({{"DESKTOP_STARTUP_ID", "launcher-2-menu_TIME200"}});
    awaitNotice("remove: ID=\"launcher-2-menu_TIME200\"");
}

TEST_P(LifeCycle, startedAgainWithoutASessionBus_opensThePreferencesOfTheFirst) {
    const Probe probe(desktop);
    Dwellkey first(desktop, {}, noBus);
    first.awaitGuarding();
    EXPECT_EQ(startAgain(noBus)->awaitEnd(), ended);
    awaitPreferences();
}

TEST_P(LifeCycle, heldOverItsOwnWindow_endsInOrderOnceTheKeysAreUp) {
    Probe behind(desktop);
    Dwellkey dwellkey(desktop, {.delay = 1.0}); // the keys repeat by then
    dwellkey.awaitGuarding();
    EXPECT_EQ(startAgain()->awaitEnd(), ended);
    awaitPreferences();
    behind.forget();
    beginHold();
    screen.awaitNoPanel();
    screen.await("the window behind to be in front",
                 [&] { return screen.focusedWindow() == behind.window(); });
    EXPECT_TRUE(dwellkey.process().isRunning());
    keyboard.releaseAll();
    EXPECT_EQ(dwellkey.process().awaitEnd(), ended);
    EXPECT_EQ(behind.count("key-press"), 0U); // a repeat would quit that one
    EXPECT_EQ(storedSettings().at("appIsOpen"), false);
    EXPECT_TRUE(storedSettings().contains("quitApplication"));
}

TEST_P(LifeCycle, activatedByALauncher_opensThePreferences) {
    const Probe probe(desktop);
    const Dwellkey first(desktop);
    first.awaitGuarding();
    awaitBusName();
    EXPECT_EQ(callBus("ActivateAction", {"none", "[]", "{}"}), (ExitStatus{1, {}}));
    EXPECT_FALSE(arePreferencesOpen());
    EXPECT_EQ(callBus("Activate", {"{}"}), ended);
    awaitPreferences();
}

TEST_P(LifeCycle, firstHangs_secondEndsItAndGuardsWithTheSettingsOfTheFirst) {
    const Probe front(desktop);
    Dwellkey first(desktop, {.delay = 0.4});
    first.awaitGuarding();
    first.process().signal(SIGSTOP);
    const auto second = startAgain();
    first.process().awaitEnd();
    awaitPreferences();
    EXPECT_TRUE(second->isRunning());
    EXPECT_EQ(storedSettings().at("delayUntilActivation"), 0.4);
    Probe next(desktop);
    awaitKeysTaken();
    const TimePoint down = beginHold();
    EXPECT_EQ(next.process().awaitEnd(), ended);
    EXPECT_GE(Clock::now() - down, Milliseconds(400));
}

TEST_P(LifeCycle, firstWasKilled_nextOneGuards) {
    Probe probe(desktop);
    {
        Dwellkey first(desktop);
        first.awaitGuarding();
        first.process().signal(SIGKILL);
        first.awaitStandingDown(); // or its keys would pass for those of the second
    }
    const Dwellkey second(desktop);
    second.awaitGuarding();
    holdToTheEnd();
    EXPECT_EQ(probe.process().awaitEnd(), ended);
    EXPECT_FALSE(arePreferencesOpen());
}

TEST_P(LifeCycle, severalStartedAtOnce_exactlyOneStays) {
    const Probe probe(desktop);
    std::array<std::unique_ptr<ChildProcess>, 5> starts;
    std::ranges::generate(starts, [&] { return startAgain(); });
    const auto running = [&] {
        return std::ranges::count_if(starts, [](const auto& start) { return start->isRunning(); });
    };
    await("all but one to end", [&] { return running() == 1; });
    for (const auto& start : starts) {
        EXPECT_TRUE(start->isRunning() || start->awaitEnd() == ended) << start->log();
    }
}

TEST_P(LifeCycle, askedToEnd_givesBackKeysAndNamesAndSaysThatItIsClosed) {
    Probe probe(desktop);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        const auto program = startStoredAsOpen();
        awaitBusName();
        program->signal(signal);
        EXPECT_EQ(program->awaitEnd(), ended);
        EXPECT_EQ(storedSettings().at("appIsOpen"), false);
        EXPECT_FALSE(screen.isGrabbed(key::q, XCB_MOD_MASK_CONTROL));
        const std::string names = namesOnTheBus();
        EXPECT_EQ(names.find("dwellkey"), std::string::npos) << names;
        EXPECT_EQ(names.find("StatusNotifierItem"), std::string::npos) << names;
    }
    pressShortcut();
    probe.awaitPresses(key::q, 1);
}

TEST_P(LifeCycle, askedToEndWhileItStarts_endsInOrder) {
    storeAsOpen();
    const auto program = startAgain();
    const std::filesystem::directory_iterator none;
    await("its lock, the first that is seen of it",
          [&] { return std::filesystem::directory_iterator(desktop.folder("runtime")) != none; });
    program->signal(SIGTERM);
    if (program->awaitEnd() == ended) {
        EXPECT_EQ(storedSettings().at("appIsOpen"), false);
    } else { // only where the machine is too busy for a start within the time that an end may take
        EXPECT_NE(program->log().find("holds it up"), std::string::npos) << program->log();
    }
}

TEST_P(LifeCycle, sessionEnds_leavesAtOnceSavedAndIsNotBroughtBackByTheSessionManager) {
    const Probe probe(desktop);
    SessionManager session;
    const auto program = startStoredAsOpen(&session);
    EXPECT_EQ(startAgain()->awaitEnd(), ended);
    awaitPreferences(); // an open window does not hold up the logout
    session.endSession();
    EXPECT_EQ(program->awaitEnd(), ended);
    EXPECT_EQ(session.restartHint(), SmRestartNever); // the login item does that
    EXPECT_EQ(storedSettings().at("appIsOpen"), false);
}

TEST_P(LifeCycle, displayLost_savesThatItIsClosed) {
    const Probe probe(desktop);
    const auto program = startStoredAsOpen();
    desktop.server().process().terminate();
    program->awaitEnd();
    EXPECT_EQ(storedSettings().at("appIsOpen"), false);
}

TEST_P(LifeCycle, firstLaunch_introducesAndCtrlCommaOpensThePreferences) {
    Settings settings;
    settings.isFirstLaunch = true;
    Dwellkey dwellkey(desktop, settings);
    screen.await("the introduction in front", [&] {
        const auto introduction = screen.windowTitled("Dwellkey");
        return introduction && screen.activeWindow() == introduction;
    });
    keyboard.press(key::leftControl);
    keyboard.press(key::comma);
    keyboard.releaseAll();
    screen.await("the preferences in front", [&] {
        const auto preferences = screen.windowTitled("Preferences");
        return preferences && screen.activeWindow() == preferences;
    });
}

INSTANTIATE_TEST_SUITE_P(Each, LifeCycle, testing::Values(WindowManagerKind::openbox),
                         parameterName);

} // namespace dwellkey::e2e
