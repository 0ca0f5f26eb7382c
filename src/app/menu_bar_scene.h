// SPDX-License-Identifier: MIT
#pragma once

#include "app/outside_requests.h"
#include "platform/once_per_turn.h"
#include "platform/platform.h"
#include "settings/preferences_view_model.h"
#include "views/menu_bar/menu_bar_view.h"

#include <functional>

namespace dwellkey {

/// Keeps the item in the desktop's bar while the setting wants it there. The setting rules the
/// item, never the other way round.
class MenuBarScene {
public:
    /// `terminate` ends the application. The references must outlive the scene.
    MenuBarScene(Platform& platform, PreferencesViewModel& preferencesViewModel,
                 OutsideRequests& outsideRequests, std::function<void()> terminate);

    /// Once the shortcuts are live; from then on it follows the setting.
    void appear();

    /// Takes the item away for good.
    void disappear();

private:
    void follow();
    [[nodiscard]] MenuBarItem item();

    Platform& platform_;
    PreferencesViewModel& preferencesViewModel_;
    OutsideRequests& outsideRequests_;
    MenuBarView view_;
    Subscription item_; // while it is in the bar
    OncePerTurn follow_;
    Subscription preferencesChanges_;
};

} // namespace dwellkey
