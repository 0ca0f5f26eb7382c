// SPDX-License-Identifier: MIT
// A timer that fires at once and then at every interval. std only.
#pragma once

#include "platform/run_loop.h"
#include "support/signal.h"

#include <chrono>
#include <functional>
#include <memory>

namespace dwellkey {

/// Fires first in the next turn of the loop. It ends with `invalidate`, for good, or with its last
/// reference. The run loop must outlive it.
class RepeatingTimer : public std::enable_shared_from_this<RepeatingTimer> {
public:
    static std::shared_ptr<RepeatingTimer>
    scheduled(RunLoop& runLoop, std::chrono::nanoseconds interval, std::function<void()> block);

    /// Allowed inside the block.
    void invalidate() { repetition_.cancel(); }
    [[nodiscard]] bool isValid() const { return repetition_.isActive(); }

private:
    explicit RepeatingTimer(std::function<void()> block) : block_(std::move(block)) {}

    std::function<void()> block_;
    Subscription repetition_;
};

} // namespace dwellkey
