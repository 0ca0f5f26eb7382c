// SPDX-License-Identifier: MIT
#include "watcher.h"

#include "native_windows.h"
#include "report.h"

#include <QGuiApplication>
#include <QKeyEvent>

#include <array>

#include <xcb/xcb.h>

namespace dwellkey::probe {

namespace {

constexpr quint8 sentFlag = 0x80;

void reportKey(const QKeyEvent& key) {
    report(key.type() == QEvent::KeyPress ? QStringLiteral("key-press")
                                          : QStringLiteral("key-release"),
           {{QStringLiteral("key"), qint64{key.nativeScanCode()}},
            {QStringLiteral("state"), qint64{key.nativeModifiers()}},
            {QStringLiteral("repeat"), key.isAutoRepeat()},
            {QStringLiteral("text"), key.text()}});
}

void reportFocus(const xcb_focus_in_event_t& focus, bool isIn) {
    static const std::array modes{QStringLiteral("normal"), QStringLiteral("grab"),
                                  QStringLiteral("ungrab"), QStringLiteral("while-grabbed")};
    report(isIn ? QStringLiteral("focus-in") : QStringLiteral("focus-out"),
           {{QStringLiteral("window"), qint64{focus.event}},
            {QStringLiteral("mode"), modes.at(focus.mode % modes.size())},
            {QStringLiteral("detail"), int{focus.detail}}});
}

} // namespace

Watcher::Watcher() {
    qGuiApp->installEventFilter(this);
    qGuiApp->installNativeEventFilter(this);
}

bool Watcher::eventFilter(QObject* receiver, QEvent* event) {
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        if (receiver->isWindowType()) { // once, not for every widget that it is offered to
            reportKey(*static_cast<QKeyEvent*>(event));
        }
        break;
    default:
        break;
    }
    return false;
}

bool Watcher::nativeEventFilter(const QByteArray& eventType, void* message, qintptr* /*result*/) {
    if (eventType != "xcb_generic_event_t") {
        return false;
    }
    const auto* event = static_cast<xcb_generic_event_t*>(message);
    switch (event->response_type & ~sentFlag) {
    case XCB_FOCUS_IN:
    case XCB_FOCUS_OUT:
        reportFocus(*static_cast<xcb_focus_in_event_t*>(message),
                    (event->response_type & ~sentFlag) == XCB_FOCUS_IN);
        break;
    case XCB_CLIENT_MESSAGE: {
        const auto& sent = *static_cast<xcb_client_message_event_t*>(message);
        if (atomName(sent.type) == u"WM_PROTOCOLS"
            && atomName(sent.data.data32[0]) == u"WM_DELETE_WINDOW") {
            report(QStringLiteral("close-request"),
                   {{QStringLiteral("window"), qint64{sent.window}}});
        }
        break;
    }
    default:
        break;
    }
    return false;
}

} // namespace dwellkey::probe
