// SPDX-License-Identifier: MIT
#include "platform/linux/desktop_entry_scan.h"

#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <system_error>
#include <utility>

namespace dwellkey {
namespace {

constexpr std::string_view suffix = ".desktop";

/// Finds the entries of one folder and its subfolders.
class FolderWalk {
public:
    explicit FolderWalk(const std::function<void(const std::string&)>& willRead)
        : willRead_(willRead) {}

    void walk(const std::filesystem::path& folder, const std::string& idPrefix) {
        // Every real folder is read once: symbolic links may lead back up.
        struct stat status {};
        willRead_(folder);
        if (::stat(folder.c_str(), &status) != 0
            || !visited_.emplace(status.st_dev, status.st_ino).second) {
            return;
        }
        std::vector<std::string> subfolders;
        std::error_code failure;
        for (std::filesystem::directory_iterator member(folder, failure), end;
             !failure && member != end; member.increment(failure)) {
            std::string name = member->path().filename().string();
            if (name.size() > suffix.size() && name.ends_with(suffix)) {
                found_.emplace_back(idPrefix + name.substr(0, name.size() - suffix.size()),
                                    folder / name);
            } else if (std::error_code ignored; member->is_directory(ignored)) {
                subfolders.push_back(std::move(name));
            }
        }
        std::ranges::sort(subfolders);
        for (const std::string& name : subfolders) {
            std::string prefix = idPrefix;
            prefix.append(name).append("-");
            walk(folder / name, prefix);
        }
    }

    /// Ids with their paths, sorted.
    std::vector<std::pair<std::string, std::string>> takeFound() {
        std::ranges::sort(found_);
        return std::move(found_);
    }

private:
    const std::function<void(const std::string&)>& willRead_;
    std::set<std::pair<dev_t, ino_t>> visited_;
    std::vector<std::pair<std::string, std::string>> found_;
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
        FolderWalk walk(willRead);
        walk.walk(folder, "");
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
