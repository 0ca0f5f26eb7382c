// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractNativeEventFilter>

namespace dwellkey {

/// Stands between the X server and the toolkit, which believes everything that is said of our
/// windows. Keys that another client sent are nobody's. A size that another client sent counts when
/// it is the window's, as the server knows it: a window manager tells so where it moved a window
/// to; the toolkit would get memory for whatever size it hears of. And a window that somebody
/// destroyed is given up, so that it is made anew when it is opened again.
class QtNativeEvents final : public QAbstractNativeEventFilter {
public:
    /// Stands there as long as it exists. After the toolkit, on an X server; elsewhere it does
    /// nothing.
    QtNativeEvents();
    QtNativeEvents(const QtNativeEvents&) = delete;
    QtNativeEvents& operator=(const QtNativeEvents&) = delete;
    ~QtNativeEvents() override;

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;
};

} // namespace dwellkey
