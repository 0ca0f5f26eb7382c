// SPDX-License-Identifier: MIT
// A plain hot-key daemon that many use: what Dwellkey is compared with.
#pragma once

#include "desktop/window_events.h"
#include "harness/desktop.h"

#include <memory>

namespace dwellkey::bench {

class Sxhkd {
public:
    /// Starts one that answers Ctrl+Shift+Y with a command. Throws when the machine has none.
    explicit Sxhkd(e2e::Desktop& desktop);

    /// Presses the combination; how long until its command runs, in ms.
    double pressToCommand();

    [[nodiscard]] pid_t pid() const { return process_->pid(); }
    /// From before the start until the combination was grabbed, in ms.
    [[nodiscard]] double startTime() const { return startTime_; }

private:
    e2e::Desktop& desktop_;
    e2e::Descriptor commands_; // each command writes a byte to it
    std::unique_ptr<e2e::ChildProcess> process_;
    double startTime_ = 0;
};

} // namespace dwellkey::bench
