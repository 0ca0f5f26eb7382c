// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <functional>

namespace dwellkey {

/// Takes part in the end of a session under a session manager. Nobody is asked anything, so the
/// logout never waits for us; the toolkit ends the loop when the session manager says so.
///
/// Nor is the program brought back by the session manager at the next login: that is the login
/// item's business. Both together would be two starts, and the second one opens a window.
class QtSessionEnd {
public:
    /// `save` runs before the session ends, and when the session manager takes a checkpoint.
    explicit QtSessionEnd(std::function<void()> save);

private:
    QObject context_; // the connections end with it
};

} // namespace dwellkey
