// SPDX-License-Identifier: MIT
// The shortcuts of KDE's global shortcut service. std + POSIX only.
#pragma once

#include "platform/linux/environment.h"
#include "platform/linux/system_shortcuts_reading.h"

namespace dwellkey {

/// From kglobalshortcutsrc, where the service writes every shortcut it knows, changed or not. A
/// session in which the file is missing counts as unread.
ShortcutReading readKdeShortcuts(const BaseFolders& folders);

} // namespace dwellkey
