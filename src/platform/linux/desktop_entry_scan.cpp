// SPDX-License-Identifier: MIT
#include "platform/linux/desktop_entry_scan.h"

#include <sys/stat.h>

#include <algorithm>
#include <cstddef>
#include <deque>
#include <filesystem>
#include <set>
#include <system_error>
#include <utility>

namespace dwellkey {
namespace {

constexpr std::string_view suffix = ".desktop";

// A link may lead anywhere, to the root of the file system even, and each folder costs a watch, of
// which the whole session has a few thousand. Menus of thousands of programs need far less.
constexpr int deepestFolder = 8;
constexpr std::size_t mostFolders = 500;

/// Finds the entries of one folder and its subfolders: the near ones first, and those behind a link
/// last, so that a link that leads to too much takes the place of nothing else.
class FolderWalk {
public:
    FolderWalk(std::string root, const std::function<void(const std::string&)>& willRead)
        : root_(std::move(root)), willRead_(willRead) {}

    void walk() {
        visit({root_, {}, 0});
        while (!near_.empty() || !linked_.empty()) {
            std::deque<Folder>& next = near_.empty() ? linked_ : near_;
            const Folder folder = std::move(next.front());
            next.pop_front();
            visit(folder);
        }
    }

    /// Ids with their paths, sorted.
    std::vector<std::pair<std::string, std::string>> takeFound() {
        std::ranges::sort(found_);
        return std::move(found_);
    }

    /// What was not read, and why; absent when everything was.
    [[nodiscard]] std::optional<std::string> leftOut() const {
        if (leftOutCount_ == 0) {
            return std::nullopt;
        }
        return root_ + " leads to too many folders or too deep: " + std::to_string(leftOutCount_)
               + " are not read, " + firstLeftOut_ + " the first of them";
    }

private:
    struct Folder {
        std::filesystem::path path;
        std::string idPrefix;
        int depth = 0;
    };

    void visit(const Folder& folder) {
        if (folder.depth == 0) {
            willRead_(folder.path); // it may be made later
        }
        // Every real folder is read once: symbolic links may lead back up.
        struct stat status {};
        const bool exists = ::stat(folder.path.c_str(), &status) == 0;
        const auto identity = std::pair(status.st_dev, status.st_ino);
        if (!exists || visited_.contains(identity)) {
            return;
        }
        if (folder.depth > deepestFolder || visited_.size() == mostFolders) {
            firstLeftOut_ = leftOutCount_++ == 0 ? folder.path.string() : firstLeftOut_;
            return;
        }
        visited_.insert(identity);
        if (folder.depth > 0) {
            willRead_(folder.path);
        }
        read(folder);
    }

    void read(const Folder& folder) {
        std::vector<std::pair<std::string, bool>> subfolders; // with whether it is a link
        std::error_code failure;
        for (std::filesystem::directory_iterator member(folder.path, failure), end;
             !failure && member != end; member.increment(failure)) {
            std::string name = member->path().filename().string();
            if (name.size() > suffix.size() && name.ends_with(suffix)) {
                found_.emplace_back(folder.idPrefix + name.substr(0, name.size() - suffix.size()),
                                    folder.path / name);
            } else if (std::error_code ignored; member->is_directory(ignored)) {
                subfolders.emplace_back(std::move(name), member->is_symlink(ignored));
            }
        }
        std::ranges::sort(subfolders);
        for (const auto& [name, isLink] : subfolders) {
            std::string prefix = folder.idPrefix;
            prefix.append(name).append("-");
            (isLink ? linked_ : near_)
                .push_back({folder.path / name, std::move(prefix), folder.depth + 1});
        }
    }

    const std::string root_;
    const std::function<void(const std::string&)>& willRead_;
    std::deque<Folder> near_;
    std::deque<Folder> linked_;
    std::set<std::pair<dev_t, ino_t>> visited_;
    std::vector<std::pair<std::string, std::string>> found_;
    std::size_t leftOutCount_ = 0;
    std::string firstLeftOut_;
};

std::string joined(std::string_view relativePath) {
    std::string id(relativePath);
    std::ranges::replace(id, '/', '-');
    return id;
}

} // namespace

ScannedApplications
scanApplicationFolders(const std::vector<std::string>& folders, const LocaleNames& locales,
                       const std::function<void(const std::string&)>& willRead) {
    ScannedApplications result;
    std::set<std::string, std::less<>> taken;
    for (const std::string& folder : folders) {
        FolderWalk walk(folder, willRead);
        walk.walk();
        if (auto leftOut = walk.leftOut()) {
            result.leftOut.push_back(*std::move(leftOut));
        }
        for (auto& [id, path] : walk.takeFound()) {
            if (taken.contains(id)) {
                continue;
            }
            auto read = readDesktopEntry(path, locales);
            if (auto* problem = std::get_if<DesktopEntryProblem>(&read)) {
                result.skipped.push_back(std::move(*problem));
                continue;
            }
            taken.insert(id);
            auto& entry = std::get<DesktopEntry>(read);
            if (!entry.hidden) {
                result.applications.push_back({std::move(id), std::move(path), std::move(entry)});
            }
        }
    }
    return result;
}

std::optional<std::string> desktopEntryId(std::string_view path,
                                          const std::vector<std::string>& folders) {
    const std::string_view fileName = baseName(path);
    if (fileName.size() <= suffix.size() || !fileName.ends_with(suffix)) {
        return std::nullopt;
    }
    path.remove_suffix(suffix.size());
    for (const std::string& folder : folders) {
        if (path.starts_with(folder) && path.substr(folder.size()).starts_with('/')) {
            return joined(path.substr(folder.size() + 1));
        }
    }
    constexpr std::string_view marker = "/applications/";
    const std::size_t found = path.rfind(marker);
    return joined(found == std::string_view::npos ? baseName(path)
                                                  : path.substr(found + marker.size()));
}

} // namespace dwellkey
