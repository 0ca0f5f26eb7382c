// SPDX-License-Identifier: MIT
#include "platform/linux/system_shortcuts_reading.h"

#include "platform/linux/text_file.h"

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <system_error>
#include <utility>
#include <variant>

namespace dwellkey {

std::optional<std::string> readIfPresent(const std::string& path, ShortcutReading& reading) {
    constexpr std::size_t largestFile = std::size_t{1} << 20U;
    std::error_code error;
    if (!std::filesystem::exists(path, error) && !error) {
        return std::nullopt;
    }
    auto read = readTextFile(path, largestFile);
    if (const auto* problem = std::get_if<FileProblem>(&read)) {
        reading.problems.push_back(problem->cause);
        return std::nullopt;
    }
    return std::get<std::string>(std::move(read));
}

std::vector<SettingsLayer> readLayers(const BaseFolders& folders, const std::string& name,
                                      ShortcutReading& reading) {
    std::vector<SettingsLayer> result;
    for (const std::string& folder : folders.configFolders()) {
        std::string path = folder;
        path.append("/").append(name);
        if (auto text = readIfPresent(path, reading)) {
            result.push_back({std::move(path), *std::move(text)});
        }
    }
    if (result.empty() && reading.problems.empty()) {
        reading.problems.push_back("there is no " + name);
    }
    std::ranges::reverse(result);
    return result;
}

} // namespace dwellkey
