// SPDX-License-Identifier: MIT
#include "flooding_caller.h"

#include "harness/failure.h"

#include <algorithm>
#include <array>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace dwellkey::e2e {

namespace {

void align(std::string& message) {
    message.resize((message.size() + 7) / 8 * 8);
}

std::string number(std::size_t value) {
    std::string bytes;
    for (unsigned shift = 0; shift < 32; shift += 8) {
        bytes += static_cast<char>((value >> shift) & 0xffU);
    }
    return bytes;
}

/// A method call in the protocol's little-endian form. `body` has the type `signature`, if any.
std::string call(const std::string& destination, const std::string& path,
                 const std::string& interface, const std::string& method,
                 const std::string& signature = {}, const std::string& body = {}) {
    std::string fields;
    const auto add = [&fields](char code, char type, const std::string& text) {
        align(fields);
        fields += {code, 1, type, 0};
        fields +=
            type == 'g' ? std::string(1, static_cast<char>(text.size())) : number(text.size());
        fields.append(text) += '\0';
    };
    add(1, 'o', path);
    add(2, 's', interface);
    add(3, 's', method);
    add(6, 's', destination);
    if (!signature.empty()) {
        add(8, 'g', signature);
    }
    std::string message{'l', 1, static_cast<char>(signature.empty() ? 0 : 1), 1}; // 1: no answer
    message += number(body.size()) + number(1) + number(fields.size()) + fields;
    align(message);
    return message + body;
}

std::string credentials() {
    static constexpr std::string_view digits = "0123456789abcdef";
    std::string text;
    for (const char digit : std::to_string(getuid())) {
        text += {digits[static_cast<unsigned char>(digit) >> 4U], digits[digit & 0xf]};
    }
    return text;
}

} // namespace

FloodingCaller::FloodingCaller(const std::string& bus, const std::string& application)
    : socket_(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    const std::string prefix = "unix:path=";
    const std::string path = bus.substr(prefix.size(), bus.find(',') - prefix.size());
    sockaddr_un name{};
    name.sun_family = AF_UNIX;
    path.copy(name.sun_path, sizeof name.sun_path - 1);
    if (::connect(socket_.number(), reinterpret_cast<const sockaddr*>(&name), sizeof name) // NOLINT
        != 0) {
        throw Failure("no bus answers at " + bus);
    }
    ask(std::string(1, '\0') + "AUTH EXTERNAL " + credentials() + "\r\n");
    const std::string daemon = "org.freedesktop.DBus";
    ask("BEGIN\r\n" + call(daemon, "/org/freedesktop/DBus", daemon, "Hello"));
    thread_ = std::thread([this, application] {
        const std::string activate =
            call(application, "/org/dwellkey/Dwellkey", "org.freedesktop.Application", "Activate",
                 "a{sv}", std::string(8, '\0'));
        std::string many;
        for (int i = 0; i < 200; ++i) {
            many += activate;
        }
        while (!ends_ && ::send(socket_.number(), many.data(), many.size(), MSG_NOSIGNAL) > 0) {
        }
    });
}

FloodingCaller::~FloodingCaller() {
    ends_ = true;
    ::shutdown(socket_.number(), SHUT_RDWR);
    thread_.join();
}

void FloodingCaller::ask(const std::string& text) const {
    std::array<char, 512> answer{};
    if (::send(socket_.number(), text.data(), text.size(), MSG_NOSIGNAL) < 0
        || ::recv(socket_.number(), answer.data(), answer.size(), 0) <= 0) {
        throw Failure("the bus let the caller down");
    }
}

} // namespace dwellkey::e2e
