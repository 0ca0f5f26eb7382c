// SPDX-License-Identifier: MIT
#include "support/signal.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace dwellkey {
namespace {

TEST(Subscription, cancel_twiceOrAfterMove_undoesOnce) {
    int undone = 0;
    {
        Subscription first([&] { ++undone; });
        Subscription second(std::move(first));
        EXPECT_TRUE(second.isActive());
        second.cancel();
        second.cancel();
        EXPECT_FALSE(second.isActive());
    }
    EXPECT_EQ(undone, 1);
}

TEST(Subscription, assignment_overAnActiveOne_undoesTheOldOne) {
    int undone = 0;
    Subscription subscription([&] { ++undone; });
    subscription = Subscription();
    EXPECT_EQ(undone, 1);
}

TEST(Signal, emit_callsHandlersInOrderOfSubscription) {
    const Signal<int> signal;
    std::vector<int> calls;
    const auto first = signal.subscribe([&](int value) { calls.push_back(value); });
    const auto second = signal.subscribe([&](int value) { calls.push_back(value * 10); });
    signal.emit(3);
    EXPECT_EQ(calls, (std::vector{3, 30}));
}

TEST(Signal, handlerRemovedByAnEarlierOne_isNotCalledAnyMore) {
    const Signal<> signal;
    int calls = 0;
    Subscription later;
    const auto earlier = signal.subscribe([&] { later.cancel(); });
    later = signal.subscribe([&] { ++calls; });
    signal.emit();
    EXPECT_EQ(calls, 0);
}

TEST(Signal, handlerThatRemovesItself_letsTheNextOnesRun) {
    const Signal<> signal;
    int selfCalls = 0;
    int nextCalls = 0;
    Subscription self;
    self = signal.subscribe([&] {
        ++selfCalls;
        self.cancel();
    });
    const auto next = signal.subscribe([&] { ++nextCalls; });
    signal.emit();
    signal.emit();
    EXPECT_EQ(selfCalls, 1);
    EXPECT_EQ(nextCalls, 2);
}

TEST(Signal, handlerAddedMeanwhile_isFirstCalledByTheNextEmission) {
    const Signal<> signal;
    int added = 0;
    Subscription inner;
    const auto outer = signal.subscribe([&] {
        if (!inner.isActive()) {
            inner = signal.subscribe([&] { ++added; });
        }
    });
    signal.emit();
    EXPECT_EQ(added, 0);
    signal.emit();
    EXPECT_EQ(added, 1);
}

TEST(Signal, removalDuringANestedEmission_disturbsNeitherEmission) {
    const Signal<int> signal;
    std::vector<int> last;
    Subscription middle;
    const auto first = signal.subscribe([&](int depth) {
        if (depth == 0) {
            signal.emit(1);
        } else {
            middle.cancel();
        }
    });
    middle = signal.subscribe([](int) { FAIL() << "was removed before its turn"; });
    const auto end = signal.subscribe([&](int depth) { last.push_back(depth); });
    signal.emit(0);
    EXPECT_EQ(last, (std::vector{1, 0}));
}

TEST(Signal, ownerDestroyedByAHandler_endsQuietly) {
    auto signal = std::make_unique<Signal<>>();
    auto subscription = signal->subscribe([&] { signal.reset(); });
    signal->emit();
    EXPECT_EQ(signal, nullptr);
    subscription.cancel(); // outlived the signal
}

} // namespace
} // namespace dwellkey
