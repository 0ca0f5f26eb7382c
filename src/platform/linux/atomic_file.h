// SPDX-License-Identifier: MIT
// Changing files without ever leaving half of one. POSIX only.
#pragma once

#include "platform/linux/file_descriptor.h"

#include <optional>
#include <string>
#include <string_view>

namespace dwellkey {

struct FileError {
    std::string cause; ///< in the words of the system
};

/// The system's words for the last failed call.
FileError lastFileError();

/// Where a chain of symbolic links ends, whether or not anything is there. The path itself when
/// it is no link, or a chain without end.
std::string followLinks(const std::string& path);

/// Makes the folder, and those above it, for the user alone. No effect on one that exists.
std::optional<FileError> makeFolders(const std::string& folder);

/// Replaces the file, or where it links to, by one of mode 0600 with these contents: whoever
/// looks, even after a crash or a loss of power, sees all of the old or all of the new.
/// On an error the old file is untouched, except when only the folder could not be synchronised.
std::optional<FileError> replaceFile(const std::string& path, std::string_view contents);

/// Removes what a `replaceFile` of this path left that was killed half way. Only while no other
/// process can be replacing it.
void removeLeftovers(const std::string& path);

/// Gives the file a new name in its folder: `suffix` appended, and a number where that is taken.
/// Never replaces anything. Sets `newPath` on success.
std::optional<FileError> moveAside(const std::string& path, const std::string& suffix,
                                   std::string& newPath);

/// Says "I am changing the file beside this lock file" to other processes that ask.
class FileLock {
public:
    enum class State {
        taken,
        busy,       ///< another process has it
        unavailable ///< the lock file cannot be made here, or the file system cannot lock
    };

    /// Never waits. The lock is given back at destruction; the lock file stays.
    static FileLock tryTake(const std::string& lockPath);

    [[nodiscard]] State state() const { return state_; }

private:
    FileLock(State state, FileDescriptor descriptor)
        : state_(state), descriptor_(std::move(descriptor)) {}
    State state_;
    FileDescriptor descriptor_;
};

} // namespace dwellkey
