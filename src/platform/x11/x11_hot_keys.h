// SPDX-License-Identifier: MIT
// Hot keys as passive grabs on the root window.
//
// The grabs are asynchronous on purpose: with a synchronous one a stalled Dwellkey would freeze
// the user's keyboard. While a grabbed key is down the server sends us all keys, until it goes up.
#pragma once

#include "platform/hot_keys.h"
#include "platform/run_loop.h"
#include "platform/session.h"
#include "platform/x11/x11_connection.h"
#include "platform/x11/x11_modifier_map.h"

#include <cstdint>
#include <optional>
#include <set>
#include <utility>
#include <vector>

namespace dwellkey {

class X11HotKeys final : public HotKeys {
public:
    X11HotKeys(X11Connection& connection, RunLoop& runLoop, ErrorLog& errorLog);
    ~X11HotKeys() override;

    OSStatus installHandler(Handler handler) override;
    Registration registerHotKey(std::uint32_t keyCode, std::uint32_t modifiers,
                                EventHotKeyID id) override;
    OSStatus unregisterHotKey(EventHotKeyRef ref) override;
    void setStandsDown(EventHotKeyID id, bool standsDown) override;
    bool confirmPressed() override;

    /// Gives a released event for every hot key that is down: the session is being locked, or
    /// something else makes what the keyboard says worthless.
    void releaseAll();

private:
    /// One physical combination in the server's terms.
    struct Grab {
        xcb_keycode_t keycode = 0;
        std::uint16_t modifiers = 0;
        bool operator==(const Grab&) const = default;
    };
    struct HotKey {
        EventHotKeyRef ref{};
        EventHotKeyID id;
        std::uint32_t keyCode = 0;
        std::uint32_t mask = 0;
        std::optional<Grab> grab; // absent while this keyboard has no such combination
        bool isGrabbed = false;   // false while it stands down, or lost the grab to another program
        bool lossReported = false; // of a grab that could not be made again
    };
    /// A hot key's key from its press until it is physically up again.
    struct PressedKey {
        EventHotKeyRef ref{};
        EventHotKeyID id;
        xcb_keycode_t keycode = 0;
        std::uint16_t modifiers = 0;     // of the combination
        std::uint16_t heldModifiers = 0; // those with a key of theirs down at the press; the
                                         // others were latched or locked (sticky keys)
        bool releaseSent = false;
        std::uint64_t serial = 0; // rises with each press
    };

    void handleEvent(const xcb_generic_event_t& event);
    void handleKeyPress(const xcb_key_press_event_t& event);
    void handleKeyRelease(const xcb_key_release_event_t& event);
    void handleModifierPress(const xcb_key_press_event_t& event);
    void sendPressed(const HotKey& hotKey);
    void sendReleased(PressedKey& pressed);
    void send(std::uint32_t kind, EventHotKeyID id);

    void startWatchingKeys();
    void checkPressedKeys();
    template <typename Condition>
    void releaseThose(Condition condition);
    [[nodiscard]] std::uint16_t modifiersAmong(const KeySet& down, std::uint16_t modifiers) const;
    [[nodiscard]] bool isStillHeld(const PressedKey& pressed, const KeySet& down) const;
    void afterLastRelease();

    void applyStandDowns();
    void applyStandDown(HotKey& hotKey);
    void handleMappingChange();
    void remakeGrabs();

    [[nodiscard]] std::optional<Grab> grabFor(std::uint32_t keyCode, std::uint32_t mask) const;
    bool take(const Grab& grab);
    void giveBack(const Grab& grab);
    [[nodiscard]] bool standsDown(EventHotKeyID id) const;

    X11Connection& connection_;
    RunLoop& runLoop_;
    ErrorLog& errorLog_;
    X11ModifierMap modifierMap_;
    std::uint8_t xkbFirstEvent_ = 0;
    Handler handler_;
    std::vector<HotKey> hotKeys_;
    std::vector<PressedKey> pressed_;
    // As the server told at the latest press, carried on by the events since. Those that were on
    // their way then are counted twice, which is harmless: a release among them is one all the
    // same.
    KeySet keysDown_;
    std::set<std::pair<std::uint32_t, std::uint32_t>> standingDown_; // (signature, id)
    std::uint32_t lastRef_ = 0;
    std::uint64_t lastSerial_ = 0;
    bool remakeWhenReleased_ = false;
    Subscription events_;
    Subscription keyWatch_;    // runs while a hot key's key is down
    Subscription remakeTimer_; // debounces keyboard-map changes
};

} // namespace dwellkey
