// SPDX-License-Identifier: MIT
// The two guarded shortcuts. std only.
#pragma once

#include "app/state/app_state_manager.h"
#include "hold/stand_down_policy.h"
#include "hold/timer_manager.h"
#include "keycommands/key_command.h"
#include "keycommands/key_command_registry.h"
#include "support/observable_object.h"

#include <vector>

namespace dwellkey {

/// From its construction on, the shortcuts that have a combination are taken system-wide and drive
/// the hold engine. The recorders of the preferences write through the two commands.
class KeyboardShortcutsModel : public ObservableObject {
public:
    /// The process's instance, made on first use and never destroyed.
    static KeyboardShortcutsModel& shared();

    /// On a first launch, gives the quit command its default. All references must outlive the
    /// model.
    explicit KeyboardShortcutsModel(Platform& platform = Platform::shared(),
                                    TimerManager& timer = TimerManager::shared(),
                                    AppStateManager& appState = AppStateManager::shared(),
                                    KeyCommandRegistry& registry = KeyCommandRegistry::shared());
    /// Stops listening; the commands and their stored entries stay.
    ~KeyboardShortcutsModel();

    TimerManager& timerManager;
    KeyCommand quitApplicationCommand;
    KeyCommand closeWindowCommand;
    AppStateManager& appStateManager;

private:
    void applyFirstLaunchDefault() const;
    void observeCommands();
    void quitKeyDown();
    void closeKeyDown();

    Platform& platform_;
    std::vector<KeyCommand::Observation> quitObservations_;
    std::vector<KeyCommand::Observation> closeObservations_;
    StandDownPolicy standDownPolicy_;
};

} // namespace dwellkey
