// SPDX-License-Identifier: MIT
#include "platform/x11/x11_workspace.h"

#include <algorithm>
#include <unistd.h>
#include <utility>

namespace dwellkey {
namespace {

bool belongsTogether(const X11Windows& windows, const X11Window& one, const X11Window& other) {
    if (one.process && other.process) {
        return one.process == other.process;
    }
    return windows.haveSameClient(one.id, other.id);
}

/// Asks every normal window of the application to close, once: not its dialogs, where a second
/// request would cancel an unsaved-changes prompt, and nothing that does not accept it. A program
/// that has only a dialog is asked through that.
void requestCloseOfAll(const X11Windows& windows, const X11Window& front) {
    std::vector<X11Window> own = windows.describe(windows.clientWindows());
    std::erase_if(own, [&](const X11Window& window) {
        return window.isDesktop || window.isDock || !belongsTogether(windows, window, front);
    });
    const auto isMain = [](const X11Window& window) {
        return window.isNormal && !window.isTransient && !window.isModal;
    };
    const bool hasMain = std::ranges::any_of(own, isMain);
    for (const X11Window& window : own) {
        const bool isAsked = hasMain ? isMain(window) : window.id == front.id;
        if (isAsked && window.acceptsDelete) {
            windows.requestClose(window.id);
        }
    }
}

} // namespace

X11RunningApplication::X11RunningApplication(X11Window window, ApplicationIdentity identity,
                                             const X11Windows& windows, ApplicationActions& actions,
                                             const std::function<void()>& terminateOurselves)
    : window_(std::move(window)), identity_(std::move(identity)), windows_(windows),
      actions_(actions), terminateOurselves_(terminateOurselves) {}

bool X11RunningApplication::isOurselves() const {
    return window_.process == getpid();
}

void X11RunningApplication::terminate() {
    if (window_.actions && window_.process) {
        actions_.activate(
            *window_.actions, *window_.process, "quit",
            [&windows = windows_, front = window_] { requestCloseOfAll(windows, front); });
        return;
    }
    requestCloseOfAll(windows_, window_);
    if (terminateOurselves_ && isOurselves()) {
        terminateOurselves_(); // we live on without windows
    }
}

bool X11RunningApplication::isSameApplication(const X11RunningApplication& other) const {
    return identity_ == other.identity_ && belongsTogether(windows_, window_, other.window_);
}

/// First by the window that was in front, which mostly answers for all.
bool X11RunningApplication::isTerminated() const {
    const auto isItsOwn = [this](const X11Window& window) {
        return window.exists && !window.isDesktop && !window.isDock
               && belongsTogether(windows_, window, window_);
    };
    const std::vector<xcb_window_t> clients = windows_.clientWindows();
    const bool isManaged = clients.empty() // a window manager that keeps no list
                           || std::ranges::find(clients, window_.id) != clients.end();
    return !(isManaged && isItsOwn(windows_.describe(window_.id)))
           && std::ranges::none_of(windows_.describe(clients), isItsOwn);
}

X11Workspace::X11Workspace(X11Connection& connection, const ApplicationIdentifier& identifier,
                           ApplicationActions& actions, const Localizer& localizer,
                           WorkspaceServices services)
    : connection_(connection), windows_(connection), identifier_(identifier), actions_(actions),
      localizer_(localizer), services_(std::move(services)),
      events_(connection.event.subscribe([this](const auto& event) { handleEvent(event); })) {
    rootEvents_ = connection_.select(connection_.root(), XCB_EVENT_MASK_PROPERTY_CHANGE);
    followWindowManager();
    followClientWindows();
    followActiveWindow();
}

std::vector<std::shared_ptr<RunningApplication>>
X11Workspace::runningApplications(std::string_view bundleIdentifier) const {
    auto found = runningApplications();
    std::erase_if(found, [&](const auto& application) {
        return application->bundleIdentifier() != bundleIdentifier;
    });
    return found;
}

std::vector<std::shared_ptr<RunningApplication>> X11Workspace::runningApplications() const {
    std::vector<std::shared_ptr<X11RunningApplication>> found;
    for (X11Window& window : windows_.describe(windows_.clientWindows())) {
        auto application = applicationOf(std::move(window));
        const bool isKnown = application && std::ranges::any_of(found, [&](const auto& other) {
                                 return other->isSameApplication(*application);
                             });
        if (application && !isKnown) {
            found.push_back(std::move(application));
        }
    }
    return {found.begin(), found.end()};
}

void X11Workspace::activateOurselves() {
    // Of our own windows the one that was mapped last: the one that was just asked for.
    const auto own = windows_.describe(windows_.clientWindows());
    const auto last = std::find_if(own.rbegin(), own.rend(), isOurs);
    if (last != own.rend()) {
        windows_.requestActivation(last->id);
    }
    activatesOurNextWindow_ = true; // one that was asked for just now is not managed yet
}

bool X11Workspace::isOurs(const X11Window& window) {
    return window.process == getpid() && !window.isDesktop && !window.isDock;
}

std::optional<std::string> X11Workspace::closeFrontWindow(std::string_view applicationName) {
    followActiveWindow(); // the display's own word at the last moment
    if (!frontmost_ || frontmost_->localizedName() != applicationName) {
        return "\"" + std::string(applicationName) + "\" is not the application in front";
    }
    const X11Window front = windows_.describe(activeWindow_);
    if (!front.acceptsDelete || front.isDesktop || front.isDock) {
        return "the front window cannot be asked to close";
    }
    windows_.requestClose(front.id);
    return std::nullopt;
}

std::optional<AccessibilityTrust::Lack> X11Workspace::lack() const {
    switch (windows_.windowManagement()) {
    case WindowManagement::complete:
        return std::nullopt;
    case WindowManagement::withoutActiveWindow:
        return Lack{localizer_.localized("X11Workspace",
                                         "The window manager of this session does not tell which "
                                         "window is in front.")};
    case WindowManagement::none:
        break;
    }
    return Lack{localizer_.localized(
        "X11Workspace", "No window manager is running that could tell which window is in front.")};
}

void X11Workspace::handleEvent(const xcb_generic_event_t& event) {
    const auto type = event.response_type & 0x7fU;
    if (type == XCB_PROPERTY_NOTIFY) {
        const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event); // NOLINT
        if (change.window == connection_.root()) {
            handleRootChange(change.atom);
        } else if (change.window == activeWindow_ && tellsWhoseItIs(change.atom)) {
            setActiveWindow(activeWindow_); // some programs say who they are after they appeared
        }
    } else if (type == XCB_DESTROY_NOTIFY) {
        const auto& gone = reinterpret_cast<const xcb_destroy_notify_event_t&>(event); // NOLINT
        if (gone.window == windowManager_) {
            windowManagerIsGone();
        }
    }
}

void X11Workspace::handleRootChange(xcb_atom_t property) {
    const auto& atoms = connection_.atoms();
    if (property == atoms.netActiveWindow) {
        followActiveWindow();
    } else if (property == atoms.netClientList) {
        followClientWindows();
    } else if (property == atoms.netSupportingWmCheck) {
        followWindowManager();
        followActiveWindow();
        didActivateApplication.emit(frontmost_); // another window manager: judge everything anew
    }
}

void X11Workspace::followWindowManager() {
    windowManager_ = windows_.windowManagerWindow();
    windowManagerEvents_ =
        windowManager_ == XCB_WINDOW_NONE
            ? Subscription()
            : connection_.select(windowManager_, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
}

/// What it said of the active window stays written there, but is nobody's word any more.
void X11Workspace::windowManagerIsGone() {
    windowManager_ = XCB_WINDOW_NONE;
    activeWindow_ = XCB_WINDOW_NONE;
    frontmost_ = nullptr;
    didActivateApplication.emit(frontmost_);
}

bool X11Workspace::tellsWhoseItIs(xcb_atom_t property) const {
    const auto& atoms = connection_.atoms();
    return property == XCB_ATOM_WM_CLASS || property == atoms.gtkApplicationId
           || property == atoms.gtkUniqueBusName || property == atoms.gtkApplicationObjectPath;
}

void X11Workspace::followActiveWindow() {
    // Also when the number is the same as before: it may be another program's by now.
    setActiveWindow(windows_.activeWindow());
}

void X11Workspace::setActiveWindow(xcb_window_t window) {
    // Before looking, so nothing is missed.
    activeWindowEvents_ = window == XCB_WINDOW_NONE
                              ? Subscription()
                              : connection_.select(window, XCB_EVENT_MASK_PROPERTY_CHANGE);
    X11Window described = window == XCB_WINDOW_NONE ? X11Window{} : windows_.describe(window);
    // A window that is gone was only named: its number may come back as another program's.
    activeWindow_ = described.exists ? window : xcb_window_t{XCB_WINDOW_NONE};
    auto application = applicationOf(std::move(described));
    const bool isSame = application && frontmost_ && application->isSameApplication(*frontmost_);
    const bool wasNone = !application && !frontmost_;
    frontmost_ = std::move(application);
    if (!isSame && !wasNone) {
        didActivateApplication.emit(frontmost_);
    }
}

void X11Workspace::followClientWindows() {
    std::map<xcb_window_t, std::optional<pid_t>> clients;
    std::vector<xcb_window_t> unknown;
    for (const xcb_window_t window : windows_.clientWindows()) {
        if (const auto known = clients_.find(window); known != clients_.end()) {
            clients.insert(*known);
        } else {
            unknown.push_back(window);
        }
    }
    for (const X11Window& window : windows_.describe(unknown)) {
        clients.emplace(window.id, window.isDesktop ? window.process : std::nullopt);
        if (activatesOurNextWindow_ && isOurs(window)) {
            activatesOurNextWindow_ = false;
            windows_.requestActivation(window.id);
        }
    }
    const bool isActiveWindowGone =
        clients_.contains(activeWindow_) && !clients.contains(activeWindow_);
    clients_ = std::move(clients);
    if (isActiveWindowGone) {
        // Some window managers go on naming it, and the server soon gives its number to another.
        setActiveWindow(XCB_WINDOW_NONE);
    } else if (activeWindow_ == XCB_WINDOW_NONE && clients_.contains(windows_.activeWindow())) {
        followActiveWindow(); // the other one is here, under the number that stood there all along
    }
}

std::shared_ptr<X11RunningApplication> X11Workspace::applicationOf(X11Window window) const {
    if (!window.exists || window.isDesktop || window.isDock) {
        return nullptr; // clicking the desktop or a panel puts no application in front
    }
    if (window.id == connection_.root() || window.id == windowManager_) {
        return nullptr; // said to be active, but nobody's
    }
    WindowFacts facts;
    facts.classInstance = window.classInstance;
    facts.className = window.className;
    facts.gtkApplicationId = window.gtkApplicationId;
    facts.process = window.process;
    facts.ownsDesktopWindow =
        window.process && std::ranges::any_of(clients_, [&](const auto& client) {
            return client.second == window.process;
        });
    auto identity = identifier_.identify(facts);
    return std::make_shared<X11RunningApplication>(std::move(window), std::move(identity), windows_,
                                                   actions_, services_.terminateOurselves);
}

} // namespace dwellkey
