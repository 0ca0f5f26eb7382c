// SPDX-License-Identifier: MIT
// An application that tells what happens to it.
#pragma once

#include "harness/desktop.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace dwellkey::e2e {

/// One line of the probe's report; what does not apply is 0, false or "".
struct ProbeEvent {
    std::string kind; // "key-press", "close-request", ...: see tests/e2e/probe
    TimePoint time;
    Window window = XCB_NONE;
    std::string role; // of the window: "normal", "desktop", "dialog" or "prompt"
    int key = 0;      // X key code
    unsigned state = 0;
    bool isAutoRepeat = false;
    std::string mode; // of an X focus event: "normal", "grab", "ungrab", "while-grabbed"
};

class Probe {
public:
    /// Starts the probe and waits until all its windows are on the screen and the last one is
    /// active.
    explicit Probe(Desktop& desktop, const std::vector<std::string>& options = {});

    /// What it has reported so far, in order.
    const std::vector<ProbeEvent>& events();
    std::vector<ProbeEvent> events(const std::string& kind);
    std::size_t count(const std::string& kind) { return events(kind).size(); }
    /// Presses of the key, auto-repeat not counted.
    std::size_t presses(xcb_keycode_t key);

    void awaitCount(const std::string& kind, std::size_t expected);
    void awaitPresses(xcb_keycode_t key, std::size_t expected);
    /// Whether nothing of the kind is reported until `end`.
    bool staysWithout(const std::string& kind, TimePoint end);

    /// Forgets what was reported so far.
    void forget();

    [[nodiscard]] Window window(std::size_t index = 0) const { return windows_.at(index); }
    ChildProcess& process() { return *process_; }

private:
    void awaitOnScreen(const Screen& screen);

    std::unique_ptr<ChildProcess> process_;
    std::vector<ProbeEvent> events_;
    std::vector<Window> windows_; // without the dialog, in the order of creation
};

} // namespace dwellkey::e2e
