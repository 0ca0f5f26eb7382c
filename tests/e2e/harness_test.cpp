// SPDX-License-Identifier: MIT
// The harness itself: a test that trusts it must be able to fail.
#include "end_to_end.h"

#include <algorithm>
#include <csignal>

namespace dwellkey::e2e {

using Harness = EndToEnd;

TEST_P(Harness, probe_keyInFront_reportsItOnceWithItsState) {
    Probe probe(desktop);
    pressShortcut();
    keyboard.releaseAll();
    probe.awaitCount("key-release", 2);
    const auto presses = probe.events("key-press");
    ASSERT_EQ(presses.size(), 2U);
    EXPECT_EQ(presses[1].key, key::q);
    EXPECT_EQ(presses[1].state & 0xffU, unsigned{XCB_MOD_MASK_CONTROL});
}

TEST_P(Harness, probe_otherWindowActivated_reportsTheLostFocus) {
    Probe first(desktop, {"--class", "first"});
    Probe second(desktop, {"--class", "second"});
    screen.activate(first.window());
    second.awaitCount("focus-out", 1);
    first.awaitCount("focus-in", 1);
    EXPECT_EQ(screen.className(screen.activeWindow().value()), "first");
}

TEST_P(Harness, isGrabbed_otherClientHoldsTheKey_sees) {
    const XConnection other(desktop.server().display());
    EXPECT_FALSE(screen.isGrabbed(key::q, XCB_MOD_MASK_CONTROL));
    xcb_grab_key(other.get(), 0, other.root(), XCB_MOD_MASK_CONTROL, key::q, XCB_GRAB_MODE_ASYNC,
                 XCB_GRAB_MODE_ASYNC);
    other.synchronize();
    EXPECT_TRUE(screen.isGrabbed(key::q, XCB_MOD_MASK_CONTROL));
    EXPECT_FALSE(screen.isGrabbed(key::w, XCB_MOD_MASK_CONTROL));
}

TEST_P(Harness, keyboard_layoutAndLocks_followTheUser) {
    Probe probe(desktop);
    keyboard.setLayout("fr");
    EXPECT_EQ(keyboard.keyFor('a'), key::q);
    keyboard.toggleCapsLock();
    keyboard.toggleNumLock();
    keyboard.tap(key::x);
    probe.awaitPresses(key::x, 1);
    const auto state = probe.events("key-press").back().state;
    EXPECT_EQ(state & 0xffU, unsigned{XCB_MOD_MASK_LOCK | XCB_MOD_MASK_2});
}

TEST_P(Harness, windowManagerRestarted_windowsAreManagedAgain) {
    Probe probe(desktop);
    desktop.windowManager().restart();
    screen.await("the window to be managed again",
                 [&] { return !screen.managedWindows().empty(); });
    EXPECT_EQ(screen.managedWindows().front(), probe.window());
}

TEST_P(Harness, picture_window_showsItsColours) {
    Probe probe(desktop);
    const auto place = screen.geometry(probe.window());
    screen.await("the window to be painted", [&] {
        const auto picture = screen.picture();
        return lightness(picture.at(place.x + place.width / 2, place.y + place.height / 2)) > 200;
    });
    EXPECT_EQ(place.width, 400);
    const auto picture = screen.picture();
    const auto bright = picture.boundingBox({0, 0, picture.width(), picture.height()},
                                            [](Colour colour) { return lightness(colour) > 200; });
    ASSERT_TRUE(bright.has_value());
    EXPECT_GE(bright->width, place.width);
}

TEST_P(Harness, childProcess_ends_statusSaysHow) {
    Probe probe(desktop, {"--refuse", "--dialog", "--windows", "2"});
    probe.process().signal(SIGKILL);
    EXPECT_EQ(probe.process().awaitEnd(), (ExitStatus{{}, SIGKILL}));
    EXPECT_EQ(desktop.start({"false"})->awaitEnd(), (ExitStatus{1, {}}));
}

INSTANTIATE_TEST_SUITE_P(Each, Harness, everyWindowManager, parameterName);

} // namespace dwellkey::e2e
