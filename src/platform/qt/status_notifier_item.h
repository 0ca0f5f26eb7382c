// SPDX-License-Identifier: MIT
#pragma once

#include "platform/qt/template_icon.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QList>
#include <QMetaType>
#include <QObject>
#include <QString>

#include <functional>

namespace dwellkey {

/// A picture as it travels: (iiay), 32 bits for each pixel, alpha first, in network byte order.
struct IconPixmap {
    int width = 0;
    int height = 0;
    QByteArray bytes;
};

/// (sa(iiay)ss)
struct ItemToolTip {
    QString iconName;
    QList<IconPixmap> iconPixmaps;
    QString title;
    QString text;
};

QDBusArgument& operator<<(QDBusArgument& argument, const IconPixmap& pixmap);
const QDBusArgument& operator>>(const QDBusArgument& argument, IconPixmap& pixmap);
QDBusArgument& operator<<(QDBusArgument& argument, const ItemToolTip& toolTip);
const QDBusArgument& operator>>(const QDBusArgument& argument, ItemToolTip& toolTip);

/// What a bar asks of the item in it. Nothing of it ever changes.
class StatusNotifierItem final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierItem")
    Q_PROPERTY(QString Category READ category CONSTANT)
    Q_PROPERTY(QString Id READ id CONSTANT)
    Q_PROPERTY(QString Title READ title CONSTANT)
    Q_PROPERTY(QString Status READ status CONSTANT)
    Q_PROPERTY(int WindowId READ windowId CONSTANT)
    Q_PROPERTY(QString IconName READ iconName CONSTANT)
    Q_PROPERTY(QString IconThemePath READ iconThemePath CONSTANT)
    Q_PROPERTY(QList<dwellkey::IconPixmap> IconPixmap READ iconPixmap)
    Q_PROPERTY(QString IconAccessibleDesc READ title CONSTANT)
    Q_PROPERTY(QString OverlayIconName READ noIconName CONSTANT)
    Q_PROPERTY(QList<dwellkey::IconPixmap> OverlayIconPixmap READ noIconPixmap CONSTANT)
    Q_PROPERTY(QString AttentionIconName READ noIconName CONSTANT)
    Q_PROPERTY(QList<dwellkey::IconPixmap> AttentionIconPixmap READ noIconPixmap CONSTANT)
    Q_PROPERTY(dwellkey::ItemToolTip ToolTip READ toolTip CONSTANT)
    Q_PROPERTY(bool ItemIsMenu READ itemIsMenu CONSTANT)
    Q_PROPERTY(QDBusObjectPath Menu READ menu CONSTANT)

public:
    /// `showMenu` is for bars that cannot show the menu themselves.
    StatusNotifierItem(QString title, TemplateIcon icon, QString menuPath,
                       std::function<void()> showMenu);

    [[nodiscard]] QString category() const { return QStringLiteral("ApplicationStatus"); }
    [[nodiscard]] QString id() const { return QStringLiteral("dwellkey"); }
    [[nodiscard]] QString title() const { return title_; }
    [[nodiscard]] QString status() const { return QStringLiteral("Active"); }
    [[nodiscard]] int windowId() const { return 0; }
    [[nodiscard]] QString iconName() const { return icon_.name; }
    [[nodiscard]] QString iconThemePath() const { return icon_.themeFolder; }
    [[nodiscard]] QList<IconPixmap> iconPixmap() const;
    [[nodiscard]] QString noIconName() const { return {}; }
    [[nodiscard]] QList<IconPixmap> noIconPixmap() const { return {}; }
    [[nodiscard]] ItemToolTip toolTip() const { return {{}, {}, title_, {}}; }
    [[nodiscard]] bool itemIsMenu() const { return true; }
    [[nodiscard]] QDBusObjectPath menu() const { return QDBusObjectPath(menuPath_); }

public Q_SLOTS: // of the bus; the place is that of the click
    void ContextMenu(int x, int y);
    void Activate(int x, int y);
    void SecondaryActivate(int x, int y);
    void Scroll(int delta, const QString& orientation);

private:
    QString title_;
    TemplateIcon icon_;
    QString menuPath_;
    std::function<void()> showMenu_;
};

} // namespace dwellkey

Q_DECLARE_METATYPE(dwellkey::IconPixmap)
Q_DECLARE_METATYPE(dwellkey::ItemToolTip)
