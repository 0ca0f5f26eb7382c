// SPDX-License-Identifier: MIT
// The program under test, as a user meets it.
#pragma once

#include "harness/desktop.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace dwellkey::e2e {

enum class Scope { allExceptListed, onlyListed };

/// The settings that a test starts with or edits, in the user's own file.
struct Settings {
    double delay = 0.5; // seconds; a shorter panel would be missed on a busy machine
    Scope scope = Scope::allExceptListed;
    std::vector<std::string> listedApplications = {}; // file: URLs of desktop entries
    bool guardsCloseWindow = false;                   // with Ctrl+W
    bool isFirstLaunch = false;
    bool showsMenuBarIcon = true;

    [[nodiscard]] std::string json() const;
    [[nodiscard]] Milliseconds delayInMilliseconds() const;
};

class Dwellkey {
public:
    /// Starts the program. Whether it guards depends on who is in front: see below.
    explicit Dwellkey(Desktop& desktop, const Settings& settings = {},
                      const Environment& additions = {});

    /// Replaces the settings file, as a user with an editor does.
    void editSettings(const Settings& settings);

    /// Until Ctrl+Q (and Ctrl+W) is taken in every combination with Caps and Num Lock ...
    void awaitGuarding(xcb_keycode_t key = key::q) const;
    /// ... or in none.
    void awaitStandingDown(xcb_keycode_t key = key::q) const;

    ChildProcess& process() { return *process_; }
    [[nodiscard]] std::string log() const { return process_->log(); }

private:
    Desktop& desktop_;
    std::unique_ptr<ChildProcess> process_;
};

} // namespace dwellkey::e2e
