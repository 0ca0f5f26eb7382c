// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <string_view>

namespace dwellkey {

/// Whether somebody lets us in at this D-Bus address ("unix:path=...", "unix:abstract=..."; of
/// several the first is asked) and answers the first calls before the time is over. A bus that runs
/// does so in about a millisecond.
bool busAnswers(std::string_view address, std::chrono::milliseconds patience);

/// Takes buses that do not answer out of this process's environment: whoever connects to one waits
/// for it without end, and the toolkit does so in the middle of things. Nor is a bus started that
/// is not there. Called once, before the toolkit is.
void avoidMuteBuses(std::chrono::milliseconds patience);

} // namespace dwellkey
