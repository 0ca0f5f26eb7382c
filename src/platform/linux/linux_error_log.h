// SPDX-License-Identifier: MIT
// The error log of a Linux session: the journal, or else standard error. POSIX only.
#pragma once

#include "platform/session.h"

#include <unistd.h>

namespace dwellkey {

/// One line for each error: control characters, bytes that are not UTF-8 and line ends are escaped,
/// and a line that would not go into a pipe at once is cut. When the session collects our standard
/// error into the journal (JOURNAL_STREAM says so), the line carries the priority "error".
///
/// Logging never blocks, raises no signal and cannot fail: a line that nobody takes is dropped.
class LinuxErrorLog final : public ErrorLog {
public:
    /// The descriptor stays the caller's.
    explicit LinuxErrorLog(int descriptor = STDERR_FILENO);

    void error(std::string_view message, std::string_view cause = {}) override;

private:
    int descriptor_;
    std::string prefix_;
};

} // namespace dwellkey
