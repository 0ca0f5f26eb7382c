// SPDX-License-Identifier: MIT
// The shortcuts of desktops that keep them in GSettings. std + POSIX only.
#pragma once

#include "platform/linux/child_output.h"
#include "platform/linux/system_shortcuts_reading.h"

#include <functional>
#include <variant>

namespace dwellkey {

/// Runs `gsettings` or `dconf` and returns what it prints. The settings database has no format that
/// others may read, and the library for it would bring a second main loop with its threads.
using SettingsTool = std::function<std::variant<std::string, ChildProblem>(const CommandWords&)>;

ShortcutReading readGnomeShortcuts(const SettingsTool& run);
ShortcutReading readCinnamonShortcuts(const SettingsTool& run);
ShortcutReading readMateShortcuts(const SettingsTool& run);

} // namespace dwellkey
