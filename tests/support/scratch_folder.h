// SPDX-License-Identifier: MIT
// A folder that goes away with its test. std and POSIX only.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace dwellkey::testing {

class ScratchFolder {
public:
    ScratchFolder() {
        std::string name = std::filesystem::temp_directory_path() / "dwellkey-test-XXXXXX";
        if (mkdtemp(name.data()) == nullptr) {
            throw std::runtime_error("no temporary folder");
        }
        path_ = name;
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    ~ScratchFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    [[nodiscard]] std::string operator/(std::string_view name) const {
        return path_ / std::filesystem::path(name);
    }
    [[nodiscard]] const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

/// Writes as an editor does that overwrites the file in place; makes missing folders.
inline void writeFile(const std::string& path, std::string_view contents) {
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file << contents;
    if (!file.flush()) {
        throw std::runtime_error("cannot write " + path);
    }
}

inline std::string readFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        throw std::runtime_error("cannot read " + path);
    }
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// The names of what a folder holds that start with `prefix`.
inline std::vector<std::string> namesIn(const std::filesystem::path& folder,
                                        std::string_view prefix) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().filename().string().starts_with(prefix)) {
            names.push_back(entry.path().filename());
        }
    }
    return names;
}

} // namespace dwellkey::testing
