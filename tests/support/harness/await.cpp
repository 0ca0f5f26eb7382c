// SPDX-License-Identifier: MIT
#include "harness/await.h"

#include "harness/failure.h"

#include <algorithm>
#include <string>
#include <vector>

#include <poll.h>

namespace dwellkey::e2e {

namespace {

constexpr Milliseconds longestPoll{10};

} // namespace

bool happensBefore(TimePoint end, const Predicate& met, std::initializer_list<int> descriptors) {
    std::vector<pollfd> watched;
    for (const int descriptor : descriptors) {
        watched.push_back({descriptor, POLLIN, 0});
    }
    while (!met()) {
        const auto left = std::chrono::ceil<Milliseconds>(end - Clock::now());
        if (left.count() <= 0) {
            return false;
        }
        ::poll(watched.data(), watched.size(),
               static_cast<int>(std::min(left, longestPoll).count()));
        // A closed pipe stays readable for ever: it must not turn the wait into a busy loop.
        for (pollfd& entry : watched) {
            if ((entry.revents & (POLLHUP | POLLERR | POLLNVAL)) != 0) {
                entry.fd = -1;
            }
        }
    }
    return true;
}

void await(std::string_view what, const Predicate& met, std::initializer_list<int> descriptors,
           Milliseconds limit) {
    if (!happensBefore(Clock::now() + limit, met, descriptors)) {
        throw Failure("timed out after " + std::to_string(limit.count()) + " ms waiting for "
                      + std::string(what));
    }
}

} // namespace dwellkey::e2e
