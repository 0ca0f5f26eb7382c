// SPDX-License-Identifier: MIT
#include "binder/timer_window_controller.h"

#include "platform/user_default.h"

#include <utility>

namespace dwellkey {
namespace {

constexpr double longestHold = 2.25; // seconds; what is stored is subtracted from it
constexpr std::chrono::milliseconds tickInterval{10};
constexpr double contentCornerRadius = 8.0;

} // namespace

TimerWindowController::TimerWindowController(std::string windowNibName, Platform& platform,
                                             InterfaceFiles& files)
    : windowNibName_(std::move(windowNibName)), platform_(platform), files_(files) {}

TimerWindow* TimerWindowController::window() {
    if (!std::exchange(isWindowLoaded_, true)) {
        window_ = files_.loadTimerWindow(windowNibName_);
        if (window_ != nullptr) {
            titleLabel.connect(window_->titleLabel());
            progressSpacer.connect(window_->progressSpacer());
            progressConstraint.connect(window_->progressConstraint());
        }
        windowDidLoad();
    }
    return window_.get();
}

void TimerWindowController::windowDidLoad() {
    if (window_ != nullptr) {
        window_->setAppearance({.level = floatingWindowLevel,
                                .isOpaque = false,
                                .hasClearBackground = true,
                                .cornerRadius = contentCornerRadius});
    }
    setProgress(0.0);
}

void TimerWindowController::showWindow() {
    if (TimerWindow* loaded = window()) {
        loaded->show();
    }
}

void TimerWindowController::close() {
    if (window_ != nullptr) {
        window_->close();
    }
}

void TimerWindowController::setProgress(double fraction) {
    platform_.runLoop.post([this, alive = std::weak_ptr(life_), fraction] {
        if (!alive.expired()) {
            progressConstraint->setConstant(progressSpacer->boundsWidth() * fraction);
        }
    });
}

void TimerWindowController::startTimer() {
    if (timer != nullptr) {
        timer->invalidate();
    }
    startTime = platform_.clock.now();
    setProgress(0.0);
    timer = RepeatingTimer::scheduled(platform_.runLoop, tickInterval,
                                      [this, alive = std::weak_ptr(life_)] {
                                          if (!alive.expired()) {
                                              tick();
                                          }
                                      });
}

void TimerWindowController::tick() {
    if (window_ != nullptr && window_->isTrackingEvents()) {
        return; // the bar stands still under a menu or an alert of our own
    }
    const double delay = UserDefault<double>(platform_.userDefaults, "delay", 0.0).get();
    const std::chrono::duration<double> elapsed = platform_.clock.now() - startTime;
    const double fraction = elapsed.count() / (longestHold - delay);
    setProgress(fraction);
    if (fraction >= 1.0) {
        timer->invalidate();
        const auto completion = action; // it may set another one
        if (completion) {
            completion();
        }
    }
}

} // namespace dwellkey
