// SPDX-License-Identifier: MIT
// Sees the events of this application before its windows do. Main thread only.
#pragma once

#include <QEvent>
#include <QFlags>
#include <QObject>
#include <functional>

namespace dwellkey {

enum class LocalEvent : unsigned { keyDown = 1, keyUp = 2, leftMouseDown = 4 };
Q_DECLARE_FLAGS(LocalEventMask, LocalEvent)
Q_DECLARE_OPERATORS_FOR_FLAGS(LocalEventMask)

/// While it runs, each event of the mask passes through the handler once, whichever window of the
/// application it is for. While it watches keys going down, the application's own shortcuts and
/// mnemonics rest. The monitor started last comes first.
class LocalEventMonitor final : public QObject {
    Q_OBJECT

public:
    /// Returns the event to pass on, or null to swallow it. May stop or start monitors.
    using Handler = std::function<QEvent*(QEvent* event)>;

    LocalEventMonitor(LocalEventMask mask, Handler handler);
    ~LocalEventMonitor() override { stop(); }

    /// Both have no effect when it is so already.
    void start();
    void stop();
    [[nodiscard]] bool isRunning() const { return isRunning_; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    LocalEventMask mask_;
    Handler handler_;
    bool isRunning_ = false;
};

} // namespace dwellkey
