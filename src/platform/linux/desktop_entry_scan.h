// SPDX-License-Identifier: MIT
// Reading whole folders of desktop entries. std + POSIX only.
#pragma once

#include "platform/linux/desktop_entry.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dwellkey {

struct InstalledApplication {
    std::string id;   ///< desktop-entry id without ".desktop"; subfolders joined with '-'
    std::string path; ///< of the desktop entry, as found: a symbolic link is not resolved
    DesktopEntry entry;
};

struct ScannedApplications {
    /// The most important folder's first, in the order of their ids; no id twice.
    std::vector<InstalledApplication> applications;
    /// Entries that could not be used, with the cause. They hide nothing.
    std::vector<DesktopEntryProblem> skipped;
    /// A line for each of the folders of which something was not read: it leads too deep, or to too
    /// many others.
    std::vector<std::string> leftOut;
};

/// Reads all entries below the folders, an earlier folder's entry hiding those of its id behind
/// it. `willRead` is called with each folder and subfolder before it is read. Folders that do not
/// exist are empty. Links to folders are followed, each folder is read once, and both the depth and
/// the number of subfolders are bounded.
ScannedApplications scanApplicationFolders(const std::vector<std::string>& folders,
                                           const LocaleNames& locales,
                                           const std::function<void(const std::string&)>& willRead);

/// The desktop-entry id, without ".desktop", of a file: its path below the applications folder,
/// joined with '-'. A file in none of `folders` takes the last folder of its path that is called
/// "applications", or else its bare file name. Absent when the file is not named like an entry.
std::optional<std::string> desktopEntryId(std::string_view path,
                                          const std::vector<std::string>& folders);

} // namespace dwellkey
