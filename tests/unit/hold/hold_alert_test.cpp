// SPDX-License-Identifier: MIT
// Holds whose action opens a modal alert, with the nested loop that it runs.
#include "hold_fixture.h"

namespace dwellkey {
namespace {

class HoldAlert : public HoldFixture {
protected:
    /// The first alert runs the nested loop, later ones are answered at once.
    template <typename Nested>
    void duringFirstAlert(Nested nested) {
        desktop_.alerts.duringModal = [this, nested] {
            desktop_.alerts.duringModal = nullptr;
            nested();
        };
    }
    [[nodiscard]] std::size_t alertCount() const { return desktop_.alerts.shown.size(); }

    std::shared_ptr<FakeRunningApplication> editor_ = inFront("editor");
};

TEST_F(HoldAlert, keysHeldOnUnderTheAlert_completeOnlyOnce) {
    desktop_.scriptHost.executionError = Script::Error{"refused"};
    desktop_.alerts.duringModal = [this] { advance(10s); };
    pressClose();
    advance(2s);
    EXPECT_EQ(alertCount(), 1U);
    EXPECT_EQ(closedWindows(), 1U);
    expectIdle();
    advance(10s);
    EXPECT_EQ(alertCount(), 1U);
}

TEST_F(HoldAlert, releaseUnderTheAlert_hidesThePanelAtOnce) {
    desktop_.scriptHost.executionError = Script::Error{"refused"};
    duringFirstAlert([this] {
        EXPECT_TRUE(timer_.isTimerViewVisible) << "the action comes first";
        EXPECT_FALSE(timer_.isPanelWanted()) << "it would cover the alert";
        releaseClose();
        expectIdle();
    });
    pressClose();
    advance(2s);
    EXPECT_EQ(alertCount(), 1U);
    expectIdle();
}

TEST_F(HoldAlert, newHoldUnderTheAlert_outlivesTheOldOne) {
    desktop_.scriptHost.executionError = Script::Error{"refused"};
    duringFirstAlert([this] {
        releaseClose();
        pressQuit();
        EXPECT_TRUE(timer_.isPanelWanted());
        advance(1s);
    });
    pressClose();
    advance(2s);
    EXPECT_TRUE(timer_.isTimerViewVisible);
    EXPECT_DOUBLE_EQ(timer_.progress, 0.5);
    advance(990ms);
    EXPECT_EQ(editor_->terminateCount, 0);
    advance(10ms);
    EXPECT_EQ(editor_->terminateCount, 1);
    expectIdle();
}

TEST_F(HoldAlert, newHoldCompletedUnderTheAlert_actsOnce) {
    desktop_.scriptHost.executionError = Script::Error{"refused"};
    duringFirstAlert([this] {
        releaseClose();
        pressQuit();
        advance(5s);
        EXPECT_EQ(editor_->terminateCount, 1);
        expectIdle();
    });
    pressClose();
    advance(2s);
    advance(10s);
    EXPECT_EQ(editor_->terminateCount, 1);
    EXPECT_EQ(alertCount(), 1U);
    expectIdle();
}

} // namespace
} // namespace dwellkey
