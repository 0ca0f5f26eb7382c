// SPDX-License-Identifier: MIT
// How a second start of the program reaches the first. POSIX only.
#pragma once

#include "platform/linux/atomic_file.h"
#include "platform/linux/file_descriptor.h"
#include "platform/linux/launch.h"
#include "platform/run_loop.h"
#include "support/signal.h"

#include <chrono>
#include <memory>
#include <string>
#include <variant>
#include <vector>

namespace dwellkey {

/// The side of the first: a Unix socket, for the user alone.
class LaunchSocket {
public:
    /// Takes the place of whatever is at the path, so only the holder of the lock may call it.
    /// Callers are let in from now on, and wait until `attach`.
    static std::variant<std::unique_ptr<LaunchSocket>, FileError> open(const std::string& path);

    LaunchSocket(const LaunchSocket&) = delete;
    LaunchSocket& operator=(const LaunchSocket&) = delete;
    ~LaunchSocket();

    /// Begins to answer, from the loop, which must outlive the socket.
    void attach(RunLoop& runLoop);

    /// Emitted for each start whose caller got its answer. One that gave up waiting is about to
    /// take over, and gets neither.
    Signal<const Launch&> startedAgain;

private:
    struct Caller {
        FileDescriptor connection;
        Subscription readable;
    };

    LaunchSocket(std::string path, FileDescriptor listener)
        : path_(std::move(path)), listener_(std::move(listener)) {}
    void letIn(RunLoop& runLoop);
    void answer(const Caller& caller);

    std::string path_;
    FileDescriptor listener_;
    std::vector<std::unique_ptr<Caller>> callers_;
    Subscription arrivals_;
};

/// The side of a second start: true once the first has answered; false at the deadline, or as soon
/// as it is clear that it will not.
bool tellOfLaunch(const std::string& path, const Launch& launch,
                  std::chrono::steady_clock::time_point deadline);

} // namespace dwellkey
