// SPDX-License-Identifier: MIT
// The settings file on disk. POSIX only.
#pragma once

#include "platform/linux/atomic_file.h"
#include "platform/linux/settings_format.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <variant>

namespace dwellkey {

/// A path that is a symbolic link (dotfile managers make them) stays one: what it leads to is
/// read, replaced and set aside.
class SettingsFile {
public:
    static constexpr std::uint64_t largestSize = 16UL * 1024 * 1024; // bytes

    struct Missing {};
    /// There, but not settings.
    struct Damaged {
        std::string cause;
    };
    /// What is in it cannot be known, so it must be left alone.
    struct Unreadable {
        std::string cause;
    };
    using Content = std::variant<SettingsDocument, Missing, Damaged, Unreadable>;

    explicit SettingsFile(std::string path) : path_(std::move(path)) {}

    [[nodiscard]] const std::string& path() const { return path_; }
    [[nodiscard]] Content read() const;

    /// The same, but when the file is damaged and was written within the last second, waits for its
    /// writer to go on, until it is damaged no more or that second is over.
    [[nodiscard]] Content readWhenWritten() const;
    /// Whether that would wait with this content.
    [[nodiscard]] bool isUnfinished(const Content& content) const;

    /// Makes the folder if it must; on an error what was there is untouched.
    std::optional<FileError> write(const SettingsDocument& settings) const;

    /// Renames the file to "<name>.damaged-YYYYMMDD-HHMMSS" (local time), followed by a number when
    /// there is one already. The new path, or why it stayed.
    [[nodiscard]] std::variant<std::string, FileError> setAside() const;

    /// Between processes that use the same path. Makes the folder if it must.
    [[nodiscard]] FileLock tryLock() const;

    /// Removes what interrupted writes left. Only under the lock.
    void removeLeftovers() const { dwellkey::removeLeftovers(path_); }

private:
    [[nodiscard]] std::optional<FileError> makeFolder() const;
    /// How much longer its writer may need; not more than zero when that is over.
    [[nodiscard]] std::chrono::nanoseconds unfinishedFor() const;

    std::string path_;
};

} // namespace dwellkey
