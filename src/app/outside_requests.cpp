// SPDX-License-Identifier: MIT
#include "app/outside_requests.h"

#include <utility>

namespace dwellkey {

OutsideRequests::OutsideRequests(RunLoop& runLoop, TimerManager& timerManager)
    : timerManager_(timerManager),
      carryOutOnce_(std::make_shared<OncePerTurn>(runLoop, [this] { carryOut(); })),
      holdEnds_(timerManager.isTimerViewVisible.willChange.subscribe(
          [this](bool) { carryOutOnce_->schedule(); })) {}

std::function<void()> OutsideRequests::guarded(std::function<void()> action) {
    std::erase_if(requests_, [](const auto& request) { return request.expired(); });
    auto request = std::make_shared<Request>(Request{std::move(action)});
    requests_.push_back(request);
    return [request, later = std::weak_ptr<OncePerTurn>(carryOutOnce_)] {
        if (const auto carryOutOnce = later.lock()) {
            request->isWanted = true;
            carryOutOnce->schedule();
        }
    };
}

void OutsideRequests::carryOut() {
    const auto requests = requests_; // an action may bring new ones
    for (const auto& weak : requests) {
        const auto request = weak.lock();
        if (request && !timerManager_.isTimerViewVisible.get()
            && std::exchange(request->isWanted, false)) {
            request->action();
        }
    }
}

} // namespace dwellkey
