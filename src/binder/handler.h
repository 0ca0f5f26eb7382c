// SPDX-License-Identifier: MIT
// The guarded shortcuts over a shortcut binder. std only.
#pragma once

#include "binder/class_registry.h"
#include "binder/timer_window_controller.h"
#include "platform/platform.h"
#include "platform/shortcut_binder.h"
#include "support/signal.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace dwellkey {

/// The notice that an application came to the front; without one: none did.
struct ActivationNotification {
    std::shared_ptr<RunningApplication> application;
};

/// Binds the shortcuts that are stored under "quitShortcut" and "windowShortcut" while the
/// application that was activated last is in scope, and does what they stand for when they are
/// held until the panel's bar is full. It shares nothing with the hold engine. Make it with
/// std::make_shared, at most once in a process; it lives as long as its bindings.
///
/// An activation is applied when no shortcut is held, or else when the last one is let go. A quit
/// goes to the application of the last applied activation, a close to the one that is in front at
/// the end of the hold.
class Handler final : public RootObject, public std::enable_shared_from_this<Handler> {
public:
    /// Over the process's platform, binder and interface files. Ends the process when the
    /// window-close script is missing or cannot be read.
    Handler();
    /// No binder: nothing is ever bound. The rest must outlive the handler.
    Handler(Platform& platform, ShortcutBinder* sharedBinder, InterfaceFiles& files);
    ~Handler() override = default;

    const std::unique_ptr<TimerWindowController> timerWindowController;

    /// While set, a re-recorded shortcut is bound at once; else it is with the next activation.
    bool isEnabled = false;
    /// While set, nothing is bound any more. What is bound stays.
    bool disabledOverride = false;

    /// A value of the user defaults changed. Unknown key paths, and none, are ignored.
    void observeValue(std::optional<std::string_view> keyPath);
    void activeAppDidChange(const ActivationNotification& notification);
    void qShortcutDidChange();
    void wShortcutDidChange();

private:
    /// `qIsDown_` or `wIsDown_`.
    using DownFlag = bool Handler::*;

    void handleActivation(const ActivationNotification& notification);
    void applyScope(const RunningApplication& application, const Url& location);
    void bindQuitShortcut();
    void bindWindowShortcut();
    void bind(std::string_view defaultsKey, void (Handler::*keyDown)(), DownFlag flag);
    void breakBinding(std::string_view defaultsKey);
    void unbindAll();
    void quitKeyDown();
    void windowKeyDown();
    void beginHold(const std::string& title, std::function<void()> completion);
    [[nodiscard]] bool isStillHolding(std::uint64_t hold);
    void shortcutKeyUp(DownFlag flag);
    void quitActiveApp();
    void closeFrontWindow();
    [[nodiscard]] bool isListedApp(const std::string& path) const;

    Platform& platform_;
    ShortcutBinder* const binder_;
    std::optional<std::string> activeBundleID_;
    std::string closeWindowScript_; // with the placeholder "<<app>>"
    std::optional<ActivationNotification> pendingNotification_;
    bool qIsDown_ = false;
    bool wIsDown_ = false;
    std::uint64_t holdNumber_ = 0; // changes when a hold begins or ends
    Subscription quitShortcutChange_;
    Subscription windowShortcutChange_;
    Subscription activation_;
};

/// The classes of this module that can be made by their names: "Handler".
ClassRegistry binderClasses();

} // namespace dwellkey
