// SPDX-License-Identifier: MIT
// The file in which an application introduces itself to the desktop. std + POSIX only.
#pragma once

#include "platform/linux/exec_command.h"
#include "platform/linux/locale_names.h"

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace dwellkey {

/// An application's desktop entry, as far as we have a use for it.
struct DesktopEntry {
    std::string name; ///< in the user's language; as the file spells it, not fit for display yet
    std::optional<std::string> icon; ///< a theme name or an absolute path
    std::optional<std::string> exec; ///< still a command line: see parseExec
    std::optional<std::string> tryExec;
    std::optional<std::string> startupWmClass;
    std::optional<std::string> flatpakId;        ///< X-Flatpak
    std::optional<std::string> snapInstanceName; ///< X-SnapInstanceName
    std::vector<std::string> mimeTypes;
    std::vector<std::string> categories;
    bool noDisplay = false; ///< absent from menus, an application all the same
    bool dbusActivatable = false;
    /// The user deleted this application: it also hides those of the same id behind it. Then
    /// nothing else, not even the name, need be there.
    bool hidden = false;
};

struct DesktopEntryProblem {
    std::string cause; ///< one line with the place, for a log
};

using DesktopEntryResult = std::variant<DesktopEntry, DesktopEntryProblem>;

/// Entries of other types than Application are refused like damaged ones.
DesktopEntryResult parseDesktopEntry(std::string_view text, const LocaleNames& locales);

/// The same for a file of at most 1 MiB. The cause names the file.
DesktopEntryResult readDesktopEntry(const std::string& path, const LocaleNames& locales);

/// What the entry starts, from Exec or else TryExec. Absent when neither names one program.
std::optional<Program> programOf(const DesktopEntry& entry);

} // namespace dwellkey
