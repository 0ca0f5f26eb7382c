// SPDX-License-Identifier: MIT
#include "settings/preferences_view_model.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <string>
#include <utility>

namespace dwellkey {
namespace {

constexpr std::string_view selectedAppScopeKey = "selectedAppScope";
constexpr std::string_view appURLsKey = "appURLs";
constexpr double defaultDelay = 2.0; // seconds

/// Unlike an assertion it holds in what ships, too: going on would store a wrong setting.
void require(bool condition, const char* rule) {
    if (!condition) {
        std::fprintf(stderr, "dwellkey: %s\n", rule);
        std::abort();
    }
}

bool fitsInt64(double value) {
    constexpr double limit = 9223372036854775808.0; // 2^63, which a double holds exactly
    return value >= -limit && value < limit;        // false for what is not a number
}

} // namespace

PreferencesViewModel& PreferencesViewModel::shared() {
    static auto* const instance = new PreferencesViewModel;
    return *instance;
}

PreferencesViewModel::PreferencesViewModel(Platform& platform, AlertManager& alertManager,
                                           OutsideEdits edits)
    : platform_(platform), alertManager_(alertManager),
      selectedAppScope_(*this, platform.userDefaults, selectedAppScopeKey,
                        std::string(rawValue(AppScopeMode::excludeApps))),
      showMenuBarIcon_(*this, platform.userDefaults, "showMenuBarIcon", true),
      startOnLogin_(*this, platform.userDefaults, "startOnLogin", false),
      delayUntilActivation_(*this, platform.userDefaults, "delayUntilActivation", defaultDelay) {
    loadApps();
    refreshAppsOnDisk();
    if (edits == OutsideEdits::ignored) {
        return;
    }
    appURLsFromOutside_ = platform.userDefaults.observe(appURLsKey, [this](DefaultsChange change) {
        if (change == DefaultsChange::fromOutside) {
            takeOverAppsFromOutside();
        }
    });
}

AppScopeMode PreferencesViewModel::selectedAppScope() const {
    // Not through the property, which would copy the text: this runs while a key is going down.
    const DefaultsValue* stored = platform_.userDefaults.find(selectedAppScopeKey);
    const auto* text = stored != nullptr ? std::get_if<std::string>(stored) : nullptr;
    const auto mode = text != nullptr ? appScopeMode(*text) : std::nullopt;
    return mode.value_or(AppScopeMode::excludeApps);
}

void PreferencesViewModel::setSelectedAppScope(AppScopeMode mode) {
    selectedAppScope_.set(std::string(rawValue(mode)));
}

template <std::invocable<std::vector<AppInfo>&> Change>
void PreferencesViewModel::assignApps(Change change) {
    objectWillChange.emit();
    change(apps_);
    saveApps();
}

void PreferencesViewModel::setApps(std::vector<AppInfo> apps) {
    assignApps([&](auto& mine) { mine = std::move(apps); });
}

void PreferencesViewModel::appendApp(AppInfo app) {
    assignApps([&](auto& mine) { mine.push_back(std::move(app)); });
}

void PreferencesViewModel::setExistsOnDisk(std::size_t index, bool exists) {
    assignApps([&](auto& mine) {
        require(index < mine.size(), "no application of the list has this index");
        mine[index].existsOnDisk = exists;
    });
}

void PreferencesViewModel::addApp(const Url& url) {
    AppInfo candidate(url, platform_);
    if (std::ranges::none_of(apps_, [&](const AppInfo& app) { return app.url() == url; })) {
        appendApp(std::move(candidate));
    }
}

void PreferencesViewModel::saveApps() {
    std::vector<std::string> urls;
    urls.reserve(apps_.size());
    for (const AppInfo& app : apps_) {
        urls.push_back(app.url().absoluteString());
    }
    platform_.userDefaults.set(appURLsKey, std::move(urls));
}

/// Absent when something else than a list of texts is stored. A copy, since the list is stored anew
/// while it is walked.
std::optional<std::vector<std::string>> PreferencesViewModel::storedAppURLs() const {
    if (!platform_.userDefaults.contains(appURLsKey)) {
        return std::vector<std::string>();
    }
    const DefaultsValue* stored = platform_.userDefaults.find(appURLsKey);
    const auto* list = stored != nullptr ? std::get_if<std::vector<std::string>>(stored) : nullptr;
    return list != nullptr ? std::optional(*list) : std::nullopt;
}

/// An edit of the settings file: the list becomes what the file says, and the file is left as its
/// editor wrote it. What is no list changes nothing: its editor is likely still at it.
void PreferencesViewModel::takeOverAppsFromOutside() {
    const auto texts = storedAppURLs();
    if (!texts) {
        platform_.errorLog.error("The edited list of applications is not used.",
                                 "\"appURLs\" in the settings is not a list of texts");
        return;
    }
    std::vector<AppInfo> apps;
    for (const std::string& text : *texts) {
        if (const auto url = addressIn(text)) {
            AppInfo app(*url, platform_);
            app.existsOnDisk = platform_.bundleReader.fileExists(url->path());
            apps.push_back(std::move(app));
        }
    }
    objectWillChange.emit();
    apps_ = std::move(apps);
}

void PreferencesViewModel::loadApps() {
    const auto texts = storedAppURLs();
    if (!texts) {
        return;
    }
    for (const std::string& text : *texts) {
        if (const auto url = addressIn(text)) {
            appendApp(AppInfo(*url, platform_));
        }
    }
    if (apps_.empty() && !texts->empty()) {
        saveApps(); // as every application of a list that has one does: what is told is gone
    }
}

std::optional<Url> PreferencesViewModel::addressIn(const std::string& text) const {
    auto url = text.starts_with('/') ? Url::fromPath(text) : Url::parse(text);
    if (!url) {
        platform_.errorLog.error("An application of the list is left out.",
                                 "neither an address nor a path: " + text);
    }
    return url;
}

void PreferencesViewModel::refreshAppsOnDisk() {
    const std::size_t count = apps_.size();
    for (std::size_t i = 0; i < count; ++i) {
        require(i < apps_.size(), "the list of applications shrank while it was refreshed");
        setExistsOnDisk(i, platform_.bundleReader.fileExists(apps_[i].url().path()));
    }
}

void PreferencesViewModel::setStartOnLogin(bool starts) {
    startOnLogin_.set(starts);
    if (!isUpdatingLoginItem_) {
        applyLoginItem();
    }
}

void PreferencesViewModel::applyLoginItem() {
    isUpdatingLoginItem_ = true;
    const bool starts = startOnLogin();
    const auto error =
        starts ? platform_.loginItem.registerItem() : platform_.loginItem.unregisterItem();
    if (error) {
        setStartOnLogin(!starts);
        const Localizer& localizer = platform_.localizer;
        alertManager_.showAlert(
            localizer.localized("PreferencesViewModel", "Login Item Error"),
            (starts
                 ? localizer.localized("PreferencesViewModel", "Unable to enable launch at login: ")
                 : localizer.localized("PreferencesViewModel",
                                       "Unable to disable launch at login: "))
                + error->localizedDescription);
    }
    isUpdatingLoginItem_ = false;
}

void PreferencesViewModel::refreshLoginItemStatus() {
    isUpdatingLoginItem_ = true;
    setStartOnLogin(platform_.loginItem.status() == LoginItemStatus::enabled);
    isUpdatingLoginItem_ = false;
}

double PreferencesViewModel::delayUntilActivation() const {
    const double stored = delayUntilActivation_.get();
    return std::isfinite(stored) && stored > 0.0 ? stored : defaultDelay;
}

double PreferencesViewModel::delaySliderValue() const {
    const double delay = delayUntilActivation();
    std::size_t nearest = 0;
    double best = std::numeric_limits<double>::max();
    for (std::size_t i = 0; i < delayOptions.size(); ++i) {
        const double difference = std::abs(delayOptions.at(i) - delay);
        if (difference < best) {
            best = difference;
            nearest = i;
        }
    }
    return static_cast<double>(nearest);
}

void PreferencesViewModel::setDelaySliderValue(double value) {
    require(fitsInt64(value), "a slider value is finite and fits 64 bits");
    constexpr auto last = static_cast<double>(delayOptions.size() - 1);
    const double index = std::clamp(std::round(value), 0.0, last);
    setDelayUntilActivation(delayOptions.at(static_cast<std::size_t>(index)));
}

bool PreferencesViewModel::isFrontmostAppGuarded() const {
    const auto frontmost = platform_.workspace.frontmostApplication();
    if (frontmost == nullptr || !frontmost->bundleIdentifier()) {
        return false;
    }
    return guards(selectedAppScope(), *frontmost->bundleIdentifier(), apps_);
}

} // namespace dwellkey
