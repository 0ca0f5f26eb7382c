// SPDX-License-Identifier: MIT
#include "platform/qt/status_notifier_item.h"

#include <QDBusMetaType>
#include <QGuiApplication>
#include <QtEndian>

#include <array>
#include <utility>

namespace dwellkey {
namespace {

// What bars commonly are high inside, and twice the two smallest for dense screens.
constexpr auto extents = std::to_array({16, 22, 24, 32, 48}); // pixels

IconPixmap travelling(const QImage& image) {
    IconPixmap pixmap{image.width(), image.height(), {}};
    pixmap.bytes.reserve(image.sizeInBytes());
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const auto pixel = qToBigEndian<quint32>(image.pixel(x, y));
            pixmap.bytes.append(reinterpret_cast<const char*>(&pixel), sizeof pixel); // NOLINT
        }
    }
    return pixmap;
}

} // namespace

QDBusArgument& operator<<(QDBusArgument& argument, const IconPixmap& pixmap) {
    argument.beginStructure();
    argument << pixmap.width << pixmap.height << pixmap.bytes;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, IconPixmap& pixmap) {
    argument.beginStructure();
    argument >> pixmap.width >> pixmap.height >> pixmap.bytes;
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const ItemToolTip& toolTip) {
    argument.beginStructure();
    argument << toolTip.iconName << toolTip.iconPixmaps << toolTip.title << toolTip.text;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, ItemToolTip& toolTip) {
    argument.beginStructure();
    argument >> toolTip.iconName >> toolTip.iconPixmaps >> toolTip.title >> toolTip.text;
    argument.endStructure();
    return argument;
}

StatusNotifierItem::StatusNotifierItem(QString title, TemplateIcon icon, QString menuPath,
                                       std::function<void()> showMenu)
    : title_(std::move(title)), icon_(std::move(icon)), menuPath_(std::move(menuPath)),
      showMenu_(std::move(showMenu)) {
    qDBusRegisterMetaType<IconPixmap>();
    qDBusRegisterMetaType<QList<IconPixmap>>();
    qDBusRegisterMetaType<ItemToolTip>();
}

QList<IconPixmap> StatusNotifierItem::iconPixmap() const {
    QList<IconPixmap> pixmaps;
    for (const int extent : extents) {
        if (const QImage image = drawTemplateIcon(icon_, extent); !image.isNull()) {
            pixmaps.append(travelling(image));
        }
    }
    return pixmaps;
}

void StatusNotifierItem::ContextMenu(int /*x*/, int /*y*/) {
    // In a turn of its own: the bar may hold the pointer until it is answered.
    QMetaObject::invokeMethod(qGuiApp, showMenu_, Qt::QueuedConnection);
}

void StatusNotifierItem::Activate(int x, int y) {
    ContextMenu(x, y);
}

void StatusNotifierItem::SecondaryActivate(int x, int y) {
    ContextMenu(x, y);
}

void StatusNotifierItem::Scroll(int /*delta*/, const QString& /*orientation*/) {}

} // namespace dwellkey
