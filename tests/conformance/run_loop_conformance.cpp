// SPDX-License-Identifier: MIT
#include "run_loop_conformance.h"

#include <gmock/gmock.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace dwellkey {

using testing::ElementsAre;

namespace {

class Pipe {
public:
    Pipe() { EXPECT_EQ(::pipe(ends_.data()), 0); }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;
    ~Pipe() {
        ::close(ends_[0]);
        ::close(ends_[1]);
    }
    [[nodiscard]] int readEnd() const { return ends_[0]; }
    void write() const { EXPECT_EQ(::write(ends_[1], "x", 1), 1); }
    void read() const {
        char byte = 0;
        EXPECT_EQ(::read(ends_[0], &byte, 1), 1);
    }

private:
    std::array<int, 2> ends_{};
};

} // namespace

TEST_P(RunLoopConformance, repeat_ticksAgainAndAgainAndNeverEarly) {
    const auto start = clock.now();
    std::vector<std::chrono::nanoseconds> ticks;
    const auto timer = runLoop.repeat(interval, [&] { ticks.push_back(clock.now() - start); });
    EXPECT_TRUE(ticks.empty());
    ASSERT_TRUE(driver->runUntil([&] { return ticks.size() >= 5; }));
    for (std::size_t i = 0; i < ticks.size(); ++i) {
        EXPECT_GE(ticks[i], interval * (i + 1)) << "tick " << i;
    }
}

TEST_P(RunLoopConformance, cancelledTimers_doNotTickAnyMore) {
    int cancelledInside = 0;
    int cancelledOutside = 0;
    int other = 0;
    Subscription inside;
    inside = runLoop.repeat(interval, [&] {
        ++cancelledInside;
        inside.cancel();
    });
    auto outside = runLoop.repeat(interval, [&] { ++cancelledOutside; });
    outside.cancel();
    const auto witness = runLoop.repeat(interval, [&] { ++other; });
    ASSERT_TRUE(driver->runUntil([&] { return other >= 3; }));
    EXPECT_EQ(cancelledInside, 1);
    EXPECT_EQ(cancelledOutside, 0);
}

TEST_P(RunLoopConformance, nestedLoop_firesTheOtherTimersAndNeverReentersARunningTick) {
    int depth = 0;
    int deepest = 0;
    int nestedTicks = 0;
    bool done = false;
    const auto modal = runLoop.repeat(interval, [&] {
        deepest = std::max(deepest, ++depth);
        if (!done) {
            EXPECT_TRUE(driver->runUntil([&] { return nestedTicks >= 3; }));
            done = true;
        }
        --depth;
    });
    const auto other = runLoop.repeat(interval, [&] { nestedTicks += depth; });
    ASSERT_TRUE(driver->runUntil([&] { return done; }));
    EXPECT_EQ(deepest, 1);
}

TEST_P(RunLoopConformance, missedFirings_areDropped) {
    std::vector<std::chrono::nanoseconds> ticks;
    const auto timer = runLoop.repeat(interval, [&] {
        if (ticks.empty()) {
            driver->stall(interval * 10);
        }
        ticks.push_back(clock.now());
    });
    ASSERT_TRUE(driver->runUntil([&] { return ticks.size() >= 5; }));
    EXPECT_GE(ticks[4] - ticks[0], interval * 3); // not one burst of ten
}

TEST_P(RunLoopConformance, postedTasks_runLaterInTheOrderOfPosting) {
    std::vector<std::string> ran;
    runLoop.post([&] {
        ran.emplace_back("first");
        runLoop.post([&] { ran.emplace_back("posted by first"); });
    });
    runLoop.post([&] { ran.emplace_back("second"); });
    EXPECT_TRUE(ran.empty());
    ASSERT_TRUE(driver->runUntil([&] { return ran.size() == 3; }));
    EXPECT_THAT(ran, ElementsAre("first", "second", "posted by first"));
}

TEST_P(RunLoopConformance, watch_callsWhileThereIsSomethingToRead) {
    const Pipe pipe;
    int calls = 0;
    auto watch = runLoop.watch(pipe.readEnd(), [&] {
        if (++calls == 3) {
            pipe.read();
            driver->readableChanged(pipe.readEnd(), false);
        }
    });
    driver->runFor(interval);
    EXPECT_EQ(calls, 0);
    pipe.write();
    driver->readableChanged(pipe.readEnd(), true);
    ASSERT_TRUE(driver->runUntil([&] { return calls == 3; })) << "not level triggered";
    driver->runFor(interval);
    EXPECT_EQ(calls, 3);
    watch.cancel();
    pipe.write();
    driver->readableChanged(pipe.readEnd(), true);
    driver->runFor(interval);
    EXPECT_EQ(calls, 3);
    driver->readableChanged(pipe.readEnd(), false);
}

TEST_P(RunLoopConformance, watchCancelledByItself_isNotCalledAgain) {
    const Pipe pipe;
    int calls = 0;
    Subscription watch;
    watch = runLoop.watch(pipe.readEnd(), [&] {
        ++calls;
        watch.cancel();
    });
    pipe.write();
    driver->readableChanged(pipe.readEnd(), true);
    driver->runFor(interval);
    EXPECT_EQ(calls, 1);
    driver->readableChanged(pipe.readEnd(), false);
}

TEST_P(RunLoopConformance, clock_goesOnByWhatTheLoopRan) {
    const auto start = clock.now();
    driver->runFor(interval);
    EXPECT_GE(clock.now() - start, interval);
}

} // namespace dwellkey
