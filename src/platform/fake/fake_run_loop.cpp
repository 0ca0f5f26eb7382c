// SPDX-License-Identifier: MIT
#include "platform/fake/fake_run_loop.h"

#include <algorithm>
#include <cassert>
#include <utility>

namespace dwellkey {

Subscription FakeRunLoop::repeat(std::chrono::nanoseconds interval, std::function<void()> tick) {
    assert(interval > std::chrono::nanoseconds::zero());
    auto timer = std::make_shared<Timer>(Timer{interval, clock_.now() + interval, std::move(tick)});
    timers_.push_back(timer);
    return Subscription([timer] { timer->live = false; });
}

void FakeRunLoop::post(std::function<void()> task) {
    posted_.push_back({nextTask_++, std::move(task)});
}

Subscription FakeRunLoop::watch(int descriptor, std::function<void()> readable) {
    return readable_.subscribe([descriptor, readable = std::move(readable)](int ready) {
        if (ready == descriptor) {
            readable();
        }
    });
}

void FakeRunLoop::advance(std::chrono::nanoseconds duration) {
    const auto end = clock_.now() + duration;
    runPosted();
    while (const auto timer = nextTimer(end)) {
        clock_.advance(std::max(timer->due - clock_.now(), std::chrono::nanoseconds::zero()));
        fire(*timer);
        runPosted();
    }
    clock_.advance(std::max(end - clock_.now(), std::chrono::nanoseconds::zero()));
}

void FakeRunLoop::runPosted() {
    const auto descriptors = readableDescriptors_; // a watcher may drain its descriptor
    for (const int descriptor : descriptors) {
        readable_.emit(descriptor);
    }
    const std::uint64_t end = nextTask_;
    while (!posted_.empty() && posted_.front().number < end) {
        const auto task = std::move(posted_.front().run);
        posted_.pop_front();
        task();
    }
}

void FakeRunLoop::setReadable(int descriptor, bool readable) {
    std::erase(readableDescriptors_, descriptor);
    if (readable) {
        readableDescriptors_.push_back(descriptor);
    }
}

std::size_t FakeRunLoop::activeTimerCount() const {
    return static_cast<std::size_t>(
        std::ranges::count_if(timers_, [](const auto& timer) { return timer->live; }));
}

std::shared_ptr<FakeRunLoop::Timer> FakeRunLoop::nextTimer(std::chrono::nanoseconds end) {
    std::erase_if(timers_, [](const auto& timer) { return !timer->live; });
    std::shared_ptr<Timer> next;
    for (const auto& timer : timers_) {
        if (!timer->running && timer->due <= end && (!next || timer->due < next->due)) {
            next = timer;
        }
    }
    return next;
}

void FakeRunLoop::fire(Timer& timer) {
    timer.running = true;
    timer.tick();
    timer.running = false;
    const auto missed = std::max(clock_.now() - timer.due, std::chrono::nanoseconds::zero());
    timer.due += (missed / timer.interval + 1) * timer.interval;
}

} // namespace dwellkey
