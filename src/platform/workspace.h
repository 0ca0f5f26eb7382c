// SPDX-License-Identifier: MIT
// The running applications and the one in front. std only.
#pragma once

#include "platform/image.h"
#include "support/signal.h"
#include "support/url.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dwellkey {

/// Opens the settings page that grants the permission to close windows, whatever it is called on
/// the running desktop.
inline constexpr std::string_view accessibilitySettingsAddress =
    "x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility";

class RunningApplication {
public:
    RunningApplication() = default;
    RunningApplication(const RunningApplication&) = delete;
    RunningApplication& operator=(const RunningApplication&) = delete;
    virtual ~RunningApplication() = default;

    /// The desktop-entry id without ".desktop", or else the class that its windows state; absent
    /// when there is neither.
    [[nodiscard]] virtual const std::optional<std::string>& bundleIdentifier() const = 0;

    /// The location of its desktop entry; absent when it has none.
    [[nodiscard]] virtual const std::optional<Url>& bundleUrl() const = 0;

    /// Its name in the user's language: one line without control characters. Absent when it
    /// states none.
    [[nodiscard]] virtual const std::optional<std::string>& localizedName() const = 0;

    /// Whether it is the desktop's file manager, which also draws the desktop and so is never
    /// asked to quit.
    [[nodiscard]] virtual bool isFileManager() const = 0;

    /// Whether it is this program.
    [[nodiscard]] virtual bool isOurselves() const = 0;

    /// Whether the user has nothing of it any more: no window is left. Asks the display.
    [[nodiscard]] virtual bool isTerminated() const = 0;

    /// Asks it, once, to quit in its own way: it may refuse or ask the user. Never forced.
    virtual void terminate() = 0;
};

class Workspace {
public:
    Workspace() = default;
    Workspace(const Workspace&) = delete;
    Workspace& operator=(const Workspace&) = delete;
    virtual ~Workspace() = default;

    /// The application of the active window; null when no application is in front. Costs no
    /// conversation with the display.
    [[nodiscard]] virtual std::shared_ptr<RunningApplication> frontmostApplication() const = 0;

    /// Asks the display itself who is in front. What is news is announced before this returns.
    virtual void confirmFrontmostApplication() = 0;

    /// Those with windows, in the order in which their windows appeared: all, or the instances of
    /// one application.
    [[nodiscard]] virtual std::vector<std::shared_ptr<RunningApplication>>
    runningApplications() const = 0;
    [[nodiscard]] virtual std::vector<std::shared_ptr<RunningApplication>>
    runningApplications(std::string_view bundleIdentifier) const = 0;

    /// Emitted after another application (or none: null) came to the front.
    Signal<const std::shared_ptr<RunningApplication>&> didActivateApplication;

    /// Always names a picture, a generic one for a path that nothing is known of.
    [[nodiscard]] virtual Image icon(const std::string& path) const = 0;

    /// Opens an address with the desktop's handler. False when nothing could take it.
    virtual bool openUrl(std::string_view address) = 0;

    /// Brings this program's windows to the front.
    virtual void activateOurselves() = 0;
};

} // namespace dwellkey
