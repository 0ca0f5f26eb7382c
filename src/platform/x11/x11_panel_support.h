// SPDX-License-Identifier: MIT
#pragma once

#include "platform/windows.h"
#include "platform/x11/x11_connection.h"
#include "platform/x11/x11_windows.h"

#include <map>

namespace dwellkey {

class X11PanelSupport final : public PanelSupport {
public:
    explicit X11PanelSupport(X11Connection& connection);

    [[nodiscard]] std::optional<Point> activeWindowCentre() const override;
    [[nodiscard]] bool isComposited() const override;
    void keepAbove(std::uint32_t nativeWindow) override;
    void blurBehind(std::uint32_t nativeWindow) override;

private:
    void handleEvent(const xcb_generic_event_t& event);
    void raise(xcb_window_t window) const;

    X11Connection& connection_;
    X11Windows windows_;
    xcb_atom_t compositingManager_ = XCB_ATOM_NONE; // the selection that a compositor owns
    xcb_atom_t blurRegion_ = XCB_ATOM_NONE;
    std::map<xcb_window_t, int> raisesLeft_; // of the windows kept above
    Subscription panelEvents_;
    Subscription events_;
};

} // namespace dwellkey
