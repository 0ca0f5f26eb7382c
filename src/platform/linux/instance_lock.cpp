// SPDX-License-Identifier: MIT
#include "platform/linux/instance_lock.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace dwellkey {
namespace {

// The sticky bit tells those who clean the runtime folder that this file is in use.
constexpr mode_t lockMode = S_ISVTX | S_IRUSR | S_IWUSR;

struct flock wholeFile() {
    struct flock lock {};
    lock.l_type = F_WRLCK;
    lock.l_whence = SEEK_SET;
    return lock;
}

} // namespace

InstanceLock::Attempt InstanceLock::tryTake() {
    if (!file_.isOpen()) {
        file_ = FileDescriptor(
            ::open(path_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, S_IRUSR | S_IWUSR));
        if (!file_.isOpen() || ::fchmod(file_.get(), lockMode) != 0) {
            return lastFileError();
        }
    }
    while (true) {
        struct flock lock = wholeFile();
        if (::fcntl(file_.get(), F_SETLK, &lock) == 0) {
            return Taken{};
        }
        if (errno != EACCES && errno != EAGAIN) {
            return lastFileError();
        }
        if (::fcntl(file_.get(), F_GETLK, &lock) != 0) {
            return lastFileError();
        }
        if (lock.l_type != F_UNLCK) { // else it was given back between the two questions
            return HeldBy{lock.l_pid};
        }
    }
}

} // namespace dwellkey
