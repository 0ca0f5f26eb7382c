// SPDX-License-Identifier: MIT
// What travels in the messages of com.canonical.dbusmenu.
#pragma once

#include <QDBusArgument>
#include <QDBusVariant>
#include <QList>
#include <QMetaType>
#include <QString>
#include <QVariantMap>

namespace dwellkey {

/// An entry with those below it: (ia{sv}av).
struct DBusMenuNode {
    int id = 0;
    QVariantMap properties;
    QList<DBusMenuNode> children;
};

/// An entry by itself: (ia{sv}).
struct DBusMenuProperties {
    int id = 0;
    QVariantMap properties;
};

/// Something that the user did to an entry: (isvu).
struct DBusMenuEvent {
    int id = 0;
    QString name;
    QDBusVariant data;
    uint timestamp = 0; // of the X server, in milliseconds
};

QDBusArgument& operator<<(QDBusArgument& argument, const DBusMenuNode& node);
const QDBusArgument& operator>>(const QDBusArgument& argument, DBusMenuNode& node);
QDBusArgument& operator<<(QDBusArgument& argument, const DBusMenuProperties& properties);
const QDBusArgument& operator>>(const QDBusArgument& argument, DBusMenuProperties& properties);
QDBusArgument& operator<<(QDBusArgument& argument, const DBusMenuEvent& event);
const QDBusArgument& operator>>(const QDBusArgument& argument, DBusMenuEvent& event);

/// Before the first message; repeating it does no harm.
void registerDBusMenuTypes();

} // namespace dwellkey

Q_DECLARE_METATYPE(dwellkey::DBusMenuNode)
Q_DECLARE_METATYPE(dwellkey::DBusMenuProperties)
Q_DECLARE_METATYPE(dwellkey::DBusMenuEvent)
