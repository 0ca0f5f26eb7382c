// SPDX-License-Identifier: MIT
#pragma once

#include "app/app_delegate.h"
#include "app/backend.h"
#include "app/menu_bar_scene.h"
#include "app/outside_requests.h"
#include "hold/panel/timer_view.h"
#include "hold/timer_manager.h"
#include "platform/once_per_turn.h"
#include "settings/preferences_view_model.h"
#include "views/about/about_view.h"
#include "views/about/intro_view.h"
#include "views/preferences/preferences_view.h"

#include <functional>
#include <memory>
#include <string_view>

namespace dwellkey {

/// The application: declares its windows, opens the hold panel when a hold starts, and runs.
class DwellkeyApp {
public:
    /// Makes the shared models over the backend's platform, which brings the shortcuts to life
    /// before any window exists. The backend must outlive the application.
    explicit DwellkeyApp(Backend& backend);
    DwellkeyApp(const DwellkeyApp&) = delete;
    DwellkeyApp& operator=(const DwellkeyApp&) = delete;
    ~DwellkeyApp();

    /// Emitted in the loop once the launch is complete.
    Signal<> didFinishLaunching;

    /// The user started the running program again: opens the preferences, once no hold runs.
    void reopen() { reopen_(); }

    /// Until the process is asked to end; returns its exit status.
    int run();

private:
    void declareWindows();
    [[noreturn]] void desktopIsGone(std::string_view cause);
    template <typename Window, typename... Models>
    void openLazily(std::unique_ptr<Window>& window, Models&... models);
    TimerView& timerView();
    PreferencesView& preferencesView();
    void followTimerView();

    Backend& backend_;
    AppDelegate appDelegate_;
    TimerManager& timerManager_;
    OutsideRequests outsideRequests_;
    std::function<void()> reopen_;
    MenuBarScene menuBar_;
    std::unique_ptr<TimerView> timerView_;
    std::unique_ptr<PreferencesView> preferencesView_; // each made when it is first opened
    std::unique_ptr<IntroView> introView_;
    std::unique_ptr<AboutView> aboutView_;
    bool wasTimerViewWanted_ = false;
    OncePerTurn followTimerViewOnce_;
    Subscription timerViewChanges_;
    Subscription timerViewSteps_; // aside and back
    Subscription untilRelease_;
    Subscription terminationRequested_;
    Subscription lost_;
    Subscription suddenExit_;
    Subscription termination_;
};

} // namespace dwellkey
