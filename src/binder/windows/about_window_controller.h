// SPDX-License-Identifier: MIT
#pragma once

#include "binder/windows/window_controller.h"

class QLabel;

namespace dwellkey {

/// The About window of the shortcut-binder path. It can be dragged by its background.
class AboutWindowController final : public WindowController {
public:
    /// The name of the class and of its interface file.
    static constexpr const char* nibName = "AboutWindowController";

    explicit AboutWindowController(Platform& platform);
    ~AboutWindowController() override;

    Outlet<QLabel> versionTextField{nibName, "versionTextField"};

    /// Opens the product's help page, if there is one.
    void openSupport();

protected:
    void connectOutlets() override;
    [[nodiscard]] Actions actions() override;
    void windowDidLoad() override;
};

} // namespace dwellkey
