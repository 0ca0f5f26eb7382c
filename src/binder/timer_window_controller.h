// SPDX-License-Identifier: MIT
// The hold panel: its window, the fill timer and what happens when the bar is full. std only.
#pragma once

#include "binder/outlet.h"
#include "binder/repeating_timer.h"
#include "binder/timer_window.h"
#include "platform/platform.h"

#include <chrono>
#include <functional>
#include <memory>
#include <string>

namespace dwellkey {

/// Idle, filling from `startTimer` on, then complete (`action` ran) or cancelled by the owner, who
/// invalidates the timer and closes the window. The window is loaded on first use and kept.
class TimerWindowController {
public:
    /// The name of the class and of its interface file.
    static constexpr std::string_view nibName = "TimerWindowController";

    /// Both references must outlive the controller.
    TimerWindowController(std::string windowNibName, Platform& platform, InterfaceFiles& files);
    TimerWindowController(const TimerWindowController&) = delete;
    TimerWindowController& operator=(const TimerWindowController&) = delete;
    ~TimerWindowController() = default;

    Outlet<TextField> titleLabel{nibName, "titleLabel"};
    /// The track, as long as a full bar.
    Outlet<View> progressSpacer{nibName, "progressSpacer"};
    /// The width of the fill.
    Outlet<LayoutConstraint> progressConstraint{nibName, "progressConstraint"};

    /// Runs when the bar becomes full, once for each hold.
    std::function<void()> action;
    /// Drives the fill; null before the first hold.
    std::shared_ptr<RepeatingTimer> timer;
    /// When the present hold began, on the platform's clock.
    std::chrono::nanoseconds startTime{};

    /// Loads it if need be; null when the interface file could not be loaded.
    TimerWindow* window();
    void showWindow();
    /// Hides the window. No effect when it was never loaded.
    void close();

    /// Fills this fraction of the track, in a later turn of the loop. Not clamped.
    void setProgress(double fraction);

    /// Begins a hold from zero; one that is filling starts over. It lasts 2.25 seconds less what is
    /// stored under "delay". With a difference of 0 it is over at the first tick after the start,
    /// with less it never is.
    void startTimer();

private:
    void windowDidLoad();
    void tick();

    const std::string windowNibName_;
    Platform& platform_;
    InterfaceFiles& files_;
    bool isWindowLoaded_ = false;
    std::unique_ptr<TimerWindow> window_;
    std::shared_ptr<const bool> life_ = std::make_shared<const bool>(true);
};

} // namespace dwellkey
