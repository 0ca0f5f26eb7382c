// SPDX-License-Identifier: MIT
// The main thread's event loop and the clock that holds are measured with. std only.
#pragma once

#include "support/signal.h"

#include <chrono>
#include <functional>

namespace dwellkey {

class Clock {
public:
    Clock() = default;
    Clock(const Clock&) = delete;
    Clock& operator=(const Clock&) = delete;
    virtual ~Clock() = default;

    /// Time since an arbitrary fixed point. Never goes back; setting the wall clock does not move
    /// it; it stands still while the machine is suspended.
    [[nodiscard]] virtual std::chrono::nanoseconds now() const = 0;
};

/// Everything runs on the main thread, inside this loop.
class RunLoop {
public:
    RunLoop() = default;
    RunLoop(const RunLoop&) = delete;
    RunLoop& operator=(const RunLoop&) = delete;
    virtual ~RunLoop() = default;

    /// Calls `tick` every `interval` (more than zero), first after one interval, never early.
    /// It goes on firing in nested loops (modal alerts, menus), but a tick that is still running
    /// is never re-entered. Missed firings are dropped, not made up. Cancel to stop; cancelling
    /// from inside the tick is allowed.
    [[nodiscard]] virtual Subscription repeat(std::chrono::nanoseconds interval,
                                              std::function<void()> tick) = 0;

    /// Runs `task` once, in a later turn of the loop, in the order of posting.
    virtual void post(std::function<void()> task) = 0;

    /// Calls `readable` in each turn in which `descriptor` has something to read (level
    /// triggered). The descriptor stays the caller's; cancel before closing it.
    [[nodiscard]] virtual Subscription watch(int descriptor, std::function<void()> readable) = 0;
};

} // namespace dwellkey
