// SPDX-License-Identifier: MIT
// The menu of the menu-bar item. std only.
#pragma once

#include "platform/menu_bar_extra.h"
#include "platform/platform.h"

#include <functional>

namespace dwellkey {

class MenuBarView {
public:
    /// `terminate` is asked, once the user chose it, to end the application. The platform must
    /// outlive the view.
    MenuBarView(Platform& platform, std::function<void()> terminate);

    /// The item as it stands in the bar. Its actions outlive the view, not the platform.
    [[nodiscard]] MenuBarItem item() const;

private:
    /// The identifier must be a literal.
    [[nodiscard]] std::function<void()> opening(const char* windowIdentifier) const;

    Platform& platform_;
    std::function<void()> terminate_;
};

} // namespace dwellkey
