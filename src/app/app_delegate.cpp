// SPDX-License-Identifier: MIT
#include "app/app_delegate.h"

namespace dwellkey {

AppDelegate::AppDelegate(Platform& platform)
    : platform_(platform), prefsWindowController_(platform), aboutWindowController_(platform),
      appStateManager_(AppStateManager::shared()),
      preferencesViewModel_(platform, AlertManager::shared(),
                            PreferencesViewModel::OutsideEdits::ignored),
      keyboardShortcutsModel_(KeyboardShortcutsModel::shared()) {}

AppDelegate::AppDelegate(Platform& platform, AppStateManager& appStateManager,
                         KeyboardShortcutsModel& keyboardShortcutsModel)
    : platform_(platform), prefsWindowController_(platform), aboutWindowController_(platform),
      appStateManager_(appStateManager),
      preferencesViewModel_(platform, AlertManager::shared(),
                            PreferencesViewModel::OutsideEdits::ignored),
      keyboardShortcutsModel_(keyboardShortcutsModel) {}

void AppDelegate::didFinishLaunching() {
    handleLaunch();
}

void AppDelegate::handleLaunch() {
    if (appStateManager_.isFirstLaunch.get()) {
        platform_.windowHost.open("IntroView");
        appStateManager_.isFirstLaunch.set(false);
    }
    platform_.workspace.activateOurselves();
}

bool AppDelegate::shouldHandleReopen(bool /*hasVisibleWindows*/) {
    platform_.windowHost.open("PreferencesView");
    return true;
}

void AppDelegate::willTerminate() {
    appStateManager_.isAppOpen.set(false);
    platform_.userDefaults.synchronize();
}

} // namespace dwellkey
