// SPDX-License-Identifier: MIT
#include "app/menu_bar_scene.h"

#include <utility>

namespace dwellkey {

MenuBarScene::MenuBarScene(Platform& platform, PreferencesViewModel& preferencesViewModel,
                           OutsideRequests& outsideRequests, std::function<void()> terminate)
    : platform_(platform), preferencesViewModel_(preferencesViewModel),
      outsideRequests_(outsideRequests), view_(platform, std::move(terminate)),
      follow_(platform.runLoop, [this] { follow(); }) {}

void MenuBarScene::appear() {
    preferencesChanges_ =
        preferencesViewModel_.objectWillChange.subscribe([this] { follow_.schedule(); });
    follow();
}

void MenuBarScene::disappear() {
    preferencesChanges_.cancel();
    item_.cancel();
}

void MenuBarScene::follow() {
    const bool isShown = preferencesChanges_.isActive() && preferencesViewModel_.showMenuBarIcon();
    if (!isShown) {
        item_.cancel();
    } else if (!item_.isActive()) {
        item_ = platform_.menuBarExtra.insert(item());
    }
}

MenuBarItem MenuBarScene::item() {
    MenuBarItem item = view_.item();
    for (MenuEntry& entry : item.menu) {
        if (entry.action) {
            entry.action = outsideRequests_.guarded(std::move(entry.action));
        }
    }
    return item;
}

} // namespace dwellkey
