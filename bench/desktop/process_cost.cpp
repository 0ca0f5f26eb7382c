// SPDX-License-Identifier: MIT
#include "desktop/process_cost.h"

#include "harness/failure.h"

#include <algorithm>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <string>

namespace dwellkey::bench {

namespace {

constexpr double kilobytesPerMegabyte = 1024.0;

std::filesystem::path folderOf(pid_t process) {
    return "/proc/" + std::to_string(process);
}

/// The number after "<name>:" in a file of the kernel's.
std::int64_t number(const std::filesystem::path& path, const std::string& name) {
    std::ifstream file(path);
    std::string word;
    while (file >> word) {
        std::int64_t value = 0;
        if (word == name + ":" && file >> value) {
            return value;
        }
    }
    throw e2e::Failure("no " + name + " in " + path.string());
}

} // namespace

double residentMemory(pid_t process) {
    return static_cast<double>(number(folderOf(process) / "status", "VmRSS"))
           / kilobytesPerMegabyte;
}

double privateMemory(pid_t process) {
    return static_cast<double>(number(folderOf(process) / "smaps_rollup", "Private_Dirty"))
           / kilobytesPerMegabyte;
}

std::chrono::nanoseconds processorTime(pid_t process) {
    clockid_t clock{};
    timespec time{};
    if (::clock_getcpuclockid(process, &clock) != 0 || ::clock_gettime(clock, &time) != 0) {
        e2e::failFromErrno("cannot read the processor time of " + std::to_string(process));
    }
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

WakeUps::WakeUps(pid_t process) : process_(process), before_(read()) {}

std::int64_t WakeUps::count() const {
    std::int64_t sum = 0;
    const auto now = read();
    for (const auto& [thread, sleeps] : now) {
        const auto known = before_.find(thread);
        sum += known == before_.end() ? sleeps : sleeps - known->second;
    }
    // One that has ended since must have woken up for it.
    return sum + std::ranges::count_if(before_, [&](const auto& thread) {
               return !now.contains(thread.first);
           });
}

/// A thread that goes to sleep once more has woken up before.
WakeUps::SleepsOfThreads WakeUps::read() const {
    SleepsOfThreads sleeps;
    for (const auto& thread : std::filesystem::directory_iterator(folderOf(process_) / "task")) {
        sleeps[thread.path().filename()] =
            number(thread.path() / "status", "voluntary_ctxt_switches");
    }
    return sleeps;
}

} // namespace dwellkey::bench
