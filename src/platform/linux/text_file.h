// SPDX-License-Identifier: MIT
// Reading files that others wrote: bounded, and never waiting. std + POSIX only.
#pragma once

#include <cstddef>
#include <string>
#include <variant>

namespace dwellkey {

struct FileProblem {
    std::string cause; ///< one line, for a log
};

enum class FollowLinks { yes, no };

/// The whole content of a regular file. Anything else (a folder, a pipe that would block us, a
/// device) and a file of more than `maximumBytes` are refused. `FollowLinks::no` refuses a
/// symbolic link as the last component.
std::variant<std::string, FileProblem> readTextFile(const std::string& path,
                                                    std::size_t maximumBytes,
                                                    FollowLinks follow = FollowLinks::yes);

} // namespace dwellkey
