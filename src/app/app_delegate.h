// SPDX-License-Identifier: MIT
#pragma once

#include "app/state/app_state_manager.h"
#include "binder/windows/about_window_controller.h"
#include "binder/windows/preferences_window_controller.h"
#include "hold/keyboard_shortcuts_model.h"
#include "platform/platform.h"
#include "settings/preferences_view_model.h"

namespace dwellkey {

/// The life of the process: launch, being started again, termination. Its construction brings the
/// guarded shortcuts to life.
class AppDelegate {
public:
    /// With the shared models, which are made now, in the order of the members.
    explicit AppDelegate(Platform& platform);
    AppDelegate(Platform& platform, AppStateManager& appStateManager,
                KeyboardShortcutsModel& keyboardShortcutsModel);
    AppDelegate(const AppDelegate&) = delete;
    AppDelegate& operator=(const AppDelegate&) = delete;
    ~AppDelegate() = default;

    /// Once, when the loop is about to run.
    void didFinishLaunching();

    /// The user started the program again. Always handled.
    bool shouldHandleReopen(bool hasVisibleWindows);

    void willTerminate();

private:
    void handleLaunch();

    Platform& platform_;
    // Of the shortcut-binder path: made and kept, never shown, so never loaded.
    PreferencesWindowController prefsWindowController_;
    AboutWindowController aboutWindowController_;
    AppStateManager& appStateManager_;
    PreferencesViewModel preferencesViewModel_; // its own copy, over the same store
    KeyboardShortcutsModel& keyboardShortcutsModel_;
};

} // namespace dwellkey
