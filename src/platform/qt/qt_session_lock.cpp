// SPDX-License-Identifier: MIT
#include "platform/qt/qt_session_lock.h"

#include <QDBusConnection>

namespace dwellkey {

void QtSessionLock::start() {
    // From whatever sender: naming one would make the toolkit ask, and wait, who that is. Somebody
    // who lies about it ends a hold and does nothing else.
    QDBusConnection::systemBus().connect(QString(), QString(),
                                         QStringLiteral("org.freedesktop.login1.Session"),
                                         QStringLiteral("Lock"), this, SLOT(lockRequested()));
    for (const char* interface :
         {"org.freedesktop.ScreenSaver", "org.gnome.ScreenSaver", "org.cinnamon.ScreenSaver",
          "org.mate.ScreenSaver", "org.xfce.ScreenSaver"}) {
        QDBusConnection::sessionBus().connect(QString(), QString(), QString::fromLatin1(interface),
                                              QStringLiteral("ActiveChanged"), this,
                                              SLOT(screenSaverChanged(bool)));
    }
}

void QtSessionLock::lockRequested() const {
    didLock.emit();
}

void QtSessionLock::screenSaverChanged(bool isActive) const {
    if (isActive) {
        didLock.emit();
    }
}

} // namespace dwellkey
