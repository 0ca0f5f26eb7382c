// SPDX-License-Identifier: MIT
// When a guarded shortcut belongs to the application in front. std only.
#pragma once

#include "platform/once_per_turn.h"
#include "platform/platform.h"
#include "settings/preferences_view_model.h"
#include "support/signal.h"

namespace dwellkey {

/// Keeps both hot keys standing down exactly while we have no business with them, so that the
/// application in front gets its own keys, auto-repeat and all:
///
/// | in front                    | quit        | close       |
/// |-----------------------------|-------------|-------------|
/// | an application in scope     | ours        | ours        |
/// | one out of scope            | stands down | stands down |
/// | the file manager, likewise  | ours        | stands down |
/// | none                        | ours        | ours        |
/// | none, and nobody to tell    | stands down | stands down |
///
/// The file manager is never quit, so the quit shortcut must reach us even when it is out of scope.
/// "Nobody to tell" is a session without the means to close windows: there, no application in
/// front says nothing about what is in front.
class StandDownPolicy {
public:
    struct HotKeyIDs {
        EventHotKeyID quitApplication;
        EventHotKeyID closeWindow;
    };

    /// Applies itself at once, after each activation and after each change of the preferences.
    StandDownPolicy(Platform& platform, PreferencesViewModel& preferences, HotKeyIDs ids);

    /// Costs next to nothing when nothing changed.
    void apply();

private:
    Platform& platform_;
    PreferencesViewModel& preferences_;
    const HotKeyIDs ids_;
    /// The preferences announce before they change: they are judged in a later turn.
    OncePerTurn applyOnce_;
    Subscription activation_;
    Subscription preferencesChange_;
};

} // namespace dwellkey
