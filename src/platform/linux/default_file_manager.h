// SPDX-License-Identifier: MIT
// Which application opens folders on this desktop. std + POSIX only.
#pragma once

#include "platform/linux/desktop_entry_index.h"
#include "platform/linux/environment.h"
#include "platform/linux/folder_watch.h"
#include "platform/linux/mime_applications.h"
#include "platform/run_loop.h"
#include "support/signal.h"

#include <optional>
#include <set>
#include <string>
#include <vector>

namespace dwellkey {

class DefaultFileManager {
public:
    /// `desktops` are the running desktop's names, most specific first, as XDG_CURRENT_DESKTOP
    /// lists them. The run loop and the index must outlive this.
    DefaultFileManager(RunLoop& runLoop, const DesktopEntryIndex& index, BaseFolders folders,
                       std::vector<std::string> desktops);

    /// The identifier of the installed file manager (its entry, or another one of its program, has
    /// that category) that opens folders: the user's choice, the desktop's, or else one that says
    /// it can. Absent without any. Read at the first question and again at the first one after a
    /// change.
    [[nodiscard]] const std::optional<std::string>& identifier() const;

private:
    struct Answer {
        std::optional<std::string> identifier;
    };

    [[nodiscard]] std::optional<std::string> found() const;
    [[nodiscard]] std::optional<std::string>
    firstWilling(const std::set<std::string>& removed) const;
    [[nodiscard]] bool managesFiles(const InstalledApplication& application) const;
    [[nodiscard]] std::vector<std::string> listFolders() const;
    [[nodiscard]] MimeApplications choicesIn(const std::string& folder) const;

    const DesktopEntryIndex& index_;
    BaseFolders folders_;
    std::vector<std::string> desktops_;
    mutable std::optional<Answer> answer_;
    mutable FolderWatch watch_;
    Subscription applicationsChanged_;
};

} // namespace dwellkey
