// SPDX-License-Identifier: MIT
// The engine that turns a held shortcut into its action. std only.
#pragma once

#include "hold/close_method.h"
#include "platform/platform.h"
#include "settings/preferences_view_model.h"
#include "support/observable_object.h"

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace dwellkey {

/// Idle, or holding: then the panel is visible and `progress` rises with the time since the key
/// went down. At 1 the action is done to the application that is in front at that moment, provided
/// that it is in scope, and that the keyboard confirms that the keys are still down. An application
/// that ends while it is meant takes the hold with it. Main thread only.
class TimerManager : public ObservableObject {
public:
    /// The process's instance, made on first use and never destroyed.
    static TimerManager& shared();

    /// Reads the window-close script. Both references must outlive the engine.
    explicit TimerManager(Platform& platform = Platform::shared(),
                          PreferencesViewModel& preferences = PreferencesViewModel::shared());

    /// Elapsed time of the hold divided by the delay, not clamped; 0 when no hold runs.
    Published<double> progress{*this, 0.0};
    Published<bool> isTimerViewVisible{*this, false};
    Published<std::string> timerViewTitle{*this, "Hold to Quit App"};
    /// True while an alert is open that came of the hold: its panel would cover it.
    Published<bool> isTimerViewAside{*this, false};
    /// True from the end of a rehearsed hold until the next hold begins or rehearsing ends.
    Published<bool> wasRehearsed{*this, false};

    /// Not changed by the engine: a running hold carries its own method.
    CloseMethod closeMethod = CloseMethod::quitApp;
    /// Where the delay, the scope and the list are read from.
    PreferencesViewModel& preferencesViewModel;

    /// Whether the panel belongs on the screen.
    [[nodiscard]] bool isPanelWanted() const {
        return isTimerViewVisible.get() && !isTimerViewAside.get() && !isRehearsal_;
    }

    /// While rehearsing, a hold over this program's own windows fills `progress` and acts on
    /// nobody, whatever is in scope, and has no panel: one of those windows shows it. Other
    /// applications are guarded as always. A hold that runs at a change of this ends.
    void setRehearsing(bool rehearses);
    /// Whether a press of a guarded shortcut begins a hold now. Allocates nothing.
    [[nodiscard]] bool isHoldDue() const {
        return isRehearsalDue() || preferencesViewModel.isFrontmostAppGuarded();
    }

    /// Begins a hold; one that is running is replaced and starts over from zero.
    void startTimer(CloseMethod method);
    /// Ends the hold, if any, without its action.
    void stopHold();

    /// Closes the frontmost application's front window now. Tells the user, in a modal alert, when
    /// that needs a permission or fails; so it may run a nested loop.
    void closeFrontWindow();
    /// Tells the user, in a modal alert, what is lacking to close windows, and offers the settings
    /// page that grants it where there is one; nothing when nothing is lacking.
    void requestAccessibility();
    void tellUnableToClose(std::string reason);
    [[nodiscard]] bool isFinderFrontmost() const;

private:
    struct Hold {
        std::uint64_t number = 0; // tells a hold from those before it
        std::chrono::nanoseconds start{};
        CloseMethod method = CloseMethod::quitApp;
        /// Those that were in front meanwhile, each of which the user may have meant.
        std::vector<std::shared_ptr<RunningApplication>> applications;
    };

    [[nodiscard]] bool isRunning(std::uint64_t number) const;
    [[nodiscard]] bool isRehearsalDue() const;
    [[nodiscard]] bool hasLostAnApplication() const;
    void followFrontmost();
    void tick(std::uint64_t number);
    void confirmAndComplete(std::uint64_t number);
    void completeHold();
    void act(CloseMethod method);
    int runModal(const Alert& alert);

    Platform& platform_;
    std::optional<std::string> closeWindowScript_; // absent: reported when it is needed
    Hold hold_;                                    // the latest one, running or not
    bool isRehearsing_ = false;
    bool isRehearsal_ = false; // what `hold_` is
    Subscription timer_;       // active: `hold_` is running
    Subscription activation_;
};

} // namespace dwellkey
