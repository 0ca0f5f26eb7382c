// SPDX-License-Identifier: MIT
// From a hot-key event to the observations.
#include "allocation_counter.h"
#include "key_command_fixture.h"

#include <gmock/gmock.h>

#include <array>
#include <chrono>
#include <vector>

namespace dwellkey {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

using EventType = KeyCommand::EventType;

class KeyCommandEvents : public KeyCommandTest {
protected:
    std::function<void()> note(std::string text) {
        return [this, text = std::move(text)] { notes.push_back(text); };
    }
    OSStatus send(std::uint32_t kind, std::optional<EventHotKeyID> id, OSStatus status = noErr) {
        const HotKeyEvent event{kind, id, status};
        return platform.hotKeys.send(&event);
    }

    std::vector<std::string> notes;
    KeyCommand quit = quitCommand();
};

TEST_F(KeyCommandEvents, pressAndRelease_runTheObservationsOfTheirKindInOrder) {
    quit.observe(EventType::keyUp, note("up"));
    quit.observe(EventType::keyDown, note("down 1"));
    quit.observe(EventType::keyDown, note("down 2"));
    EXPECT_TRUE(quit.isEnabled());
    platform.hotKeys.press(12, 0x100);
    EXPECT_THAT(notes, ElementsAre("down 1", "down 2"));
    platform.hotKeys.keyDown(12); // auto-repeat
    platform.hotKeys.release(12, 0x100);
    EXPECT_THAT(notes, ElementsAre("down 1", "down 2", "up"));
}

TEST_F(KeyCommandEvents, eachCommand_hearsItsOwnKeysOnly) {
    const KeyCommand close(KeyCommand::Name("closeWindow"), Key::w, {Modifier::command},
                           *registry_);
    quit.observe(EventType::keyDown, note("quit"));
    close.observe(EventType::keyDown, note("close"));
    platform.hotKeys.press(13, 0x100);
    EXPECT_THAT(notes, ElementsAre("close"));
}

TEST_F(KeyCommandEvents, observations_surviveAChangeOfTheKey) {
    quit.observe(EventType::keyDown, note("down"));
    quit.setKey(Key::w);
    platform.hotKeys.press(13, 0x100);
    EXPECT_THAT(notes, ElementsAre("down"));
}

TEST_F(KeyCommandEvents, eventsThatAreNotOurs_arePassedOnAndFireNothing) {
    quit.observe(EventType::keyDown, note("down"));
    const EventHotKeyID own = quit.proxy().identifier();
    EXPECT_EQ(platform.hotKeys.send(nullptr), eventNotHandledErr);
    EXPECT_EQ(send(kEventHotKeyPressed, EventHotKeyID{own.signature + 1, own.id}),
              eventNotHandledErr);
    EXPECT_EQ(send(kEventHotKeyPressed, EventHotKeyID{own.signature, own.id + 1}),
              eventNotHandledErr);
    EXPECT_EQ(send(kEventHotKeyPressed, std::nullopt, eventParameterNotFoundErr),
              eventParameterNotFoundErr);
    EXPECT_THAT(notes, testing::IsEmpty());
}

TEST_F(KeyCommandEvents, rawKinds_countAsPressAndReleaseAndOthersFireNothing) {
    quit.observe(EventType::keyDown, note("down"));
    quit.observe(EventType::keyUp, note("up"));
    const EventHotKeyID own = quit.proxy().identifier();
    EXPECT_EQ(send(kEventRawKeyDown, own), noErr);
    EXPECT_EQ(send(kEventRawKeyUp, own), noErr);
    EXPECT_EQ(send(2, own), noErr);
    EXPECT_THAT(notes, ElementsAre("down", "up"));
}

TEST_F(KeyCommandEvents, doubleTap_firesOnTheReleaseAtMostTheLimitAfterTheLastOne) {
    quit.observe(EventType::doubleTap(300ms), note("double"));
    platform.clock.advance(1s);
    typeCommandQ();
    EXPECT_EQ(notes.size(), 0U);
    platform.clock.advance(300ms);
    platform.hotKeys.press(12, 0x100);
    EXPECT_EQ(notes.size(), 0U); // a press never does
    platform.hotKeys.release(12, 0x100);
    EXPECT_EQ(notes.size(), 1U);
    platform.clock.advance(300ms + 1ns);
    typeCommandQ();
    EXPECT_EQ(notes.size(), 1U);
}

TEST_F(KeyCommandEvents, doubleTap_measuresTheFirstReleaseFromTheCommandsCreation) {
    quit.observe(EventType::doubleTap(300ms), note("double"));
    platform.clock.advance(250ms);
    typeCommandQ();
    EXPECT_EQ(notes.size(), 1U);
}

TEST_F(KeyCommandEvents, handlers_mayRemoveObservationsWhileTheyRun) {
    std::vector<KeyCommand::Observation> later;
    quit.observe(EventType::keyDown, [&] {
        notes.emplace_back("first");
        quit.removeObservations(later);
    });
    later.push_back(quit.observe(EventType::keyDown, note("removed")));
    later.push_back(quit.observe(EventType::keyDown, note("removed")));
    quit.observe(EventType::keyDown, note("last"));
    typeCommandQ();
    typeCommandQ();
    EXPECT_THAT(notes, ElementsAre("first", "last", "first", "last"));
}

TEST_F(KeyCommandEvents, handlers_mayObserveAndChangeTheKeyWhileTheyRun) {
    quit.observe(EventType::keyDown, [&] {
        if (quit.key() == Key::q) {
            quit.observe(EventType::keyDown, note("added"));
            quit.setKey(Key::w);
        }
    });
    typeCommandQ();
    EXPECT_THAT(notes, testing::IsEmpty());
    platform.hotKeys.press(13, 0x100);
    EXPECT_THAT(notes, ElementsAre("added"));
}

TEST_F(KeyCommandEvents, removeFirstObservation_removesOneAndKeepsTheCommandEnabled) {
    quit.observe(EventType::keyDown, note("first"));
    quit.observe(EventType::keyDown, note("second"));
    quit.removeFirstObservation(
        [](const auto& observation) { return observation.eventType == EventType::keyDown; });
    typeCommandQ();
    EXPECT_THAT(notes, ElementsAre("second"));
    EXPECT_TRUE(quit.isEnabled());
}

TEST_F(KeyCommandEvents, removeAllObservations_disablesTheCommand) {
    quit.observe(EventType::keyDown, note("down"));
    quit.removeAllObservations();
    EXPECT_FALSE(quit.isEnabled());
    quit.enable();
    typeCommandQ();
    EXPECT_THAT(notes, testing::IsEmpty());
}

TEST_F(KeyCommandEvents, event_onItsWayToTheHandlers_allocatesNothing) {
    int calls = 0;
    quit.observe(EventType::keyDown, [&] { ++calls; });
    quit.observe(EventType::keyUp, [&] { ++calls; });
    const EventHotKeyID own = quit.proxy().identifier();
    const std::size_t before = allocationCount();
    send(kEventHotKeyPressed, own);
    send(kEventHotKeyReleased, own);
    EXPECT_EQ(allocationCount(), before);
    EXPECT_EQ(calls, 2);
}

TEST_F(KeyCommandEvents, eventAfterTheRegistryIsGone_isPassedOn) {
    quit.enable();
    const EventHotKeyID own = quit.proxy().identifier();
    registry_.reset();
    EXPECT_EQ(send(kEventHotKeyPressed, own), eventNotHandledErr);
}

} // namespace
} // namespace dwellkey
