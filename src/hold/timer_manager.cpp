// SPDX-License-Identifier: MIT
#include "hold/timer_manager.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace dwellkey {
namespace {

constexpr auto tickInterval = std::chrono::milliseconds(10);

std::string replacingAll(std::string_view text, std::string_view target,
                         std::string_view replacement) {
    std::string result;
    for (std::size_t at = text.find(target); at != std::string_view::npos; at = text.find(target)) {
        result.append(text.substr(0, at)).append(replacement);
        text.remove_prefix(at + target.size());
    }
    return result.append(text);
}

} // namespace

TimerManager& TimerManager::shared() {
    static auto* const instance = new TimerManager;
    return *instance;
}

TimerManager::TimerManager(Platform& platform, PreferencesViewModel& preferences)
    : preferencesViewModel(preferences), platform_(platform),
      closeWindowScript_(platform.bundleReader.resourceText("CloseWindow", "scpt")),
      activation_(platform.workspace.didActivateApplication.subscribe(
          [this](const auto&) { followFrontmost(); })) {}

bool TimerManager::isFinderFrontmost() const {
    const auto frontmost = platform_.workspace.frontmostApplication();
    return frontmost != nullptr && frontmost->isFileManager();
}

void TimerManager::startTimer(CloseMethod method) {
    const bool closesWindow = method == CloseMethod::closeWindow || isFinderFrontmost();
    timerViewTitle = closesWindow ? "Hold to Close Window" : "Hold to Quit App";
    isTimerViewAside = false;
    isRehearsal_ = isRehearsalDue();
    wasRehearsed = false;
    isTimerViewVisible = true;
    hold_ = {hold_.number + 1,
             platform_.clock.now(),
             method,
             {platform_.workspace.frontmostApplication()}};
    timer_ =
        platform_.runLoop.repeat(tickInterval, [this, number = hold_.number] { tick(number); });
}

void TimerManager::stopHold() {
    timer_.cancel();
    progress = 0.0;
    isTimerViewVisible = false;
}

void TimerManager::setRehearsing(bool rehearses) {
    if (rehearses == isRehearsing_) {
        return;
    }
    // What began as the one must not end as the other.
    stopHold();
    wasRehearsed = false;
    isRehearsing_ = rehearses;
}

bool TimerManager::isRehearsalDue() const {
    const auto frontmost = isRehearsing_ ? platform_.workspace.frontmostApplication() : nullptr;
    return frontmost != nullptr && frontmost->isOurselves();
}

bool TimerManager::isRunning(std::uint64_t number) const {
    return timer_.isActive() && hold_.number == number;
}

bool TimerManager::hasLostAnApplication() const {
    return std::ranges::any_of(hold_.applications, [](const auto& application) {
        return application != nullptr && application->isTerminated();
    });
}

/// The user may switch between applications, and means the last one. But the one that comes to the
/// front because the other ended was never meant, nor is one by somebody who rehearses.
void TimerManager::followFrontmost() {
    if (!timer_.isActive()) {
        return;
    }
    if (hasLostAnApplication() || isRehearsal_ != isRehearsalDue()) {
        stopHold();
    } else {
        hold_.applications.push_back(platform_.workspace.frontmostApplication());
    }
}

// A hundred times a second: allocates nothing.
void TimerManager::tick(std::uint64_t number) {
    const std::chrono::duration<double> elapsed = platform_.clock.now() - hold_.start;
    progress = elapsed.count() / preferencesViewModel.delayUntilActivation();
    if (progress.get() >= 1.0) {
        confirmAndComplete(number);
    }
}

void TimerManager::confirmAndComplete(std::uint64_t number) {
    // An application that ended may still be listed when the next one comes to the front, so it is
    // looked for once more.
    platform_.workspace.confirmFrontmostApplication();
    const bool isStillMeant = !hasLostAnApplication();
    // What the keyboard has sent and nobody has read yet is delivered in here. A release ends this
    // hold, even if the process was too busy to see it in time; a press begins another one, which
    // has its own time to run.
    const bool keysAreDown = platform_.hotKeys.confirmPressed();
    if (!isRunning(number)) {
        return;
    }
    if (keysAreDown && isRehearsal_) {
        stopHold();
        wasRehearsed = true;
    } else if (keysAreDown && isStillMeant && preferencesViewModel.isFrontmostAppGuarded()) {
        completeHold();
    } else {
        stopHold();
    }
}

void TimerManager::completeHold() {
    const std::uint64_t number = hold_.number;
    // Before the cancellation: while an alert of the action is open, its nested loop finds a timer
    // that is live but never re-entered, so this hold cannot complete a second time.
    act(hold_.method);
    // The keys may have gone up and down again under that alert. `timer_` then belongs to the hold
    // that they began, and it is not ours to end.
    if (hold_.number == number) {
        stopHold();
    }
}

void TimerManager::act(CloseMethod method) {
    if (method == CloseMethod::closeWindow || isFinderFrontmost()) {
        closeFrontWindow();
    } else if (const auto frontmost = platform_.workspace.frontmostApplication()) {
        frontmost->terminate();
    }
}

void TimerManager::closeFrontWindow() {
    if (!platform_.accessibilityTrust.isProcessTrusted()) {
        requestAccessibility();
        return;
    }
    const auto frontmost = platform_.workspace.frontmostApplication();
    if (frontmost == nullptr || !frontmost->localizedName()) {
        return;
    }
    if (!closeWindowScript_) {
        tellUnableToClose(platform_.localizer.localized(
            "TimerManager", "Missing app files, please reinstall the application."));
        return;
    }
    const std::string& name = *frontmost->localizedName();
    const auto script =
        platform_.scriptHost.compile(replacingAll(*closeWindowScript_, "<<app>>", name));
    if (script == nullptr) {
        return;
    }
    if (const auto error = script->execute()) {
        platform_.errorLog.error("Could not close the window for " + name + ".", error->message);
        tellUnableToClose(withArgument(
            platform_.localizer.localized("TimerManager", "Could not close the window for %1."),
            name));
    }
}

int TimerManager::runModal(const Alert& alert) {
    isTimerViewAside = true;
    const int response = platform_.alerts.runModal(alert);
    isTimerViewAside = false;
    return response;
}

void TimerManager::tellUnableToClose(std::string reason) {
    const Localizer& localizer = platform_.localizer;
    runModal({localizer.localized("TimerManager", "Unable to Close Window"),
              std::move(reason),
              AlertStyle::warning,
              {localizer.localized("TimerManager", "OK")}});
}

void TimerManager::requestAccessibility() {
    const auto lack = platform_.accessibilityTrust.lack();
    if (!lack) {
        return;
    }
    if (!lack->canBeGranted) {
        tellUnableToClose(lack->reason);
        return;
    }
    const Localizer& localizer = platform_.localizer;
    const int response = runModal(
        {localizer.localized("TimerManager", "Accessibility Permission Needed"),
         localizer.localized(
             "TimerManager",
             "Dwellkey needs accessibility permission to close app windows. Click 'Open System "
             "Preferences' and enable Dwellkey in the Accessibility section."),
         AlertStyle::warning,
         {localizer.localized("TimerManager", "Open System Preferences"),
          localizer.localized("TimerManager", "Cancel")}});
    if (response == alertFirstButtonReturn
        && !platform_.workspace.openUrl(accessibilitySettingsAddress)) {
        platform_.errorLog.error("The accessibility settings could not be opened.",
                                 "this desktop has no page for them that is known");
    }
}

} // namespace dwellkey
