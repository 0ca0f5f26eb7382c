// SPDX-License-Identifier: MIT
// Presses that reach us although the application in front is not guarded: they are acted on at
// once, for nobody else has got them.
#include "hold_fixture.h"

namespace dwellkey {
namespace {

class ShortcutActions : public HoldFixture {
protected:
    /// A press that was on its way before the hot key stood down.
    void send(std::uint32_t kind, std::uint32_t keyCode) {
        const HotKeyEvent event{kind, desktop_.hotKeys.idOf({keyCode, command}), noErr};
        EXPECT_EQ(desktop_.hotKeys.send(&event), noErr);
    }
    void expectNoHold() {
        expectIdle();
        advance(5s);
    }
};

TEST_F(ShortcutActions, quitOutOfScope_quitsAtOnceWithoutAPanel) {
    const auto editor = inFront("editor");
    exclude("editor");
    send(kEventHotKeyPressed, q);
    EXPECT_EQ(editor->terminateCount, 1);
    expectNoHold();
    send(kEventHotKeyReleased, q);
    EXPECT_EQ(editor->terminateCount, 1);
}

TEST_F(ShortcutActions, quitOfFileManagerOutOfScope_closesItsWindow) {
    const auto files = fileManagerInFront();
    exclude("files");
    pressQuit(); // a real one: for the file manager the quit shortcut stays ours
    EXPECT_EQ(files->terminateCount, 0);
    EXPECT_EQ(desktop_.scriptHost.executedSources, std::vector<std::string>{"close Files"});
    expectNoHold();
}

TEST_F(ShortcutActions, closeOutOfScope_closesAtOnce) {
    const auto editor = inFront("editor");
    exclude("editor");
    send(kEventHotKeyPressed, w);
    EXPECT_EQ(closedWindows(), 1U);
    EXPECT_EQ(editor->terminateCount, 0);
    expectNoHold();
}

TEST_F(ShortcutActions, nothingInFront_doesNothing) {
    pressQuit();
    releaseQuit();
    pressClose();
    EXPECT_EQ(closedWindows(), 0U);
    EXPECT_TRUE(desktop_.alerts.shown.empty());
    expectNoHold();
}

TEST_F(ShortcutActions, modelGone_hearsNoPressAnyMore) {
    inFront("editor");
    TimerManager timer(desktop_.platform(), preferences_);
    { const KeyboardShortcutsModel gone(desktop_.platform(), timer, appState_, registry_); }
    pressQuit();
    EXPECT_EQ(desktop_.runLoop.activeTimerCount(), 1U) << "only the model that is left";
    releaseQuit();
    expectIdle();
}

TEST_F(ShortcutActions, rehearsedHold_actsOnNobody) {
    const auto ourselves = inFront("dwellkey");
    ourselves->ourselves = true;
    timer_.setRehearsing(true);
    pressQuit();
    EXPECT_FALSE(timer_.isPanelWanted());
    advance(1s);
    EXPECT_GT(timer_.progress.get(), 0.4);
    advance(2s);
    EXPECT_EQ(ourselves->terminateCount, 0);
    EXPECT_TRUE(timer_.wasRehearsed);
    expectIdle();
    releaseQuit();
    pressClose();
    EXPECT_FALSE(timer_.wasRehearsed);
    advance(3s);
    EXPECT_EQ(closedWindows(), 0U);
    EXPECT_TRUE(timer_.wasRehearsed);
    releaseClose();

    const auto editor = inFront("editor");
    pressQuit();
    advance(1s);
    desktop_.workspace.setFrontmost(ourselves); // neither the one nor the other
    advance(2s);
    EXPECT_EQ(editor->terminateCount + ourselves->terminateCount, 0);
    releaseQuit();
    desktop_.workspace.setFrontmost(editor);
    pressQuit();
    advance(2s);
    EXPECT_EQ(editor->terminateCount, 1) << "others are guarded as always";
}

// Somebody who holds the keys while the introduction comes or goes has meant neither.
TEST_F(ShortcutActions, rehearsalThatBeginsOrEnds_endsTheHold) {
    const auto editor = inFront("editor");
    for (const bool rehearses : {true, false}) {
        pressQuit();
        advance(1s);
        timer_.setRehearsing(rehearses);
        expectIdle();
        advance(2s);
        releaseQuit();
    }
    EXPECT_EQ(editor->terminateCount, 0);
    pressQuit();
    advance(3s);
    EXPECT_EQ(editor->terminateCount, 1);
}

} // namespace
} // namespace dwellkey
