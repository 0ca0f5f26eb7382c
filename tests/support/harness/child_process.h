// SPDX-License-Identifier: MIT
// A program that a test runs.
#pragma once

#include "harness/await.h"

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

namespace dwellkey::e2e {

using Environment = std::map<std::string, std::string>;

/// Owns one file descriptor.
class Descriptor {
public:
    Descriptor() = default;
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(Descriptor&& other) noexcept;
    Descriptor& operator=(Descriptor&& other) noexcept;
    ~Descriptor();

    [[nodiscard]] int number() const { return number_; }

private:
    int number_ = -1;
};

struct ExitStatus {
    std::optional<int> code;   // absent when a signal ended the process
    std::optional<int> signal; // the signal that ended it
    bool operator==(const ExitStatus&) const = default;
};

/// A child process with exactly the given environment and no standard input. It ends with this
/// object, asked first (SIGTERM), and with the test program, whatever ends that.
class ChildProcess {
public:
    enum class Output { toLog, toPipe }; // standard error always goes to the log

    struct Program {
        std::vector<std::string> arguments; // the program's path or name first
        Environment environment;
        std::filesystem::path log; // appended to
        Output output = Output::toLog;
    };

    /// Throws when the program cannot be started.
    explicit ChildProcess(const Program& program);
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;
    ~ChildProcess();

    [[nodiscard]] pid_t pid() const { return pid_; }
    [[nodiscard]] bool isRunning();

    /// Sends the signal; nothing when the process has ended.
    void signal(int number);

    /// The exit status, once the process ended by itself. Throws when it does not within `limit`.
    ExitStatus awaitEnd(Milliseconds limit = patience);

    /// Asks the process to end and, when it does not, makes it.
    ExitStatus terminate();

    /// The next whole line of the output pipe without its newline, or absent while there is none.
    [[nodiscard]] std::optional<std::string> readLine();
    [[nodiscard]] int outputDescriptor() const { return output_.number(); }

    /// What the process and its predecessors wrote into the log.
    [[nodiscard]] std::string log() const;

private:
    std::string name_;
    std::filesystem::path logFile_;
    pid_t pid_ = -1;
    Descriptor handle_; // readable when the process ended
    Descriptor output_;
    std::string unread_;
    std::optional<ExitStatus> status_;
};

} // namespace dwellkey::e2e
