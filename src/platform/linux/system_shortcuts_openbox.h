// SPDX-License-Identifier: MIT
// The shortcuts of the Openbox window manager. std + POSIX only.
#pragma once

#include "platform/linux/environment.h"
#include "platform/linux/system_shortcuts_reading.h"

#include <optional>
#include <string>
#include <vector>

namespace dwellkey {

/// The configuration that Openbox would use: the first name that any of the folders has. Absent
/// when none has any. `names` are relative to an "openbox" folder.
std::optional<std::string> openboxConfiguration(const BaseFolders& folders,
                                                const std::vector<std::string>& names);

/// Of a chain of combinations the first one counts: only it is kept from applications.
ShortcutReading readOpenboxShortcuts(const std::string& path);

} // namespace dwellkey
