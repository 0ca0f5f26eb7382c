// SPDX-License-Identifier: MIT
#pragma once

#include "platform/fake/fake_run_loop.h"
#include "platform/fake/fake_session.h"
#include "platform/x11/x11_hot_keys.h"
#include "x11_support/private_display.h"

#include <cstdint>
#include <memory>
#include <set>
#include <vector>

namespace dwellkey {

/// A client of the test's own that may have the keyboard focus, and may take keys as another
/// program would.
class OtherClient {
public:
    explicit OtherClient(const std::string& display);

    /// Has the focus from then on.
    void takeFocus();
    /// How often the key, repeats included, went down while it had the focus.
    std::size_t strokes(xcb_keycode_t key);

    /// False when somebody else holds it.
    bool grab(xcb_keycode_t key, std::uint16_t modifiers);
    void ungrab(xcb_keycode_t key, std::uint16_t modifiers);

    [[nodiscard]] e2e::XConnection& connection() { return connection_; }

private:
    void readEvents();

    e2e::XConnection connection_;
    xcb_window_t window_ = XCB_WINDOW_NONE;
    std::vector<xcb_keycode_t> strokes_;
};

/// X11HotKeys on a private display with a keyboard and an application around it. Time stands
/// still unless `loop` is advanced, and events wait until they are settled.
class HotKeyRig {
public:
    HotKeyRig();
    ~HotKeyRig();

    /// Returns after the server has carried out what the hot keys asked of it; delivers nothing.
    void synchronize() const { queryPressedKeys(*connection); }
    /// Delivers all that the server has sent.
    void settle();
    /// Returns after the key repeated itself at least twice; delivers what arrives meanwhile.
    void awaitRepeats(xcb_keycode_t key);

    void setLocks(bool on);

    PrivateDisplay& display = PrivateDisplay::shared();
    std::unique_ptr<e2e::Keyboard> keyboard = display.keyboard();
    OtherClient application{display.name()};
    OtherClient otherProgram{display.name()};
    FakeClock clock;
    FakeRunLoop loop{clock};
    FakeErrorLog log;
    std::unique_ptr<X11Connection> connection = PrivateDisplay::connect();
    X11HotKeys hotKeys{*connection, loop, log};

private:
    bool locksAreOn_ = false;
};

} // namespace dwellkey
