// SPDX-License-Identifier: MIT
// The seam: everything that the models ask of a desktop, in one value. std only.
#pragma once

#include "platform/application_catalog.h"
#include "platform/bundle_reader.h"
#include "platform/hot_keys.h"
#include "platform/key_capture.h"
#include "platform/keyboard.h"
#include "platform/localization.h"
#include "platform/menu_bar_extra.h"
#include "platform/run_loop.h"
#include "platform/session.h"
#include "platform/user_defaults.h"
#include "platform/windows.h"
#include "platform/workspace.h"

namespace dwellkey {

/// One desktop's services. Whoever builds them (a backend) owns them and outlives every user.
struct Platform {
    RunLoop& runLoop;
    Clock& clock;
    UserDefaults& userDefaults;
    Workspace& workspace;
    BundleReader& bundleReader;
    LoginItem& loginItem;
    AccessibilityTrust& accessibilityTrust;
    ScriptHost& scriptHost;
    Alerts& alerts;
    HotKeys& hotKeys;
    KeyboardLayout& keyboardLayout;
    SystemShortcuts& systemShortcuts;
    MenuTracking& menuTracking;
    Beeper& beeper;
    ErrorLog& errorLog;
    WindowHost& windowHost;
    PanelSupport& panelSupport;
    Localizer& localizer;
    KeyCapture& keyCapture;
    ApplicationCatalog& applicationCatalog;
    MenuBarExtra& menuBarExtra;

    /// The process's platform; one must have been installed.
    static Platform& shared();

    /// Called once, by the composition root, before any shared model is touched. The platform
    /// stays the caller's and must outlive the models.
    static void install(Platform& platform);
};

} // namespace dwellkey
