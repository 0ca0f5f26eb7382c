// SPDX-License-Identifier: MIT
// Notices when a file becomes another one. POSIX and inotify.
#pragma once

#include "platform/linux/file_descriptor.h"
#include "platform/run_loop.h"

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>

namespace dwellkey {

/// Watches a path through everything that can be put there: the file rewritten in place or
/// renamed into place, a symbolic link and what it leads to, a folder that does not exist yet or is
/// replaced by another.
class FileWatch {
public:
    /// The path is absolute. `changed` runs in a turn of the loop after a write was finished or
    /// another file took the place; several changes may give one call, and a call may come without
    /// a change of content. The disappearance of the file gives none. The loop must outlive the
    /// watch.
    FileWatch(std::string path, RunLoop& loop, std::function<void()> changed);

    /// Why changes go unnoticed, when they do.
    [[nodiscard]] const std::optional<std::string>& problem() const { return problem_; }

private:
    struct WatchedFolder {
        std::string path;
        std::set<std::string> names; // what to look for in it
    };

    void arm();
    void watchFor(const std::string& path);
    bool watchFolder(const std::string& folder, const std::string& name);
    void readEvents();
    [[nodiscard]] bool concernsUs(int watch, unsigned mask, const std::string& name) const;

    std::string path_;
    std::function<void()> changed_;
    FileDescriptor inotify_;
    std::map<int, WatchedFolder> folders_; // by the watch descriptor
    std::optional<std::string> problem_;
    Subscription readable_;
};

} // namespace dwellkey
