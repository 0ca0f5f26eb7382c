// SPDX-License-Identifier: MIT
// The user's settings, except for the two shortcuts. std only.
#pragma once

#include "app/state/alert_manager.h"
#include "platform/platform.h"
#include "platform/published_default.h"
#include "settings/app_info.h"
#include "settings/app_scope_mode.h"
#include "support/observable_object.h"

#include <array>
#include <concepts>
#include <cstddef>
#include <vector>

namespace dwellkey {

/// Everything but the list of applications lives in the store alone, so all instances agree on it.
/// The list is each instance's own copy, read when the instance is made and written whenever it is
/// assigned. Everything that changes is announced by `objectWillChange`.
class PreferencesViewModel : public ObservableObject {
public:
    /// In seconds, slowest first. Deliberately uneven, and deliberately without the default.
    static constexpr std::array delayOptions{3.0, 2.7, 2.2, 1.9, 1.4, 1.05, 0.85, 0.6, 0.4, 0.25};
    static constexpr double delayMinValue = 0.25;
    static constexpr double delayMaxValue = 3.0;
    static constexpr int numberOfSteps = 10;

    /// The process's instance, made on first use and never destroyed.
    static PreferencesViewModel& shared();

    /// Whether the list becomes what somebody writes into the settings file.
    enum class OutsideEdits { followed, ignored };

    /// Loads the list and marks what is on disk. A stored text is the address of an application, or
    /// the plain path of its file; what is neither is logged and left out. Both references must
    /// outlive the model.
    explicit PreferencesViewModel(Platform& platform = Platform::shared(),
                                  AlertManager& alertManager = AlertManager::shared(),
                                  OutsideEdits edits = OutsideEdits::followed);

    /// The choices of the scope picker, in its order.
    [[nodiscard]] const std::vector<AppScopeMode>& appScopeOptions() const {
        return appScopeOptions_;
    }

    /// Allocates nothing.
    [[nodiscard]] AppScopeMode selectedAppScope() const;
    void setSelectedAppScope(AppScopeMode mode);

    /// In the order of adding. Each of the three assignments stores the list.
    [[nodiscard]] const std::vector<AppInfo>& apps() const { return apps_; }
    void setApps(std::vector<AppInfo> apps);
    void appendApp(AppInfo app);
    /// An index outside the list ends the process.
    void setExistsOnDisk(std::size_t index, bool exists);

    [[nodiscard]] bool showMenuBarIcon() const { return showMenuBarIcon_.get(); }
    void setShowMenuBarIcon(bool shown) { showMenuBarIcon_.set(shown); }

    /// While true, assigning `startOnLogin` only stores the value. True from construction until the
    /// first operation on the login item ended.
    [[nodiscard]] bool isUpdatingLoginItem() const { return isUpdatingLoginItem_; }

    [[nodiscard]] bool startOnLogin() const { return startOnLogin_.get(); }
    /// Applies to the login item at once, see `isUpdatingLoginItem`. When that fails, the setting
    /// goes back and the alert manager tells the user.
    void setStartOnLogin(bool starts);

    /// How long a guarded shortcut must be held, in seconds; more than 0. Allocates nothing.
    [[nodiscard]] double delayUntilActivation() const;
    void setDelayUntilActivation(double seconds) { delayUntilActivation_.set(seconds); }

    /// Index of the delay option nearest to `delayUntilActivation`; the slower of two as near.
    [[nodiscard]] double delaySliderValue() const;
    /// Selects the option at the nearest index, clamped to the list. A value that is not finite or
    /// exceeds 64 bits ends the process.
    void setDelaySliderValue(double value);

    [[nodiscard]] AlertManager& alertManager() const { return alertManager_; }

    /// Appends the application unless its URL, compared as it stands, is listed.
    void addApp(const Url& url);
    void saveApps();
    void refreshAppsOnDisk();
    void applyLoginItem();
    /// Takes `startOnLogin` over from the login item, which the user may have switched elsewhere.
    void refreshLoginItemStatus();

    /// Whether the shortcuts are held for the application now in front. Never without one, nor for
    /// one without an identifier. Allocates nothing.
    [[nodiscard]] bool isFrontmostAppGuarded() const;

private:
    template <std::invocable<std::vector<AppInfo>&> Change>
    void assignApps(Change change);
    void loadApps();
    void takeOverAppsFromOutside();
    [[nodiscard]] std::optional<std::vector<std::string>> storedAppURLs() const;
    [[nodiscard]] std::optional<Url> addressIn(const std::string& text) const;

    Platform& platform_;
    AlertManager& alertManager_;
    std::vector<AppScopeMode> appScopeOptions_{allAppScopeModes.begin(), allAppScopeModes.end()};
    PublishedDefault<std::string> selectedAppScope_;
    std::vector<AppInfo> apps_;
    PublishedDefault<bool> showMenuBarIcon_;
    bool isUpdatingLoginItem_ = true;
    PublishedDefault<bool> startOnLogin_;
    PublishedDefault<double> delayUntilActivation_;
    Subscription appURLsFromOutside_;
};

} // namespace dwellkey
