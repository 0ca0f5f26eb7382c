// SPDX-License-Identifier: MIT
// What the list of applications means, and the rule that follows. std only.
#pragma once

#include "settings/app_info.h"

#include <array>
#include <optional>
#include <span>
#include <string_view>

namespace dwellkey {

enum class AppScopeMode { excludeApps, includeApps };

inline constexpr std::array allAppScopeModes{AppScopeMode::excludeApps, AppScopeMode::includeApps};

/// The text of the picker and, deliberately the same, the stored value: changing it changes the
/// format of the settings.
constexpr std::string_view rawValue(AppScopeMode mode) {
    return mode == AppScopeMode::excludeApps ? "Use Dwellkey with all apps except..."
                                             : "Only use Dwellkey with the following apps...";
}

/// Only the exact texts of `rawValue` name a mode.
std::optional<AppScopeMode> appScopeMode(std::string_view text);

/// Whether an application is guarded. Listed is listed, even when it is missing on disk; a record
/// without an identifier never matches. Allocates nothing.
bool guards(AppScopeMode mode, std::string_view bundleIdentifier, std::span<const AppInfo> apps);

} // namespace dwellkey
