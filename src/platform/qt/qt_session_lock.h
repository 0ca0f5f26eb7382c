// SPDX-License-Identifier: MIT
#pragma once

#include "support/signal.h"

#include <QObject>

namespace dwellkey {

/// Hears that the session is being locked: from the session manager and from the screen savers of
/// the desktops, which are asked for nothing.
class QtSessionLock final : public QObject {
    Q_OBJECT

public:
    Signal<> didLock;

    /// Connects to the buses; once.
    void start();

private Q_SLOTS:
    void lockRequested() const;
    void screenSaverChanged(bool isActive) const;
};

} // namespace dwellkey
