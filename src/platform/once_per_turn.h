// SPDX-License-Identifier: MIT
#pragma once

#include "platform/run_loop.h"

#include <functional>
#include <memory>
#include <utility>

namespace dwellkey {

/// Runs an action once in the next turn of the loop, however often it was asked for in this one.
/// Observers that are told before a change use it to look after the change.
class OncePerTurn {
public:
    OncePerTurn(RunLoop& runLoop, std::function<void()> action)
        : runLoop_(runLoop), state_(std::make_shared<State>(State{std::move(action)})) {}
    OncePerTurn(const OncePerTurn&) = delete;
    OncePerTurn& operator=(const OncePerTurn&) = delete;
    ~OncePerTurn() { state_->isWanted = false; }

    void schedule() {
        state_->isWanted = true;
        if (!std::exchange(state_->isPosted, true)) {
            runLoop_.post([state = state_] {
                state->isPosted = false;
                if (std::exchange(state->isWanted, false)) {
                    state->action();
                }
            });
        }
    }

private:
    struct State {
        std::function<void()> action;
        bool isWanted = false;
        bool isPosted = false;
    };
    RunLoop& runLoop_;
    std::shared_ptr<State> state_; // shared with the posted task, which may outlive this object
};

} // namespace dwellkey
