// SPDX-License-Identifier: MIT
#include "platform/linux/settings_file.h"

#include <array>
#include <cerrno>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>

namespace dwellkey {
namespace {

SettingsFile::Damaged tooLarge() {
    return {"it is larger than 16 MiB"};
}

SettingsFile::Content parsed(std::string_view text) {
    auto result = parseSettings(text);
    if (auto* problem = std::get_if<SettingsProblem>(&result)) {
        return SettingsFile::Damaged{std::move(problem->cause)};
    }
    return std::get<SettingsDocument>(std::move(result));
}

SettingsFile::Content readFrom(int descriptor) {
    std::string text;
    std::array<char, 16UL * 1024> buffer{};
    while (true) {
        const ssize_t size = ::read(descriptor, buffer.data(), buffer.size());
        if (size < 0 && errno == EINTR) {
            continue;
        }
        if (size < 0) {
            return SettingsFile::Unreadable{lastFileError().cause};
        }
        if (size == 0) {
            return parsed(text);
        }
        text.append(buffer.data(), static_cast<std::size_t>(size));
        if (text.size() > SettingsFile::largestSize) {
            return tooLarge();
        }
    }
}

std::string timeStamp() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    std::array<char, 32> text{};
    const std::size_t size = std::strftime(text.data(), text.size(), "%Y%m%d-%H%M%S", &local);
    return {text.data(), size};
}

} // namespace

SettingsFile::Content SettingsFile::read() const {
    // Not blocking: someone may have put a pipe there.
    const FileDescriptor file(::open(path_.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    if (!file.isOpen()) {
        if (errno == ENOENT || errno == ENOTDIR) {
            return Missing{};
        }
        return Unreadable{lastFileError().cause};
    }
    struct stat status {};
    if (fstat(file.get(), &status) != 0) {
        return Unreadable{lastFileError().cause};
    }
    if (!S_ISREG(status.st_mode)) {
        return Unreadable{"it is not a regular file"};
    }
    if (static_cast<std::uint64_t>(status.st_size) > largestSize) {
        return tooLarge();
    }
    return readFrom(file.get());
}

std::optional<FileError> SettingsFile::write(const SettingsDocument& settings) const {
    const std::string text = serializeSettings(settings);
    if (text.size() > largestSize) {
        return FileError{"the settings are larger than 16 MiB"};
    }
    if (auto error = makeFolder()) {
        return error;
    }
    return replaceFile(path_, text);
}

std::variant<std::string, FileError> SettingsFile::setAside() const {
    std::string newPath;
    if (auto error = moveAside(path_, ".damaged-" + timeStamp(), newPath)) {
        return *error;
    }
    return newPath;
}

FileLock SettingsFile::tryLock() const {
    static_cast<void>(makeFolder()); // where that fails, the lock is unavailable
    return FileLock::tryTake(path_ + ".lock");
}

std::optional<FileError> SettingsFile::makeFolder() const {
    return makeFolders(std::filesystem::path(path_).parent_path());
}

} // namespace dwellkey
