// SPDX-License-Identifier: MIT
// The shortcuts that the running desktop keeps for itself. std + POSIX only.
#pragma once

#include "platform/keyboard.h"
#include "platform/linux/child_output.h"
#include "platform/linux/environment.h"
#include "platform/linux/system_shortcuts_reading.h"
#include "platform/session.h"

#include <functional>
#include <set>
#include <string>
#include <variant>

namespace dwellkey {

/// Asks the settings of the desktops that XDG_CURRENT_DESKTOP names. Where no variable names the
/// desktop, an Openbox that is installed counts as running: it is the window manager of sessions
/// that say nothing about themselves. Of desktops that are not known the list is empty.
///
/// What cannot be read is logged once until it can be read again, and the rest is still returned;
/// `eventInternalErr` says that nothing could be read. A call blocks for two seconds at most.
class LinuxSystemShortcuts final : public SystemShortcuts {
public:
    /// `outputOf`, except in tests.
    using RunProgram = std::function<std::variant<std::string, ChildProblem>(const CommandWords&,
                                                                             const ChildLimits&)>;

    /// The layout and the log must outlive this.
    LinuxSystemShortcuts(Environment environment, const KeyboardLayout& layout, ErrorLog& errorLog,
                         RunProgram run = outputOf);

    [[nodiscard]] List copySymbolicHotKeys() const override;

private:
    [[nodiscard]] std::vector<Entry> entriesOf(const std::vector<Accelerator>& accelerators) const;
    void logNew(const std::vector<std::string>& problems) const;

    Environment environment_;
    const KeyboardLayout& layout_;
    ErrorLog& errorLog_;
    RunProgram run_;
    mutable std::set<std::string> logged_;
};

} // namespace dwellkey
