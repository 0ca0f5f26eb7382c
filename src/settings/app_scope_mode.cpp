// SPDX-License-Identifier: MIT
#include "settings/app_scope_mode.h"

#include <algorithm>
#include <functional>

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
    const std::size_t hash = std::hash<std::string_view>{}(bundleIdentifier);
    const bool listed = std::ranges::any_of(
        apps, [&](const AppInfo& app) { return app.isIdentifiedBy(bundleIdentifier, hash); });
    return listed == (mode == AppScopeMode::includeApps);
}

} // namespace dwellkey
