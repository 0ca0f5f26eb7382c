// SPDX-License-Identifier: MIT
// The models as the program composes them, on the fake platform.
#pragma once

#include "hold/keyboard_shortcuts_model.h"
#include "platform/fake/fake_platform.h"

#include <cstddef>
#include <string>
#include <vector>

namespace dwellkey::bench {

/// The URLs of that many installed applications, whose identifiers are all equally long and differ
/// at their ends, as those of one maker do.
std::vector<Url> installApplications(FakePlatform& platform, std::size_t count);

/// Ctrl+Q is guarded, and an application that is not in the list is in front.
struct HoldDesktop : FakePlatform {
    static constexpr std::uint32_t q = 12;
    static constexpr std::uint32_t command = 0x100;

    /// `delay` in seconds.
    HoldDesktop(std::size_t listedApplications, double delay);

    AlertManager alertManager;
    PreferencesViewModel preferences{platform(), alertManager};
    TimerManager timer{platform(), preferences};
    AppStateManager appState{platform()};
    KeyCommandRegistry registry{platform()};
    KeyboardShortcutsModel model{platform(), timer, appState, registry};
};

} // namespace dwellkey::bench
