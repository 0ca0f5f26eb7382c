// SPDX-License-Identifier: MIT
#include "platform/linux/environment.h"

#include <algorithm>
#include <cstdlib>

namespace dwellkey {
namespace {

bool normaliseFolder(std::string& path) {
    while (path.size() > 1 && path.ends_with('/')) {
        path.pop_back();
    }
    return path.starts_with('/');
}

void appendOnce(std::vector<std::string>& folders, std::string folder) {
    if (normaliseFolder(folder) && std::ranges::find(folders, folder) == folders.end()) {
        folders.push_back(std::move(folder));
    }
}

std::vector<std::string> foldersOf(const Environment& environment, std::string_view variable,
                                   std::string_view otherwise) {
    const std::string list = environment(variable).value_or("");
    std::vector<std::string> result;
    for (std::string& folder : splitList(list.empty() ? otherwise : list, ':')) {
        appendOnce(result, std::move(folder));
    }
    return result;
}

std::optional<std::string> homeFolder(const Environment& environment, std::string_view variable,
                                      std::string_view belowHome) {
    if (auto folder = environment(variable); folder && normaliseFolder(*folder)) {
        return folder;
    }
    if (auto home = environment("HOME"); home && normaliseFolder(*home)) {
        return *home + std::string(belowHome);
    }
    return std::nullopt;
}

} // namespace

Environment processEnvironment() {
    return [](std::string_view variable) -> std::optional<std::string> {
        const char* value = std::getenv(std::string(variable).c_str());
        return value == nullptr ? std::nullopt : std::optional<std::string>(value);
    };
}

std::vector<std::string> splitList(std::string_view list, char separator) {
    std::vector<std::string> result;
    while (!list.empty()) {
        const std::size_t end = std::min(list.find(separator), list.size());
        if (end > 0) {
            result.emplace_back(list.substr(0, end));
        }
        list.remove_prefix(std::min(end + 1, list.size()));
    }
    return result;
}

BaseFolders BaseFolders::from(const Environment& environment) {
    BaseFolders result;
    result.configHome = homeFolder(environment, "XDG_CONFIG_HOME", "/.config");
    result.configDirs = foldersOf(environment, "XDG_CONFIG_DIRS", "/etc/xdg");
    result.dataHome = homeFolder(environment, "XDG_DATA_HOME", "/.local/share");
    result.dataDirs = foldersOf(environment, "XDG_DATA_DIRS", "/usr/local/share:/usr/share");
    if (const auto home = environment("HOME")) {
        appendOnce(result.dataDirs, *home + "/.local/share/flatpak/exports/share");
    }
    appendOnce(result.dataDirs, "/var/lib/flatpak/exports/share");
    appendOnce(result.dataDirs, "/var/lib/snapd/desktop");
    return result;
}

std::vector<std::string> BaseFolders::configFolders() const {
    std::vector<std::string> result = configDirs;
    if (configHome) {
        result.insert(result.begin(), *configHome);
    }
    return result;
}

std::vector<std::string> BaseFolders::applicationFolders() const {
    std::vector<std::string> result;
    if (dataHome) {
        result.push_back(*dataHome + "/applications");
    }
    for (const std::string& folder : dataDirs) {
        appendOnce(result, folder + "/applications");
    }
    return result;
}

} // namespace dwellkey
