// SPDX-License-Identifier: MIT
#include "platform/qt/qt_run_loop.h"

#include <QSocketNotifier>
#include <QTimer>
#include <algorithm>
#include <utility>

namespace dwellkey {
namespace {

/// Lets go of a notifier or timer that may be emitting right now.
template <typename Object>
void retire(Object* object) {
    object->disconnect();
    object->deleteLater();
}

struct Tick {
    std::function<void()> action;
    bool isRunning = false;
};

/// A tick that opened a modal alert is still on the stack while the alert's loop runs, and is not
/// entered again. It may cancel its own timer: the toolkit keeps a slot alive while it runs.
void run(Tick& tick) {
    if (!std::exchange(tick.isRunning, true)) {
        tick.action();
        tick.isRunning = false;
    }
}

} // namespace

Subscription QtRunLoop::repeat(std::chrono::nanoseconds interval, std::function<void()> tick) {
    using std::chrono::milliseconds;
    auto* timer = new QTimer;              // NOLINT: owned by the subscription
    timer->setTimerType(Qt::PreciseTimer); // the coarse default may be 5 % off
    timer->setInterval(std::max(std::chrono::ceil<milliseconds>(interval), milliseconds(1)));
    QObject::connect(timer, &QTimer::timeout, timer,
                     [guarded = Tick{std::move(tick)}]() mutable { run(guarded); });
    timer->start();
    return Subscription([timer] {
        timer->stop();
        retire(timer);
    });
}

void QtRunLoop::post(std::function<void()> task) {
    QMetaObject::invokeMethod(&context_, std::move(task), Qt::QueuedConnection);
}

Subscription QtRunLoop::watch(int descriptor, std::function<void()> readable) {
    auto* notifier = new QSocketNotifier(descriptor, QSocketNotifier::Read); // NOLINT: owned below
    // Nested loops may enter this again: what has become readable meanwhile must not wait.
    QObject::connect(notifier, &QSocketNotifier::activated, notifier,
                     [action = std::move(readable)] { action(); });
    return Subscription([notifier] {
        notifier->setEnabled(false);
        retire(notifier);
    });
}

std::chrono::nanoseconds QtRunLoop::now() const {
    return std::chrono::steady_clock::now().time_since_epoch();
}

} // namespace dwellkey
