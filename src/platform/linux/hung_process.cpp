// SPDX-License-Identifier: MIT
#include "platform/linux/hung_process.h"

#include "platform/linux/atomic_file.h"
#include "platform/linux/file_descriptor.h"
#include "platform/linux/process_facts.h"

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <poll.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace dwellkey {
namespace {

// The kernel ends a killed process at once, unless a device does not let go of it.
constexpr std::chrono::milliseconds killGrace{2000};

/// A process that cannot be mistaken for a later one with the same number.
class ProcessHandle {
public:
    explicit ProcessHandle(pid_t process)
        : handle_(static_cast<int>(::syscall(SYS_pidfd_open, process, 0))) {}

    [[nodiscard]] bool isOpen() const { return handle_.isOpen(); }

    [[nodiscard]] bool signal(int number) const {
        return ::syscall(SYS_pidfd_send_signal, handle_.get(), number, nullptr, 0) == 0
               || errno == ESRCH;
    }

    [[nodiscard]] bool endsWithin(std::chrono::milliseconds time) const {
        pollfd ended{handle_.get(), POLLIN, 0};
        return ::poll(&ended, 1, static_cast<int>(time.count())) == 1;
    }

private:
    FileDescriptor handle_;
};

/// Compares names, not places: an update, or a build beside an installed one, is the same program.
bool runsThisProgram(pid_t process) {
    const ProcFolderReader processes;
    const auto own = processes.executable(getpid());
    const auto other = processes.executable(process);
    return own && other
           && std::filesystem::path(*own).filename() == std::filesystem::path(*other).filename();
}

} // namespace

std::optional<std::string> endHungProcess(pid_t process, std::chrono::milliseconds grace) {
    const std::string name = "process " + std::to_string(process);
    if (process <= 0) {
        return "it is in another container";
    }
    const ProcessHandle handle(process);
    if (!handle.isOpen()) {
        return errno == ESRCH ? std::nullopt : std::optional(name + ": " + lastFileError().cause);
    }
    if (!runsThisProgram(process)) {
        return handle.endsWithin({}) ? std::nullopt : std::optional(name + " runs another program");
    }
    if (!handle.signal(SIGTERM) || !handle.signal(SIGCONT)) {
        return name + ": " + lastFileError().cause;
    }
    if (handle.endsWithin(grace)) {
        return std::nullopt;
    }
    if (!handle.signal(SIGKILL) || !handle.endsWithin(killGrace)) {
        return name + " does not end";
    }
    return std::nullopt;
}

} // namespace dwellkey
