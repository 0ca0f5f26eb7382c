// SPDX-License-Identifier: MIT
// What every end-to-end test starts from.
#pragma once

#include "harness/desktop.h"
#include "harness/dwellkey_program.h"
#include "harness/probe.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>
#include <string>

namespace dwellkey::e2e {

/// How long after the moment that a hold would have filled the bar something that must not happen
/// is waited for.
inline constexpr Milliseconds afterthought{400};

/// A test on a desktop of its own, under the window manager of the parameter.
class EndToEnd : public testing::TestWithParam<WindowManagerKind> {
protected:
    void TearDown() override {
        if (HasFailure()) {
            std::cerr << desktop.logs();
            if (desktop.server().process().isRunning()) {
                desktop.screen().picture().save("failed-" + testName());
            }
        }
    }

    /// Presses Ctrl and q and waits for the hold panel; when the q went down.
    TimePoint beginHold(xcb_keycode_t letter = key::q) {
        const TimePoint down = pressShortcut(key::leftControl, letter);
        screen.awaitPanel();
        return down;
    }

    TimePoint pressShortcut(xcb_keycode_t control = key::leftControl,
                            xcb_keycode_t letter = key::q) {
        keyboard.press(control);
        return keyboard.press(letter);
    }

    /// Holds the shortcut until the panel went away by itself; when the q went down.
    TimePoint holdToTheEnd(xcb_keycode_t letter = key::q) {
        const TimePoint down = beginHold(letter);
        screen.awaitNoPanel();
        keyboard.releaseAll();
        return down;
    }

    /// Whether the panel stays on the screen until then.
    [[nodiscard]] bool panelStaysUntil(TimePoint end) const {
        return !screen.happensBefore(end, [&] { return !screen.panel(); });
    }

    static std::string testName() {
        const auto* info = testing::UnitTest::GetInstance()->current_test_info();
        std::string name = std::string(info->test_suite_name()) + "-" + info->name();
        std::ranges::replace(name, '/', '-');
        return name;
    }

    Desktop desktop{GetParam()};
    const Screen& screen = desktop.screen();
    Keyboard& keyboard = desktop.keyboard();
};

/// A part of a time: 0.5 of 2 s.
inline Milliseconds part(double fraction, Milliseconds whole) {
    return std::chrono::duration_cast<Milliseconds>(whole * fraction);
}

inline std::string parameterName(const testing::TestParamInfo<WindowManagerKind>& parameter) {
    return nameOf(parameter.param);
}

inline const auto everyWindowManager =
    testing::Values(WindowManagerKind::openbox, WindowManagerKind::xfwm4);

} // namespace dwellkey::e2e
