// SPDX-License-Identifier: MIT
#include "platform/qt/tray_item.h"

#include "platform/qt/status_notifier_names.h"

#include <QAction>
#include <QCoreApplication>
#include <QCursor>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QKeySequence>

#include <utility>

namespace dwellkey {
namespace {

const QString busService = QStringLiteral("org.freedesktop.DBus");

constexpr uint withoutQueue = 4;   // DBUS_NAME_FLAG_DO_NOT_QUEUE
constexpr uint isPrimaryOwner = 1; // DBUS_REQUEST_NAME_REPLY_PRIMARY_OWNER

QKeySequence keySequence(const KeyEquivalent& equivalent) {
    Qt::KeyboardModifiers modifiers;
    modifiers.setFlag(Qt::ControlModifier, (equivalent.modifiers & hot_key_mask::command) != 0);
    modifiers.setFlag(Qt::AltModifier, (equivalent.modifiers & hot_key_mask::option) != 0);
    modifiers.setFlag(Qt::ShiftModifier, (equivalent.modifiers & hot_key_mask::shift) != 0);
    modifiers.setFlag(Qt::MetaModifier, (equivalent.modifiers & hot_key_mask::control) != 0);
    const auto key = static_cast<Qt::Key>(QChar::toUpper(equivalent.character));
    return QKeySequence(QKeyCombination(modifiers, key));
}

void addEntry(QMenu& menu, const MenuEntry& entry) {
    if (entry.kind == MenuEntry::Kind::separator) {
        menu.addSeparator();
        return;
    }
    auto* action = menu.addAction(
        QString::fromStdString(entry.title).replace(QLatin1Char('&'), QLatin1String("&&")));
    action->setEnabled(entry.isEnabled && entry.action);
    if (entry.keyEquivalent) {
        action->setShortcut(keySequence(*entry.keyEquivalent));
        action->setShortcutVisibleInContextMenu(true);
    }
    QObject::connect(action, &QAction::triggered, qApp, entry.action, Qt::QueuedConnection);
}

} // namespace

TrayItem::TrayItem(MenuBarItem item, const TemplateIcon& icon, KeyNaming keyNaming, int number,
                   ErrorLog& errorLog)
    : errorLog_(errorLog), connectionName_(QStringLiteral("dwellkey-item-%1").arg(number)),
      wantedService_(QStringLiteral("org.kde.StatusNotifierItem-%1-%2")
                         .arg(QCoreApplication::applicationPid())
                         .arg(number)),
      entries_(std::move(item.menu)), menu_(entries_, keyNaming),
      item_(QString::fromStdString(item.title), icon, status_notifier::menuPath,
            [self = QPointer(this)] {
                if (self) {
                    self->showMenu();
                }
            }) {
    item_.installEventFilter(&callLimit_);
    menu_.installEventFilter(&callLimit_);
    registerDBusMenuTypes();
    auto bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, connectionName_);
    bus.registerObject(status_notifier::itemPath, &item_,
                       QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllProperties);
    bus.registerObject(status_notifier::menuPath, &menu_,
                       QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllProperties
                           | QDBusConnection::ExportAllSignals);
    takeName();
}

TrayItem::~TrayItem() {
    delete shownMenu_;
    QDBusConnection::disconnectFromBus(connectionName_);
}

void TrayItem::announce() {
    if (service_.isEmpty()) {
        return; // follows when it is settled
    }
    auto call = QDBusMessage::createMethodCall(
        status_notifier::watcherService, status_notifier::watcherPath,
        status_notifier::watcherService, QStringLiteral("RegisterStatusNotifierItem"));
    call << service_;
    call.setAutoStartService(false);
    send(call, &TrayItem::watcherAnswered);
}

void TrayItem::takeName() {
    auto call = QDBusMessage::createMethodCall(busService, QStringLiteral("/org/freedesktop/DBus"),
                                               busService, QStringLiteral("RequestName"));
    call << wantedService_ << withoutQueue;
    send(call, &TrayItem::nameAnswered);
}

void TrayItem::send(const QDBusMessage& call,
                    void (TrayItem::*answered)(const QDBusMessage& reply)) {
    auto* pending =
        new QDBusPendingCallWatcher(QDBusConnection(connectionName_).asyncCall(call), this);
    connect(pending, &QDBusPendingCallWatcher::finished, this,
            [this, answered](QDBusPendingCallWatcher* finished) {
                finished->deleteLater();
                (this->*answered)(finished->reply());
            });
}

void TrayItem::nameAnswered(const QDBusMessage& reply) {
    // A sandbox may forbid the name; then the connection's own name serves as well.
    const bool isOurs = reply.type() == QDBusMessage::ReplyMessage
                        && reply.arguments().value(0).toUInt() == isPrimaryOwner;
    service_ = isOurs ? wantedService_ : QDBusConnection(connectionName_).baseService();
    announce();
}

void TrayItem::watcherAnswered(const QDBusMessage& reply) {
    const QString error = reply.errorName();
    const bool isThere = error != QLatin1String("org.freedesktop.DBus.Error.ServiceUnknown")
                         && error != QLatin1String("org.freedesktop.DBus.Error.NameHasNoOwner");
    if (reply.type() == QDBusMessage::ErrorMessage && isThere) {
        errorLog_.error("The desktop's bar does not take the menu-bar item.",
                        reply.errorMessage().toStdString());
    }
}

/// Where the pointer is, which has just clicked the item.
void TrayItem::showMenu() {
    delete shownMenu_;
    shownMenu_ = new QMenu;
    shownMenu_->setAttribute(Qt::WA_DeleteOnClose);
    for (const MenuEntry& entry : entries_) {
        addEntry(*shownMenu_, entry);
    }
    shownMenu_->popup(QCursor::pos());
}

} // namespace dwellkey
