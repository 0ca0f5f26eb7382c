// SPDX-License-Identifier: MIT
#pragma once

#include "app/backend.h"
#include "app/dwellkey_app.h"
#include "platform/linux/launch.h"
#include "platform/linux/single_instance.h"
#include "platform/qt/qt_application_object.h"

namespace dwellkey {

/// This start of the program, and all later ones while it runs: those reopen the application. They
/// come over the session bus from launchers, and through the instance's socket from everywhere
/// else.
class Launches {
public:
    /// Without an instance (null) only launchers are heard. What is given must outlive this.
    Launches(Backend& backend, DwellkeyApp& application, Launch own, SingleInstance* instance);

private:
    void begin();
    void startedAgain(const Launch& launch);

    Backend& backend_;
    DwellkeyApp& application_;
    Launch own_;
    SingleInstance* instance_;
    QtApplicationObject busObject_;
    Subscription launched_;
    Subscription startedAgainOverBus_;
    Subscription startedAgainOverSocket_;
    Subscription didFinishLaunching_;
};

} // namespace dwellkey
