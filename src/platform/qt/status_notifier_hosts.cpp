// SPDX-License-Identifier: MIT
#include "platform/qt/status_notifier_hosts.h"

#include "platform/qt/status_notifier_names.h"

#include <QDBusConnection>
#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <QDBusVariant>

namespace dwellkey {

void StatusNotifierHosts::start() {
    auto bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        setHosted(false);
        return;
    }
    auto* watcher = new QDBusServiceWatcher(status_notifier::watcherService, bus,
                                            QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
            &StatusNotifierHosts::watcherChanged);
    // From whatever sender: naming one would make the toolkit ask, and wait, who that is.
    for (const char* signal : {"StatusNotifierHostRegistered", "StatusNotifierHostUnregistered"}) {
        bus.connect({}, status_notifier::watcherPath, status_notifier::watcherService,
                    QLatin1String(signal), this, SLOT(ask()));
    }
    ask();
}

void StatusNotifierHosts::watcherChanged(const QString& /*service*/, const QString& /*oldOwner*/,
                                         const QString& newOwner) {
    ask();
    if (!newOwner.isEmpty()) {
        watcherDidAppear.emit();
    }
}

void StatusNotifierHosts::ask() {
    auto question = QDBusMessage::createMethodCall(
        status_notifier::watcherService, status_notifier::watcherPath,
        QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    question << status_notifier::watcherService << QStringLiteral("IsStatusNotifierHostRegistered");
    question.setAutoStartService(false); // a bar comes with its desktop, not because of us
    delete question_;
    question_ =
        new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(question), this);
    connect(question_, &QDBusPendingCallWatcher::finished, this,
            [this](const QDBusPendingCallWatcher* call) { answered(call->reply()); });
}

void StatusNotifierHosts::answered(const QDBusMessage& reply) {
    setHosted(reply.type() == QDBusMessage::ReplyMessage
              && reply.arguments().value(0).value<QDBusVariant>().variant().toBool());
}

void StatusNotifierHosts::setHosted(bool hosted) {
    const bool wasHosted = isHosted();
    isHosted_ = hosted;
    if (hosted != wasHosted) {
        hostingDidChange.emit();
    }
}

} // namespace dwellkey
