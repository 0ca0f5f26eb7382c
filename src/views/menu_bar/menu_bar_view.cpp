// SPDX-License-Identifier: MIT
#include "views/menu_bar/menu_bar_view.h"

#include <string>
#include <utility>

namespace dwellkey {

MenuBarView::MenuBarView(Platform& platform, std::function<void()> terminate)
    : platform_(platform), terminate_(std::move(terminate)) {}

MenuBarItem MenuBarView::item() const {
    const Localizer& localizer = platform_.localizer;
    return {
        "Dwellkey",
        {{.title = localizer.localized("MenuBarView", "Preferences..."),
          .keyEquivalent = KeyEquivalent{U','},
          .action = opening("PreferencesView")},
         {.title = localizer.localized("MenuBarView", "About..."), .action = opening("AboutView")},
         MenuEntry::separator(),
         {.title = localizer.localized("MenuBarView", "Quit Dwellkey"),
          .keyEquivalent = KeyEquivalent{U'q'},
          .action = terminate_}}};
}

std::function<void()> MenuBarView::opening(const char* windowIdentifier) const {
    return [&platform = platform_, windowIdentifier] {
        platform.workspace.activateOurselves();
        platform.windowHost.open(windowIdentifier);
    };
}

} // namespace dwellkey
