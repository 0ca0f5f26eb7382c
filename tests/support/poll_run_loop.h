// SPDX-License-Identifier: MIT
// A real run loop for tests that meet real descriptors. std and POSIX only.
#pragma once

#include "platform/run_loop.h"

#include <algorithm>
#include <chrono>
#include <deque>
#include <functional>
#include <memory>
#include <poll.h>
#include <utility>
#include <vector>

namespace dwellkey::testing {

/// Runs only inside `runUntil`, and waits in poll() for whatever comes first.
class PollRunLoop final : public RunLoop {
public:
    using SteadyClock = std::chrono::steady_clock;

    /// Long enough for a busy machine; no test waits it out unless it fails.
    static constexpr std::chrono::seconds patience{10};

    /// Turns until `reached` holds; false when it did not within the time.
    bool runUntil(const std::function<bool()>& reached, SteadyClock::duration limit = patience) {
        const auto deadline = SteadyClock::now() + limit;
        while (!reached()) {
            if (SteadyClock::now() >= deadline) {
                return false;
            }
            turn(deadline);
        }
        return true;
    }

    /// Turns until what was posted so far has run.
    void runPosted() {
        bool done = false;
        post([&done] { done = true; });
        runUntil([&done] { return done; });
    }

    [[nodiscard]] std::size_t watchCount() { return live(watches_).size(); }

    [[nodiscard]] Subscription repeat(std::chrono::nanoseconds interval,
                                      std::function<void()> tick) override {
        return add(timers_, Timer{interval, SteadyClock::now() + interval, std::move(tick)});
    }
    void post(std::function<void()> task) override { posted_.push_back(std::move(task)); }
    [[nodiscard]] Subscription watch(int descriptor, std::function<void()> readable) override {
        return add(watches_, Watch{descriptor, std::move(readable)});
    }

private:
    struct Timer {
        std::chrono::nanoseconds interval;
        SteadyClock::time_point due;
        std::function<void()> tick;
        bool live = true;
        bool isRunning = false;
    };
    struct Watch {
        int descriptor;
        std::function<void()> readable;
        bool live = true;
    };

    template <typename Entry>
    static Subscription add(std::vector<std::shared_ptr<Entry>>& entries, Entry entry) {
        entries.push_back(std::make_shared<Entry>(std::move(entry)));
        return Subscription([kept = entries.back()] { kept->live = false; });
    }

    template <typename Entry>
    static std::vector<std::shared_ptr<Entry>> live(std::vector<std::shared_ptr<Entry>>& entries) {
        std::erase_if(entries, [](const auto& entry) { return !entry->live; });
        return entries;
    }

    void turn(SteadyClock::time_point deadline) {
        for (const auto& timer : live(timers_)) {
            deadline = std::min(deadline, timer->due);
        }
        const auto watches = live(watches_);
        std::vector<pollfd> descriptors;
        for (const auto& watch : watches) {
            descriptors.push_back({watch->descriptor, POLLIN, 0});
        }
        const auto wait = posted_.empty() ? deadline - SteadyClock::now() : SteadyClock::duration();
        const auto milliseconds = std::chrono::ceil<std::chrono::milliseconds>(wait).count();
        poll(descriptors.data(), descriptors.size(),
             static_cast<int>(std::max<std::int64_t>(0, milliseconds)));

        for (std::size_t i = 0; i < watches.size(); ++i) {
            if (descriptors[i].revents != 0 && watches[i]->live) {
                watches[i]->readable();
            }
        }
        runTimers();
        for (auto tasks = std::exchange(posted_, {}); !tasks.empty(); tasks.pop_front()) {
            tasks.front()();
        }
    }

    void runTimers() {
        for (const auto& timer : live(timers_)) {
            const auto now = SteadyClock::now();
            if (timer->live && !timer->isRunning && timer->due <= now) {
                timer->due = now + timer->interval;
                timer->isRunning = true;
                timer->tick();
                timer->isRunning = false;
            }
        }
    }

    std::vector<std::shared_ptr<Timer>> timers_;
    std::vector<std::shared_ptr<Watch>> watches_;
    std::deque<std::function<void()>> posted_;
};

} // namespace dwellkey::testing
