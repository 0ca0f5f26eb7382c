// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string_view>

namespace dwellkey::e2e {

/// A new folder of mode 0700, removed with all that is in it at destruction.
class TemporaryFolder {
public:
    TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder();

    [[nodiscard]] const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

/// Replaces the file as editors do: whole, by a rename. Makes the folders above it.
void writeFile(const std::filesystem::path& file, std::string_view text);

/// The text of the file; "" when there is none.
[[nodiscard]] std::string readFile(const std::filesystem::path& file);

} // namespace dwellkey::e2e
