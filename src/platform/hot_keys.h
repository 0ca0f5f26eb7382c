// SPDX-License-Identifier: MIT
// System-wide hot keys. std only.
#pragma once

#include "platform/os_status.h"

#include <cstdint>
#include <functional>
#include <optional>

namespace dwellkey {

/// Names one hot key of one program: the program's four-character signature and a number that
/// it never uses twice.
struct EventHotKeyID {
    std::uint32_t signature = 0;
    std::uint32_t id = 0;
    bool operator==(const EventHotKeyID&) const = default;
};

/// The service's handle of a registered hot key; 0 is never a handle.
enum class EventHotKeyRef : std::uint32_t {};

/// Bits of the service's modifier mask, and the keys that they are on this desktop.
namespace hot_key_mask {
inline constexpr std::uint32_t command = 0x100;  // Ctrl: the key that quits applications here
inline constexpr std::uint32_t shift = 0x200;    // Shift
inline constexpr std::uint32_t option = 0x800;   // Alt
inline constexpr std::uint32_t control = 0x1000; // Super
} // namespace hot_key_mask

inline constexpr std::uint32_t kEventRawKeyDown = 1;
inline constexpr std::uint32_t kEventRawKeyUp = 3;
inline constexpr std::uint32_t kEventHotKeyPressed = 5;
inline constexpr std::uint32_t kEventHotKeyReleased = 6;

/// One event as the service hands it to the handler.
struct HotKeyEvent {
    std::uint32_t kind = 0;
    /// The direct-object parameter; absent when reading it failed with `parameterStatus`.
    std::optional<EventHotKeyID> hotKeyID;
    OSStatus parameterStatus = noErr;
};

class HotKeys {
public:
    /// Called on the main thread. The event is never null from the service itself.
    using Handler = std::function<OSStatus(const HotKeyEvent* event)>;

    struct Registration {
        OSStatus status = noErr;
        EventHotKeyRef ref{}; // valid only with noErr
    };

    HotKeys() = default;
    HotKeys(const HotKeys&) = delete;
    HotKeys& operator=(const HotKeys&) = delete;
    virtual ~HotKeys() = default;

    /// Installs the process's one handler for pressed and released events.
    virtual OSStatus installHandler(Handler handler) = 0;

    /// Takes the combination system-wide: `keyCode` is a virtual key code, `modifiers` a hot-key
    /// service mask. All or nothing: on any other status than `noErr` nothing is taken.
    ///
    /// Afterwards each press gives one pressed event, and each pressed event is followed by exactly
    /// one released event before the next: when the key or any of the modifiers goes up, or when
    /// the service can no longer be sure that they are down. Auto-repeat gives neither. A second
    /// pressed event comes only after the key itself went up.
    virtual Registration registerHotKey(std::uint32_t keyCode, std::uint32_t modifiers,
                                        EventHotKeyID id) = 0;

    /// Gives the combination back. A press that is still down gives no released event any more.
    virtual OSStatus unregisterHotKey(EventHotKeyRef ref) = 0;

    /// While a hot key stands down it stays registered, but its presses go to whoever has the
    /// keyboard. Applied at the release if one of this program's hot keys is down. Repeating the
    /// present state costs nothing. An id that is not registered is remembered for when it is.
    virtual void setStandsDown(EventHotKeyID id, bool standsDown) = 0;

    /// Positive evidence for a hold: delivers every event that has arrived until now (which may
    /// run the handler), then asks the keyboard itself. True when a hot key was pressed, has not
    /// been released since, and its keys are physically down at this moment.
    virtual bool confirmPressed() = 0;
};

} // namespace dwellkey
