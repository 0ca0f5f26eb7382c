// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <cstdlib>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <xcb/xcb.h>

namespace dwellkey::e2e {

struct FreeReply {
    void operator()(void* reply) const { std::free(reply); } // NOLINT: xcb allocates with malloc
};

/// A reply, event or error of xcb; null when the request failed.
template <typename Type>
using Reply = std::unique_ptr<Type, FreeReply>;

/// A test's own connection to the display, with what every client needs.
class XConnection {
public:
    explicit XConnection(const std::string& display);
    XConnection(const XConnection&) = delete;
    XConnection& operator=(const XConnection&) = delete;
    ~XConnection() = default;

    [[nodiscard]] xcb_connection_t* get() const { return connection_.get(); }
    [[nodiscard]] int descriptor() const { return xcb_get_file_descriptor(get()); }
    [[nodiscard]] const xcb_screen_t& screen() const { return *screen_; }
    [[nodiscard]] xcb_window_t root() const { return screen_->root; }
    [[nodiscard]] xcb_atom_t atom(const std::string& name) const;

    /// The property's bytes; empty when the window or the property does not exist.
    [[nodiscard]] std::string textProperty(xcb_window_t window, const std::string& name) const;
    /// The property's 32-bit values; empty when the window or the property does not exist.
    [[nodiscard]] std::vector<std::uint32_t> numbersProperty(xcb_window_t window,
                                                             const std::string& name) const;

    /// Returns after the server has carried out every request so far.
    void synchronize() const;

private:
    struct Disconnect {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };

    std::unique_ptr<xcb_connection_t, Disconnect> connection_;
    const xcb_screen_t* screen_ = nullptr;
    mutable std::map<std::string, xcb_atom_t> atoms_;
};

} // namespace dwellkey::e2e
