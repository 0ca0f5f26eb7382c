// SPDX-License-Identifier: MIT
// The installed applications, found by what a window or a process shows of itself. std + POSIX.
#pragma once

#include "platform/linux/desktop_entry_scan.h"
#include "platform/linux/folder_watch.h"
#include "platform/linux/locale_names.h"
#include "platform/run_loop.h"
#include "support/signal.h"

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dwellkey {

/// The applications of all folders, an earlier folder's entry hiding those of its id behind it.
///
/// Nothing is read before the first lookup. A change of the folders costs one wake-up; they are
/// read again at the next lookup. The results of a lookup stay valid until control returns to the
/// run loop; that a lookup finds nothing is a null pointer.
class DesktopEntryIndex {
public:
    /// Folders are those named "applications", most important first; they may not exist yet.
    /// `searchPath` is where programs without a path are looked for. The run loop must outlive
    /// the index.
    DesktopEntryIndex(RunLoop& runLoop, std::vector<std::string> folders, LocaleNames locales,
                      std::vector<std::string> searchPath);

    [[nodiscard]] const InstalledApplication* byId(std::string_view id) const;

    /// The application that says its windows have this class: spelt exactly so, or else with
    /// other capitals. Of several, the one of that name, then one that menus show.
    [[nodiscard]] const InstalledApplication* byStartupWmClass(std::string_view wmClass) const;

    /// The application whose entry is named like this window class: exactly, in lower case, or,
    /// where only one comes into question, by the last parts of a reversed domain name
    /// ("org.gnome.TextEditor" and "gnome-text-editor").
    [[nodiscard]] const InstalledApplication* byWindowClass(std::string_view wmClass) const;

    /// The application that starts the program at this absolute path; or else one that starts
    /// another program of its name. Null also when several do with equal right.
    [[nodiscard]] const InstalledApplication* byExecutable(const std::string& path) const;

    /// The only application of a sandbox's own name for it.
    [[nodiscard]] const InstalledApplication* byFlatpakId(std::string_view id) const;
    [[nodiscard]] const InstalledApplication* bySnapInstanceName(std::string_view name) const;

    /// All, the most important folder first, in the order of their ids.
    [[nodiscard]] const std::vector<InstalledApplication>& applications() const;

    /// Entries that could not be used, with the cause.
    [[nodiscard]] const std::vector<DesktopEntryProblem>& skipped() const;

    /// Lines that say which folders were not read, and why.
    [[nodiscard]] const std::vector<std::string>& leftOut() const;

    /// Why later changes go unnoticed; absent while they do not.
    [[nodiscard]] const std::optional<std::string>& watchProblem() const;

    [[nodiscard]] const std::vector<std::string>& folders() const { return folders_; }
    [[nodiscard]] const LocaleNames& locales() const { return locales_; }

    /// The file that a program's name means: links resolved, names without a slash looked up in
    /// the search path. Absent when there is none.
    [[nodiscard]] std::optional<std::string> resolvedProgram(const std::string& name) const;

    /// Emitted when an earlier result may no longer hold. Read nothing in a handler: more changes
    /// are likely on their way.
    Signal<> didChange;

private:
    using Positions = std::map<std::string, std::vector<std::size_t>, std::less<>>;
    struct Programs {
        Positions byPath;
        Positions byBaseName;
    };
    struct Tables {
        ScannedApplications scanned;
        Positions byId;
        Positions byFoldedId;
        Positions byFoldedTail; ///< the last parts of ids that are reversed domain names
        Positions byStartupWmClass;
        Positions byLowerCaseStartupWmClass;
        std::optional<Programs> programs; ///< made when first asked: it searches the whole PATH
    };

    Tables& tables() const;
    const Programs& programs() const;
    [[nodiscard]] const InstalledApplication* only(const Positions& positions,
                                                   std::string_view key) const;
    [[nodiscard]] const InstalledApplication*
    onlyWhere(const std::function<bool(const InstalledApplication&)>& fits) const;
    [[nodiscard]] const InstalledApplication* preferredOfClass(const Positions& positions,
                                                               std::string_view key,
                                                               std::string_view wmClass) const;
    [[nodiscard]] const InstalledApplication* likeliestStarted(const Positions& positions,
                                                               std::string_view key) const;

    std::vector<std::string> folders_;
    LocaleNames locales_;
    std::vector<std::string> searchPath_;
    mutable FolderWatch watch_;
    mutable std::optional<Tables> tables_; ///< absent while what was read is out of date
};

} // namespace dwellkey
