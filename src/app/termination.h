// SPDX-License-Identifier: MIT
#pragma once

#include "platform/platform.h"
#include "platform/run_loop.h"
#include "support/signal.h"

#include <functional>

namespace dwellkey {

/// From here on nobody who asks the process to end (SIGTERM, SIGINT, SIGHUP) cuts it off: it notes
/// the wish and ends in order once it can, also when it was still starting. If it still exists
/// 1.7 s later, whatever holds it up, it ends with status 1 all the same. First of all in main.
void catchTerminationSignals();

/// Runs `terminate` inside the loop when the session or the user asks the process to end, or has
/// asked since catchTerminationSignals(). Once in a process; it must be cancelled before the loop
/// goes.
Subscription onTerminationSignal(RunLoop& runLoop, std::function<void()> terminate);

/// Runs `released` once no hot key is held. Its keys are likely still down when somebody asks us to
/// end by one: without us, its repeats would reach the next window, and quit that.
[[nodiscard]] Subscription onRelease(Platform& platform, std::function<void()> released);

/// Runs `ended` when somebody exits the process from the middle of the loop, as the libraries below
/// the toolkit do when they find the display gone before we do. Everything that we made still
/// exists then. Once in a process.
Subscription onSuddenExit(std::function<void()> ended);

} // namespace dwellkey
