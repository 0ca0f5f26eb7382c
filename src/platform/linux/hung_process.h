// SPDX-License-Identifier: MIT
// Ending a process of this program that does not answer any more. POSIX and pidfd.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <sys/types.h>

namespace dwellkey {

/// Asks the process to end (SIGTERM, and SIGCONT in case that it was stopped), so that it may save
/// what it has to, and after `grace` makes it. Returns when it has ended, or why it did not.
/// A process that runs another program than this one is left alone.
std::optional<std::string> endHungProcess(pid_t process, std::chrono::milliseconds grace);

} // namespace dwellkey
