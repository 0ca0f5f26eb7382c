// SPDX-License-Identifier: MIT
#pragma once

#include "platform/platform.h"
#include "support/signal.h"
#include "views/common/fixed_window.h"

#include <QCoreApplication>

namespace dwellkey {

/// Greets at the first launch and says where the preferences are.
class IntroView final : public FixedWindow {
    Q_DECLARE_TR_FUNCTIONS(IntroView)

public:
    /// The platform must outlive the window.
    explicit IntroView(Platform& platform = Platform::shared());

private:
    Subscription hostingChanges_;
};

} // namespace dwellkey
