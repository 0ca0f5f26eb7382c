// SPDX-License-Identifier: MIT
#include "hold/stand_down_policy.h"

namespace dwellkey {

StandDownPolicy::StandDownPolicy(Platform& platform, PreferencesViewModel& preferences,
                                 HotKeyIDs ids)
    : platform_(platform), preferences_(preferences), ids_(ids),
      applyOnce_(platform.runLoop, [this] { apply(); }),
      activation_(
          platform.workspace.didActivateApplication.subscribe([this](const auto&) { apply(); })),
      preferencesChange_(
          preferences.objectWillChange.subscribe([this] { applyOnce_.schedule(); })) {
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

} // namespace dwellkey
