// SPDX-License-Identifier: MIT
// The hold panel's window, made from its interface file.
#pragma once

#include "binder/timer_window.h"
#include "platform/platform.h"

namespace dwellkey {

/// Loads with the process's interface loader.
class PanelInterfaceFiles final : public InterfaceFiles {
public:
    /// The support must outlive the files and every window that they make.
    explicit PanelInterfaceFiles(PanelSupport& support) : support_(support) {}

    std::unique_ptr<TimerWindow> loadTimerWindow(std::string_view windowNibName) override;

private:
    PanelSupport& support_;
};

} // namespace dwellkey
