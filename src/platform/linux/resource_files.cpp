// SPDX-License-Identifier: MIT
#include "platform/linux/resource_files.h"

#include "platform/linux/text_encoding.h"
#include "platform/linux/text_file.h"

#include <cstddef>
#include <filesystem>
#include <system_error>
#include <variant>

namespace dwellkey {
namespace {

constexpr std::size_t largestResource = 1024UL * 1024; // bytes

bool isBelow(const std::string& path, std::string_view folder) {
    return path.size() > folder.size() && path.starts_with(folder) && path[folder.size()] == '/';
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
    const std::string fileName = "/" + std::string(name) + "." + std::string(type);
    for (const std::string& folder : folders_) {
        const auto content = readTextFile(folder + fileName, largestResource);
        const auto* bytes = std::get_if<std::string>(&content);
        if (auto text = bytes == nullptr ? std::nullopt : decodeText(*bytes)) {
            return text;
        }
    }
    return std::nullopt;
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
