// SPDX-License-Identifier: MIT
#pragma once

#include "harness/child_process.h"

#include <atomic>
#include <filesystem>
#include <map>
#include <string>
#include <thread>

namespace dwellkey::e2e {

/// A message bus that lets everybody connect, and falls silent.
class StallingBus {
public:
    /// The last thing that each client is answered: nothing at all, who it says it is, or the call
    /// by which it asks for its name.
    enum class After { nothing, greeting, firstCall };

    StallingBus(std::filesystem::path path, After last);
    StallingBus(const StallingBus&) = delete;
    StallingBus& operator=(const StallingBus&) = delete;
    ~StallingBus();

    [[nodiscard]] std::string address() const { return "unix:path=" + path_.string(); }

private:
    void serve();
    void read(int client);

    std::filesystem::path path_;
    After last_;
    Descriptor socket_;
    std::map<int, std::pair<Descriptor, std::string>> clients_; // with what is not answered yet
    std::atomic<bool> ends_ = false;
    std::thread thread_;
};

} // namespace dwellkey::e2e
