// SPDX-License-Identifier: MIT
#pragma once

#include "binder/windows/window_controller.h"

namespace dwellkey {

/// The introduction of the shortcut-binder path.
class IntroViewController final : public ViewController {
public:
    /// The name of the class and of its interface file.
    static constexpr const char* nibName = "IntroViewController";

    explicit IntroViewController(Platform& platform) : ViewController(nibName, platform) {}

    /// Deliberately nothing: whoever shows the view opens the preferences.
    void openPreferences() {}

protected:
    [[nodiscard]] Actions actions() override {
        return {{"openPreferences", [this] { openPreferences(); }}};
    }
};

} // namespace dwellkey
