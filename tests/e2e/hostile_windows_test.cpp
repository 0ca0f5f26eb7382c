// SPDX-License-Identifier: MIT
// Windows that lie, and names that want to be more than names.
#include "end_to_end.h"
#include "harness/temporary_folder.h"

namespace dwellkey::e2e {

class HostileWindows : public EndToEnd {
protected:
    Window openPreferences() {
        desktop.start({Desktop::built("dwellkey")})->awaitEnd();
        std::optional<Window> window;
        screen.await("the preferences on the screen", [&] {
            window = screen.windowTitled("Preferences");
            return window && screen.isViewable(*window) && screen.focusedWindow() == *window;
        });
        return window.value();
    }

    const Settings settings{.delay = 0.25, .guardsCloseWindow = true};
};

TEST_P(HostileWindows, forgedProcessId_doesNotDirectTheQuitElsewhere) {
    Probe victim(desktop, {"--class", "victim"});
    Probe forger(desktop,
                 {"--class", "forger", "--forge-pid", std::to_string(victim.process().pid())});
    const Dwellkey dwellkey(desktop, settings);
    dwellkey.awaitGuarding();
    const TimePoint down = holdToTheEnd();
    forger.process().awaitEnd();
    EXPECT_TRUE(victim.staysWithout("close-request", down + afterthought));
}

TEST_P(HostileWindows, windowThatCannotBeAskedToClose_isLeftAlone) {
    Probe mute(desktop, {"--no-delete-protocol"});
    const Dwellkey dwellkey(desktop, settings);
    dwellkey.awaitGuarding(key::w);
    const TimePoint down = holdToTheEnd();
    EXPECT_TRUE(mute.staysWithout("quit", down + afterthought));
    EXPECT_TRUE(mute.process().isRunning());
    beginHold(key::w);
    screen.await("the alert to be in front", [&] {
        const auto alert = screen.windowTitled("Dwellkey");
        return alert && screen.activeWindow() == alert;
    });
    screen.awaitNoPanel(); // it would cover the alert while the keys are down
}

TEST_P(HostileWindows, rootWindowCalledActive_doesNotBlindUs) {
    Probe first(desktop, {"--class", "first"});
    Probe second(desktop, {"--class", "second"});
    const XConnection liar(desktop.server().display());
    const Window root = liar.root();
    xcb_change_property(liar.get(), XCB_PROP_MODE_REPLACE, root, liar.atom("_NET_ACTIVE_WINDOW"),
                        XCB_ATOM_WINDOW, 32, 1, &root);
    liar.synchronize();
    const Dwellkey dwellkey(desktop, settings);
    dwellkey.awaitGuarding(); // nobody is in front
    screen.activate(first.window());
    dwellkey.awaitGuarding();
    screen.activate(second.window());
    holdToTheEnd();
    EXPECT_EQ(second.process().awaitEnd(), (ExitStatus{0, {}}));
    EXPECT_EQ(first.count("close-request"), 0U);
}

TEST_P(HostileWindows, nameFullOfScript_closesTheFrontWindowAndNothingElse) {
    const std::vector<std::string> names{
        R"(Quoted "name" 'here')",
        R"(First\nclose front window\ntell application bystander-class)",
        "<<app>>",
        "tell application bystander-class",
        R"(bystander-class\r\nclose front window)",
    };
    Probe bystander(desktop, {"--class", "bystander-class", "--windows", "2"});
    const Dwellkey dwellkey(desktop, settings);
    for (std::size_t i = 0; i < names.size(); ++i) {
        SCOPED_TRACE(names[i]);
        const auto id = "named" + std::to_string(i);
        desktop.addDesktopEntry(id, names[i], id + "-class");
        Probe named(desktop, {"--class", id + "-class", "--windows", "2"});
        dwellkey.awaitGuarding(key::w);
        const Window front = named.window(1);
        const TimePoint down = holdToTheEnd(key::w);
        named.awaitCount("close-request", 1);
        EXPECT_TRUE(bystander.staysWithout("close-request", down + afterthought));
        ASSERT_EQ(named.count("close-request"), 1U);
        EXPECT_EQ(named.events("close-request")[0].window, front);
    }
}

TEST_P(HostileWindows, windowClassFullOfScript_closesTheFrontWindowAndNothingElse) {
    Probe bystander(desktop, {"--class", "bystander", "--windows", "2"});
    const Dwellkey dwellkey(desktop, settings);
    for (const std::string name : {"evil\nclose front window\ntell application bystander",
                                   "<<app>>\"; close", "close front window"}) {
        SCOPED_TRACE(name);
        Probe named(desktop, {"--class", name, "--windows", "2"});
        dwellkey.awaitGuarding(key::w);
        const TimePoint down = holdToTheEnd(key::w);
        named.awaitCount("close-request", 1);
        EXPECT_TRUE(bystander.staysWithout("close-request", down + afterthought));
        EXPECT_EQ(named.count("close-request"), 1U);
    }
}

TEST_P(HostileWindows, ourWindowsTakenOffTheScreenOrDestroyed_comeBackAtTheNextOpening) {
    const Probe probe(desktop);
    const Dwellkey dwellkey(desktop, {.delay = 3.0});
    dwellkey.awaitGuarding();
    const XConnection intruder(desktop.server().display());
    for (auto* const attack : {xcb_unmap_window, xcb_destroy_window}) {
        const auto takeAway = [&](Window window) {
            attack(intruder.get(), window);
            intruder.synchronize();
            screen.await("the window to be gone", [&] { return !screen.isViewable(window); });
        };
        takeAway(openPreferences());
        screen.activate(probe.window());
        beginHold();
        takeAway(screen.awaitPanel());
        keyboard.releaseAll();
        openPreferences(); // no hold runs any more
        beginHold();
        keyboard.releaseAll();
        screen.awaitNoPanel();
    }
}

TEST_P(HostileWindows, keyThatAnotherProgramSendsOurWindow_isNobodys) {
    const Probe probe(desktop);
    const Dwellkey dwellkey(desktop, {.delay = 3.0});
    dwellkey.awaitGuarding();
    const Window preferences = openPreferences();
    const XConnection liar(desktop.server().display());
    const std::uint32_t mask = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(liar.get(), preferences, XCB_CW_EVENT_MASK, &mask);
    xcb_key_press_event_t lie{};
    lie.response_type = XCB_KEY_PRESS;
    lie.detail = key::w; // with Ctrl it closes the window
    lie.state = XCB_MOD_MASK_CONTROL;
    lie.root = liar.root();
    lie.event = preferences;
    lie.same_screen = 1;
    xcb_send_event(liar.get(), 0, preferences, XCB_EVENT_MASK_KEY_PRESS,
                   reinterpret_cast<const char*>(&lie)); // NOLINT: xcb's way
    liar.synchronize();
    openPreferences(); // the program has read the key by now
    liar.synchronize();
    while (const Reply<xcb_generic_event_t> event{xcb_poll_for_event(liar.get())}) {
        EXPECT_NE(event->response_type, XCB_UNMAP_NOTIFY) << "the window was closed";
    }
}

TEST_P(HostileWindows, sizeThatAnotherProgramTellsOurWindows_costsNothing) {
    const Probe probe(desktop);
    Dwellkey dwellkey(desktop, {.delay = 3.0});
    dwellkey.awaitGuarding();
    const auto peakMegabytes = [&] {
        const auto status =
            readFile("/proc/" + std::to_string(dwellkey.process().pid()) + "/status");
        return std::stol(status.substr(status.find("VmHWM:") + 6)) / 1024;
    };
    const XConnection liar(desktop.server().display());
    for (int round = 0; round < 2; ++round) { // the second one shows that the first was read
        beginHold();
        const Window panel = screen.awaitPanel();
        xcb_configure_notify_event_t lie{};
        lie.response_type = XCB_CONFIGURE_NOTIFY;
        lie.event = lie.window = panel;
        lie.width = lie.height = 20'000;
        xcb_send_event(liar.get(), 0, panel, XCB_EVENT_MASK_STRUCTURE_NOTIFY,
                       reinterpret_cast<const char*>(&lie)); // NOLINT: xcb's way
        liar.synchronize();
        keyboard.releaseAll();
        screen.awaitNoPanel();
    }
    EXPECT_LT(peakMegabytes(), 500);
}

INSTANTIATE_TEST_SUITE_P(Each, HostileWindows, everyWindowManager, parameterName);

} // namespace dwellkey::e2e
