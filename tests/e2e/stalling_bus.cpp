// SPDX-License-Identifier: MIT
#include "stalling_bus.h"

#include "harness/failure.h"

#include <array>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <utility>
#include <vector>

namespace dwellkey::e2e {

namespace {

constexpr int turn = 20; // milliseconds

void say(int client, const std::string& text) {
    ::send(client, text.data(), text.size(), MSG_NOSIGNAL);
}

/// The answer to the call: its serial, and a name for the client.
std::string nameFor(const std::string& call) {
    std::string reply("l\2\1\1\11\0\0\0\1\0\0\0\17\0\0\0\5\1u\0", 20);
    reply += call.substr(8, 4);
    reply += std::string("\10\1g\0\1s\0\0\4\0\0\0:1.7\0", 17);
    return reply;
}

} // namespace

StallingBus::StallingBus(std::filesystem::path path, After last)
    : path_(std::move(path)), last_(last),
      socket_(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    std::filesystem::remove(path_);
    sockaddr_un name{};
    name.sun_family = AF_UNIX;
    path_.string().copy(name.sun_path, sizeof name.sun_path - 1);
    if (::bind(socket_.number(), reinterpret_cast<const sockaddr*>(&name), sizeof name)
            != 0 // NOLINT
        || ::listen(socket_.number(), 8) != 0) {
        throw Failure("no socket can be made at " + path_.string());
    }
    thread_ = std::thread([this] { serve(); });
}

StallingBus::~StallingBus() {
    ends_ = true;
    thread_.join();
}

void StallingBus::serve() {
    while (!ends_) {
        std::vector<pollfd> waiting{{socket_.number(), POLLIN, 0}};
        for (const auto& client : clients_) {
            waiting.push_back({client.first, POLLIN, 0});
        }
        ::poll(waiting.data(), waiting.size(), turn);
        for (const pollfd& ready : waiting) {
            if (ready.revents == 0) {
                continue;
            }
            if (ready.fd != socket_.number()) {
                read(ready.fd);
            } else if (Descriptor client(::accept(ready.fd, nullptr, nullptr));
                       client.number() >= 0) {
                clients_[client.number()].first = std::move(client);
            }
        }
    }
}

void StallingBus::read(int client) {
    std::array<char, 4096> text{};
    const auto size = ::recv(client, text.data(), text.size(), 0);
    if (size <= 0) {
        clients_.erase(client);
        return;
    }
    std::string& unread = clients_[client].second;
    unread.append(text.data(), static_cast<std::size_t>(size));
    static const std::string lineEnd = "\r\n";
    for (auto end = unread.find(lineEnd); end != std::string::npos; end = unread.find(lineEnd)) {
        const std::string line = unread.substr(0, end);
        unread.erase(0, end + lineEnd.size());
        if (last_ == After::nothing || line == "BEGIN") {
            continue;
        }
        const bool isGreeting = line.find("AUTH") != std::string::npos;
        say(client, (isGreeting ? "OK " + std::string(32, 'a') : "AGREE_UNIX_FD") + lineEnd);
    }
    const bool isCall = unread.size() > 16 && unread.front() == 'l';
    if (last_ == After::firstCall && isCall && unread.find("Hello") != std::string::npos) {
        say(client, nameFor(std::exchange(unread, {})));
    }
}

} // namespace dwellkey::e2e
