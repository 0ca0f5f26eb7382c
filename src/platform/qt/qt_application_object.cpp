// SPDX-License-Identifier: MIT
#include "platform/qt/qt_application_object.h"

#include "platform/qt/qt_exported_application.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>

namespace dwellkey {
namespace {

QDBusMessage toBus(const QString& method) {
    const auto bus = QStringLiteral("org.freedesktop.DBus");
    return QDBusMessage::createMethodCall(bus, QStringLiteral("/org/freedesktop/DBus"), bus,
                                          method);
}

} // namespace

QtApplicationObject::QtApplicationObject()
    : exported_(std::make_unique<QtExportedApplication>(
        [this](const Launch& launch) { (isSettled_ ? startedAgain : launched).emit(launch); })) {}

QtApplicationObject::~QtApplicationObject() = default;

void QtApplicationObject::publish() {
    auto bus = QDBusConnection::sessionBus();
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
