// SPDX-License-Identifier: MIT
#include "platform/linux/resource_files.h"

#include "platform/linux/text_encoding.h"
#include "platform/linux/text_file.h"

#include <cstddef>
#include <filesystem>
#include <system_error>
#include <utility>
#include <variant>

namespace dwellkey {
namespace {

constexpr std::size_t largestResource = 1024UL * 1024; // bytes

bool isBelow(const std::string& path, std::string_view folder) {
    return path.size() > folder.size() && path.starts_with(folder) && path[folder.size()] == '/';
}

std::string fileName(std::string_view name, std::string_view type) {
    return "/" + std::string(name) + "." + std::string(type);
}

} // namespace

std::vector<std::string> ResourceFiles::defaultFolders() {
    std::error_code failure;
    const auto executable = std::filesystem::read_symlink("/proc/self/exe", failure);
    std::vector<std::string> folders;
    if (!failure) {
        folders.push_back(executable.parent_path().parent_path() / "share" / "dwellkey");
    }
    if (isBelow(executable, DWELLKEY_BUILD_TREE)) {
        folders.emplace_back(DWELLKEY_SOURCE_RESOURCES);
    }
    return folders;
}

std::optional<std::string> ResourceFiles::resourceText(std::string_view name,
                                                       std::string_view type) const {
    for (const std::string& folder : folders_) {
        auto read = fileText(folder + fileName(name, type));
        if (auto* text = std::get_if<std::string>(&read)) {
            return std::move(*text);
        }
    }
    return std::nullopt;
}

std::optional<std::string> ResourceFiles::pathForResource(std::string_view name,
                                                          std::string_view type) const {
    for (const std::string& folder : folders_) {
        if (std::string path = folder + fileName(name, type); fileExists(path)) {
            return path;
        }
    }
    return std::nullopt;
}

std::variant<std::string, ResourceError> ResourceFiles::fileText(const std::string& path) {
    auto content = readTextFile(path, largestResource);
    if (auto* problem = std::get_if<FileProblem>(&content)) {
        return ResourceError{std::move(problem->cause)};
    }
    if (auto text = decodeText(std::get<std::string>(content))) {
        return *std::move(text);
    }
    return ResourceError{path + ": not a text"};
}

std::optional<std::string> ResourceFiles::infoString(std::string_view key) {
    if (key == "CFBundleShortVersionString") {
        return DWELLKEY_VERSION;
    }
    return std::nullopt;
}

bool ResourceFiles::fileExists(const std::string& path) {
    std::error_code failure;
    return std::filesystem::exists(path, failure);
}

} // namespace dwellkey
