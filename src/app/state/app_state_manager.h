// SPDX-License-Identifier: MIT
// Flags of the whole application. std only.
#pragma once

#include "platform/platform.h"
#include "platform/published_default.h"
#include "support/observable_object.h"

#include <cstdint>

namespace dwellkey {

class AppStateManager : public ObservableObject {
public:
    /// The process's instance, made on first use and never destroyed.
    static AppStateManager& shared();

    explicit AppStateManager(Platform& platform = Platform::shared());

    /// "isFirstLaunch": true until the first launch was handled.
    PublishedDefault<bool> isFirstLaunch;
    /// "appIsOpen": written false when the application terminates.
    PublishedDefault<bool> isAppOpen;

    Published<bool> hasVisibleWindows{*this, false};
    Published<std::int64_t> appCase{*this, 0};
};

} // namespace dwellkey
