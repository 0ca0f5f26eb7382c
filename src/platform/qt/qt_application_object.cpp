// SPDX-License-Identifier: MIT
#include "platform/qt/qt_application_object.h"

#include "platform/qt/qt_call_limit.h"
#include "platform/qt/qt_exported_application.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>

namespace dwellkey {
namespace {

const auto connectionName = QStringLiteral("org.freedesktop.Application"); // ours for it

QDBusMessage toBus(const QString& method) {
    const auto bus = QStringLiteral("org.freedesktop.DBus");
    return QDBusMessage::createMethodCall(bus, QStringLiteral("/org/freedesktop/DBus"), bus,
                                          method);
}

} // namespace

QtApplicationObject::QtApplicationObject()
    : callLimit_(std::make_unique<QtCallLimit>()),
      exported_(std::make_unique<QtExportedApplication>(
          [this](const Launch& launch) { (isSettled_ ? startedAgain : launched).emit(launch); })) {
    exported_->installEventFilter(callLimit_.get());
}

QtApplicationObject::~QtApplicationObject() {
    QDBusConnection::disconnectFromBus(connectionName);
}

void QtApplicationObject::publish() {
    // Not the toolkit's own connection: until the loop has turned, that one holds back the calls
    // that it receives, but not the answers.
    auto bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, connectionName);
    if (!bus.isConnected()
        || !bus.registerObject(QStringLiteral("/org/dwellkey/Dwellkey"), exported_.get(),
                               QDBusConnection::ExportScriptableSlots)) {
        return; // later starts come through the socket
    }
    constexpr uint waitForTheName = 0; // no flags: do not replace, do not be replaced, queue
    bus.asyncCall(toBus(QStringLiteral("RequestName"))
                  << QStringLiteral("org.dwellkey.Dwellkey") << waitForTheName);
    auto* settled = // NOLINT: owned by its parent
        new QDBusPendingCallWatcher(bus.asyncCall(toBus(QStringLiteral("GetId"))), exported_.get());
    QObject::connect(settled, &QDBusPendingCallWatcher::finished, settled, [this, settled] {
        isSettled_ = true;
        settled->deleteLater();
    });
}

} // namespace dwellkey
