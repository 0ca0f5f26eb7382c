// SPDX-License-Identifier: MIT
#include "platform/linux/default_file_manager.h"

#include "platform/linux/exec_command.h"
#include "platform/linux/text_file.h"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <set>
#include <utility>
#include <variant>

namespace dwellkey {
namespace {

constexpr std::string_view folderType = "inode/directory";
constexpr std::string_view listName = "mimeapps.list";
constexpr std::size_t largestList = std::size_t{1} << 20U;

bool contains(const std::vector<std::string>& list, std::string_view text) {
    return std::ranges::find(list, text) != list.end();
}

bool isList(std::string_view name, bool isFolder) {
    return !isFolder && name.ends_with(listName);
}

bool saysItManagesFiles(const InstalledApplication& application) {
    return contains(application.entry.categories, "FileManager");
}

} // namespace

DefaultFileManager::DefaultFileManager(RunLoop& runLoop, const DesktopEntryIndex& index,
                                       BaseFolders folders, std::vector<std::string> desktops)
    : index_(index), folders_(std::move(folders)), desktops_(std::move(desktops)),
      watch_(runLoop, [this] { answer_.reset(); }),
      applicationsChanged_(index.didChange.subscribe([this] { answer_.reset(); })) {
    for (std::string& desktop : desktops_) {
        std::ranges::transform(desktop, desktop.begin(),
                               [](unsigned char c) { return std::tolower(c); });
    }
}

const std::optional<std::string>& DefaultFileManager::identifier() const {
    if (!answer_) {
        answer_ = Answer{found()};
    }
    return answer_->identifier;
}

std::optional<std::string> DefaultFileManager::found() const {
    watch_.arm();
    std::set<std::string> removed;
    std::vector<std::string> added;
    const auto isUsable = [&](const std::string& id) {
        const InstalledApplication* application = index_.byId(id);
        return !removed.contains(id) && application != nullptr && managesFiles(*application);
    };
    for (const std::string& folder : listFolders()) {
        watch_.add(folder, isList);
        const MimeApplications choices = choicesIn(folder);
        // What a list removes, those of less weight cannot bring back.
        removed.insert(choices.removed.begin(), choices.removed.end());
        const auto chosen = std::ranges::find_if(choices.defaults, isUsable);
        if (chosen != choices.defaults.end()) {
            return *chosen;
        }
        std::ranges::copy_if(choices.added, std::back_inserter(added), isUsable);
    }
    return added.empty() ? firstWilling(removed) : std::optional(added.front());
}

/// Of those that say of themselves that they open folders.
std::optional<std::string>
DefaultFileManager::firstWilling(const std::set<std::string>& removed) const {
    const auto& applications = index_.applications();
    const auto first = std::ranges::find_if(applications, [&](const auto& application) {
        return contains(application.entry.mimeTypes, folderType)
               && !removed.contains(application.id) && managesFiles(application);
    });
    return first == applications.end() ? std::nullopt : std::optional(first->id);
}

/// Editors and disk tools also open folders, and may be the user's choice for that; no one would
/// call them the file manager. Some file managers do it with a second, hidden entry of the same
/// program, which states no category.
bool DefaultFileManager::managesFiles(const InstalledApplication& application) const {
    if (saysItManagesFiles(application)) {
        return true;
    }
    const auto program = programOf(application.entry);
    return program && std::ranges::any_of(index_.applications(), [&](const auto& other) {
               const auto its = programOf(other.entry);
               return its && its->name == program->name && saysItManagesFiles(other);
           });
}

std::vector<std::string> DefaultFileManager::listFolders() const {
    std::vector<std::string> result;
    if (folders_.configHome) {
        result.push_back(*folders_.configHome);
    }
    result.insert(result.end(), folders_.configDirs.begin(), folders_.configDirs.end());
    const auto applications = folders_.applicationFolders();
    result.insert(result.end(), applications.begin(), applications.end());
    return result;
}

/// The lists of one folder in one. Those of a desktop only choose defaults, before the general one.
MimeApplications DefaultFileManager::choicesIn(const std::string& folder) const {
    const auto parsed = [&](const std::string& name) {
        const auto read = readTextFile(folder + "/" + name, largestList);
        const auto* text = std::get_if<std::string>(&read);
        return text == nullptr ? MimeApplications{} : parseMimeApplications(*text, folderType);
    };
    std::vector<std::string> defaults;
    const auto appendDefaults = [&](const MimeApplications& list) {
        defaults.insert(defaults.end(), list.defaults.begin(), list.defaults.end());
    };
    for (const std::string& desktop : desktops_) {
        appendDefaults(parsed(desktop + "-" + std::string(listName)));
    }
    MimeApplications result = parsed(std::string(listName));
    appendDefaults(result);
    result.defaults = std::move(defaults);
    return result;
}

} // namespace dwellkey
