// SPDX-License-Identifier: MIT
// Services of the user's session: login item, permission, scripts, log. std only.
#pragma once

#include "support/signal.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace dwellkey {

enum class LoginItemStatus { notRegistered = 0, enabled = 1, requiresApproval = 2, notFound = 3 };

/// Starts this program when the user logs in.
class LoginItem {
public:
    /// A description for the user, in their language where the system has one.
    struct Error {
        std::string localizedDescription;
    };

    LoginItem() = default;
    LoginItem(const LoginItem&) = delete;
    LoginItem& operator=(const LoginItem&) = delete;
    virtual ~LoginItem() = default;

    /// Both change nothing when they return an error.
    virtual std::optional<Error> registerItem() = 0;
    virtual std::optional<Error> unregisterItem() = 0;
    [[nodiscard]] virtual LoginItemStatus status() const = 0;

    /// Runs `changed` when the status may have changed, by us or with the desktop's own tools.
    [[nodiscard]] virtual Subscription observe(std::function<void()> changed) = 0;
};

/// Whether this session lets us close the windows of other programs.
class AccessibilityTrust {
public:
    /// What keeps us from it.
    struct Lack {
        std::string reason; // a sentence for the user, in their language
        /// Whether the user can change that on the settings page that grants the permission.
        bool canBeGranted = false;
    };

    AccessibilityTrust() = default;
    AccessibilityTrust(const AccessibilityTrust&) = delete;
    AccessibilityTrust& operator=(const AccessibilityTrust&) = delete;
    virtual ~AccessibilityTrust() = default;

    /// Absent when nothing is lacking. Never prompts.
    [[nodiscard]] virtual std::optional<Lack> lack() const = 0;

    [[nodiscard]] bool isProcessTrusted() const { return !lack(); }
};

/// A compiled script.
class Script {
public:
    struct Error {
        std::string message;
    };

    Script() = default;
    Script(const Script&) = delete;
    Script& operator=(const Script&) = delete;
    virtual ~Script() = default;

    /// Absent when every statement succeeded.
    virtual std::optional<Error> execute() = 0;
};

class ScriptHost {
public:
    ScriptHost() = default;
    ScriptHost(const ScriptHost&) = delete;
    ScriptHost& operator=(const ScriptHost&) = delete;
    virtual ~ScriptHost() = default;

    /// Null when the source is not a script. The host must outlive the script.
    virtual std::unique_ptr<Script> compile(std::string_view source) = 0;
};

/// The log that the person who maintains this machine reads.
class ErrorLog {
public:
    ErrorLog() = default;
    ErrorLog(const ErrorLog&) = delete;
    ErrorLog& operator=(const ErrorLog&) = delete;
    virtual ~ErrorLog() = default;

    /// One line at error level. `cause`, where given, follows the message on the same line.
    virtual void error(std::string_view message, std::string_view cause = {}) = 0;
};

} // namespace dwellkey
