// SPDX-License-Identifier: MIT
#pragma once

#include "platform/menu_bar_extra.h"
#include "platform/qt/template_icon.h"
#include "platform/session.h"

#include <memory>
#include <string>
#include <vector>

namespace dwellkey {

class StatusNotifierHosts;
class TrayItem;
enum class KeyNaming;

/// The item as a StatusNotifierItem on the session bus, its menu exported beside it.
class QtMenuBarExtra final : public MenuBarExtra {
public:
    /// `desktops` are the names of XDG_CURRENT_DESKTOP. The log must outlive the service.
    QtMenuBarExtra(TemplateIcon icon, const std::vector<std::string>& desktops, ErrorLog& errorLog);
    ~QtMenuBarExtra() override;

    /// Begins to look for bars; once.
    void start();

    [[nodiscard]] Subscription insert(MenuBarItem item) override;
    [[nodiscard]] bool isHosted() const override;

private:
    TemplateIcon icon_;
    KeyNaming keyNaming_;
    ErrorLog& errorLog_;
    std::unique_ptr<StatusNotifierHosts> hosts_;
    int items_ = 0; // so far
    std::unique_ptr<TrayItem> item_;
    Subscription hostingChanges_;
    Subscription watchers_;
};

} // namespace dwellkey
