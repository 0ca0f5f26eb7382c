// SPDX-License-Identifier: MIT
// A lock that tells who has it. POSIX only.
#pragma once

#include "platform/linux/atomic_file.h"
#include "platform/linux/file_descriptor.h"

#include <string>
#include <sys/types.h>
#include <utility>
#include <variant>

namespace dwellkey {

/// A record lock on a file of its own. The kernel gives it back when the process ends, however it
/// ends, never hands it to a child, and names the process that has it. One object for a path and
/// process: closing the file anywhere in the process would give the lock back.
class InstanceLock {
public:
    struct Taken {};
    /// 0 when the process belongs to another container.
    struct HeldBy {
        pid_t process;
    };
    using Attempt = std::variant<Taken, HeldBy, FileError>;

    explicit InstanceLock(std::string path) : path_(std::move(path)) {}

    /// Never waits. The lock file stays when the lock is given back.
    Attempt tryTake();

private:
    std::string path_;
    FileDescriptor file_;
};

} // namespace dwellkey
