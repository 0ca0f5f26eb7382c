// SPDX-License-Identifier: MIT
#include "platform/linux/linux_error_log.h"

#include "platform/linux/text_encoding.h"

#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdlib>
#include <ctime>
#include <poll.h>
#include <sys/stat.h>

namespace dwellkey {
namespace {

bool isJournal(int descriptor) {
    const char* stream = std::getenv("JOURNAL_STREAM");
    struct stat status {};
    return stream != nullptr && fstat(descriptor, &status) == 0
           && stream == std::to_string(status.st_dev) + ":" + std::to_string(status.st_ino);
}

/// Whether the sequence would move the cursor, end the line or confuse the reader's terminal.
bool isPlain(std::string_view sequence) {
    const auto first = static_cast<unsigned char>(sequence[0]);
    const bool isControl = first < 0x20 || first == 0x7F
                           || (first == 0xC2 && static_cast<unsigned char>(sequence[1]) < 0xA0);
    return !isControl;
}

void appendEscaped(std::string& line, std::string_view text) {
    constexpr std::string_view digits = "0123456789abcdef";
    while (!text.empty()) {
        const std::size_t length = utf8SequenceLength(text);
        const std::string_view sequence = text.substr(0, length == 0 ? 1 : length);
        text.remove_prefix(sequence.size());
        if (length != 0 && isPlain(sequence)) {
            line += sequence;
        } else if (sequence == "\n") {
            line += "\\n";
        } else {
            for (const char byte : sequence) {
                line += "\\x";
                line += digits[static_cast<unsigned char>(byte) >> 4];
                line += digits[static_cast<unsigned char>(byte) & 0xF];
            }
        }
    }
}

/// Cuts between two characters.
void limit(std::string& line, std::size_t size) {
    if (line.size() <= size) {
        return;
    }
    constexpr std::string_view ellipsis = "...";
    size -= ellipsis.size();
    while ((static_cast<unsigned char>(line[size]) & 0xC0) == 0x80) {
        --size;
    }
    line.resize(size);
    line += ellipsis;
}

/// A reader that went away must not end this program: while one of these lives, the signal that
/// a write to nobody raises stays with us.
class BrokenPipeGuard {
public:
    BrokenPipeGuard() {
        sigset_t pending;
        sigpending(&pending);
        wasPending_ = sigismember(&pending, SIGPIPE) == 1;
        sigemptyset(&signal_);
        sigaddset(&signal_, SIGPIPE);
        pthread_sigmask(SIG_BLOCK, &signal_, &before_);
    }
    BrokenPipeGuard(const BrokenPipeGuard&) = delete;
    BrokenPipeGuard& operator=(const BrokenPipeGuard&) = delete;
    ~BrokenPipeGuard() {
        const timespec atOnce{};
        if (!wasPending_) {
            while (sigtimedwait(&signal_, nullptr, &atOnce) < 0 && errno == EINTR) {
            }
        }
        pthread_sigmask(SIG_SETMASK, &before_, nullptr);
    }

private:
    sigset_t signal_{};
    sigset_t before_{};
    bool wasPending_ = false;
};

} // namespace

LinuxErrorLog::LinuxErrorLog(int descriptor)
    : descriptor_(descriptor),
      prefix_(isJournal(descriptor) ? "<3>dwellkey: " : "dwellkey: error: ") {}

void LinuxErrorLog::error(std::string_view message, std::string_view cause) {
    std::string line = prefix_;
    appendEscaped(line, message);
    if (!cause.empty()) {
        line += " (";
        appendEscaped(line, cause);
        line += ')';
    }
    limit(line, PIPE_BUF - 1);
    line += '\n';

    const int errnoBefore = errno; // a caller may still want it
    {
        const BrokenPipeGuard guard;
        // What poll calls writable takes PIPE_BUF bytes without waiting.
        pollfd writable{descriptor_, POLLOUT, 0};
        if (poll(&writable, 1, 0) == 1 && (writable.revents & POLLOUT) != 0) {
            while (write(descriptor_, line.data(), line.size()) < 0 && errno == EINTR) {
            }
        }
    }
    errno = errnoBefore;
}

} // namespace dwellkey
