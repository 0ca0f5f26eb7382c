// SPDX-License-Identifier: MIT
#include "platform/qt/qt_native_events.h"

#include <QGuiApplication>
#include <QWidget>
#include <cstdlib>
#include <memory>
#include <xcb/xcb.h>

namespace dwellkey {
namespace {

constexpr std::uint8_t sentByAClient = 0x80; // set in the type of an event that SendEvent made

bool hasSize(const xcb_configure_notify_event_t& told) {
    auto* native = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (native == nullptr) {
        return true;
    }
    const std::unique_ptr<xcb_get_geometry_reply_t, decltype(&std::free)> known(
        xcb_get_geometry_reply(native->connection(),
                               xcb_get_geometry(native->connection(), told.window), nullptr),
        &std::free);
    return known && known->width == told.width && known->height == told.height;
}

/// What the toolkit makes anew it must first have destroyed itself; a widget keeps that to itself.
struct NativeWindow : QWidget {
    static void giveUp(QWidget& widget) {
        widget.hide();
        (widget.*(&NativeWindow::destroy))(true, true);
    }
};

} // namespace

QtNativeEvents::QtNativeEvents() {
    qGuiApp->installNativeEventFilter(this);
}

QtNativeEvents::~QtNativeEvents() {
    qGuiApp->removeNativeEventFilter(this);
}

bool QtNativeEvents::nativeEventFilter(const QByteArray& eventType, void* message,
                                       qintptr* /*result*/) {
    if (eventType != "xcb_generic_event_t") {
        return false;
    }
    const auto& event = *static_cast<const xcb_generic_event_t*>(message);
    const bool isSent = (event.response_type & sentByAClient) != 0;
    switch (event.response_type & ~sentByAClient) {
    case XCB_KEY_PRESS:
    case XCB_KEY_RELEASE:
        return isSent;
    case XCB_CONFIGURE_NOTIFY:
        return isSent
               && !hasSize(reinterpret_cast<const xcb_configure_notify_event_t&>(
                   event)); // NOLINT: xcb's way
    case XCB_DESTROY_NOTIFY: {
        const auto& gone = reinterpret_cast<const xcb_destroy_notify_event_t&>(event); // NOLINT
        // One that the toolkit destroyed it does not know any more.
        if (QWidget* widget = QWidget::find(gone.window); widget != nullptr && !isSent) {
            NativeWindow::giveUp(*widget);
        }
        return isSent;
    }
    default:
        return false;
    }
}

} // namespace dwellkey
