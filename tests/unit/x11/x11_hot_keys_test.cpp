// SPDX-License-Identifier: MIT
// What a real server and its keyboard maps add to what every backend promises.
#include "platform/x11/xcb_xkb.h"
#include "x11_support/hot_key_rig.h"

#include <gmock/gmock.h>

#include <chrono>
#include <sys/uio.h>
#include <utility>
#include <vector>
#include <xcb/xcbext.h>

namespace dwellkey {
namespace {

using namespace std::chrono_literals;
using e2e::key::leftControl;
using e2e::key::rightControl;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr std::uint16_t control = XCB_MOD_MASK_CONTROL;
constexpr std::uint16_t usualNumLock = XCB_MOD_MASK_2;
constexpr std::uint16_t scrollLock = XCB_MOD_MASK_3;
constexpr EventHotKeyID quit{0x54455354, 1};
constexpr EventHotKeyID close{0x54455354, 2};
const std::pair<std::uint32_t, std::uint32_t> quitPressed{kEventHotKeyPressed, 1};
const std::pair<std::uint32_t, std::uint32_t> quitReleased{kEventHotKeyReleased, 1};
const std::pair<std::uint32_t, std::uint32_t> closePressed{kEventHotKeyPressed, 2};
const std::pair<std::uint32_t, std::uint32_t> closeReleased{kEventHotKeyReleased, 2};

class X11HotKeysTest : public testing::Test {
protected:
    static constexpr std::uint32_t command = 0x100;

    X11HotKeysTest() {
        hotKeys.installHandler([this](const HotKeyEvent* event) {
            events.emplace_back(event->kind, event->hotKeyID.value().id);
            return noErr;
        });
    }
    void TearDown() override {
        keyboard.releaseAll();
        rig.setLocks(false); // by the map that they were set with
        rig.display.run({"setxkbmap", "-layout", "us", "-option", ""});
    }

    OSStatus registerQuit() { return hotKeys.registerHotKey(12, command, quit).status; }
    OSStatus registerClose() { return hotKeys.registerHotKey(13, command, close).status; }
    void pressQuit() {
        rig.synchronize();
        keyboard.press(leftControl);
        keyboard.press(e2e::key::q);
    }
    void releaseQuit() {
        keyboard.release(e2e::key::q);
        keyboard.release(leftControl);
    }
    /// Lets timers run and delivers what they lead to.
    void advance(std::chrono::nanoseconds duration) {
        rig.settle();
        rig.loop.advance(duration);
        rig.settle();
    }
    /// With the usual xmodmap the server would refuse while a modifier is down.
    void makeScrollLockAModifier() const {
        const auto file = rig.display.folder() / "map.xkb";
        e2e::writeFile(file,
                       R"map(xkb_keymap { xkb_keycodes { include "evdev+aliases(qwerty)" };
            xkb_types { include "complete" }; xkb_compat { include "complete" };
            xkb_symbols { include "pc+us" modifier_map Mod3 { Scroll_Lock }; }; };)map");
        rig.display.run({"xkbcomp", "-w0", file, rig.display.name()});
    }
    bool isFree(std::uint16_t modifiers) {
        rig.synchronize();
        const bool free = rig.otherProgram.grab(e2e::key::q, modifiers);
        rig.otherProgram.ungrab(e2e::key::q, modifiers);
        return free;
    }

    HotKeyRig rig;
    X11HotKeys& hotKeys = rig.hotKeys;
    e2e::Keyboard& keyboard = *rig.keyboard;
    std::vector<std::pair<std::uint32_t, std::uint32_t>> events;
};

TEST_F(X11HotKeysTest, combinationThatAnotherProgramHoldsWithNumLockOnly_isRefusedWhole) {
    ASSERT_TRUE(rig.otherProgram.grab(e2e::key::q, control | usualNumLock));
    EXPECT_EQ(registerQuit(), eventHotKeyExistsErr);
    EXPECT_TRUE(isFree(control));
    EXPECT_TRUE(isFree(control | XCB_MOD_MASK_LOCK));
    EXPECT_TRUE(isFree(control | XCB_MOD_MASK_LOCK | usualNumLock));
    rig.otherProgram.ungrab(e2e::key::q, control | usualNumLock);
    EXPECT_EQ(registerQuit(), noErr);
}

TEST_F(X11HotKeysTest, numLockOnAnotherModifier_isStillNoPartOfTheCombination) {
    ASSERT_EQ(registerQuit(), noErr);
    rig.display.run({"xmodmap", "-e", "remove mod2 = Num_Lock", "-e", "add mod3 = Num_Lock"});
    advance(1s);
    EXPECT_TRUE(isFree(control | usualNumLock)) << "that is another combination now";
    rig.setLocks(true);
    pressQuit();
    rig.settle();
    EXPECT_THAT(events, ElementsAre(quitPressed));
    EXPECT_TRUE(hotKeys.confirmPressed());
    releaseQuit();
}

TEST_F(X11HotKeysTest, mapChangeWhileAKeyIsDown_waitsForTheRelease) {
    ASSERT_EQ(registerQuit(), noErr);
    pressQuit();
    rig.settle();
    makeScrollLockAModifier();
    advance(1s);
    EXPECT_TRUE(isFree(control | scrollLock)) << "changed over a key that is down";
    EXPECT_TRUE(hotKeys.confirmPressed());
    releaseQuit();
    rig.settle();
    EXPECT_THAT(events, ElementsAre(quitPressed, quitReleased));
    EXPECT_FALSE(isFree(control | scrollLock));
}

TEST_F(X11HotKeysTest, secondLayoutOfTheUser_guardsTheSameKey) {
    ASSERT_EQ(registerQuit(), noErr);
    keyboard.setLayout("us,ru");
    keyboard.lockGroup(1);
    advance(1s);
    pressQuit();
    rig.settle();
    EXPECT_THAT(events, ElementsAre(quitPressed));
    releaseQuit();
    keyboard.lockGroup(0);
}

TEST_F(X11HotKeysTest, oneOfTwoControlKeysUp_keepsTheHold) {
    ASSERT_EQ(registerQuit(), noErr);
    keyboard.press(rightControl);
    pressQuit();
    keyboard.release(leftControl);
    rig.settle();
    EXPECT_THAT(events, ElementsAre(quitPressed));
    EXPECT_TRUE(hotKeys.confirmPressed());
    keyboard.release(rightControl);
    rig.settle();
    EXPECT_THAT(events, ElementsAre(quitPressed, quitReleased));
    keyboard.release(e2e::key::q);
}

TEST_F(X11HotKeysTest, twoHotKeysAtOnce_areEachReleasedOnce) {
    ASSERT_EQ(registerQuit(), noErr);
    ASSERT_EQ(registerClose(), noErr);
    pressQuit();
    keyboard.press(e2e::key::w);
    rig.settle();
    EXPECT_THAT(events, ElementsAre(quitPressed, closePressed));
    keyboard.release(e2e::key::q);
    rig.settle();
    EXPECT_THAT(events, ElementsAre(quitPressed, closePressed, quitReleased));
    EXPECT_TRUE(hotKeys.confirmPressed()) << "w is still held";
    keyboard.release(e2e::key::w); // the server's grab ended with q: nobody tells us of this
    EXPECT_FALSE(hotKeys.confirmPressed());
    advance(100ms);
    EXPECT_THAT(events, ElementsAre(quitPressed, closePressed, quitReleased, closeReleased));
    keyboard.press(e2e::key::w);
    rig.settle();
    EXPECT_THAT(events, SizeIs(5));
}

TEST_F(X11HotKeysTest, secondHotKeyThatOutlastsTheFirst_doesNotRepeatIntoTheApplication) {
    ASSERT_EQ(registerQuit(), noErr);
    ASSERT_EQ(registerClose(), noErr);
    pressQuit();
    keyboard.press(e2e::key::w);
    keyboard.release(e2e::key::q);
    rig.awaitRepeats(e2e::key::w);
    EXPECT_EQ(rig.application.strokes(e2e::key::w), 0U);
    EXPECT_THAT(events, ElementsAre(quitPressed, closePressed, quitReleased));
}

/// Sticky keys: the modifier is in force for one stroke without a key of it being down. xcb's own
/// call leaves out the field that says which.
void latchControl(const e2e::XConnection& connection) {
    struct Request {
        std::uint8_t majorOpcode = 0, minorOpcode = 0;
        std::uint16_t length = 0, device = XCB_XKB_ID_USE_CORE_KBD;
        std::uint8_t affectModLocks = 0, modLocks = 0, lockGroup = 0, groupLock = 0;
        std::uint8_t affectModLatches = control, modLatches = control, unused = 0, latchGroup = 0;
        std::uint16_t groupLatch = 0;
    } request;
    static_assert(sizeof request == 16);
    xcb_protocol_request_t protocol{2, &xcb_xkb_id, XCB_XKB_LATCH_LOCK_STATE, 1};
    iovec parts[] = {{}, {}, {&request, sizeof request}, {nullptr, 0}};
    xcb_send_request(connection.get(), 0, &parts[2], &protocol);
    connection.synchronize();
}

TEST_F(X11HotKeysTest, latchedModifier_isHeldAsLongAsTheKey) {
    ASSERT_EQ(registerQuit(), noErr);
    auto* raw = rig.application.connection().get();
    const e2e::Reply<xcb_xkb_use_extension_reply_t> use(
        xcb_xkb_use_extension_reply(raw, xcb_xkb_use_extension(raw, 1, 0), nullptr));
    latchControl(rig.application.connection());
    rig.synchronize();
    keyboard.press(e2e::key::q);
    advance(1s);
    EXPECT_THAT(events, ElementsAre(quitPressed));
    EXPECT_TRUE(hotKeys.confirmPressed());
    keyboard.release(e2e::key::q);
    rig.settle();
    EXPECT_THAT(events, ElementsAre(quitPressed, quitReleased));
}

TEST_F(X11HotKeysTest, keysThatAnotherProgramSent_areNobodys) {
    ASSERT_EQ(registerQuit(), noErr);
    const auto root = rig.connection->root();
    const auto listening = rig.connection->select(root, XCB_EVENT_MASK_PROPERTY_CHANGE);
    const auto forge = [&](std::uint8_t type, xcb_keycode_t key) {
        xcb_key_press_event_t forged{};
        forged.response_type = type;
        forged.detail = key;
        forged.event = forged.root = root;
        forged.state = control;
        xcb_send_event(rig.otherProgram.connection().get(), 0, root, XCB_EVENT_MASK_PROPERTY_CHANGE,
                       reinterpret_cast<const char*>(&forged)); // NOLINT: xcb's way
        rig.otherProgram.connection().synchronize();
        rig.settle();
    };
    forge(XCB_KEY_PRESS, e2e::key::q);
    EXPECT_THAT(events, IsEmpty());
    pressQuit();
    forge(XCB_KEY_RELEASE, e2e::key::q);
    forge(XCB_KEY_RELEASE, leftControl);
    EXPECT_THAT(events, ElementsAre(quitPressed));
    EXPECT_TRUE(hotKeys.confirmPressed());
    releaseQuit();
}

// While the process is stalled the server's map already tells the end of the story.

TEST_F(X11HotKeysTest, modifierReleasedBeforeThePressWasRead_endsTheHold) {
    ASSERT_EQ(registerQuit(), noErr);
    pressQuit();
    keyboard.release(leftControl);
    rig.settle();
    EXPECT_THAT(events, ElementsAre(quitPressed, quitReleased));
    EXPECT_FALSE(hotKeys.confirmPressed());
    keyboard.release(e2e::key::q);
}

TEST_F(X11HotKeysTest, modifierChangedToTheOtherOneBeforeThePressWasRead_endsTheHold) {
    ASSERT_EQ(registerQuit(), noErr);
    pressQuit();
    keyboard.release(leftControl);
    keyboard.press(rightControl);
    rig.settle();
    EXPECT_THAT(events, ElementsAre(quitPressed, quitReleased));
    EXPECT_FALSE(hotKeys.confirmPressed());
    keyboard.releaseAll();
}

TEST_F(X11HotKeysTest, holdThatBeganAndEndedUnread_isDeliveredByConfirm_andFailsIt) {
    ASSERT_EQ(registerQuit(), noErr);
    pressQuit();
    releaseQuit();
    EXPECT_FALSE(hotKeys.confirmPressed());
    EXPECT_THAT(events, ElementsAre(quitPressed, quitReleased));
}

TEST_F(X11HotKeysTest, pressOnItsWayWhenTheHotKeyStoodDown_isNotSwallowed) {
    ASSERT_EQ(registerQuit(), noErr);
    pressQuit();
    hotKeys.setStandsDown(quit, true);
    rig.settle();
    EXPECT_THAT(events, ElementsAre(quitPressed));
    releaseQuit();
    rig.settle();
    EXPECT_THAT(events, ElementsAre(quitPressed, quitReleased));
    pressQuit();
    releaseQuit();
    rig.settle();
    EXPECT_THAT(events, SizeIs(2));
    EXPECT_EQ(rig.application.strokes(e2e::key::q), 1U);
}

TEST_F(X11HotKeysTest, keyOfAHotKeyThatStandsDown_tappedDuringAHold_isNoPress) {
    ASSERT_EQ(registerQuit(), noErr);
    ASSERT_EQ(registerClose(), noErr);
    hotKeys.setStandsDown(close, true);
    pressQuit();
    keyboard.tap(e2e::key::w);
    rig.settle();
    EXPECT_THAT(events, ElementsAre(quitPressed));
    releaseQuit();
}

TEST_F(X11HotKeysTest, combinationLostWhileStandingDown_isReportedOnceAndTakenBackWhenFree) {
    ASSERT_EQ(registerQuit(), noErr);
    hotKeys.setStandsDown(quit, true);
    rig.synchronize();
    ASSERT_TRUE(rig.otherProgram.grab(e2e::key::q, control));
    hotKeys.setStandsDown(quit, false);
    hotKeys.setStandsDown(quit, false);
    EXPECT_THAT(rig.log.entries, SizeIs(1));
    rig.otherProgram.ungrab(e2e::key::q, control);
    hotKeys.setStandsDown(quit, false);
    pressQuit();
    rig.settle();
    EXPECT_THAT(events, ElementsAre(quitPressed));
    releaseQuit();
}

TEST_F(X11HotKeysTest, releaseAll_endsTheHoldOfKeysThatAreStillDown) {
    ASSERT_EQ(registerQuit(), noErr);
    pressQuit();
    rig.settle();
    hotKeys.releaseAll();
    EXPECT_THAT(events, ElementsAre(quitPressed, quitReleased));
    EXPECT_FALSE(hotKeys.confirmPressed());
    releaseQuit();
    advance(100ms);
    EXPECT_THAT(events, ElementsAre(quitPressed, quitReleased));
    EXPECT_EQ(rig.loop.activeTimerCount(), 0U) << "something still wakes the process up";
}

} // namespace
} // namespace dwellkey
