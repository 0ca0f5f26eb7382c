// SPDX-License-Identifier: MIT
#pragma once

#include "platform/run_loop.h"
#include "support/signal.h"

#include <functional>

namespace dwellkey {

/// Runs `terminate` inside the loop when the session or the user asks the process to end (SIGTERM,
/// SIGINT, SIGHUP). Once in a process; it must be cancelled before the loop goes.
Subscription onTerminationSignal(RunLoop& runLoop, std::function<void()> terminate);

} // namespace dwellkey
