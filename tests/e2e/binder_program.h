// SPDX-License-Identifier: MIT
// The program of the shortcut-binder path, as a user meets it.
#pragma once

#include "end_to_end.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace dwellkey::e2e {

/// Virtual key codes.
inline constexpr int virtualQ = 12;
inline constexpr int virtualW = 13;
inline constexpr int virtualX = 7;

/// In the user's own file; what is absent is not in it.
struct BinderSettings {
    std::optional<double> delay = 1.5; // a hold of 0.75 s
    std::optional<std::int64_t> exclusionType = {};
    std::vector<std::string> apps = {}; // paths of desktop entries
    std::string appsText = {};          // in place of the list
    std::optional<int> quitKey = virtualQ;
    std::optional<int> windowKey = virtualW;

    [[nodiscard]] std::string json() const;
};

class BinderProgram {
public:
    /// Starts the program and waits until its preferences are on the screen. It guards from the
    /// next activation of another application on.
    explicit BinderProgram(Desktop& desktop, const BinderSettings& settings = {});

    void editSettings(const BinderSettings& settings);

    /// Until the key is taken with Ctrl, or not any more.
    void awaitBound(xcb_keycode_t key) const;
    void awaitUnbound(xcb_keycode_t key) const;
    [[nodiscard]] bool isBound(xcb_keycode_t key) const;

    ChildProcess& process() { return *process_; }

private:
    Desktop& desktop_;
    std::unique_ptr<ChildProcess> process_;
};

} // namespace dwellkey::e2e
