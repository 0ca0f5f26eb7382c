// SPDX-License-Identifier: MIT
// Waiting for what other processes do: by their events, with a deadline, never by sleeping it out.
#pragma once

#include <chrono>
#include <functional>
#include <initializer_list>
#include <string_view>

namespace dwellkey::e2e {

using Clock = std::chrono::steady_clock; // CLOCK_MONOTONIC, as in the probe's reports
using TimePoint = Clock::time_point;
using Milliseconds = std::chrono::milliseconds;

/// How long a busy machine may take for what takes an idle one a few milliseconds.
inline constexpr Milliseconds patience{20'000};

using Predicate = std::function<bool()>;

/// Returns once `met` answers true. It is asked at once, whenever one of the descriptors becomes
/// readable, and, for what no descriptor tells, at least a hundred times a second.
/// Throws a Failure "timed out waiting for <what>" after `limit`.
void await(std::string_view what, const Predicate& met, std::initializer_list<int> descriptors = {},
           Milliseconds limit = patience);

/// The same without the failure: whether `met` answered true before the moment `end`.
[[nodiscard]] bool happensBefore(TimePoint end, const Predicate& met,
                                 std::initializer_list<int> descriptors = {});

} // namespace dwellkey::e2e
