// SPDX-License-Identifier: MIT
// One of every fake, as a platform. std only.
#pragma once

#include "platform/fake/fake_application_catalog.h"
#include "platform/fake/fake_bundle_reader.h"
#include "platform/fake/fake_hot_keys.h"
#include "platform/fake/fake_key_capture.h"
#include "platform/fake/fake_keyboard.h"
#include "platform/fake/fake_localizer.h"
#include "platform/fake/fake_menu_bar_extra.h"
#include "platform/fake/fake_run_loop.h"
#include "platform/fake/fake_session.h"
#include "platform/fake/fake_user_defaults.h"
#include "platform/fake/fake_windows.h"
#include "platform/fake/fake_workspace.h"
#include "platform/platform.h"

namespace dwellkey {

/// A desktop on which nothing happens by itself: time passes in `runLoop.advance`, keys are
/// played on `hotKeys`, applications come and go through `workspace`.
class FakePlatform {
public:
    FakeClock clock;
    FakeRunLoop runLoop{clock};
    FakeUserDefaults userDefaults;
    FakeWorkspace workspace;
    FakeBundleReader bundleReader;
    FakeLoginItem loginItem;
    FakeAccessibilityTrust accessibilityTrust;
    FakeScriptHost scriptHost;
    FakeAlerts alerts;
    FakeHotKeys hotKeys;
    FakeKeyboardLayout keyboardLayout;
    FakeSystemShortcuts systemShortcuts;
    FakeMenuTracking menuTracking;
    FakeBeeper beeper;
    FakeErrorLog errorLog;
    FakeWindowHost windowHost;
    FakePanelSupport panelSupport;
    FakeLocalizer localizer;
    FakeKeyCapture keyCapture;
    FakeApplicationCatalog applicationCatalog;
    FakeMenuBarExtra menuBarExtra;

    [[nodiscard]] Platform& platform() { return platform_; }

private:
    Platform platform_{runLoop,      clock,     userDefaults,       workspace,
                       bundleReader, loginItem, accessibilityTrust, scriptHost,
                       alerts,       hotKeys,   keyboardLayout,     systemShortcuts,
                       menuTracking, beeper,    errorLog,           windowHost,
                       panelSupport, localizer, keyCapture,         applicationCatalog,
                       menuBarExtra};
};

} // namespace dwellkey
