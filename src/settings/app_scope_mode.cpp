// SPDX-License-Identifier: MIT
#include "settings/app_scope_mode.h"

#include <algorithm>

namespace dwellkey {

std::optional<AppScopeMode> appScopeMode(std::string_view text) {
    for (const AppScopeMode mode : allAppScopeModes) {
        if (rawValue(mode) == text) {
            return mode;
        }
    }
    return std::nullopt;
}

bool guards(AppScopeMode mode, std::string_view bundleIdentifier, std::span<const AppInfo> apps) {
    const bool listed = std::ranges::any_of(apps, [&](const AppInfo& app) {
        return app.bundleID() && *app.bundleID() == bundleIdentifier;
    });
    return listed == (mode == AppScopeMode::includeApps);
}

} // namespace dwellkey
