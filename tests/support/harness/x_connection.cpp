// SPDX-License-Identifier: MIT
#include "harness/x_connection.h"

#include "harness/failure.h"

namespace dwellkey::e2e {

namespace {

constexpr std::uint32_t longestProperty = 1U << 16U; // in 32-bit units

Reply<xcb_get_property_reply_t> property(xcb_connection_t* connection, xcb_window_t window,
                                         xcb_atom_t name) {
    const auto cookie =
        xcb_get_property(connection, 0, window, name, XCB_ATOM_ANY, 0, longestProperty);
    xcb_generic_error_t* error = nullptr;
    Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(connection, cookie, &error));
    const Reply<xcb_generic_error_t> dropped(error); // the window may have gone meanwhile
    return reply;
}

} // namespace

XConnection::XConnection(const std::string& display)
    : connection_(xcb_connect(display.c_str(), nullptr)) {
    if (xcb_connection_has_error(get()) != 0) {
        throw Failure("cannot connect to the display " + display);
    }
    screen_ = xcb_setup_roots_iterator(xcb_get_setup(get())).data;
}

xcb_atom_t XConnection::atom(const std::string& name) const {
    const auto known = atoms_.find(name);
    if (known != atoms_.end()) {
        return known->second;
    }
    const auto cookie =
        xcb_intern_atom(get(), 0, static_cast<std::uint16_t>(name.size()), name.c_str());
    const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(get(), cookie, nullptr));
    if (!reply) {
        throw Failure("the display is gone (asking for the atom " + name + ")");
    }
    return atoms_[name] = reply->atom;
}

std::string XConnection::textProperty(xcb_window_t window, const std::string& name) const {
    const auto reply = property(get(), window, atom(name));
    if (!reply || reply->format != 8) {
        return {};
    }
    const auto* bytes = static_cast<const char*>(xcb_get_property_value(reply.get()));
    return {bytes, static_cast<std::size_t>(xcb_get_property_value_length(reply.get()))};
}

std::vector<std::uint32_t> XConnection::numbersProperty(xcb_window_t window,
                                                        const std::string& name) const {
    const auto reply = property(get(), window, atom(name));
    if (!reply || reply->format != 32) {
        return {};
    }
    const auto* numbers = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    const auto bytes = static_cast<std::size_t>(xcb_get_property_value_length(reply.get()));
    return {numbers, numbers + bytes / sizeof(std::uint32_t)};
}

void XConnection::synchronize() const {
    const Reply<xcb_get_input_focus_reply_t> answered(
        xcb_get_input_focus_reply(get(), xcb_get_input_focus(get()), nullptr));
}

} // namespace dwellkey::e2e
