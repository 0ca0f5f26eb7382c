// SPDX-License-Identifier: MIT
#include "platform/linux/message_bus.h"

#include "platform/linux/file_descriptor.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdlib>
#include <optional>
#include <poll.h>
#include <string>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace dwellkey {
namespace {

constexpr const char* noBus = "disabled:"; // an address that fails at once

struct SocketName {
    sockaddr_un name{};
    socklen_t length = 0;
};

std::optional<std::string_view> valueOf(std::string_view address, std::string_view key) {
    const std::size_t at = address.find(key);
    if (at == std::string_view::npos) {
        return std::nullopt;
    }
    address.remove_prefix(at + key.size());
    return address.substr(0, address.find_first_of(",;"));
}

std::optional<SocketName> socketOf(std::string_view address) {
    address = address.substr(0, address.find(';'));
    const auto path = valueOf(address, "unix:path=");
    const auto abstract = valueOf(address, "unix:abstract=");
    const auto text = path ? path : abstract;
    SocketName socket;
    socket.name.sun_family = AF_UNIX;
    const std::size_t offset = path ? 0 : 1; // an abstract name begins with a zero
    if (!text || text->size() + offset >= sizeof socket.name.sun_path) {
        return std::nullopt;
    }
    text->copy(socket.name.sun_path + offset, text->size());
    socket.length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + offset + text->size()
                                           + (path ? 1 : 0));
    return socket;
}

/// The opening of the protocol: a zero, and who we say that we are, in hexadecimal digits.
std::string greeting() {
    static constexpr std::string_view digits = "0123456789abcdef";
    std::string text("\0AUTH EXTERNAL ", 15);
    for (const char digit : std::to_string(getuid())) {
        text += {digits[static_cast<unsigned char>(digit) >> 4U], digits[digit & 0xf]};
    }
    return text + "\r\n";
}

std::string environment(const char* variable) {
    const char* value = std::getenv(variable);
    return value == nullptr ? std::string() : std::string(value);
}

} // namespace

bool busAnswers(std::string_view address, std::chrono::milliseconds patience) {
    const auto where = socketOf(address);
    const FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    if (!where || !socket.isOpen()
        || ::connect(socket.get(), reinterpret_cast<const sockaddr*>(&where->name), // NOLINT
                     where->length)
               != 0) {
        return false;
    }
    const std::string hello = greeting();
    if (::send(socket.get(), hello.data(), hello.size(), MSG_NOSIGNAL)
        != static_cast<ssize_t>(hello.size())) {
        return false;
    }
    pollfd answer{socket.get(), POLLIN, 0};
    std::array<char, 64> text{};
    return ::poll(&answer, 1, static_cast<int>(patience.count())) == 1
           && ::recv(socket.get(), text.data(), text.size(), 0) > 0;
}

void avoidMuteBuses(std::chrono::milliseconds patience) {
    std::string session = environment("DBUS_SESSION_BUS_ADDRESS");
    if (session.empty()) {
        session = "unix:path=" + environment("XDG_RUNTIME_DIR") + "/bus";
    }
    std::string system = environment("DBUS_SYSTEM_BUS_ADDRESS");
    if (system.empty()) {
        system = "unix:path=/run/dbus/system_bus_socket";
    }
    if (!busAnswers(session, patience)) {
        ::setenv("DBUS_SESSION_BUS_ADDRESS", noBus, 1);
    }
    if (!busAnswers(system, patience)) {
        ::setenv("DBUS_SYSTEM_BUS_ADDRESS", noBus, 1);
    }
}

} // namespace dwellkey
