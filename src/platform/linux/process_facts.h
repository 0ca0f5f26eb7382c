// SPDX-License-Identifier: MIT
// What the kernel knows of a process that may tell its application. std + POSIX only.
#pragma once

#include <sys/types.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dwellkey {

/// Reads each fact when it is asked for. A process that ended, or belongs to someone else, has
/// none.
class ProcessReader {
public:
    ProcessReader() = default;
    ProcessReader(const ProcessReader&) = delete;
    ProcessReader& operator=(const ProcessReader&) = delete;
    virtual ~ProcessReader() = default;

    /// The path of its program, also when the file was replaced since.
    [[nodiscard]] virtual std::optional<std::string> executable(pid_t process) const = 0;

    [[nodiscard]] virtual std::vector<std::string> commandLine(pid_t process) const = 0;

    /// A variable as it was when the process started.
    [[nodiscard]] virtual std::optional<std::string>
    environmentVariable(pid_t process, std::string_view name) const = 0;

    /// The text of the file that Flatpak puts into a sandbox's root.
    [[nodiscard]] virtual std::optional<std::string> flatpakInfo(pid_t process) const = 0;

    /// Its control groups, a line "number:controllers:path" for each hierarchy.
    [[nodiscard]] virtual std::optional<std::string> controlGroups(pid_t process) const = 0;
};

class ProcFolderReader : public ProcessReader {
public:
    explicit ProcFolderReader(std::string folder = "/proc") : folder_(std::move(folder)) {}

    std::optional<std::string> executable(pid_t process) const override;
    std::vector<std::string> commandLine(pid_t process) const override;
    std::optional<std::string> environmentVariable(pid_t process,
                                                   std::string_view name) const override;
    std::optional<std::string> flatpakInfo(pid_t process) const override;
    std::optional<std::string> controlGroups(pid_t process) const override;

private:
    [[nodiscard]] std::string pathOf(pid_t process, std::string_view file) const;

    std::string folder_;
};

/// The application that a .flatpak-info text names.
std::optional<std::string> flatpakApplication(std::string_view flatpakInfo);

struct SnapApplication {
    std::string instanceName;
    std::string application;
    bool operator==(const SnapApplication&) const = default;
};

/// From a unit such as snap.NAME.APPLICATION-UUID.scope.
std::optional<SnapApplication> snapApplication(std::string_view controlGroups);

/// The desktop-entry ids that a session's unit name may stand for, likeliest first:
/// app[-LAUNCHER]-ID-RANDOM.scope, app[-LAUNCHER]-ID[@RANDOM].service, "-" in an id as "\x2d".
std::vector<std::string> sessionUnitApplications(std::string_view controlGroups);

} // namespace dwellkey
