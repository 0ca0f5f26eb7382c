// SPDX-License-Identifier: MIT
// The menu-bar item of the running program, as the desktop's bar meets it on the bus.
#include "end_to_end.h"

#include <string>
#include <vector>

namespace dwellkey::e2e {

class Tray : public EndToEnd {
protected:
    /// What the bus answers to a call.
    std::string send(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {"dbus-send", "--session", "--print-reply"});
        const auto call = desktop.start(arguments, {}, ChildProcess::Output::toPipe);
        call->awaitEnd();
        std::string answer;
        while (const auto line = call->readLine()) {
            answer += *line + '\n';
        }
        return answer;
    }

    /// The name of the item on the bus; "" while there is none.
    std::string item() {
        const std::string names = send({"--dest=org.freedesktop.DBus", "/org/freedesktop/DBus",
                                        "org.freedesktop.DBus.ListNames"});
        const auto start = names.find("org.kde.StatusNotifierItem-");
        return start == std::string::npos ? ""
                                          : names.substr(start, names.find('"', start) - start);
    }
    std::string awaitItem() {
        std::string name;
        await("the item in the bar", [&] { return !(name = item()).empty(); });
        return name;
    }
    void awaitNoItem() {
        await("the item to leave the bar", [&] { return item().empty(); });
    }

    /// Until the program has done what the server told it before now: between two answers its loop
    /// takes a whole turn.
    void letItFinish() {
        const std::string name = awaitItem();
        for (int answer = 0; answer < 2; ++answer) {
            send({"--dest=" + name, "/MenuBar", "com.canonical.dbusmenu.AboutToShow", "int32:0"});
        }
    }

    /// As a bar does when the user chooses the entry of its menu.
    void choose(const std::string& title) {
        const std::string name = awaitItem();
        for (int id = 1; id < 10; ++id) {
            const auto entry = "int32:" + std::to_string(id);
            if (send({"--dest=" + name, "/MenuBar", "com.canonical.dbusmenu.GetProperty", entry,
                      "string:label"})
                    .find('"' + title + '"')
                != std::string::npos) {
                send({"--dest=" + name, "/MenuBar", "com.canonical.dbusmenu.Event", entry,
                      "string:clicked", "variant:int32:0", "uint32:0"});
                return;
            }
        }
        FAIL() << "no entry " << title;
    }
};

TEST_P(Tray, hiddenInTheSettings_goesAndComesBackWithoutARestart) {
    Dwellkey dwellkey(desktop);
    const std::string first = awaitItem();
    dwellkey.editSettings({.showsMenuBarIcon = false});
    awaitNoItem();
    dwellkey.editSettings({.showsMenuBarIcon = true});
    EXPECT_NE(awaitItem(), first);
}

TEST_P(Tray, hiddenFromTheStart_guardsWithoutAnItem) {
    Probe probe(desktop);
    const Dwellkey dwellkey(desktop, {.showsMenuBarIcon = false});
    dwellkey.awaitGuarding();
    holdToTheEnd();
    EXPECT_EQ(probe.process().awaitEnd(), (ExitStatus{0, {}}));
    EXPECT_EQ(item(), "");
}

TEST_P(Tray, quitFromTheMenu_endsTheProgramInOrder) {
    Dwellkey dwellkey(desktop);
    choose("Quit Dwellkey");
    EXPECT_EQ(dwellkey.process().awaitEnd(), (ExitStatus{0, {}}));
    EXPECT_EQ(item(), "");
    const auto saved = readFile(desktop.folder("config") / "dwellkey" / "settings.json");
    EXPECT_NE(saved.find("\"appIsOpen\": false"), std::string::npos) << saved;
    EXPECT_NE(saved.find("\"showMenuBarIcon\": true"), std::string::npos) << saved;
}

TEST_P(Tray, askedToEnd_takesTheItemWithIt) {
    Dwellkey dwellkey(desktop);
    awaitItem();
    EXPECT_EQ(dwellkey.process().terminate(), (ExitStatus{0, {}}));
    EXPECT_EQ(item(), "");
}

class TrayInFront : public Tray {};

TEST_P(TrayInFront, preferencesFromTheMenu_comeToTheFrontOfOtherApplications) {
    const Probe probe(desktop);
    const Dwellkey dwellkey(desktop);
    dwellkey.awaitGuarding();
    for (const char* turn : {"opened", "brought back"}) {
        SCOPED_TRACE(turn);
        screen.activate(probe.window());
        choose("Preferences...");
        screen.await("the preferences to be active", [&] {
            const auto preferences = screen.windowTitled("Preferences");
            return preferences && screen.activeWindow() == preferences;
        });
        letItFinish(); // it asked for the window to be active when it saw it there
    }
}

INSTANTIATE_TEST_SUITE_P(Each, Tray, testing::Values(WindowManagerKind::openbox), parameterName);
INSTANTIATE_TEST_SUITE_P(Each, TrayInFront, everyWindowManager, parameterName);

} // namespace dwellkey::e2e
