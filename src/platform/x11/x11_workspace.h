// SPDX-License-Identifier: MIT
// Who is in front, by the window manager's word and the X server's.
#pragma once

#include "platform/linux/application_actions.h"
#include "platform/linux/application_identity.h"
#include "platform/linux/script_host.h"
#include "platform/localization.h"
#include "platform/session.h"
#include "platform/workspace.h"
#include "platform/x11/x11_connection.h"
#include "platform/x11/x11_windows.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dwellkey {

class X11RunningApplication final : public RunningApplication {
public:
    /// The references must outlive the application. `terminateOurselves` is run, too, if it is
    /// this program.
    X11RunningApplication(X11Window window, ApplicationIdentity identity, const X11Windows& windows,
                          ApplicationActions& actions,
                          const std::function<void()>& terminateOurselves);

    [[nodiscard]] const std::optional<std::string>& bundleIdentifier() const override {
        return identity_.bundleIdentifier;
    }
    [[nodiscard]] const std::optional<Url>& bundleUrl() const override {
        return identity_.bundleUrl;
    }
    [[nodiscard]] const std::optional<std::string>& localizedName() const override {
        return identity_.localizedName;
    }
    [[nodiscard]] bool isFileManager() const override { return identity_.isFileManager; }
    [[nodiscard]] bool isOurselves() const override;
    [[nodiscard]] bool isTerminated() const override;
    void terminate() override;

    [[nodiscard]] bool isSameApplication(const X11RunningApplication& other) const;

private:
    X11Window window_; // one of its windows, as it was when it came to the front
    ApplicationIdentity identity_;
    const X11Windows& windows_;
    ApplicationActions& actions_;
    const std::function<void()>& terminateOurselves_;
};

/// What the workspace needs that has nothing to do with X.
struct WorkspaceServices {
    std::function<Image(const std::string& path)> icon;
    std::function<bool(std::string_view address)> openUrl;
    /// This program was asked to quit as any other; none when closing its windows is enough.
    std::function<void()> terminateOurselves = {}; // NOLINT
};

class X11Workspace final : public Workspace, public FrontWindowCloser, public AccessibilityTrust {
public:
    /// The references must outlive the workspace.
    X11Workspace(X11Connection& connection, const ApplicationIdentifier& identifier,
                 ApplicationActions& actions, const Localizer& localizer,
                 WorkspaceServices services);

    [[nodiscard]] std::shared_ptr<RunningApplication> frontmostApplication() const override {
        return frontmost_;
    }
    void confirmFrontmostApplication() override { followActiveWindow(); }
    [[nodiscard]] std::vector<std::shared_ptr<RunningApplication>>
    runningApplications() const override;
    [[nodiscard]] std::vector<std::shared_ptr<RunningApplication>>
    runningApplications(std::string_view bundleIdentifier) const override;
    [[nodiscard]] Image icon(const std::string& path) const override {
        return services_.icon(path);
    }
    bool openUrl(std::string_view address) override { return services_.openUrl(address); }
    void activateOurselves() override;

    std::optional<std::string> closeFrontWindow(std::string_view applicationName) override;

    [[nodiscard]] std::optional<Lack> lack() const override;

    /// Looks again which application is in front: the installed ones changed.
    void identifyAgain() { setActiveWindow(activeWindow_); }

private:
    void handleEvent(const xcb_generic_event_t& event);
    void handleRootChange(xcb_atom_t property);
    void followWindowManager();
    void windowManagerIsGone();
    [[nodiscard]] bool tellsWhoseItIs(xcb_atom_t property) const;
    void followActiveWindow();
    void setActiveWindow(xcb_window_t window);
    void followClientWindows();
    [[nodiscard]] static bool isOurs(const X11Window& window);
    [[nodiscard]] std::shared_ptr<X11RunningApplication> applicationOf(X11Window window) const;

    X11Connection& connection_;
    X11Windows windows_;
    const ApplicationIdentifier& identifier_;
    ApplicationActions& actions_;
    const Localizer& localizer_;
    WorkspaceServices services_;
    xcb_window_t windowManager_ = XCB_WINDOW_NONE;
    xcb_window_t activeWindow_ = XCB_WINDOW_NONE;
    std::shared_ptr<X11RunningApplication> frontmost_;
    bool activatesOurNextWindow_ = false;
    std::map<xcb_window_t, std::optional<pid_t>> clients_; // with the process of desktop windows
    Subscription rootEvents_;
    Subscription windowManagerEvents_;
    Subscription activeWindowEvents_;
    Subscription events_;
};

} // namespace dwellkey
