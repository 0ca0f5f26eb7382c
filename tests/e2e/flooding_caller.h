// SPDX-License-Identifier: MIT
#pragma once

#include "harness/child_process.h"

#include <atomic>
#include <string>
#include <thread>

namespace dwellkey::e2e {

/// A client of the session bus that activates an application without end and waits for no answer.
class FloodingCaller {
public:
    /// The bus as "unix:path=..."; the application by its name on the bus.
    FloodingCaller(const std::string& bus, const std::string& application);
    FloodingCaller(const FloodingCaller&) = delete;
    FloodingCaller& operator=(const FloodingCaller&) = delete;
    ~FloodingCaller();

private:
    void ask(const std::string& text) const;

    Descriptor socket_;
    std::atomic<bool> ends_ = false;
    std::thread thread_;
};

} // namespace dwellkey::e2e
