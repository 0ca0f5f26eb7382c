// SPDX-License-Identifier: MIT
// Dwellkey's window-close scripts. std only.
#pragma once

#include "platform/session.h"

#include <optional>
#include <string>
#include <string_view>

namespace dwellkey {

/// What a script can ask of the desktop.
class FrontWindowCloser {
public:
    FrontWindowCloser() = default;
    FrontWindowCloser(const FrontWindowCloser&) = delete;
    FrontWindowCloser& operator=(const FrontWindowCloser&) = delete;
    virtual ~FrontWindowCloser() = default;

    /// Asks the front window of the application with this display name to close. The cause when
    /// it could not be asked.
    virtual std::optional<std::string> closeFrontWindow(std::string_view applicationName) = 0;
};

/// A script is two statements, one to a line:
///
///     tell application NAME
///     close front window
///
/// NAME is the rest of its line as it stands, with quotes, dashes and all: it ends where the line
/// ends, so a name cannot turn into a statement. Lines that start with "--" are comments; blank
/// lines mean nothing; a line may end in CR LF. Whatever else is there is no script.
class WindowScriptHost final : public ScriptHost {
public:
    /// The closer must outlive the host.
    explicit WindowScriptHost(FrontWindowCloser& closer) : closer_(closer) {}

    std::unique_ptr<Script> compile(std::string_view source) override;

private:
    FrontWindowCloser& closer_;
};

} // namespace dwellkey
