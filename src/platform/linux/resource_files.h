// SPDX-License-Identifier: MIT
// This program's own resources on disk. std and POSIX only.
#pragma once

#include "platform/bundle_reader.h"

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace dwellkey {

class ResourceFiles {
public:
    /// Looks in the folders in their order; the first that holds a readable resource gives it.
    explicit ResourceFiles(std::vector<std::string> folders) : folders_(std::move(folders)) {}

    /// Where this process's resources are: share/dwellkey beside the folder of its executable,
    /// and for a program that runs from its build tree also the source tree's resources.
    static std::vector<std::string> defaultFolders();

    /// The text of "<name>.<type>" as UTF-8 without a byte-order mark; the file may be UTF-8, or
    /// UTF-16 with a mark. Absent when it is missing, unreadable, not text or larger than 1 MiB.
    [[nodiscard]] std::optional<std::string> resourceText(std::string_view name,
                                                          std::string_view type) const;

    /// The first of the folders' files of that name, readable or not.
    [[nodiscard]] std::optional<std::string> pathForResource(std::string_view name,
                                                             std::string_view type) const;

    /// The file's text as UTF-8, under the same conditions as `resourceText`.
    [[nodiscard]] static std::variant<std::string, ResourceError> fileText(const std::string& path);

    /// "CFBundleShortVersionString" is this program's version; there are no others.
    [[nodiscard]] static std::optional<std::string> infoString(std::string_view key);

    /// True for anything that the path leads to, a folder too.
    [[nodiscard]] static bool fileExists(const std::string& path);

private:
    std::vector<std::string> folders_;
};

} // namespace dwellkey
