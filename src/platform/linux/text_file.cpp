// SPDX-License-Identifier: MIT
#include "platform/linux/text_file.h"

#include "platform/linux/file_descriptor.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

namespace dwellkey {
namespace {

FileProblem problemOfErrno(const std::string& path) {
    return {path + ": " + std::generic_category().message(errno)};
}

} // namespace

std::variant<std::string, FileProblem> readTextFile(const std::string& path,
                                                    std::size_t maximumBytes, FollowLinks follow) {
    const int linkFlag = follow == FollowLinks::no ? O_NOFOLLOW : 0;
    const FileDescriptor file(
        ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY | linkFlag));
    if (!file.isOpen()) {
        return problemOfErrno(path);
    }
    struct stat status {};
    if (::fstat(file.get(), &status) != 0) {
        return problemOfErrno(path);
    }
    if (!S_ISREG(status.st_mode)) {
        return FileProblem{path + ": not a regular file"};
    }
    // The stated size is only a hint: it is 0 below /proc, and a file may grow while it is read.
    const auto stated = static_cast<std::size_t>(std::max<off_t>(status.st_size, 0));
    std::string content(std::min(stated, maximumBytes) + 1, '\0');
    std::size_t length = 0;
    while (length <= maximumBytes) {
        if (length == content.size()) {
            content.resize(std::min(content.size() * 2 + 4096, maximumBytes + 1));
        }
        const ssize_t got = ::read(file.get(), content.data() + length, content.size() - length);
        if (got < 0 && errno == EINTR) {
            continue;
        }
        if (got < 0) {
            return problemOfErrno(path);
        }
        if (got == 0) {
            content.resize(length);
            return content;
        }
        length += static_cast<std::size_t>(got);
    }
    return FileProblem{path + ": larger than " + std::to_string(maximumBytes) + " bytes"};
}

} // namespace dwellkey
