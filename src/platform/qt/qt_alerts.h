// SPDX-License-Identifier: MIT
#pragma once

#include "platform/keyboard.h"
#include "platform/windows.h"

namespace dwellkey {

/// Message boxes of the desktop's style. An alert takes the focus: the user has to answer it.
class QtAlerts final : public Alerts {
public:
    int runModal(const Alert& alert) override;
};

class QtBeeper final : public Beeper {
public:
    void beep() override;
};

} // namespace dwellkey
