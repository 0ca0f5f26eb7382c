// SPDX-License-Identifier: MIT
#include "platform/linux/message_bus.h"

#include "platform/linux/file_descriptor.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
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

void align(std::string& message) {
    message.resize((message.size() + 7) / 8 * 8);
}

/// A call to the bus itself in the protocol's own form: little-endian, every part of the header on
/// a multiple of eight bytes.
std::string callToBus(char serial, std::string_view method) {
    std::string fields;
    const auto add = [&fields](char code, char type, std::string_view text) {
        align(fields);
        fields += {code, 1, type, 0, static_cast<char>(text.size()), 0, 0, 0};
        fields.append(text) += '\0';
    };
    add(1, 'o', "/org/freedesktop/DBus"); // path
    add(2, 's', "org.freedesktop.DBus");  // interface
    add(3, 's', method);
    add(6, 's', "org.freedesktop.DBus"); // destination
    constexpr char methodCall = 1, protocolVersion = 1;
    std::string message{'l', methodCall, 0, protocolVersion, 0, 0, 0, 0, serial, 0, 0, 0};
    message += {static_cast<char>(fields.size()), 0, 0, 0};
    message += fields;
    align(message);
    return message;
}

/// How the header of an answer names the call that it is to.
std::string answersTo(std::uint32_t serial) {
    std::string field("\5\1u\0", 4);
    std::array<char, sizeof serial> bytes{};
    std::memcpy(bytes.data(), &serial, sizeof serial); // a bus speaks as its machine does
    return field.append(bytes.data(), bytes.size());
}

bool say(int socket, const std::string& text) {
    return ::send(socket, text.data(), text.size(), MSG_NOSIGNAL)
           == static_cast<ssize_t>(text.size());
}

/// What comes from the other side up to the one that is waited for; absent when that does not come
/// in time.
std::optional<std::string> hear(int socket, std::string_view awaited,
                                std::chrono::steady_clock::time_point deadline) {
    std::string heard;
    while (heard.find(awaited) == std::string::npos) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(
            deadline - std::chrono::steady_clock::now());
        pollfd readable{socket, POLLIN, 0};
        std::array<char, 512> text{};
        if (left.count() <= 0 || ::poll(&readable, 1, static_cast<int>(left.count())) != 1) {
            return std::nullopt;
        }
        const auto size = ::recv(socket, text.data(), text.size(), 0);
        if (size <= 0) {
            return std::nullopt;
        }
        heard.append(text.data(), static_cast<std::size_t>(size));
    }
    return heard;
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
    const auto deadline = std::chrono::steady_clock::now() + patience;
    if (!say(socket.get(), greeting())) {
        return false;
    }
    const auto welcome = hear(socket.get(), "\r\n", deadline);
    if (!welcome || !welcome->starts_with("OK")) {
        return welcome
            .has_value(); // it wants to know us otherwise, which is the toolkit's business
    }
    return say(socket.get(), "BEGIN\r\n" + callToBus(1, "Hello") + callToBus(2, "GetId"))
           && hear(socket.get(), answersTo(2), deadline).has_value();
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
