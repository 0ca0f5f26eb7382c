// SPDX-License-Identifier: MIT
// Reading what inotify has to say. POSIX only.
#pragma once

#include <functional>
#include <sys/inotify.h>

namespace dwellkey {

/// Calls `take` with each event that waits on the descriptor, and with the name of the folder's
/// member that it is about: "" when it is about the folder itself, or about the loss of events.
void readInotifyEvents(
    int descriptor, const std::function<void(const inotify_event& event, const char* name)>& take);

} // namespace dwellkey
