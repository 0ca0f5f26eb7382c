// SPDX-License-Identifier: MIT
#include "keycommands/key_recording.h"

#include "key_command_fixture.h"
#include "keycommands/key_command_shortcut.h"
#include "keycommands/key_names.h"

#include <gmock/gmock.h>

#include <memory>
#include <string>

namespace dwellkey {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::uint32_t window = 7;

class KeyRecordingTest : public KeyCommandTest {
protected:
    std::unique_ptr<KeyRecording> recorderOf(const KeyCommand& recorded) {
        auto recording = std::make_unique<KeyRecording>(
            std::make_unique<KeyCommandShortcut>(recorded), platform.platform());
        recording->setWindow(window);
        return recording;
    }
    [[nodiscard]] KeyCommand closeCommand() const { return command("closeWindow"); }
    static KeyStroke stroke(Key key, const Modifiers& modifiers = {}) {
        return {rawValue(key), eventFlags(modifiers), false};
    }
    void startRecording() { recorder->press(RecorderSegment::shortcut); }
    void type(Key key, const Modifiers& modifiers = {}) {
        recorder->keyDown(stroke(key, modifiers));
        recorder->keyUp(stroke(key, modifiers));
    }
    [[nodiscard]] bool isRecording() const {
        return recorder->state() == RecordingState::recording;
    }
    [[nodiscard]] auto registered() const { return platform.hotKeys.registeredCombinations(); }

    KeyCommand quit = quitCommand();
    std::unique_ptr<KeyRecording> recorder = recorderOf(quit);
};

TEST_F(KeyRecordingTest, recorder_showsALiveCommand_andClearsIt) {
    EXPECT_THAT(registered(), ElementsAre(commandQ));
    EXPECT_EQ(recorder->label(), "⌘q");
    EXPECT_EQ(recorder->nativeName(), "Ctrl+Q");
    EXPECT_EQ(recorder->image(), RecorderImage::delete_);
    recorder->press(RecorderSegment::button);
    EXPECT_EQ(recorder->state(), RecordingState::idle);
    EXPECT_EQ(recorder->label(), "Record shortcut");
    EXPECT_EQ(recorder->image(), RecorderImage::record);
    EXPECT_EQ(recorder->nativeName(), "");
    EXPECT_EQ(stored("quitApplication"), nullptr);
    recorder->press(RecorderSegment::button);
    EXPECT_TRUE(isRecording()) << "nothing to clear any more";
}

TEST_F(KeyRecordingTest, whileRecording_theOldCombinationDoesNotFire_andTheWindowHasTheKeyboard) {
    startRecording();
    EXPECT_EQ(recorder->label(), "Type shortcut");
    EXPECT_EQ(recorder->image(), RecorderImage::escape);
    EXPECT_THAT(registered(), IsEmpty());
    EXPECT_NE(stored("quitApplication"), nullptr) << "whatever ends the program now";
    EXPECT_EQ(platform.keyCapture.window, window);
    startRecording(); // the same segment again
    EXPECT_TRUE(isRecording());
    recorder->press(RecorderSegment::button);
    EXPECT_EQ(recorder->label(), "⌘q");
    EXPECT_THAT(registered(), ElementsAre(commandQ));
    EXPECT_EQ(platform.keyCapture.window, std::nullopt);
}

TEST_F(KeyRecordingTest, combinationWithAModifier_isTakenStoredAndRegistered) {
    int changes = 0;
    const auto changed =
        quit.proxy().observeRegistrationState([&] { changes += quit.isEnabled() ? 1 : 0; });
    startRecording();
    type(Key::f1, {Modifier::shift, Modifier::control}); // any order
    EXPECT_FALSE(isRecording());
    EXPECT_EQ(recorder->label(), "⌃⇧F1");
    EXPECT_EQ(recorder->nativeName(), "Super+Shift+F1");
    EXPECT_THAT(registered(), ElementsAre(FakeHotKeys::Combination{122, 0x1200}));
    EXPECT_NE(stored("quitApplication"), nullptr);
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(platform.beeper.beepCount, 0);
}

TEST_F(KeyRecordingTest, plainKey_explainsItselfTheThirdTime_andIsSilentTheFourth) {
    startRecording();
    type(Key::q);
    type(Key::escape); // the same mistake
    EXPECT_TRUE(platform.alerts.shown.empty());
    type(Key::q);
    ASSERT_EQ(platform.alerts.shown.size(), 1U);
    const Alert& alert = platform.alerts.shown.front();
    EXPECT_EQ(alert.messageText, "Cannot record shortcut.");
    EXPECT_EQ(alert.informativeText, "Please include at least one modifier key (⌃⌥⇧⌘).");
    type(Key::q);
    EXPECT_EQ(platform.alerts.shown.size(), 1U);
    EXPECT_EQ(platform.beeper.beepCount, 4);
    EXPECT_TRUE(isRecording());
    EXPECT_THAT(registered(), IsEmpty());
}

TEST_F(KeyRecordingTest, mistakesOfAnotherKind_countAnew) {
    startRecording();
    type(Key::q);
    type(Key::q);
    type(Key::q, {Modifier::shift});
    type(Key::q, {Modifier::shift});
    type(Key::q);
    EXPECT_TRUE(platform.alerts.shown.empty());
    for (int i = 0; i < 3; ++i) {
        type(Key::q, {Modifier::shift});
    }
    ASSERT_EQ(platform.alerts.shown.size(), 1U);
    EXPECT_EQ(platform.alerts.shown.front().informativeText,
              "Shift (⇧) by itself is not a valid modifier key. Please include at least one "
              "additional modifier key (⌃⌥⇧⌘).");
}

TEST_F(KeyRecordingTest, recordedCombination_forgetsEarlierMistakes) {
    startRecording();
    type(Key::q);
    type(Key::q);
    type(Key::w, {Modifier::command});
    startRecording();
    type(Key::q);
    EXPECT_TRUE(platform.alerts.shown.empty());
}

TEST_F(KeyRecordingTest, reservedCombination_explainsItselfAtOnce_thenOnlyBeeps) {
    platform.systemShortcuts.list.entries = {{true, 49, 0x100}, {true, 48, 0x800}};
    startRecording();
    type(Key::space, {Modifier::command});
    ASSERT_EQ(platform.alerts.shown.size(), 1U);
    EXPECT_EQ(platform.alerts.shown.front().informativeText,
              "\"⌘␣\" is reserved system-wide. Most system key commands can be changed in "
              "\"System Settings › Keyboard › Keyboard Shortcuts\".");
    for (int i = 0; i < 4; ++i) {
        type(Key::space, {Modifier::command});
    }
    EXPECT_EQ(platform.alerts.shown.size(), 1U);
    EXPECT_EQ(platform.beeper.beepCount, 5);
    type(Key::tab, {Modifier::option});
    EXPECT_EQ(platform.alerts.shown.size(), 2U) << "another combination";
    EXPECT_TRUE(isRecording());
}

TEST_F(KeyRecordingTest, keyThatIsNone_onlyBeeps_andRepeatsAreNobodysMistake) {
    startRecording();
    for (int i = 0; i < 4; ++i) {
        recorder->keyDown({std::nullopt, eventFlags({Modifier::command}), false});
        recorder->keyDown({63, eventFlags({Modifier::command}), false});
    }
    EXPECT_EQ(platform.beeper.beepCount, 8);
    KeyStroke repeat = stroke(Key::q);
    repeat.isRepeat = true;
    for (int i = 0; i < 9; ++i) {
        recorder->keyDown(repeat);
    }
    EXPECT_EQ(platform.beeper.beepCount, 8);
    EXPECT_TRUE(platform.alerts.shown.empty());
}

TEST_F(KeyRecordingTest, alert_getsTheKeyboard_andRecordingGoesOnAfterIt) {
    platform.alerts.duringModal = [this] {
        EXPECT_FALSE(recorder->watchesKeys());
        EXPECT_EQ(platform.keyCapture.window, std::nullopt);
        recorder->keyDown(stroke(Key::return_)); // presses the alert's button
        platform.runLoop.advance(60s);
    };
    startRecording();
    for (int i = 0; i < 3; ++i) {
        type(Key::q);
    }
    EXPECT_EQ(platform.beeper.beepCount, 3);
    EXPECT_EQ(platform.keyCapture.window, window);
    EXPECT_TRUE(recorder->watchesKeys());
}

TEST_F(KeyRecordingTest, recorderThatGoesAwayUnderItsAlert_leavesTheCommandRegistered) {
    platform.alerts.duringModal = [this] { recorder.reset(); };
    startRecording();
    for (int i = 0; i < 3 && recorder; ++i) {
        recorder->keyDown(stroke(Key::q));
    }
    EXPECT_FALSE(recorder);
    EXPECT_THAT(registered(), ElementsAre(commandQ));
    EXPECT_EQ(platform.keyCapture.window, std::nullopt);
}

// Its next repeat would press the new hot key, and the panel would open over the preferences.
TEST_F(KeyRecordingTest, recordedKey_isTheRecordersUntilItIsUp) {
    startRecording();
    recorder->keyDown(stroke(Key::w, {Modifier::command}));
    EXPECT_EQ(recorder->label(), "⌘w");
    EXPECT_EQ(platform.keyCapture.window, window);
    recorder->keyUp(stroke(Key::a)); // another one
    EXPECT_TRUE(recorder->watchesKeys());
    recorder->keyUp(stroke(Key::w)); // the modifier went up first
    platform.runLoop.advance(49ms);
    EXPECT_TRUE(recorder->watchesKeys()) << "it may be the beginning of a repeat";
    platform.runLoop.advance(1ms);
    EXPECT_FALSE(recorder->watchesKeys());
    EXPECT_EQ(platform.keyCapture.window, std::nullopt);

    startRecording();
    type(Key::w, {Modifier::command});
    recorder->keyDown(stroke(Key::a)); // the user types on
    platform.runLoop.advance(50ms);
    EXPECT_FALSE(recorder->watchesKeys()) << "only the recorded key may keep the keyboard";

    startRecording();
    recorder->keyDown(stroke(Key::x, {Modifier::command}));
    recorder->keyUp(stroke(Key::x, {Modifier::command}));
    KeyStroke repeat = stroke(Key::x, {Modifier::command});
    repeat.isRepeat = true;
    recorder->keyDown(repeat);
    for (int i = 0; i < 3; ++i) {
        platform.runLoop.advance(600ms);
        recorder->keyDown(repeat);
        EXPECT_TRUE(recorder->watchesKeys());
    }
    platform.runLoop.advance(1s); // it went up unseen
    EXPECT_EQ(platform.keyCapture.window, std::nullopt);
}

TEST_F(KeyRecordingTest, interruption_endsRecordingWithoutChange) {
    const auto endsUnchanged = [this] {
        return !isRecording() && recorder->label() == "⌘q" && registered().size() == 1
               && !platform.keyCapture.window;
    };
    startRecording();
    recorder->interrupt();
    EXPECT_TRUE(endsUnchanged());
    startRecording();
    platform.keyCapture.mustEnd.emit(); // the session locks
    EXPECT_TRUE(endsUnchanged());
    startRecording();
    platform.runLoop.advance(29s);
    type(Key::q); // somebody is there
    platform.runLoop.advance(29s);
    EXPECT_TRUE(isRecording());
    platform.runLoop.advance(1s);
    EXPECT_TRUE(endsUnchanged());
    EXPECT_EQ(platform.runLoop.postedCount(), 0U);
}

TEST_F(KeyRecordingTest, secondRecorder_takesOver) {
    const auto other = recorderOf(closeCommand());
    startRecording();
    other->press(RecorderSegment::button);
    EXPECT_FALSE(isRecording());
    EXPECT_EQ(other->state(), RecordingState::recording);
    EXPECT_EQ(platform.keyCapture.window, window);
    EXPECT_THAT(registered(), ElementsAre(commandQ));
}

TEST_F(KeyRecordingTest, combinationOfAnotherProgram_isToldAndTriedAgain) {
    platform.hotKeys.takeByOther(commandW);
    startRecording();
    type(Key::w, {Modifier::command});
    EXPECT_EQ(recorder->label(), "Record shortcut");
    EXPECT_EQ(recorder->nativeName(), "Ctrl+W");
    EXPECT_EQ(recorder->failureText(), "Another program has taken this shortcut.");
    EXPECT_EQ(recorder->image(), RecorderImage::record);
    ASSERT_NE(stored("quitApplication"), nullptr) << "the user's choice, for the next start";
    EXPECT_THAT(stored("quitApplication")->bytes, testing::StartsWith(R"({"key":13,)"));
    recorder->retryRegistration();
    EXPECT_EQ(platform.errorLog.entries.size(), 1U) << "one line for one cause";
    platform.hotKeys.giveBackByOther(commandW);
    recorder->retryRegistration();
    EXPECT_EQ(recorder->failureText(), "");
    EXPECT_EQ(recorder->label(), "⌘w");
}

TEST_F(KeyRecordingTest, combinationOfTheOtherCommand_isNotBlamedOnAnotherProgram) {
    const auto other = recorderOf(closeCommand());
    int changes = 0;
    const auto changed = other->didChange.subscribe([&] { ++changes; });
    other->press(RecorderSegment::shortcut);
    other->keyDown(stroke(Key::q, {Modifier::command}));
    EXPECT_EQ(other->failureText(), "Dwellkey uses this shortcut already.");
    EXPECT_GT(changes, 0);
    EXPECT_THAT(registered(), ElementsAre(commandQ));
    EXPECT_EQ(stored("closeWindow"), nullptr) << "the next start would give it to either";
}

TEST_F(KeyRecordingTest, unreadableEntry_isTold_untilAnotherTakesItsPlace) {
    platform.userDefaults.setFromOutside("closeWindow", std::string("Ctrl+W"));
    recorder = recorderOf(closeCommand());
    EXPECT_THAT(recorder->failureText(), testing::HasSubstr("cannot be read"));
    EXPECT_EQ(recorder->label(), "Record shortcut");
    startRecording();
    recorder->interrupt();
    EXPECT_THAT(recorder->failureText(), testing::HasSubstr("cannot be read"));
    startRecording();
    type(Key::w, {Modifier::command});
    EXPECT_EQ(recorder->failureText(), "");
    EXPECT_NE(stored("closeWindow"), nullptr);
}

TEST_F(KeyRecordingTest, mouseDown_showsTheStateAnew_unlessAMenuIsOpen) {
    quit.setDisablesOnMenuOpen(true);
    startRecording();
    int changes = 0;
    const auto changed = recorder->didChange.subscribe([&] { ++changes; });
    recorder->mouseDown();
    EXPECT_EQ(changes, 1);
    platform.menuTracking.openMenu();
    changes = 0;
    recorder->mouseDown();
    EXPECT_EQ(changes, 0);
}

TEST_F(KeyRecordingTest, nativeName_saysWhatIsPrintedOnTheKeys) {
    const auto name = [this](Key key, const Modifiers& modifiers) {
        return nativeName(key, modifiers, platform.keyboardLayout, platform.localizer);
    };
    EXPECT_EQ(name(Key::a, {Modifier::shift, Modifier::command, Modifier::option}),
              "Ctrl+Alt+Shift+A");
    EXPECT_EQ(name(Key::keypad7, {Modifier::control}), "Super+Keypad 7");
    EXPECT_EQ(name(Key::pageUp, {Modifier::command, Modifier::command}), "Ctrl+Page Up");
    EXPECT_EQ(name(Key::f4, {Modifier::option}), "Alt+F4");
    EXPECT_EQ(name(Key::slash, {Modifier::option}), "Alt+/");
    platform.localizer.translations["Ctrl"] = "Strg";
    EXPECT_EQ(name(Key::q, {Modifier::command}), "Strg+Q");
}

} // namespace
} // namespace dwellkey
