// SPDX-License-Identifier: MIT
#include "platform/linux/file_watch.h"

#include "platform/linux/atomic_file.h"
#include "platform/linux/inotify_events.h"

#include <cerrno>
#include <filesystem>
#include <sys/inotify.h>
#include <utility>

namespace dwellkey {
namespace {

namespace fs = std::filesystem;

// A file that is only being made (IN_CREATE) is not finished, but a link or a folder is.
constexpr unsigned interesting = IN_CLOSE_WRITE | IN_MOVED_TO | IN_CREATE | IN_ATTRIB
                                 | IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR;
constexpr unsigned folderWent = IN_DELETE_SELF | IN_MOVE_SELF | IN_UNMOUNT;

bool isUnfinished(const fs::path& path) {
    std::error_code ignored;
    return fs::symlink_status(path, ignored).type() == fs::file_type::regular;
}

} // namespace

FileWatch::FileWatch(std::string path, RunLoop& loop, std::function<void()> changed)
    : path_(std::move(path)), changed_(std::move(changed)),
      inotify_(inotify_init1(IN_CLOEXEC | IN_NONBLOCK)) {
    if (!inotify_.isOpen()) {
        problem_ = lastFileError().cause;
        return;
    }
    arm();
    readable_ = loop.watch(inotify_.get(), [this] { readEvents(); });
}

void FileWatch::arm() {
    for (const auto& [watch, folder] : std::exchange(folders_, {})) {
        inotify_rm_watch(inotify_.get(), watch);
    }
    problem_.reset();
    watchFor(path_);
    if (const std::string target = followLinks(path_); target != path_) {
        watchFor(target);
    }
}

/// Watches the file's folder, or else the nearest folder above it for the next part of the path.
void FileWatch::watchFor(const std::string& path) {
    constexpr int mostAttempts = 4;
    for (int attempt = 0; attempt < mostAttempts; ++attempt) {
        fs::path child = path;
        while (!watchFolder(child.parent_path(), child.filename())) {
            if (!child.parent_path().has_relative_path()) {
                return;
            }
            child = child.parent_path();
        }
        // A folder that appeared before we watched for it would never be announced.
        std::error_code ignored;
        if (child == path || !fs::is_directory(child, ignored)) {
            return;
        }
    }
}

bool FileWatch::watchFolder(const std::string& folder, const std::string& name) {
    const int watch = inotify_add_watch(inotify_.get(), folder.c_str(), interesting);
    if (watch < 0) {
        if (errno != ENOENT && errno != ENOTDIR) {
            problem_ = lastFileError().cause;
        }
        return false;
    }
    WatchedFolder& watched = folders_[watch];
    watched.path = folder;
    watched.names.insert(name);
    return true;
}

void FileWatch::readEvents() {
    bool concerned = false;
    readInotifyEvents(inotify_.get(), [&](const inotify_event& event, const char* name) {
        concerned = concerned || concernsUs(event.wd, event.mask, name);
    });
    if (concerned) {
        arm();
        changed_();
    }
}

bool FileWatch::concernsUs(int watch, unsigned mask, const std::string& name) const {
    if ((mask & IN_Q_OVERFLOW) != 0) {
        return true;
    }
    const auto found = folders_.find(watch);
    if (found == folders_.end()) {
        return false; // from before the last arming
    }
    if ((mask & folderWent) != 0) {
        return true;
    }
    const auto& [path, names] = found->second;
    return names.contains(name) && ((mask & IN_CREATE) == 0 || !isUnfinished(path + "/" + name));
}

} // namespace dwellkey
