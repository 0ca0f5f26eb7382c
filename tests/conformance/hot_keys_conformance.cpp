// SPDX-License-Identifier: MIT
#include "hot_keys_conformance.h"

#include <gmock/gmock.h>

namespace dwellkey {

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const std::pair<std::uint32_t, std::uint32_t> quitPressed{kEventHotKeyPressed, 1};
const std::pair<std::uint32_t, std::uint32_t> quitReleased{kEventHotKeyReleased, 1};
const std::pair<std::uint32_t, std::uint32_t> closePressed{kEventHotKeyPressed, 2};
const std::pair<std::uint32_t, std::uint32_t> closeReleased{kEventHotKeyReleased, 2};

} // namespace

void HotKeysConformance::SetUp() {
    const OSStatus status = hotKeys.installHandler([this](const HotKeyEvent* event) {
        EXPECT_EQ(event->parameterStatus, noErr);
        events.emplace_back(event->kind, event->hotKeyID.value().id);
        if (duringEvent) {
            duringEvent();
        }
        return noErr;
    });
    ASSERT_EQ(status, noErr);
}

EventHotKeyRef HotKeysConformance::take(std::uint32_t keyCode, std::uint32_t modifiers,
                                        EventHotKeyID id) {
    const auto registration = hotKeys.registerHotKey(keyCode, modifiers, id);
    EXPECT_EQ(registration.status, noErr);
    EXPECT_NE(registration.ref, EventHotKeyRef{});
    return registration.ref;
}

void HotKeysConformance::press(std::uint32_t keyCode, std::uint32_t modifiers) {
    driver->modifiersDown(modifiers);
    driver->keyDown(keyCode);
    driver->settle();
}

void HotKeysConformance::release(std::uint32_t keyCode, std::uint32_t modifiers) {
    driver->keyUp(keyCode);
    driver->modifiersUp(modifiers);
    driver->settle();
}

TEST_P(HotKeysConformance, press_givesOnePressedAndOneReleased_andTheApplicationNothing) {
    take(q, command, quit);
    press(q, command);
    EXPECT_THAT(events, ElementsAre(quitPressed));
    release(q, command);
    EXPECT_THAT(events, ElementsAre(quitPressed, quitReleased));
    EXPECT_EQ(driver->strokesInApplication(q), 0U);
}

TEST_P(HotKeysConformance, autoRepeat_isNeitherPressNorReleaseNorTyped) {
    take(q, command, quit);
    press(q, command);
    driver->letRepeat(q);
    driver->settle();
    EXPECT_THAT(events, ElementsAre(quitPressed));
    release(q, command);
    EXPECT_THAT(events, ElementsAre(quitPressed, quitReleased));
    EXPECT_EQ(driver->strokesInApplication(q), 0U);
}

TEST_P(HotKeysConformance, modifierFirst_isTheOneRelease) {
    take(q, command, quit);
    press(q, command);
    driver->modifiersUp(command);
    driver->settle();
    EXPECT_THAT(events, ElementsAre(quitPressed, quitReleased));
    driver->keyUp(q);
    driver->settle();
    EXPECT_THAT(events, ElementsAre(quitPressed, quitReleased));
}

TEST_P(HotKeysConformance, oneOfTwoModifiersUp_isARelease) {
    take(q, command | shift, quit);
    press(q, command | shift);
    driver->modifiersUp(shift);
    driver->settle();
    EXPECT_THAT(events, ElementsAre(quitPressed, quitReleased));
    release(q, command);
}

TEST_P(HotKeysConformance, modifierDownAgainOverAKeyThatStayedDown_isNoNewPress) {
    take(q, command, quit);
    press(q, command);
    driver->modifiersUp(command);
    driver->modifiersDown(command);
    driver->letRepeat(q);
    driver->settle();
    EXPECT_THAT(events, ElementsAre(quitPressed, quitReleased));
    driver->keyUp(q);
    driver->keyDown(q);
    driver->settle();
    EXPECT_THAT(events, ElementsAre(quitPressed, quitReleased, quitPressed));
    release(q, command);
}

TEST_P(HotKeysConformance, otherKeyDuringAPress_isNoRelease) {
    take(q, command, quit);
    press(q, command);
    driver->keyDown(w);
    driver->keyUp(w);
    driver->settle();
    EXPECT_THAT(events, ElementsAre(quitPressed));
    release(q, command);
    EXPECT_THAT(events, ElementsAre(quitPressed, quitReleased));
}

TEST_P(HotKeysConformance, moreOrFewerModifiers_areNotTheCombination) {
    take(q, command, quit);
    press(q, command | shift);
    release(q, command | shift);
    press(q, 0);
    release(q, 0);
    EXPECT_THAT(events, IsEmpty());
    EXPECT_EQ(driver->strokesInApplication(q), 2U);
}

TEST_P(HotKeysConformance, lockKeys_makeNoDifference) {
    take(q, command, quit);
    driver->setLocks(true);
    press(q, command);
    EXPECT_TRUE(hotKeys.confirmPressed());
    release(q, command);
    driver->setLocks(false);
    EXPECT_THAT(events, ElementsAre(quitPressed, quitReleased));
}

TEST_P(HotKeysConformance, twoHotKeys_areToldApartByTheirIds) {
    take(q, command, quit);
    take(w, command, close);
    press(w, command);
    release(w, command);
    press(q, command);
    release(q, command);
    EXPECT_THAT(events, ElementsAre(closePressed, closeReleased, quitPressed, quitReleased));
}

TEST_P(HotKeysConformance, combinationOfAnotherProgram_isRefusedUntilItIsGivenBack) {
    driver->takeByOther(q, command);
    EXPECT_EQ(hotKeys.registerHotKey(q, command, quit).status, eventHotKeyExistsErr);
    take(q, command | shift, close);
    driver->giveBackByOther(q, command);
    press(q, command);
    release(q, command);
    EXPECT_THAT(events, IsEmpty()) << "a refused combination was taken all the same";
    take(q, command, quit);
    press(q, command);
    release(q, command);
    EXPECT_THAT(events, ElementsAre(quitPressed, quitReleased));
}

TEST_P(HotKeysConformance, keyThatNoKeyboardHas_isRefused) {
    EXPECT_EQ(hotKeys.registerHotKey(200, command, quit).status, eventHotKeyInvalidErr);
}

TEST_P(HotKeysConformance, unregister_givesTheCombinationBackOnce) {
    const EventHotKeyRef ref = take(q, command, quit);
    EXPECT_EQ(hotKeys.unregisterHotKey(ref), noErr);
    EXPECT_EQ(hotKeys.unregisterHotKey(ref), eventHotKeyInvalidErr);
    press(q, command);
    release(q, command);
    EXPECT_THAT(events, IsEmpty());
    EXPECT_EQ(driver->strokesInApplication(q), 1U);
    take(q, command, quit);
    press(q, command);
    release(q, command);
    EXPECT_THAT(events, ElementsAre(quitPressed, quitReleased));
}

TEST_P(HotKeysConformance, unregisterDuringAPress_givesNoReleaseAnyMore) {
    const EventHotKeyRef ref = take(q, command, quit);
    duringEvent = [&] { EXPECT_EQ(hotKeys.unregisterHotKey(ref), noErr); };
    press(q, command);
    EXPECT_FALSE(hotKeys.confirmPressed());
    release(q, command);
    EXPECT_THAT(events, ElementsAre(quitPressed));
}

TEST_P(HotKeysConformance, standingDown_givesTheKeysToTheApplicationAndBack) {
    take(q, command, quit);
    hotKeys.setStandsDown(quit, true);
    press(q, command);
    release(q, command);
    EXPECT_THAT(events, IsEmpty());
    EXPECT_EQ(driver->strokesInApplication(q), 1U);
    hotKeys.setStandsDown(quit, false);
    press(q, command);
    release(q, command);
    EXPECT_THAT(events, ElementsAre(quitPressed, quitReleased));
    EXPECT_EQ(driver->strokesInApplication(q), 1U);
}

TEST_P(HotKeysConformance, standingDownBeforeRegistration_isRemembered) {
    hotKeys.setStandsDown(quit, true);
    take(q, command, quit);
    press(q, command);
    release(q, command);
    EXPECT_THAT(events, IsEmpty());
    EXPECT_EQ(driver->strokesInApplication(q), 1U);
}

TEST_P(HotKeysConformance, standingDownDuringAPress_waitsForTheRelease) {
    take(q, command, quit);
    press(q, command);
    hotKeys.setStandsDown(quit, true);
    driver->settle();
    EXPECT_TRUE(hotKeys.confirmPressed());
    release(q, command);
    EXPECT_THAT(events, ElementsAre(quitPressed, quitReleased));
    press(q, command);
    release(q, command);
    EXPECT_EQ(events.size(), 2U);
    EXPECT_EQ(driver->strokesInApplication(q), 1U);
}

TEST_P(HotKeysConformance, confirmPressed_isTrueWhileTheKeysAreDownOnly) {
    take(q, command, quit);
    EXPECT_FALSE(hotKeys.confirmPressed());
    press(q, command);
    EXPECT_TRUE(hotKeys.confirmPressed());
    release(q, command);
    EXPECT_FALSE(hotKeys.confirmPressed());
}

TEST_P(HotKeysConformance, confirmPressed_deliversWhatHasArrivedFirst) {
    take(q, command, quit);
    driver->modifiersDown(command);
    driver->keyDown(q);
    EXPECT_TRUE(hotKeys.confirmPressed());
    EXPECT_THAT(events, ElementsAre(quitPressed));
    driver->modifiersUp(command);
    EXPECT_FALSE(hotKeys.confirmPressed());
    EXPECT_THAT(events, ElementsAre(quitPressed, quitReleased));
    driver->keyUp(q);
}

TEST_P(HotKeysConformance, confirmPressed_afterTheModifierWentUpAndDownAgain_isFalse) {
    take(q, command, quit);
    press(q, command);
    driver->modifiersUp(command);
    driver->modifiersDown(command);
    EXPECT_FALSE(hotKeys.confirmPressed()) << "the hold ended when the modifier went up";
    release(q, command);
}

} // namespace dwellkey
