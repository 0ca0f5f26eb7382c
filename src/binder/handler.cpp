// SPDX-License-Identifier: MIT
#include "binder/handler.h"

#include "binder/fatal_error.h"
#include "platform/user_default.h"

#include <algorithm>
#include <cstdlib>
#include <utility>
#include <variant>
#include <vector>

namespace dwellkey {
namespace {

constexpr std::string_view quitShortcut = "quitShortcut";
constexpr std::string_view windowShortcut = "windowShortcut";
constexpr std::string_view applicationPlaceholder = "<<app>>";

enum ExclusionType : std::int64_t { allExceptListed = 0, onlyListed = 1 };

std::string readCloseWindowScript(const BundleReader& bundle) {
    const auto path = bundle.pathForResource("CloseWindow", "scpt");
    if (!path) {
        std::abort(); // an installation without its script can do half of its work: none
    }
    auto text = bundle.fileText(*path);
    if (const auto* error = std::get_if<ResourceError>(&text)) {
        fatalError("unexpected error: " + error->description + " (Dwellkey/Handler, line 44)");
    }
    return std::get<std::string>(std::move(text));
}

std::string withApplicationName(std::string script, std::string_view name) {
    for (std::size_t at = script.find(applicationPlaceholder); at != std::string::npos;
         at = script.find(applicationPlaceholder, at + name.size())) {
        script.replace(at, applicationPlaceholder.size(), name);
    }
    return script;
}

} // namespace

Handler::Handler()
    : Handler(Platform::shared(), ShortcutBinder::sharedBinder(), InterfaceFiles::shared()) {}

Handler::Handler(Platform& platform, ShortcutBinder* sharedBinder, InterfaceFiles& files)
    : timerWindowController(std::make_unique<TimerWindowController>(
        std::string(TimerWindowController::nibName), platform, files)),
      platform_(platform), binder_(sharedBinder),
      closeWindowScript_(readCloseWindowScript(platform.bundleReader)),
      quitShortcutChange_(platform.userDefaults.observe(
          quitShortcut, [this](DefaultsChange) { observeValue(quitShortcut); })),
      windowShortcutChange_(platform.userDefaults.observe(
          windowShortcut, [this](DefaultsChange) { observeValue(windowShortcut); })),
      activation_(platform.workspace.didActivateApplication.subscribe(
          [this](const auto& application) { activeAppDidChange({application}); })) {}

void Handler::observeValue(std::optional<std::string_view> keyPath) {
    if (keyPath == quitShortcut) {
        qShortcutDidChange();
    } else if (keyPath == windowShortcut) {
        wShortcutDidChange();
    }
}

void Handler::qShortcutDidChange() {
    breakBinding(quitShortcut);
    if (isEnabled) {
        bindQuitShortcut();
    }
}

void Handler::wShortcutDidChange() {
    breakBinding(windowShortcut);
    if (isEnabled) {
        bindWindowShortcut();
    }
}

void Handler::activeAppDidChange(const ActivationNotification& notification) {
    handleActivation(notification);
}

void Handler::handleActivation(const ActivationNotification& notification) {
    if (qIsDown_ || wIsDown_) {
        pendingNotification_ = notification;
        return;
    }
    if (notification.application != nullptr) {
        // A program without a location says nothing about scope: what is bound stays bound.
        if (const auto& location = notification.application->bundleUrl()) {
            applyScope(*notification.application, *location);
        }
    }
    pendingNotification_.reset();
}

void Handler::applyScope(const RunningApplication& application, const Url& location) {
    const bool isListed = isListedApp(location.path());
    const auto mode = UserDefault<std::int64_t>(platform_.userDefaults, "exclusionType", 0).get();
    activeBundleID_ = application.bundleIdentifier();
    unbindAll();
    const bool isActive =
        (mode == onlyListed && isListed) || (mode == allExceptListed && !isListed);
    if (!isActive) {
        return;
    }
    if (!application.isFileManager()) { // which is never quit, while its windows are guarded
        bindQuitShortcut();
    }
    bindWindowShortcut();
}

bool Handler::isListedApp(const std::string& path) const {
    const auto apps =
        UserDefault<std::vector<std::string>>(platform_.userDefaults, "apps", {}).get();
    return std::ranges::find(apps, path) != apps.end();
}

void Handler::bindQuitShortcut() {
    bind(quitShortcut, &Handler::quitKeyDown, &Handler::qIsDown_);
}

void Handler::bindWindowShortcut() {
    bind(windowShortcut, &Handler::windowKeyDown, &Handler::wIsDown_);
}

void Handler::bind(std::string_view defaultsKey, void (Handler::*keyDown)(), DownFlag flag) {
    if (disabledOverride || binder_ == nullptr) {
        return;
    }
    const auto self = shared_from_this(); // a press never meets a handler that is gone
    binder_->bindShortcut(
        defaultsKey, [self, keyDown] { (*self.*keyDown)(); },
        [self, flag] { self->shortcutKeyUp(flag); });
}

void Handler::breakBinding(std::string_view defaultsKey) {
    if (binder_ != nullptr) {
        binder_->breakBinding(defaultsKey);
    }
}

void Handler::unbindAll() {
    breakBinding(quitShortcut);
    breakBinding(windowShortcut);
}

void Handler::quitKeyDown() {
    qIsDown_ = true;
    beginHold("Hold to Quit App", [this] { quitActiveApp(); });
}

void Handler::windowKeyDown() {
    wIsDown_ = true;
    beginHold("Hold to Close Window", [this] {
        timerWindowController->close();
        closeFrontWindow();
    });
}

void Handler::beginHold(const std::string& title, std::function<void()> completion) {
    TimerWindowController& panel = *timerWindowController;
    panel.action = [this, hold = ++holdNumber_, act = std::move(completion)] {
        if (isStillHolding(hold)) {
            act();
        }
    };
    panel.showWindow();
    if (TimerWindow* window = panel.window()) {
        window->center();
    }
    panel.setProgress(0.0);
    panel.titleLabel->setStringValue(title);
    panel.startTimer();
}

/// What the keyboard has sent and nobody has read yet is delivered in here: a release ends the
/// hold, even if the process was too busy to see it in time, and a new press begins another one.
bool Handler::isStillHolding(std::uint64_t hold) {
    const bool keysAreDown = binder_ != nullptr && binder_->confirmPressed();
    return keysAreDown && hold == holdNumber_;
}

void Handler::shortcutKeyUp(DownFlag flag) {
    const bool wasDown = std::exchange(this->*flag, false);
    ++holdNumber_;
    if (wasDown && pendingNotification_) {
        const ActivationNotification notification =
            *pendingNotification_; // it clears or replaces it
        handleActivation(notification);
    }
    if (timerWindowController->timer != nullptr) {
        timerWindowController->timer->invalidate();
    }
    timerWindowController->close();
}

void Handler::quitActiveApp() {
    timerWindowController->close();
    if (!activeBundleID_) {
        return;
    }
    const auto running = platform_.workspace.runningApplications(*activeBundleID_);
    if (!running.empty()) {
        running.front()->terminate();
    }
}

void Handler::closeFrontWindow() {
    const auto frontmost = platform_.workspace.frontmostApplication();
    if (frontmost == nullptr) {
        return;
    }
    if (!frontmost->localizedName()) {
        std::abort();
    }
    const auto script = platform_.scriptHost.compile(
        withApplicationName(closeWindowScript_, *frontmost->localizedName()));
    if (script != nullptr) {
        static_cast<void>(script->execute()); // a failure leaves no trace
    }
}

ClassRegistry binderClasses() {
    ClassRegistry classes;
    classes.add("Handler", [] { return std::make_shared<Handler>(); });
    return classes;
}

} // namespace dwellkey
