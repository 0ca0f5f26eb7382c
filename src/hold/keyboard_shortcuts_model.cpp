// SPDX-License-Identifier: MIT
#include "hold/keyboard_shortcuts_model.h"

#include "keycommands/key_command_proxy.h"

namespace dwellkey {
namespace {

using EventType = KeyCommand::EventType;

} // namespace

KeyboardShortcutsModel& KeyboardShortcutsModel::shared() {
    static auto* const instance = new KeyboardShortcutsModel;
    return *instance;
}

KeyboardShortcutsModel::KeyboardShortcutsModel(Platform& platform, TimerManager& timer,
                                               AppStateManager& appState,
                                               KeyCommandRegistry& registry)
    : timerManager(timer), quitApplicationCommand(KeyCommand::Name("quitApplication"), registry),
      closeWindowCommand(KeyCommand::Name("closeWindow"), registry), appStateManager(appState),
      platform_(platform),
      // Before the commands are registered, so that no press is taken that is not ours.
      standDownPolicy_(
          platform, timer.preferencesViewModel,
          {quitApplicationCommand.proxy().identifier(), closeWindowCommand.proxy().identifier()}) {
    if (appStateManager.isFirstLaunch.get()) {
        applyFirstLaunchDefault();
    }
    observeCommands();
}

KeyboardShortcutsModel::~KeyboardShortcutsModel() {
    quitApplicationCommand.removeObservations(quitObservations_);
    closeWindowCommand.removeObservations(closeObservations_);
}

/// The key that types q, wherever the layout puts it: on a French keyboard the position of q types
/// a, and a default that guards "select all" would be a bug. A layout without a q has no better
/// answer than the position.
void KeyboardShortcutsModel::applyFirstLaunchDefault() const {
    const Key key = keyFromCharacter("q", platform_.keyboardLayout).value_or(Key::q);
    // Stored also where another program holds it: later starts have to try again.
    quitApplicationCommand.proxy().choose(key, {Modifier::command});
}

void KeyboardShortcutsModel::observeCommands() {
    // Either release ends the hold, whichever shortcut began it.
    const auto keyUp = [this] { timerManager.stopHold(); };
    quitObservations_ = {
        quitApplicationCommand.observe(EventType::keyDown, [this] { quitKeyDown(); }),
        quitApplicationCommand.observe(EventType::keyUp, keyUp),
    };
    closeObservations_ = {
        closeWindowCommand.observe(EventType::keyDown, [this] { closeKeyDown(); }),
        closeWindowCommand.observe(EventType::keyUp, keyUp),
    };
}

void KeyboardShortcutsModel::quitKeyDown() {
    if (timerManager.isHoldDue()) {
        timerManager.startTimer(CloseMethod::quitApp);
        return;
    }
    // The press reached us and nobody else, so what it asks for is done here, at once.
    if (timerManager.isFinderFrontmost()) {
        timerManager.closeFrontWindow();
    } else if (const auto frontmost = platform_.workspace.frontmostApplication()) {
        frontmost->terminate();
    }
}

void KeyboardShortcutsModel::closeKeyDown() {
    if (timerManager.isHoldDue()) {
        timerManager.startTimer(CloseMethod::closeWindow);
    } else {
        timerManager.closeFrontWindow();
    }
}

} // namespace dwellkey
