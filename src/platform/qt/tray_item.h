// SPDX-License-Identifier: MIT
#pragma once

#include "platform/menu_bar_extra.h"
#include "platform/qt/dbus_menu.h"
#include "platform/qt/qt_call_limit.h"
#include "platform/qt/status_notifier_item.h"
#include "platform/session.h"

#include <QDBusConnection>
#include <QMenu>
#include <QObject>
#include <QPointer>

namespace dwellkey {

/// One item on a connection of its own: with the connection goes the item, at once and in every
/// bar, however the bar knows it.
class TrayItem final : public QObject {
    Q_OBJECT

public:
    /// `number` is one that no other item of this process ever had.
    TrayItem(MenuBarItem item, const TemplateIcon& icon, KeyNaming keyNaming, int number,
             ErrorLog& errorLog);
    TrayItem(const TrayItem&) = delete;
    TrayItem& operator=(const TrayItem&) = delete;
    ~TrayItem() override;

    /// Tells the present watcher, if there is one, of the item.
    void announce();

private:
    void takeName();
    void send(const QDBusMessage& call, void (TrayItem::*answered)(const QDBusMessage& reply));
    void nameAnswered(const QDBusMessage& reply);
    void watcherAnswered(const QDBusMessage& reply);
    void showMenu();

    ErrorLog& errorLog_;
    QtCallLimit callLimit_;
    QString connectionName_;
    QString wantedService_;
    std::vector<MenuEntry> entries_;
    DBusMenu menu_;
    StatusNotifierItem item_;
    QString service_; // what the bars find the item under; empty until it is settled
    QPointer<QMenu> shownMenu_;
};

} // namespace dwellkey
