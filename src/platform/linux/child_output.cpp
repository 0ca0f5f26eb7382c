// SPDX-License-Identifier: MIT
#include "platform/linux/child_output.h"

#include "platform/linux/file_descriptor.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h> // NOLINT(modernize-deprecated-headers): kill and sigset_t are POSIX
#include <spawn.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <optional>
#include <system_error>
#include <utility>

namespace dwellkey {
namespace {

using Clock = std::chrono::steady_clock;

/// A process that does not outlive this object.
class Child {
public:
    explicit Child(pid_t pid)
        : pid_(pid),
          // The wrapper is in the C library only since 2.36.
          ended_(static_cast<int>(::syscall(SYS_pidfd_open, pid, 0))) {}
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;
    ~Child() {
        if (!status_) {
            ::kill(-pid_, SIGKILL); // it leads a group of its own
            wait();
        }
    }

    /// Becomes readable when the process has ended; -1 where the kernel has no such thing.
    [[nodiscard]] int ended() const { return ended_.get(); }

    /// Blocks until the process has ended.
    int wait() {
        int status = -1;
        while (::waitpid(pid_, &status, 0) < 0 && errno == EINTR) {
        }
        status_ = status;
        return status;
    }

private:
    pid_t pid_;
    FileDescriptor ended_;
    std::optional<int> status_;
};

struct Pipe {
    FileDescriptor readEnd;
    FileDescriptor writeEnd;
};

std::optional<Pipe> makePipe() {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
        return std::nullopt;
    }
    Pipe result{FileDescriptor(ends[0]), FileDescriptor(ends[1])};
    ::fcntl(result.readEnd.get(), F_SETFL, O_NONBLOCK);
    return result;
}

/// How the child differs from us: its own process group, untouched signals, standard streams.
class SpawnSetup {
public:
    explicit SpawnSetup(int output) {
        ::posix_spawn_file_actions_init(&actions_);
        ::posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        ::posix_spawn_file_actions_adddup2(&actions_, output, STDOUT_FILENO);
        ::posix_spawn_file_actions_addopen(&actions_, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
        ::posix_spawnattr_init(&attributes_);
        sigset_t none;
        sigset_t all;
        sigemptyset(&none);
        sigfillset(&all);
        ::posix_spawnattr_setsigmask(&attributes_, &none);
        ::posix_spawnattr_setsigdefault(&attributes_, &all);
        ::posix_spawnattr_setpgroup(&attributes_, 0);
        ::posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK
                                                     | POSIX_SPAWN_SETSIGDEF);
    }
    SpawnSetup(const SpawnSetup&) = delete;
    SpawnSetup& operator=(const SpawnSetup&) = delete;
    ~SpawnSetup() {
        ::posix_spawn_file_actions_destroy(&actions_);
        ::posix_spawnattr_destroy(&attributes_);
    }

    /// 0 or an errno.
    int spawn(pid_t& pid, CommandWords words) {
        std::vector<char*> arguments;
        for (std::string& word : words) {
            arguments.push_back(word.data());
        }
        arguments.push_back(nullptr);
        return ::posix_spawnp(&pid, arguments[0], &actions_, &attributes_, arguments.data(),
                              environ);
    }

private:
    posix_spawn_file_actions_t actions_{};
    posix_spawnattr_t attributes_{};
};

enum class Fill { more, ended, tooMuch };

/// Takes what the pipe holds at present.
Fill drain(int pipe, std::string& output, std::size_t maximumBytes) {
    std::array<char, 16384> block{};
    for (;;) {
        const ssize_t got = ::read(pipe, block.data(), block.size());
        if (got < 0 && errno == EINTR) {
            continue;
        }
        if (got < 0) {
            return errno == EAGAIN ? Fill::more : Fill::ended;
        }
        if (got == 0) {
            return Fill::ended;
        }
        if (output.size() + static_cast<std::size_t>(got) > maximumBytes) {
            return Fill::tooMuch;
        }
        output.append(block.data(), static_cast<std::size_t>(got));
    }
}

int millisecondsUntil(Clock::time_point deadline) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
    return static_cast<int>(std::clamp<std::int64_t>(left.count(), 0, INT_MAX));
}

/// Absent when the child printed all and ended in time.
std::optional<std::string> collect(const Child& child, int pipe, const ChildLimits& limits,
                                   std::string& output) {
    std::array<pollfd, 2> watched{pollfd{pipe, POLLIN, 0}, pollfd{child.ended(), POLLIN, 0}};
    for (;;) {
        const int left = millisecondsUntil(limits.deadline);
        if (left == 0) {
            return "took too long";
        }
        if (::poll(watched.data(), watched.size(), left) < 0 && errno != EINTR) {
            return std::generic_category().message(errno);
        }
        // Looked at first: what it printed before it ended is in the pipe by now.
        const bool hasEnded = watched[1].revents != 0;
        const Fill fill = drain(pipe, output, limits.maximumBytes);
        if (fill == Fill::tooMuch) {
            return "printed more than " + std::to_string(limits.maximumBytes) + " bytes";
        }
        // Its own children may keep the pipe open for ever, and it may close the pipe and go on.
        if (hasEnded || (fill == Fill::ended && child.ended() < 0)) {
            return std::nullopt;
        }
        if (fill == Fill::ended) {
            watched[0].fd = -1;
        }
    }
}

std::optional<std::string> badEnd(int status) {
    if (WIFEXITED(status) && WEXITSTATUS(status) == 0) {
        return std::nullopt;
    }
    return WIFEXITED(status) ? "ended with status " + std::to_string(WEXITSTATUS(status))
                             : "was ended by signal " + std::to_string(WTERMSIG(status));
}

} // namespace

std::variant<std::string, ChildProblem> outputOf(const CommandWords& command,
                                                 const ChildLimits& limits) {
    const auto problem = [&](const std::string& what) {
        return ChildProblem{command.front() + ": " + what};
    };
    auto pipe = makePipe();
    if (!pipe) {
        return problem(std::generic_category().message(errno));
    }
    pid_t pid = -1;
    if (const int error = SpawnSetup(pipe->writeEnd.get()).spawn(pid, command); error != 0) {
        return problem(std::generic_category().message(error));
    }
    pipe->writeEnd.close();
    Child child(pid);
    std::string output;
    if (const auto cause = collect(child, pipe->readEnd.get(), limits, output)) {
        return problem(*cause);
    }
    if (const auto cause = badEnd(child.wait())) {
        return problem(*cause);
    }
    return output;
}

} // namespace dwellkey
