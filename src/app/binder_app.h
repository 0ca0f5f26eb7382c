// SPDX-License-Identifier: MIT
#pragma once

#include "app/backend.h"
#include "binder/class_registry.h"
#include "binder/hot_key_shortcut_binder.h"
#include "binder/loader/ui_loader.h"
#include "binder/windows/panel_window.h"
#include "binder/windows/preferences_window_controller.h"
#include "platform/linux/launch.h"
#include "platform/linux/single_instance.h"
#include "support/signal.h"

#include <memory>

namespace dwellkey {

/// The shortcut-binder path as a program: its handler guards, its preferences are on the screen.
/// Closing them leaves the handler at work; starting the program again brings them back.
class BinderApp {
public:
    /// Over the backend's platform, which must be installed. The backend must outlive the
    /// application, and so must the instance; without one (null), later starts go unnoticed.
    BinderApp(Backend& backend, Launch own, SingleInstance* instance);
    BinderApp(const BinderApp&) = delete;
    BinderApp& operator=(const BinderApp&) = delete;
    ~BinderApp();

    /// Until the process is asked to end; returns its exit status.
    int run();

private:
    void beginListening();
    void showPreferences(const Launch& launch);

    Backend& backend_;
    Launch own_;
    SingleInstance* instance_;
    UiLoader loader_;
    PanelInterfaceFiles interfaceFiles_;
    std::shared_ptr<RootObject> handler_;
    HotKeyShortcutBinder shortcutBinder_; // before the handler that its actions hold
    PreferencesWindowController preferences_;
    Subscription startedAgain_;
    Subscription terminationRequested_;
    Subscription untilRelease_;
    Subscription lost_;
    Subscription termination_;
};

} // namespace dwellkey
