// SPDX-License-Identifier: MIT
// A run loop that only watches descriptors, turned by hand.
#pragma once

#include "platform/run_loop.h"

#include <poll.h>

#include <map>

namespace dwellkey::testing {

class WatchingLoop : public RunLoop {
public:
    Subscription repeat(std::chrono::nanoseconds, std::function<void()>) override { return {}; }
    void post(std::function<void()>) override {}
    Subscription watch(int descriptor, std::function<void()> readable) override {
        watched_[descriptor] = std::move(readable);
        return Subscription([this, descriptor] { watched_.erase(descriptor); });
    }

    /// Handles what is already readable: the kernel queues a change before the call that made it
    /// returns, so nothing needs to be waited for.
    void turn() {
        const auto watched = watched_;
        for (const auto& [descriptor, readable] : watched) {
            pollfd state{descriptor, POLLIN, 0};
            if (poll(&state, 1, 0) > 0 && watched_.contains(descriptor)) {
                readable();
            }
        }
    }

    [[nodiscard]] std::size_t watchCount() const { return watched_.size(); }

private:
    std::map<int, std::function<void()>> watched_;
};

} // namespace dwellkey::testing
