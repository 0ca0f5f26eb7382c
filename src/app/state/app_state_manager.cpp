// SPDX-License-Identifier: MIT
#include "app/state/app_state_manager.h"

namespace dwellkey {

AppStateManager& AppStateManager::shared() {
    static auto* const instance = new AppStateManager;
    return *instance;
}

AppStateManager::AppStateManager(Platform& platform)
    : isFirstLaunch(*this, platform.userDefaults, "isFirstLaunch", true),
      isAppOpen(*this, platform.userDefaults, "appIsOpen", false) {}

} // namespace dwellkey
