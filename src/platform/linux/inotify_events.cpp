// SPDX-License-Identifier: MIT
#include "platform/linux/inotify_events.h"

#include <array>
#include <cstddef>
#include <cstring>
#include <unistd.h>

namespace dwellkey {

void readInotifyEvents(
    int descriptor, const std::function<void(const inotify_event& event, const char* name)>& take) {
    alignas(inotify_event) std::array<char, 8192> buffer{};
    ssize_t size = 0;
    while ((size = read(descriptor, buffer.data(), buffer.size())) > 0) {
        for (const char* next = buffer.data(); next < buffer.data() + size;) {
            inotify_event event{};
            std::memcpy(&event, next, sizeof event);
            take(event, event.len == 0 ? "" : next + sizeof event); // the name is zero-terminated
            next += sizeof event + event.len;
        }
    }
}

} // namespace dwellkey
