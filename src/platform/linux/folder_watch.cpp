// SPDX-License-Identifier: MIT
#include "platform/linux/folder_watch.h"

#include "platform/linux/inotify_events.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <filesystem>
#include <system_error>
#include <utility>

namespace dwellkey {
namespace {

constexpr std::uint32_t watchedEvents = IN_CREATE | IN_DELETE | IN_CLOSE_WRITE | IN_MOVED_FROM
                                        | IN_MOVED_TO | IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR;

/// The folder that holds this one; absent for the root and for a relative path without a slash.
std::optional<std::string> parentOf(const std::string& folder) {
    const std::size_t slash = folder.rfind('/');
    if (slash == std::string::npos || folder.size() == 1) {
        return std::nullopt;
    }
    return slash == 0 ? "/" : folder.substr(0, slash);
}

} // namespace

FolderWatch::FolderWatch(RunLoop& runLoop, std::function<void()> changed)
    : runLoop_(runLoop), changed_(std::move(changed)) {}

void FolderWatch::arm() {
    disarm();
    problem_.reset();
    inotify_ = FileDescriptor(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC));
    if (!inotify_.isOpen()) {
        problem_ = "folders are not watched: " + std::generic_category().message(errno);
        return;
    }
    readable_ = runLoop_.watch(inotify_.get(), [this] { readEvents(); });
}

void FolderWatch::add(const std::string& folder, const Interest& interest) {
    constexpr int mostAttempts = 4;
    for (int attempt = 0; isArmed() && attempt < mostAttempts; ++attempt) {
        if (tryAdd(folder, interest)) {
            return;
        }
        const auto missing = watchForMissing(folder);
        // What appeared before we watched for it would never be announced.
        std::error_code ignored;
        if (!missing || !std::filesystem::is_directory(*missing, ignored)) {
            return;
        }
    }
}

/// Watches the nearest folder above that exists for the next part of the path, and returns the path
/// so far; absent when nothing above can be watched.
std::optional<std::string> FolderWatch::watchForMissing(std::string missing) {
    while (const auto parent = parentOf(missing)) {
        const auto appears = [name = missing.substr(missing.rfind('/') + 1)](
                                 std::string_view member, bool) { return member == name; };
        if (tryAdd(*parent, appears)) {
            return missing;
        }
        missing = *parent;
    }
    return std::nullopt;
}

/// False when the folder does not exist, or cannot be watched (then `problem_` says why).
bool FolderWatch::tryAdd(const std::string& folder, const Interest& interest) {
    const int descriptor = ::inotify_add_watch(inotify_.get(), folder.c_str(), watchedEvents);
    if (descriptor < 0) {
        if (errno == ENOSPC || errno == ENOMEM) {
            problem_ = folder + " is not watched: " + std::generic_category().message(errno);
        }
        return false;
    }
    interests_[descriptor].push_back(interest);
    return true;
}

void FolderWatch::readEvents() {
    bool matters = false;
    readInotifyEvents(inotify_.get(), [&](const inotify_event& event, const char* name) {
        const bool isFolder = (event.mask & IN_ISDIR) != 0;
        const auto watched = interests_.find(event.wd);
        // An event without a name is the loss of the folder itself, or of further events.
        matters = matters || *name == '\0'
                  || (watched != interests_.end()
                      && std::ranges::any_of(watched->second, [&](const Interest& interest) {
                             return interest(name, isFolder);
                         }));
    });
    if (matters) {
        disarm();
        changed_();
    }
}

void FolderWatch::disarm() {
    readable_.cancel();
    inotify_.close();
    interests_.clear();
}

} // namespace dwellkey
