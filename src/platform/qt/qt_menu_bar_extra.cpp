// SPDX-License-Identifier: MIT
#include "platform/qt/qt_menu_bar_extra.h"

#include "platform/qt/dbus_menu.h"
#include "platform/qt/status_notifier_hosts.h"
#include "platform/qt/tray_item.h"

#include <algorithm>
#include <utility>

namespace dwellkey {
namespace {

/// The bars of these desktops are written with Qt, those of all others are taken to be GTK's.
KeyNaming keyNamingOf(const std::vector<std::string>& desktops) {
    const bool isQt = std::ranges::any_of(
        desktops, [](const std::string& name) { return name == "KDE" || name == "LXQt"; });
    return isQt ? KeyNaming::text : KeyNaming::keysym;
}

} // namespace

QtMenuBarExtra::QtMenuBarExtra(TemplateIcon icon, const std::vector<std::string>& desktops,
                               ErrorLog& errorLog)
    : icon_(std::move(icon)), keyNaming_(keyNamingOf(desktops)), errorLog_(errorLog),
      hosts_(std::make_unique<StatusNotifierHosts>()),
      hostingChanges_(hosts_->hostingDidChange.subscribe([this] { hostingDidChange.emit(); })),
      watchers_(hosts_->watcherDidAppear.subscribe([this] {
          if (item_) {
              item_->announce();
          }
      })) {}

QtMenuBarExtra::~QtMenuBarExtra() = default;

void QtMenuBarExtra::start() {
    hosts_->start();
}

bool QtMenuBarExtra::isHosted() const {
    return hosts_->isHosted();
}

Subscription QtMenuBarExtra::insert(MenuBarItem item) {
    item_ = std::make_unique<TrayItem>(std::move(item), icon_, keyNaming_, ++items_, errorLog_);
    return Subscription([this] { item_.reset(); });
}

} // namespace dwellkey
