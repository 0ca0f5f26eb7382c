// SPDX-License-Identifier: MIT
#include "harness/child_process.h"

#include "harness/failure.h"
#include "harness/temporary_folder.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <string_view>
#include <utility>

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace dwellkey::e2e {

namespace {

constexpr Milliseconds graceAfterTermination{5'000};
constexpr int couldNotExecute = 127;

std::vector<char*> pointersTo(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (std::string& text : texts) {
        pointers.push_back(text.data());
    }
    pointers.push_back(nullptr);
    return pointers;
}

/// Runs in the child between fork and exec: system calls only.
[[noreturn]] void becomeProgram(int output, int log, pid_t parent, char* const* arguments,
                                char* const* environment) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::getppid() != parent) {
        ::_exit(couldNotExecute);
    }
    const int nothing = ::open("/dev/null", O_RDONLY);
    ::dup2(nothing, STDIN_FILENO);
    ::dup2(output, STDOUT_FILENO);
    ::dup2(log, STDERR_FILENO);
    ::execvpe(arguments[0], arguments, environment);
    constexpr std::string_view message = "the program cannot be executed\n";
    [[maybe_unused]] const auto written = ::write(STDERR_FILENO, message.data(), message.size());
    ::_exit(couldNotExecute);
}

} // namespace

Descriptor::Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}

Descriptor& Descriptor::operator=(Descriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
}

Descriptor::~Descriptor() {
    if (number_ >= 0) {
        ::close(number_);
    }
}

ChildProcess::ChildProcess(const Program& program)
    : name_(program.arguments.at(0)), logFile_(program.log) {
    const Descriptor log(
        ::open(program.log.c_str(), O_CREAT | O_APPEND | O_WRONLY | O_CLOEXEC, 0600));
    if (log.number() < 0) {
        failFromErrno("cannot open the log " + program.log.string());
    }
    std::array<int, 2> ends{-1, -1};
    Descriptor writeEnd;
    if (program.output == Output::toPipe) {
        if (::pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
            failFromErrno("cannot make a pipe");
        }
        output_ = Descriptor(ends[0]);
        writeEnd = Descriptor(ends[1]);
        ::fcntl(ends[1], F_SETFL, 0); // only our end must never block
    }
    auto arguments = program.arguments;
    std::vector<std::string> variables;
    for (const auto& [key, value] : program.environment) {
        variables.push_back(std::string(key).append("=").append(value));
    }
    const auto argumentPointers = pointersTo(arguments);
    const auto variablePointers = pointersTo(variables);
    const pid_t parent = ::getpid();
    pid_ = ::fork();
    if (pid_ == 0) {
        becomeProgram(writeEnd.number() >= 0 ? writeEnd.number() : log.number(), log.number(),
                      parent, argumentPointers.data(), variablePointers.data());
    }
    if (pid_ < 0) {
        failFromErrno("cannot start " + name_);
    }
    handle_ = Descriptor(static_cast<int>(::syscall(SYS_pidfd_open, pid_, 0)));
}

ChildProcess::~ChildProcess() {
    try {
        terminate();
    } catch (const std::exception&) { // NOLINT(bugprone-empty-catch): nobody is left to tell
    }
}

bool ChildProcess::isRunning() {
    if (status_) {
        return false;
    }
    int status = 0;
    const pid_t ended = ::waitpid(pid_, &status, WNOHANG);
    if (ended == 0) {
        return true;
    }
    if (ended < 0) {
        failFromErrno("cannot ask after " + name_);
    }
    status_ =
        WIFEXITED(status) ? ExitStatus{WEXITSTATUS(status), {}} : ExitStatus{{}, WTERMSIG(status)};
    return false;
}

void ChildProcess::signal(int number) {
    if (isRunning()) {
        ::kill(pid_, number);
    }
}

ExitStatus ChildProcess::awaitEnd(Milliseconds limit) {
    await(
        "the end of " + name_, [this] { return !isRunning(); }, {handle_.number()}, limit);
    return status_.value_or(ExitStatus{});
}

ExitStatus ChildProcess::terminate() {
    signal(SIGTERM);
    signal(SIGCONT);
    if (!happensBefore(Clock::now() + graceAfterTermination, [this] { return !isRunning(); },
                       {handle_.number()})) {
        signal(SIGKILL);
    }
    return awaitEnd();
}

std::optional<std::string> ChildProcess::readLine() {
    std::array<char, 4096> buffer{};
    ssize_t count = 0;
    while ((count = ::read(output_.number(), buffer.data(), buffer.size())) > 0) {
        unread_.append(buffer.data(), static_cast<std::size_t>(count));
    }
    const auto end = unread_.find('\n');
    if (end == std::string::npos) {
        return std::nullopt;
    }
    std::string line = unread_.substr(0, end);
    unread_.erase(0, end + 1);
    return line;
}

std::string ChildProcess::log() const {
    return readFile(logFile_);
}

} // namespace dwellkey::e2e
