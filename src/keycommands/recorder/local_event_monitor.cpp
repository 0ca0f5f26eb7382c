// SPDX-License-Identifier: MIT
#include "keycommands/recorder/local_event_monitor.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <optional>
#include <utility>

namespace dwellkey {
namespace {

std::optional<LocalEvent> kindOf(const QEvent& event) {
    switch (event.type()) {
    case QEvent::KeyPress:
        return LocalEvent::keyDown;
    case QEvent::KeyRelease:
        return LocalEvent::keyUp;
    case QEvent::MouseButtonPress:
        if (static_cast<const QMouseEvent&>(event).button() == Qt::LeftButton) {
            return LocalEvent::leftMouseDown;
        }
        break;
    default:
        break;
    }
    return std::nullopt;
}

} // namespace

LocalEventMonitor::LocalEventMonitor(LocalEventMask mask, Handler handler)
    : mask_(mask), handler_(std::move(handler)) {}

void LocalEventMonitor::start() {
    if (!std::exchange(isRunning_, true)) {
        QCoreApplication::instance()->installEventFilter(this);
    }
}

void LocalEventMonitor::stop() {
    if (std::exchange(isRunning_, false) && QCoreApplication::instance() != nullptr) {
        QCoreApplication::instance()->removeEventFilter(this);
    }
}

bool LocalEventMonitor::eventFilter(QObject* watched, QEvent* event) {
    if (!watched->isWindowType()) {
        return false; // the same event again, on its way through the window's widgets
    }
    if (event->type() == QEvent::ShortcutOverride && mask_.testFlag(LocalEvent::keyDown)) {
        event->accept(); // it comes back as a key that goes down
        return true;
    }
    const auto kind = kindOf(*event);
    return kind && mask_.testFlag(*kind) && handler_(event) == nullptr;
}

} // namespace dwellkey
