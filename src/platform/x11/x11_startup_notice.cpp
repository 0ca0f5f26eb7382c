// SPDX-License-Identifier: MIT
#include "platform/x11/x11_startup_notice.h"

#include <algorithm>
#include <cstddef>
#include <string>

namespace dwellkey {
namespace {

// Bytes; an id is a line. Anybody on the session bus may send one, and 20 bytes are an event.
constexpr std::size_t longestId = 4096;

xcb_atom_t atom(xcb_connection_t* connection, std::string_view name) {
    const auto cookie =
        xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
    const XcbPtr<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection, cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

std::string removal(std::string_view startupId) {
    std::string message = "remove: ID=\"";
    for (const char character : startupId) {
        if (character == '"' || character == '\\') {
            message += '\\';
        }
        message += character;
    }
    return message + '"';
}

/// In pieces of what a client message holds, to everybody who listens at the root window. They
/// belong together by the window that they name, which nobody ever sees.
void broadcast(const X11Connection& connection, std::string_view message, xcb_atom_t first,
               xcb_atom_t next) {
    const xcb_window_t window = xcb_generate_id(connection.raw());
    xcb_create_window(connection.raw(), 0, window, connection.root(), -1, -1, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    const std::string text = std::string(message) + '\0'; // the end of the message
    xcb_client_message_event_t piece{};
    piece.response_type = XCB_CLIENT_MESSAGE;
    piece.format = 8;
    piece.window = window;
    piece.type = first;
    for (std::size_t at = 0; at < text.size(); at += sizeof piece.data.data8) {
        std::ranges::fill(piece.data.data8, std::uint8_t{0});
        text.copy(reinterpret_cast<char*>(piece.data.data8), sizeof piece.data.data8, at); // NOLINT
        xcb_send_event(connection.raw(), 0, connection.root(), XCB_EVENT_MASK_PROPERTY_CHANGE,
                       reinterpret_cast<const char*>(&piece)); // NOLINT: the interface of xcb
        piece.type = next;
    }
    xcb_destroy_window(connection.raw(), window);
    connection.flush();
}

} // namespace

void endStartupNotification(X11Connection& connection, std::string_view startupId) {
    if (startupId.empty() || startupId.size() > longestId) {
        return;
    }
    broadcast(connection, removal(startupId), atom(connection.raw(), "_NET_STARTUP_INFO_BEGIN"),
              atom(connection.raw(), "_NET_STARTUP_INFO"));
    connection.drainLater();
}

} // namespace dwellkey
