// SPDX-License-Identifier: MIT
#pragma once

#include "platform/platform.h"

#include <QPushButton>

namespace dwellkey {

/// Opens the help page in the user's language, and says so where it cannot.
class SupportButton final : public QPushButton {
    Q_OBJECT

public:
    /// The platform must outlive the button.
    explicit SupportButton(Platform& platform = Platform::shared(), QWidget* parent = nullptr);

private:
    void openHelpPage();

    Platform& platform_;
};

} // namespace dwellkey
