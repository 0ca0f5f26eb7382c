// SPDX-License-Identifier: MIT
// The desktop that the scenes play on: nothing happens there by itself.
#pragma once

#include "hold/keyboard_shortcuts_model.h"
#include "hold/timer_manager.h"
#include "platform/fake/fake_platform.h"
#include "platform/qt/qt_localizer.h"
#include "scenes.h"
#include "settings/preferences_view_model.h"

namespace dwellkey {

/// Some applications, one of them in front, and the models of the program, in the user's language.
class Desktop {
public:
    /// Installed as the shared platform, so it stays for the life of the process.
    static Desktop& shared();

    /// Lets the views take up what changed in the models.
    void turn();

    /// Opens the window, shows it to `look` and hides it.
    template <typename Window>
    void show(Window& window, const Look& look) {
        window.open();
        turn();
        look(window);
        window.hide();
    }

    FakePlatform fake;
    AlertManager alertManager;
    PreferencesViewModel preferences{fake.platform(), alertManager};
    AppStateManager appState{fake.platform()};
    TimerManager timer{fake.platform(), preferences};
    KeyCommandRegistry registry{fake.platform()};
    KeyboardShortcutsModel shortcuts{fake.platform(), timer, appState, registry};

private:
    Desktop();
    void install(const char* file, const char* name, const char* icon);

    QtLocalizer localizer_;
};

} // namespace dwellkey
