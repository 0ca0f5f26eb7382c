// SPDX-License-Identifier: MIT
// What other programs print: bounded in size and in time. std + POSIX only.
#pragma once

#include "platform/linux/exec_command.h"

#include <chrono>
#include <cstddef>
#include <string>
#include <variant>

namespace dwellkey {

struct ChildProblem {
    std::string cause; ///< one line, for a log; starts with the program's name
};

struct ChildLimits {
    std::chrono::steady_clock::time_point deadline;
    std::size_t maximumBytes = std::size_t{1} << 20U;
};

/// Runs a program, found in PATH, with no input and its errors dropped, and returns what it
/// printed. It is killed, with the children it has, when it goes beyond a limit. A program that
/// ends with a status other than 0 is a problem. Blocks until the deadline at the latest.
std::variant<std::string, ChildProblem> outputOf(const CommandWords& command,
                                                 const ChildLimits& limits);

} // namespace dwellkey
