// SPDX-License-Identifier: MIT
#include "native_windows.h"

#include <QGuiApplication>

#include <cstdlib>
#include <memory>
#include <vector>

#include <xcb/xcb.h>

namespace dwellkey::probe {

namespace {

xcb_connection_t* connection() {
    return qGuiApp->nativeInterface<QNativeInterface::QX11Application>()->connection();
}

struct Free {
    void operator()(void* reply) const { std::free(reply); } // NOLINT: xcb allocates with malloc
};

xcb_atom_t atom(const char* name) {
    const auto length = static_cast<quint16>(qstrlen(name));
    const std::unique_ptr<xcb_intern_atom_reply_t, Free> reply(xcb_intern_atom_reply(
        connection(), xcb_intern_atom(connection(), 0, length, name), nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

void setNumbers(xcb_window_t window, const char* property, xcb_atom_t type,
                const std::vector<quint32>& values) {
    xcb_change_property(connection(), XCB_PROP_MODE_REPLACE, window, atom(property), type, 32,
                        static_cast<quint32>(values.size()), values.data());
}

} // namespace

void applyNativeProperties(QWidget& window, const Options& options) {
    const auto id = static_cast<xcb_window_t>(window.winId());
    if (options.className) {
        const auto name = options.className->toUtf8();
        const auto both = name + '\0' + name + '\0';
        xcb_change_property(connection(), XCB_PROP_MODE_REPLACE, id, XCB_ATOM_WM_CLASS,
                            XCB_ATOM_STRING, 8, static_cast<quint32>(both.size()),
                            both.constData());
    }
    if (!options.speaksDeleteProtocol) {
        setNumbers(id, "WM_PROTOCOLS", XCB_ATOM_ATOM, {atom("WM_TAKE_FOCUS")});
    }
    if (options.forgedPid) {
        setNumbers(id, "_NET_WM_PID", XCB_ATOM_CARDINAL, {*options.forgedPid});
    }
    if (options.isDesktop) {
        setNumbers(id, "_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM, {atom("_NET_WM_WINDOW_TYPE_DESKTOP")});
    }
}

QString atomName(quint32 value) {
    const std::unique_ptr<xcb_get_atom_name_reply_t, Free> reply(
        xcb_get_atom_name_reply(connection(), xcb_get_atom_name(connection(), value), nullptr));
    return reply ? QString::fromLatin1(xcb_get_atom_name_name(reply.get()),
                                       xcb_get_atom_name_name_length(reply.get()))
                 : QString();
}

} // namespace dwellkey::probe
