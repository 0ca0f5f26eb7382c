// SPDX-License-Identifier: MIT
#include "platform/linux/launch_socket.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <optional>
#include <poll.h>
#include <string_view>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace dwellkey {
namespace {

// One packet each way: "launch" and the startup id; "seen".
constexpr std::string_view request = "launch ";
constexpr std::string_view reply = "seen";
constexpr std::size_t longestPacket = 4096; // bytes; a startup id is a line
constexpr int backlog = 16;
constexpr std::size_t mostCallers = 16; // that have not spoken yet

FileDescriptor makeSocket() {
    return FileDescriptor(::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
}

/// Absent when the path is too long for a socket.
std::optional<sockaddr_un> addressOf(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path) {
        errno = ENAMETOOLONG;
        return std::nullopt;
    }
    path.copy(address.sun_path, path.size());
    return address;
}

const sockaddr* generic(const sockaddr_un& address) {
    return reinterpret_cast<const sockaddr*>(&address); // NOLINT: the interface of sockets
}

bool sendPacket(const FileDescriptor& socket, std::string_view packet) {
    return ::send(socket.get(), packet.data(), packet.size(), MSG_NOSIGNAL)
           == static_cast<ssize_t>(packet.size());
}

std::string receivePacket(const FileDescriptor& socket) {
    std::array<char, longestPacket> packet{};
    const ssize_t size = ::recv(socket.get(), packet.data(), packet.size(), 0);
    return {packet.data(), static_cast<std::size_t>(std::max<ssize_t>(size, 0))};
}

bool becomesReadable(const FileDescriptor& socket, std::chrono::steady_clock::time_point deadline) {
    using std::chrono::milliseconds;
    const auto left =
        std::chrono::ceil<milliseconds>(deadline - std::chrono::steady_clock::now()).count();
    pollfd answer{socket.get(), POLLIN, 0};
    return ::poll(&answer, 1, static_cast<int>(std::max<milliseconds::rep>(left, 0))) == 1;
}

} // namespace

std::variant<std::unique_ptr<LaunchSocket>, FileError> LaunchSocket::open(const std::string& path) {
    FileDescriptor listener = makeSocket();
    const auto address = addressOf(path);
    if (!listener.isOpen() || !address) {
        return lastFileError();
    }
    ::unlink(path.c_str()); // of a process that was killed
    // Nobody can connect before listen(), so the file is never open to others.
    if (::bind(listener.get(), generic(*address), sizeof *address) != 0
        || ::chmod(path.c_str(), S_ISVTX | S_IRUSR | S_IWUSR) != 0
        || ::listen(listener.get(), backlog) != 0) {
        return lastFileError();
    }
    return std::unique_ptr<LaunchSocket>(new LaunchSocket(path, std::move(listener)));
}

LaunchSocket::~LaunchSocket() {
    ::unlink(path_.c_str());
}

void LaunchSocket::attach(RunLoop& runLoop) {
    arrivals_ = runLoop.watch(listener_.get(), [this, &runLoop] { letIn(runLoop); });
}

void LaunchSocket::letIn(RunLoop& runLoop) {
    auto caller = std::make_unique<Caller>();
    caller->connection =
        FileDescriptor(::accept4(listener_.get(), nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC));
    if (!caller->connection.isOpen()) {
        return;
    }
    if (callers_.size() == mostCallers) {
        callers_.erase(callers_.begin());
    }
    Caller& entry = *callers_.emplace_back(std::move(caller));
    entry.readable = runLoop.watch(entry.connection.get(), [this, &entry] { answer(entry); });
}

void LaunchSocket::answer(const Caller& caller) {
    const std::string packet = receivePacket(caller.connection);
    const bool isAnswered = packet.starts_with(request) && sendPacket(caller.connection, reply);
    std::erase_if(callers_, [&](const auto& entry) { return entry.get() == &caller; });
    if (isAnswered) {
        startedAgain.emit(Launch{packet.substr(request.size())});
    }
}

bool tellOfLaunch(const std::string& path, const Launch& launch,
                  std::chrono::steady_clock::time_point deadline) {
    const FileDescriptor socket = makeSocket();
    const auto address = addressOf(path);
    const std::string id = launch.startupId.substr(0, longestPacket - request.size());
    return socket.isOpen() && address
           && ::connect(socket.get(), generic(*address), sizeof *address) == 0
           && sendPacket(socket, std::string(request) + id) && becomesReadable(socket, deadline)
           && receivePacket(socket) == reply;
}

} // namespace dwellkey
