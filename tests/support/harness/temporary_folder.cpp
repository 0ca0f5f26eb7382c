// SPDX-License-Identifier: MIT
#include "harness/temporary_folder.h"

#include "harness/failure.h"

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <system_error>

namespace dwellkey::e2e {

TemporaryFolder::TemporaryFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "dwellkey-e2e-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) {
        failFromErrno("cannot make a temporary folder " + name);
    }
    path_ = name;
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored; // a process on its way out may still write into it
    std::filesystem::remove_all(path_, ignored);
}

void writeFile(const std::filesystem::path& file, std::string_view text) {
    std::filesystem::create_directories(file.parent_path());
    const std::filesystem::path draft = file.string() + ".draft";
    std::ofstream stream(draft, std::ios::binary);
    stream << text;
    stream.close();
    if (!stream) {
        failFromErrno("cannot write " + draft.string());
    }
    std::filesystem::rename(draft, file);
}

std::string readFile(const std::filesystem::path& file) {
    const std::ifstream stream(file, std::ios::binary);
    std::ostringstream text;
    if (stream) {
        text << stream.rdbuf();
    }
    return std::move(text).str();
}

} // namespace dwellkey::e2e
