// SPDX-License-Identifier: MIT
// The benches of the built program on a private desktop. Each adds its rows; each throws when the
// program does something wrong, however fast.
#pragma once

#include "harness/desktop.h"
#include "report/report.h"

#include <chrono>
#include <cstdint>

namespace dwellkey::bench {

inline double milliseconds(std::chrono::nanoseconds duration) {
    return std::chrono::duration<double, std::milli>(duration).count();
}

/// Waits a millisecond at a time until the combination is grabbed. Throws when the program ends.
void awaitGrab(const e2e::Screen& screen, e2e::ChildProcess& program, xcb_keycode_t key,
               std::uint16_t modifiers);

void measureHolds(Report& report);
void measureStart(Report& report);
void measureOpenings(Report& report);
void measureFootprint(Report& report);

} // namespace dwellkey::bench
