// SPDX-License-Identifier: MIT
#include "platform/linux/atomic_file.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <utility>

namespace dwellkey {
namespace {

namespace fs = std::filesystem;

std::string folderOf(const std::string& path) {
    const fs::path folder = fs::path(path).parent_path();
    return folder.empty() ? "." : folder.string();
}

std::string temporaryPrefix(const std::string& target) {
    return "." + fs::path(target).filename().string() + ".tmp-";
}

bool writeAll(int descriptor, std::string_view contents) {
    while (!contents.empty()) {
        const ssize_t written = ::write(descriptor, contents.data(), contents.size());
        if (written < 0 && errno != EINTR) {
            return false;
        }
        if (written > 0) {
            contents.remove_prefix(static_cast<std::size_t>(written));
        }
    }
    return true;
}

/// Without this a rename may be undone by a loss of power.
std::optional<FileError> synchronizeFolder(const std::string& folder) {
    const FileDescriptor descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!descriptor.isOpen()) {
        return lastFileError();
    }
    const bool synchronized = fsync(descriptor.get()) == 0 || errno == EINVAL; // not offered here
    return synchronized ? std::nullopt : std::optional(lastFileError());
}

/// True when the file now has the new name; false with errno, EEXIST when the name is taken.
bool renameWithoutReplacing(const std::string& from, const std::string& to) {
    if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) {
        return true;
    }
    if (errno != EINVAL && errno != ENOSYS) {
        return false;
    }
    // Network file systems may lack the flag; a hard link does not replace anything either.
    return ::link(from.c_str(), to.c_str()) == 0 && ::unlink(from.c_str()) == 0;
}

} // namespace

FileError lastFileError() {
    return {std::system_category().message(errno)};
}

std::string followLinks(const std::string& path) {
    constexpr int longestChain = 40; // as the kernel follows them
    fs::path end = path;
    for (int links = 0; links < longestChain; ++links) {
        std::error_code notALink;
        const fs::path next = fs::read_symlink(end, notALink);
        if (notALink) {
            return end;
        }
        end = end.parent_path() / next; // an absolute `next` stands alone
    }
    return path;
}

std::optional<FileError> makeFolders(const std::string& folder) {
    constexpr mode_t forTheUserAlone = 0700;
    if (mkdir(folder.c_str(), forTheUserAlone) == 0) {
        return std::nullopt;
    }
    if (errno == ENOENT && fs::path(folder).has_relative_path()) {
        if (auto error = makeFolders(folderOf(folder))) {
            return error;
        }
        if (mkdir(folder.c_str(), forTheUserAlone) == 0) {
            return std::nullopt;
        }
    }
    const FileError error = lastFileError();
    std::error_code ignored;
    return fs::is_directory(folder, ignored) ? std::nullopt : std::optional(error);
}

std::optional<FileError> replaceFile(const std::string& path, std::string_view contents) {
    const std::string target = followLinks(path);
    const std::string folder = folderOf(target);
    std::string temporary = folder + "/" + temporaryPrefix(target) + "XXXXXX";
    FileDescriptor file(mkostemp(temporary.data(), O_CLOEXEC)); // mode 0600
    if (!file.isOpen()) {
        return lastFileError();
    }
    const bool replaced = writeAll(file.get(), contents) && fsync(file.get()) == 0
                          && rename(temporary.c_str(), target.c_str()) == 0;
    if (!replaced) {
        const FileError error = lastFileError();
        ::unlink(temporary.c_str());
        return error;
    }
    return synchronizeFolder(folder);
}

void removeLeftovers(const std::string& path) {
    const std::string target = followLinks(path);
    const std::string prefix = temporaryPrefix(target);
    std::error_code failure;
    for (fs::directory_iterator entry(folderOf(target), failure), end; !failure && entry != end;
         entry.increment(failure)) {
        if (entry->path().filename().string().starts_with(prefix)) {
            std::error_code ignored;
            fs::remove(entry->path(), ignored);
        }
    }
}

std::optional<FileError> moveAside(const std::string& path, const std::string& suffix,
                                   std::string& newPath) {
    constexpr int mostNames = 1000;
    const std::string target = followLinks(path);
    const std::string wanted = target + suffix;
    std::string name = wanted;
    for (int number = 1; number < mostNames; ++number) {
        if (renameWithoutReplacing(target, name)) {
            newPath = name;
            return std::nullopt;
        }
        if (errno != EEXIST) {
            break;
        }
        name = wanted + "-" + std::to_string(number);
    }
    return lastFileError();
}

FileLock FileLock::tryTake(const std::string& lockPath) {
    FileDescriptor file(
        ::open(lockPath.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0600));
    if (!file.isOpen()) {
        return {State::unavailable, FileDescriptor()};
    }
    while (flock(file.get(), LOCK_EX | LOCK_NB) != 0) {
        if (errno != EINTR) {
            const State state = errno == EWOULDBLOCK ? State::busy : State::unavailable;
            return {state, FileDescriptor()};
        }
    }
    return {State::taken, std::move(file)};
}

} // namespace dwellkey
