// SPDX-License-Identifier: MIT
#include "platform/qt/qt_exported_application.h"

namespace dwellkey {

void QtExportedApplication::Activate(const QVariantMap& platformData) {
    const QVariant id = platformData.value(QStringLiteral("desktop-startup-id"));
    activated_({id.toString().toStdString()});
}

void QtExportedApplication::Open(const QStringList& /*addresses*/,
                                 const QVariantMap& platformData) {
    Activate(platformData);
}

void QtExportedApplication::ActivateAction(const QString& action, const QVariantList& /*parameter*/,
                                           const QVariantMap& /*platformData*/) {
    sendErrorReply(QDBusError::InvalidArgs,
                   QStringLiteral("Dwellkey has no action \"%1\".").arg(action));
}

} // namespace dwellkey
