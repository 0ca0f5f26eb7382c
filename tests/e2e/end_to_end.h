// SPDX-License-Identifier: MIT
// What every end-to-end test starts from.
#pragma once

#include "harness/desktop.h"
#include "harness/dwellkey_program.h"
#include "harness/probe.h"

#include <gtest/gtest.h>

#include <iostream>
#include <string>

namespace dwellkey::e2e {

/// A test on a desktop of its own, under the window manager of the parameter.
class EndToEnd : public testing::TestWithParam<WindowManagerKind> {
protected:
    void TearDown() override {
        if (HasFailure()) {
            std::cerr << desktop.logs();
            desktop.screen().picture().save("failed-" + testName());
        }
    }

    /// Presses Ctrl and q; when the q went down.
    TimePoint pressQuit(xcb_keycode_t control = key::leftControl, xcb_keycode_t letter = key::q) {
        keyboard.press(control);
        return keyboard.press(letter);
    }

    static std::string testName() {
        const auto* info = testing::UnitTest::GetInstance()->current_test_info();
        std::string name = std::string(info->test_suite_name()) + "-" + info->name();
        std::replace(name.begin(), name.end(), '/', '-');
        return name;
    }

    Desktop desktop{GetParam()};
    const Screen& screen = desktop.screen();
    Keyboard& keyboard = desktop.keyboard();
};

inline std::string parameterName(const testing::TestParamInfo<WindowManagerKind>& parameter) {
    return nameOf(parameter.param);
}

inline const auto everyWindowManager =
    testing::Values(WindowManagerKind::openbox, WindowManagerKind::xfwm4);

} // namespace dwellkey::e2e
