// SPDX-License-Identifier: MIT
// Windows that lie, and names that want to be more than names.
#include "end_to_end.h"

namespace dwellkey::e2e {

class HostileWindows : public EndToEnd {
protected:
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

INSTANTIATE_TEST_SUITE_P(Each, HostileWindows, everyWindowManager, parameterName);

} // namespace dwellkey::e2e
