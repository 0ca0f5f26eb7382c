// SPDX-License-Identifier: MIT
// An open descriptor that closes itself. std + POSIX only.
#pragma once

#include <unistd.h>

#include <utility>

namespace dwellkey {

class FileDescriptor {
public:
    FileDescriptor() = default;
    /// Takes ownership; -1, as failing calls return it, means none.
    explicit FileDescriptor(int descriptor) : descriptor_(descriptor) {}
    FileDescriptor(FileDescriptor&& other) noexcept
        : descriptor_(std::exchange(other.descriptor_, -1)) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        if (this != &other) {
            close();
            descriptor_ = std::exchange(other.descriptor_, -1);
        }
        return *this;
    }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    ~FileDescriptor() { close(); }

    [[nodiscard]] bool isOpen() const { return descriptor_ >= 0; }
    [[nodiscard]] int get() const { return descriptor_; }

    void close() {
        if (const int descriptor = std::exchange(descriptor_, -1); descriptor >= 0) {
            ::close(descriptor);
        }
    }

private:
    int descriptor_ = -1;
};

} // namespace dwellkey
