// SPDX-License-Identifier: MIT
#include "hold_fixture.h"

namespace dwellkey {
namespace {

enum class Front {
    nothing,
    inScope,
    outOfScope,
    withoutIdentifier,
    fileManager,
    excludedFileManager
};

class StandDown : public HoldFixture {
protected:
    void bring(Front front) {
        switch (front) {
        case Front::nothing:
            desktop_.workspace.setFrontmost(nullptr);
            break;
        case Front::inScope:
            inFront("editor");
            break;
        case Front::outOfScope:
            exclude("game");
            inFront("game");
            break;
        case Front::withoutIdentifier:
            desktop_.workspace.launchInFront(std::nullopt);
            break;
        case Front::excludedFileManager:
            exclude("files");
            [[fallthrough]];
        case Front::fileManager:
            fileManagerInFront();
            break;
        }
    }
    [[nodiscard]] bool standsDown(std::uint32_t keyCode) const {
        const auto id = desktop_.hotKeys.idOf({keyCode, command});
        return id.has_value() && desktop_.hotKeys.standsDown(*id);
    }
    [[nodiscard]] std::pair<bool, bool> quitAndClose() const {
        return {standsDown(q), standsDown(w)};
    }
    using Pair = std::pair<bool, bool>;
};

TEST_F(StandDown, activation_decidesByWhatIsInFront) {
    struct Row {
        Front front;
        bool trusted;
        bool quitStandsDown;
        bool closeStandsDown;
    };
    const Row rows[] = {
        {Front::inScope, true, false, false},
        {Front::inScope, false, false, false},
        {Front::withoutIdentifier, true, true, true},
        {Front::nothing, true, false, false},
        {Front::outOfScope, true, true, true},
        {Front::nothing, false, true, true},
        {Front::fileManager, true, false, false},
        {Front::outOfScope, false, true, true},
        {Front::excludedFileManager, true, false, true},
        {Front::nothing, true, false, false},
    };
    for (const Row& row : rows) {
        desktop_.accessibilityTrust.trusted = row.trusted;
        bring(row.front);
        EXPECT_EQ(quitAndClose(), Pair(row.quitStandsDown, row.closeStandsDown))
            << "row " << &row - rows;
    }
}

TEST_F(StandDown, listAndScopeChanges_countFromTheNextTurn) {
    inFront("editor");
    EXPECT_EQ(quitAndClose(), Pair(false, false));
    exclude("editor");
    EXPECT_EQ(quitAndClose(), Pair(true, true));
    preferences_.setSelectedAppScope(AppScopeMode::includeApps);
    desktop_.runLoop.runPosted();
    EXPECT_EQ(quitAndClose(), Pair(false, false));
    preferences_.setApps({});
    desktop_.runLoop.runPosted();
    EXPECT_EQ(quitAndClose(), Pair(true, true));
    desktop_.userDefaults.setFromOutside("selectedAppScope",
                                         std::string(rawValue(AppScopeMode::excludeApps)));
    desktop_.runLoop.runPosted();
    EXPECT_EQ(quitAndClose(), Pair(false, false));
}

TEST_F(StandDown, manyChangesInOneTurn_areJudgedOnce) {
    inFront("editor");
    desktop_.runLoop.runPosted();
    exclude("one");
    preferences_.addApp(Url::fromPath("/apps/two.desktop"));
    preferences_.setSelectedAppScope(AppScopeMode::includeApps);
    preferences_.setSelectedAppScope(AppScopeMode::excludeApps);
    EXPECT_EQ(desktop_.runLoop.postedCount(), 1U);
    desktop_.runLoop.runPosted();
    EXPECT_EQ(desktop_.hotKeys.standDownChangeCount, 0);
}

TEST_F(StandDown, standingDown_givesTheApplicationItsKeyWithRepeats) {
    const auto game = inFront("game");
    exclude("game");
    pressQuit();
    desktop_.hotKeys.keyDown(q);
    releaseQuit();
    EXPECT_EQ(desktop_.hotKeys.typedIntoApplication.size(), 2U);
    EXPECT_EQ(game->terminateCount, 0);
}

TEST_F(StandDown, shortcutRecordedMeanwhile_standsDownToo) {
    inFront("game");
    exclude("game");
    model_.quitApplicationCommand.setKey(Key::k);
    EXPECT_TRUE(standsDown(40));
}

TEST_F(StandDown, changePostedWhenTheModelIsGone_isHarmless) {
    {
        const StandDownPolicy policy(desktop_.platform(), preferences_,
                                     {EventHotKeyID{1, 100}, EventHotKeyID{1, 101}});
        inFront("game");
        preferences_.setSelectedAppScope(AppScopeMode::includeApps);
    }
    desktop_.runLoop.runPosted();
    EXPECT_FALSE(desktop_.hotKeys.standsDown(EventHotKeyID{1, 100}));
}

} // namespace
} // namespace dwellkey
