// SPDX-License-Identifier: MIT
#include "binder/repeating_timer.h"

#include <utility>

namespace dwellkey {

std::shared_ptr<RepeatingTimer> RepeatingTimer::scheduled(RunLoop& runLoop,
                                                          std::chrono::nanoseconds interval,
                                                          std::function<void()> block) {
    std::shared_ptr<RepeatingTimer> timer(new RepeatingTimer(std::move(block)));
    const auto fire = [weak = std::weak_ptr(timer)] {
        // Held while it runs: the block may drop the last other reference.
        if (const auto alive = weak.lock(); alive != nullptr && alive->isValid()) {
            alive->block_();
        }
    };
    timer->repetition_ = runLoop.repeat(interval, fire);
    runLoop.post(fire);
    return timer;
}

} // namespace dwellkey
