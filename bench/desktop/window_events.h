// SPDX-License-Identifier: MIT
// When top-level windows come and go, as a client of the display sees it.
#pragma once

#include "harness/screen.h"

#include <functional>
#include <string>
#include <string_view>

namespace dwellkey::bench {

struct WindowEvent {
    enum class Kind { created, mapped, unmapped };
    Kind kind{};
    e2e::Window window = XCB_NONE;
    e2e::TimePoint time; // when it was read here
    int width = 0;       // of a created one
};

class WindowEvents {
public:
    explicit WindowEvents(const std::string& display);

    /// The next event that `wanted` accepts; those before it are dropped.
    WindowEvent await(std::string_view what, const std::function<bool(const WindowEvent&)>& wanted);

    /// The next time that the hold panel appears, or that the window goes.
    WindowEvent awaitPanel();
    WindowEvent awaitGone(e2e::Window window);

    /// Drops what has happened so far.
    void forget();

private:
    e2e::XConnection connection_;
};

} // namespace dwellkey::bench
