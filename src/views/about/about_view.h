// SPDX-License-Identifier: MIT
#pragma once

#include "platform/platform.h"
#include "views/common/fixed_window.h"

#include <QCoreApplication>

namespace dwellkey {

/// The product's icon, name, version and copyright, and the way to its help page.
class AboutView final : public FixedWindow {
    Q_DECLARE_TR_FUNCTIONS(AboutView)

public:
    /// The platform must outlive the window.
    explicit AboutView(Platform& platform = Platform::shared());
};

} // namespace dwellkey
