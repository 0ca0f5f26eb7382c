// SPDX-License-Identifier: MIT
// Environment variables and the folders that they name. std only.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dwellkey {

/// The value of an environment variable; absent when it is not set. A function, so that a test
/// need not change the process's own.
using Environment = std::function<std::optional<std::string>(std::string_view variable)>;

/// The variables of this process, read at each call.
Environment processEnvironment();

/// The parts of a list such as PATH; empty ones are dropped.
std::vector<std::string> splitList(std::string_view list, char separator);

/// The base folders of the desktop: absolute, without a trailing slash, most important first.
/// A relative path in a variable is ignored, as the standard for them asks.
struct BaseFolders {
    std::optional<std::string> configHome; ///< absent without HOME
    std::vector<std::string> configDirs;
    std::optional<std::string> dataHome; ///< absent without HOME
    /// Those of Flatpak and Snap included: a session that was started before either was installed
    /// does not name them.
    std::vector<std::string> dataDirs;

    static BaseFolders from(const Environment& environment);

    /// configHome and configDirs.
    [[nodiscard]] std::vector<std::string> configFolders() const;
    /// The "applications" folders below dataHome and dataDirs.
    [[nodiscard]] std::vector<std::string> applicationFolders() const;
};

} // namespace dwellkey
