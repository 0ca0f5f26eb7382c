// SPDX-License-Identifier: MIT
#pragma once

#include "hold/timer_manager.h"
#include "platform/once_per_turn.h"
#include "platform/run_loop.h"
#include "support/signal.h"

#include <functional>
#include <memory>
#include <vector>

namespace dwellkey {

/// What launchers and the desktop's bar ask of us, as often as they like: each thing is done once
/// in a turn of the loop, and only when no hold runs. A window that came to the front meanwhile
/// would become what the hold ends.
class OutsideRequests {
public:
    /// Both must outlive this.
    OutsideRequests(RunLoop& runLoop, TimerManager& timerManager);

    /// The action as others may ask for it. It does nothing any more once this is gone.
    [[nodiscard]] std::function<void()> guarded(std::function<void()> action);

private:
    struct Request {
        std::function<void()> action;
        bool isWanted = false;
    };

    void carryOut();

    TimerManager& timerManager_;
    std::vector<std::weak_ptr<Request>> requests_; // owned by those who may ask
    std::shared_ptr<OncePerTurn> carryOutOnce_;
    Subscription holdEnds_;
};

} // namespace dwellkey
