// SPDX-License-Identifier: MIT
#pragma once

#include "backend.h"
#include "platform/run_loop.h"

#include <chrono>
#include <functional>

namespace dwellkey {

class RunLoopDriver {
public:
    RunLoopDriver() = default;
    RunLoopDriver(const RunLoopDriver&) = delete;
    RunLoopDriver& operator=(const RunLoopDriver&) = delete;
    virtual ~RunLoopDriver() = default;

    virtual RunLoop& runLoop() = 0;
    virtual Clock& clock() = 0;

    /// Runs the loop, nested when called from inside it, for this long on the clock.
    virtual void runFor(std::chrono::nanoseconds duration) = 0;
    /// Runs the loop until the condition holds, which it tells, or ten seconds have passed.
    virtual bool runUntil(const std::function<bool()>& condition) = 0;
    /// Lets this much time pass outside the loop.
    virtual void stall(std::chrono::nanoseconds duration) = 0;
    /// Tells that a descriptor has got, or has lost, something to read.
    virtual void readableChanged(int descriptor, bool readable) = 0;
};

class RunLoopConformance : public ConformanceTest<RunLoopDriver> {
protected:
    static constexpr std::chrono::nanoseconds interval = std::chrono::milliseconds(10);

    RunLoop& runLoop = driver->runLoop();
    Clock& clock = driver->clock();
};

} // namespace dwellkey
