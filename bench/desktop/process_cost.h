// SPDX-License-Identifier: MIT
// What a process costs the machine, by the kernel's own books.
#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <string>

#include <sys/types.h>

namespace dwellkey::bench {

// Each throws when the process is gone.

/// In MB of 2^20 bytes.
double residentMemory(pid_t process);
/// Likewise; what no other process shares and no file could give back.
double privateMemory(pid_t process);

/// Processor time of all threads since the start.
std::chrono::nanoseconds processorTime(pid_t process);

/// Counts from its construction how often threads of the process woke up.
class WakeUps {
public:
    explicit WakeUps(pid_t process);

    [[nodiscard]] std::int64_t count() const;

private:
    using SleepsOfThreads = std::map<std::string, std::int64_t>;

    [[nodiscard]] SleepsOfThreads read() const;

    pid_t process_;
    SleepsOfThreads before_;
};

} // namespace dwellkey::bench
