// SPDX-License-Identifier: MIT
// Learning that installed files changed. std + POSIX only.
#pragma once

#include "platform/linux/file_descriptor.h"
#include "platform/run_loop.h"
#include "support/signal.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace dwellkey {

/// Tells once that something changed in a set of folders and then falls silent, so that an upgrade
/// of a thousand files wakes us once. Whoever re-reads the folders arms it anew, and adds each
/// folder before reading it: what changes in between is then told and not missed.
class FolderWatch {
public:
    /// Whether a change of the member of this name matters.
    using Interest = std::function<bool(std::string_view name, bool isFolder)>;

    /// `changed` is called from the run loop, which must outlive the watch.
    FolderWatch(RunLoop& runLoop, std::function<void()> changed);

    /// Forgets all folders and listens again.
    void arm();

    /// Watches a folder's own members. Where it does not exist, watches for it to appear.
    void add(const std::string& folder, const Interest& interest);

    /// Whether a change would still be told.
    [[nodiscard]] bool isArmed() const { return inotify_.isOpen(); }

    /// Why changes are missed (the system's limit of watches), since it was last armed.
    [[nodiscard]] const std::optional<std::string>& problem() const { return problem_; }

private:
    bool tryAdd(const std::string& folder, const Interest& interest);
    std::optional<std::string> watchForMissing(std::string missing);
    void readEvents();
    void disarm();

    RunLoop& runLoop_;
    std::function<void()> changed_;
    FileDescriptor inotify_;
    Subscription readable_;
    std::unordered_map<int, std::vector<Interest>> interests_; ///< by watch descriptor
    std::optional<std::string> problem_;
};

} // namespace dwellkey
