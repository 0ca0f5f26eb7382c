// SPDX-License-Identifier: MIT
// The shortcuts of Xfce: commands and those of its window manager. std + POSIX only.
#pragma once

#include "platform/linux/environment.h"
#include "platform/linux/system_shortcuts_reading.h"

namespace dwellkey {

/// From the files of the settings channel. The settings service writes a change within seconds,
/// and the files can be had without a session bus.
ShortcutReading readXfceShortcuts(const BaseFolders& folders);

} // namespace dwellkey
