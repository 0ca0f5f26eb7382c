// SPDX-License-Identifier: MIT
#include "platform/qt/dbus_menu.h"

#include <QDBusError>
#include <QGuiApplication>

#include <array>
#include <cstddef>
#include <utility>

#include <xkbcommon/xkbcommon.h>

namespace dwellkey {
namespace {

constexpr int rootId = 0;
constexpr uint onlyRevision = 1;

QString keyName(char32_t character, KeyNaming naming) {
    const QString text = QString::fromUcs4(&character, 1);
    if (naming == KeyNaming::text || QChar::isLetter(character)) {
        return text.toUpper();
    }
    std::array<char, 64> name{};
    xkb_keysym_get_name(xkb_utf32_to_keysym(character), name.data(), name.size());
    return QString::fromLatin1(name.data());
}

/// A list of presses, each of modifiers and a key; here always one.
QList<QStringList> shortcut(const KeyEquivalent& equivalent, KeyNaming naming) {
    static constexpr auto names = std::to_array<std::pair<std::uint32_t, const char*>>({
        {hot_key_mask::command, "Control"},
        {hot_key_mask::option, "Alt"},
        {hot_key_mask::shift, "Shift"},
        {hot_key_mask::control, "Super"},
    });
    QStringList press;
    for (const auto& [mask, name] : names) {
        if ((equivalent.modifiers & mask) != 0) {
            press += QString::fromLatin1(name);
        }
    }
    press += keyName(equivalent.character, naming);
    return {press};
}

/// An underscore marks the letter that chooses the entry, two are one.
QString label(const std::string& title) {
    return QString::fromStdString(title).replace(QLatin1Char('_'), QLatin1String("__"));
}

} // namespace

DBusMenu::DBusMenu(std::vector<MenuEntry> entries, KeyNaming keyNaming)
    : entries_(std::move(entries)), keyNaming_(keyNaming) {}

QString DBusMenu::textDirection() const {
    return QGuiApplication::isRightToLeft() ? QStringLiteral("rtl") : QStringLiteral("ltr");
}

uint DBusMenu::GetLayout(int parentId, int recursionDepth, const QStringList& propertyNames,
                         DBusMenuNode& layout) {
    if (exists(parentId)) {
        layout = node(parentId, recursionDepth, propertyNames);
    } else {
        refuse(parentId);
    }
    return onlyRevision;
}

QList<DBusMenuProperties> DBusMenu::GetGroupProperties(const QList<int>& ids,
                                                       const QStringList& propertyNames) {
    QList<DBusMenuProperties> found;
    for (const int id : ids) {
        if (exists(id)) {
            found.append({id, properties(id, propertyNames)});
        }
    }
    for (int id = rootId; ids.isEmpty() && exists(id); ++id) { // no ids are all ids
        found.append({id, properties(id, propertyNames)});
    }
    return found;
}

QDBusVariant DBusMenu::GetProperty(int id, const QString& name) {
    if (!exists(id)) {
        refuse(id);
        return QDBusVariant(0);
    }
    const QVariant value = properties(id).value(name);
    if (!value.isValid()) {
        sendErrorReply(QDBusError::InvalidArgs,
                       QStringLiteral("the entry %1 has no property \"%2\"").arg(id).arg(name));
        return QDBusVariant(0);
    }
    return QDBusVariant(value);
}

void DBusMenu::Event(int id, const QString& eventId, const QDBusVariant& /*data*/,
                     uint /*timestamp*/) {
    if (!deliver(id, eventId)) {
        refuse(id);
    }
}

QList<int> DBusMenu::EventGroup(const QList<DBusMenuEvent>& events) {
    QList<int> missing;
    for (const DBusMenuEvent& event : events) {
        if (!deliver(event.id, event.name)) {
            missing.append(event.id);
        }
    }
    if (!missing.isEmpty() && missing.size() == events.size()) {
        refuse(missing.first());
    }
    return missing;
}

bool DBusMenu::AboutToShow(int id) {
    if (!exists(id)) {
        refuse(id);
    }
    return false; // nothing to fetch anew
}

QList<int> DBusMenu::AboutToShowGroup(const QList<int>& ids, QList<int>& idErrors) {
    for (const int id : ids) {
        if (!exists(id)) {
            idErrors.append(id);
        }
    }
    if (!idErrors.isEmpty() && idErrors.size() == ids.size()) {
        refuse(idErrors.first());
    }
    return {};
}

bool DBusMenu::exists(int id) const {
    return id >= rootId && static_cast<std::size_t>(id) <= entries_.size();
}

const MenuEntry& DBusMenu::entry(int id) const {
    return entries_.at(static_cast<std::size_t>(id) - 1);
}

QVariantMap DBusMenu::properties(int id, const QStringList& names) const {
    QVariantMap all{{QStringLiteral("visible"), true}};
    if (id == rootId) {
        all[QStringLiteral("children-display")] = QStringLiteral("submenu");
    } else if (entry(id).kind == MenuEntry::Kind::separator) {
        all[QStringLiteral("type")] = QStringLiteral("separator");
    } else {
        all[QStringLiteral("type")] = QStringLiteral("standard");
        all[QStringLiteral("label")] = label(entry(id).title);
        all[QStringLiteral("enabled")] = entry(id).isEnabled;
        if (const auto& equivalent = entry(id).keyEquivalent) {
            all[QStringLiteral("shortcut")] =
                QVariant::fromValue(shortcut(*equivalent, keyNaming_));
        }
    }
    if (!names.isEmpty()) { // no names are all names
        all.removeIf([&](const auto& property) { return !names.contains(property.key()); });
    }
    return all;
}

/// A negative depth has no end.
DBusMenuNode DBusMenu::node(int id, int depth, const QStringList& names) const {
    DBusMenuNode result{id, properties(id, names), {}};
    if (id == rootId && depth != 0) {
        for (int child = rootId + 1; exists(child); ++child) {
            result.children.append({child, properties(child, names), {}});
        }
    }
    return result;
}

/// False when there is no such entry.
bool DBusMenu::deliver(int id, const QString& eventId) {
    if (!exists(id)) {
        return false;
    }
    if (id != rootId && eventId == QLatin1String("clicked") && entry(id).isEnabled
        && entry(id).action) {
        // The bar waits for the answer, and the action may open a window or end this menu.
        QMetaObject::invokeMethod(qGuiApp, entry(id).action, Qt::QueuedConnection);
    }
    return true;
}

void DBusMenu::refuse(int id) const {
    sendErrorReply(QDBusError::InvalidArgs, QStringLiteral("the menu has no entry %1").arg(id));
}

} // namespace dwellkey
