// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/launch.h"
#include "support/signal.h"

#include <memory>

namespace dwellkey {

class QtCallLimit;
class QtExportedApplication;

/// This program on the session bus, as launchers address it: org.freedesktop.Application at the
/// name org.dwellkey.Dwellkey.
///
/// Where the desktop entry is activated over the bus, a launcher calls Activate, and the bus starts
/// us when nobody has the name. That call waits for us to take it, and is the launch itself, not a
/// wish to see a window of a program that already runs. The bus hands out what waits for a name
/// before it answers anything that was asked after taking it: so what arrives until then was there
/// before us. That holds for every bus, while the variables that some of them set for the programs
/// that they start are neither set by all nor tell whether a call is still to come.
class QtApplicationObject {
public:
    QtApplicationObject();
    QtApplicationObject(const QtApplicationObject&) = delete;
    QtApplicationObject& operator=(const QtApplicationObject&) = delete;
    ~QtApplicationObject();

    /// The bus started this process on behalf of a launcher, which waits to hear that it runs.
    Signal<const Launch&> launched;
    /// A launcher addressed the program while it ran.
    Signal<const Launch&> startedAgain;

    /// Takes the name, without waiting for it; once. Where another process of the user has it (at
    /// another display of the same session bus), it falls to us when that one ends.
    void publish();

private:
    std::unique_ptr<QtCallLimit> callLimit_;
    std::unique_ptr<QtExportedApplication> exported_;
    bool isSettled_ = false; // all calls that waited for the name have arrived
};

} // namespace dwellkey
