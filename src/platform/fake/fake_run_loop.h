// SPDX-License-Identifier: MIT
// A clock that stands still and a run loop that is cranked by hand. std only.
#pragma once

#include "platform/run_loop.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <vector>

namespace dwellkey {

class FakeClock final : public Clock {
public:
    [[nodiscard]] std::chrono::nanoseconds now() const override { return now_; }

    /// Lets time pass without running the loop, as a stalled process would see it.
    void advance(std::chrono::nanoseconds duration) { now_ += duration; }

private:
    std::chrono::nanoseconds now_ = std::chrono::hours(1);
};

class FakeRunLoop final : public RunLoop {
public:
    explicit FakeRunLoop(FakeClock& clock) : clock_(clock) {}

    [[nodiscard]] Subscription repeat(std::chrono::nanoseconds interval,
                                      std::function<void()> tick) override;
    void post(std::function<void()> task) override;
    [[nodiscard]] Subscription watch(int descriptor, std::function<void()> readable) override;

    /// Runs the loop for this long on the fake clock: a turn at once, then each due tick at its own
    /// time, in order, with a turn after it. May be called from a tick or a task, as a nested loop.
    void advance(std::chrono::nanoseconds duration);

    /// One turn: calls the watchers of readable descriptors and the tasks posted before it began.
    void runPosted();

    /// Whether the descriptor has something to read, from the next turn on.
    void setReadable(int descriptor, bool readable);

    [[nodiscard]] std::size_t activeTimerCount() const;
    [[nodiscard]] std::size_t postedCount() const { return posted_.size(); }

private:
    struct Timer {
        std::chrono::nanoseconds interval;
        std::chrono::nanoseconds due;
        std::function<void()> tick;
        bool live = true;
        bool running = false;
    };
    struct Task {
        std::uint64_t number;
        std::function<void()> run;
    };

    [[nodiscard]] std::shared_ptr<Timer> nextTimer(std::chrono::nanoseconds end);
    void fire(Timer& timer);

    FakeClock& clock_;
    std::vector<std::shared_ptr<Timer>> timers_;
    std::deque<Task> posted_;
    std::uint64_t nextTask_ = 0;
    Signal<int> readable_;
    std::vector<int> readableDescriptors_;
};

} // namespace dwellkey
