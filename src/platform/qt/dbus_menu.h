// SPDX-License-Identifier: MIT
#pragma once

#include "platform/menu_bar_extra.h"
#include "platform/qt/dbus_menu_types.h"

#include <QDBusContext>
#include <QObject>
#include <QStringList>

#include <functional>
#include <vector>

namespace dwellkey {

/// How the bars of the desktop read the key of a key equivalent; the protocol leaves it open.
enum class KeyNaming {
    keysym, // "comma", as GTK reads it
    text,   // ",", as Qt reads it
};

/// A menu that others show: exports its entries under the ids 1, 2, ... below the root, 0. They
/// never change.
class DBusMenu final : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.canonical.dbusmenu")
    Q_PROPERTY(uint Version READ version CONSTANT)
    Q_PROPERTY(QString TextDirection READ textDirection)
    Q_PROPERTY(QString Status READ status CONSTANT)
    Q_PROPERTY(QStringList IconThemePath READ iconThemePath CONSTANT)

public:
    DBusMenu(std::vector<MenuEntry> entries, KeyNaming keyNaming);

    [[nodiscard]] uint version() const { return 3; }
    [[nodiscard]] QString textDirection() const;
    [[nodiscard]] QString status() const { return QStringLiteral("normal"); }
    [[nodiscard]] QStringList iconThemePath() const { return {}; }

public Q_SLOTS: // of the bus; an id or a property that does not exist is answered with an error
    uint GetLayout(int parentId, int recursionDepth, const QStringList& propertyNames,
                   dwellkey::DBusMenuNode& layout);
    QList<dwellkey::DBusMenuProperties> GetGroupProperties(const QList<int>& ids,
                                                           const QStringList& propertyNames);
    QDBusVariant GetProperty(int id, const QString& name);
    void Event(int id, const QString& eventId, const QDBusVariant& data, uint timestamp);
    QList<int> EventGroup(const QList<dwellkey::DBusMenuEvent>& events);
    bool AboutToShow(int id);
    QList<int> AboutToShowGroup(const QList<int>& ids, QList<int>& idErrors);

Q_SIGNALS:
    void LayoutUpdated(uint revision, int parent);

private:
    [[nodiscard]] bool exists(int id) const;
    [[nodiscard]] const MenuEntry& entry(int id) const;
    [[nodiscard]] QVariantMap properties(int id, const QStringList& names = {}) const;
    [[nodiscard]] DBusMenuNode node(int id, int depth, const QStringList& names) const;
    bool deliver(int id, const QString& eventId);
    void refuse(int id) const;

    std::vector<MenuEntry> entries_;
    KeyNaming keyNaming_;
};

} // namespace dwellkey
