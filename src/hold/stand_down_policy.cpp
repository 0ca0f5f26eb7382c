// SPDX-License-Identifier: MIT
#include "hold/stand_down_policy.h"

namespace dwellkey {

StandDownPolicy::StandDownPolicy(Platform& platform, PreferencesViewModel& preferences,
                                 HotKeyIDs ids)
    : platform_(platform), preferences_(preferences), ids_(ids),
      activation_(
          platform.workspace.didActivateApplication.subscribe([this](const auto&) { apply(); })),
      preferencesChange_(preferences.objectWillChange.subscribe([this] { applySoon(); })) {
    apply();
}

void StandDownPolicy::apply() {
    const auto frontmost = platform_.workspace.frontmostApplication();
    const bool belongsToOthers = frontmost != nullptr
                                     ? !preferences_.isFrontmostAppGuarded()
                                     : !platform_.accessibilityTrust.isProcessTrusted();
    const bool isFileManager = frontmost != nullptr && frontmost->isFileManager();
    platform_.hotKeys.setStandsDown(ids_.quitApplication, belongsToOthers && !isFileManager);
    platform_.hotKeys.setStandsDown(ids_.closeWindow, belongsToOthers);
}

void StandDownPolicy::applySoon() {
    if (appliesSoon_) {
        return;
    }
    appliesSoon_ = true;
    platform_.runLoop.post([this, life = std::weak_ptr(life_)] {
        if (!life.expired()) {
            appliesSoon_ = false;
            apply();
        }
    });
}

} // namespace dwellkey
