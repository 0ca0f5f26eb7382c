// SPDX-License-Identifier: MIT
// The private services of one test: X server, session bus, window manager.
#pragma once

#include "harness/child_process.h"

#include <filesystem>
#include <iosfwd>
#include <memory>
#include <string>

namespace dwellkey::e2e {

struct Size {
    int width = 0;
    int height = 0;
};

/// An Xvfb on a display number of its own, reachable by its socket only.
class XServer {
public:
    XServer(const Environment& environment, const std::filesystem::path& logFolder, Size size);

    /// ":12"
    [[nodiscard]] const std::string& display() const { return display_; }
    ChildProcess& process() { return process_; }

private:
    ChildProcess process_;
    std::string display_;
};

/// A message bus that starts no services of its own, so nothing of the machine's leaks in.
class SessionBus {
public:
    SessionBus(const Environment& environment, const std::filesystem::path& folder);

    [[nodiscard]] const std::string& address() const { return address_; }

private:
    ChildProcess process_;
    std::string address_;
};

enum class WindowManagerKind { openbox, xfwm4 };

[[nodiscard]] std::string nameOf(WindowManagerKind kind);

/// How test reports name it.
void PrintTo(WindowManagerKind kind, std::ostream* stream);

/// A running window manager that has taken over the display.
class WindowManager {
public:
    WindowManager(WindowManagerKind kind, Environment environment,
                  const std::filesystem::path& logFolder);

    /// As in a crash.
    void end() { process_.reset(); }
    /// Ends it and starts it anew.
    void restart();

private:
    void start();

    WindowManagerKind kind_;
    Environment environment_;
    std::filesystem::path log_;
    std::unique_ptr<ChildProcess> process_;
};

} // namespace dwellkey::e2e
