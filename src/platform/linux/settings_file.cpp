// SPDX-License-Identifier: MIT
#include "platform/linux/settings_file.h"

#include "platform/linux/inotify_events.h"

#include <array>
#include <cerrno>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <poll.h>
#include <sys/inotify.h>
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

// Between the two halves of an editor's save: it empties the file, then it writes it.
constexpr std::chrono::nanoseconds editorsPatience = std::chrono::seconds(1);

/// Returns after an event, or when the time is over.
void awaitEvent(int inotify, std::chrono::nanoseconds longest) {
    pollfd watched{inotify, POLLIN, 0};
    const auto whole = std::chrono::ceil<std::chrono::milliseconds>(longest);
    if (::poll(&watched, 1, static_cast<int>(whole.count())) > 0) {
        readInotifyEvents(inotify, [](const auto&, const char*) {});
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

SettingsFile::Content SettingsFile::readWhenWritten() const {
    using Clock = std::chrono::steady_clock;
    Content content = read();
    const auto patience = unfinishedFor();
    if (!std::holds_alternative<Damaged>(content) || patience <= patience.zero()) {
        return content;
    }
    const auto deadline = Clock::now() + patience;
    const FileDescriptor inotify(::inotify_init1(IN_CLOEXEC | IN_NONBLOCK));
    const std::string folder = std::filesystem::path(path_).parent_path();
    ::inotify_add_watch(inotify.get(), path_.c_str(), IN_MODIFY); // through links
    ::inotify_add_watch(inotify.get(), folder.c_str(), IN_MODIFY | IN_MOVED_TO);
    for (auto left = patience; left > left.zero(); left = deadline - Clock::now()) {
        content = read(); // again, for what was written before we watched
        if (!std::holds_alternative<Damaged>(content)) {
            break;
        }
        awaitEvent(inotify.get(), left);
    }
    return content;
}

bool SettingsFile::isUnfinished(const Content& content) const {
    return std::holds_alternative<Damaged>(content) && unfinishedFor() > std::chrono::seconds(0);
}

std::chrono::nanoseconds SettingsFile::unfinishedFor() const {
    struct stat status {};
    if (::stat(path_.c_str(), &status) != 0) {
        return {};
    }
    const auto written = std::chrono::seconds(status.st_mtim.tv_sec)
                         + std::chrono::nanoseconds(status.st_mtim.tv_nsec);
    const auto age = std::chrono::system_clock::now().time_since_epoch() - written;
    return age < age.zero() ? std::chrono::nanoseconds(0) : editorsPatience - age;
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
