// SPDX-License-Identifier: MIT
// One Dwellkey for each display of a user. POSIX only.
#pragma once

#include "platform/linux/environment.h"
#include "platform/linux/instance_lock.h"
#include "platform/linux/launch_socket.h"

#include <chrono>
#include <memory>
#include <string>
#include <variant>

namespace dwellkey {

/// Held by the process that guards a display, for as long as it does.
///
/// A lock decides who that is: it needs no message bus, costs a few microseconds at the start, and
/// falls to the next one with the death of its holder. Starting the program again reaches the
/// holder through a socket. A session bus would not do: one bus serves all displays of a user, and
/// who owns a name on it may sit at another one.
class SingleInstance {
public:
    struct Place {
        std::string folder;  ///< of the user alone, gone with the session; made when missing
        std::string display; ///< what tells this display from others; part of a file name

        static Place from(const Environment& environment);
    };

    struct Patience {
        /// A process that does not answer for so long hangs. Its grabs would keep the keys from
        /// everybody.
        std::chrono::milliseconds answer{1500};
        /// For a hung one to end in order before it is killed.
        std::chrono::milliseconds grace{1000};
    };

    /// The one that was running has been told of this start, and shows itself.
    struct Answered {};
    /// Another one holds the lock, does not answer, and cannot be ended.
    struct Blocked {
        std::string cause;
    };
    /// Nothing can be locked here.
    struct Unavailable {
        std::string cause;
    };
    using Claim = std::variant<std::unique_ptr<SingleInstance>, Answered, Blocked, Unavailable>;

    /// Returns at once unless the present holder does not answer; that one is ended first.
    static Claim claim(const Place& place, const Launch& launch, Patience patience);

    /// True when this process took the place of one that hung.
    [[nodiscard]] bool tookOver() const { return tookOver_; }

    /// Where later starts arrive.
    [[nodiscard]] LaunchSocket& socket() { return *socket_; }

private:
    SingleInstance(InstanceLock lock, std::unique_ptr<LaunchSocket> socket, bool tookOver)
        : lock_(std::move(lock)), socket_(std::move(socket)), tookOver_(tookOver) {}

    InstanceLock lock_;
    std::unique_ptr<LaunchSocket> socket_; // goes before the lock does
    bool tookOver_;
};

} // namespace dwellkey
