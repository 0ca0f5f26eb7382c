// SPDX-License-Identifier: MIT
// The hot-key service with a keyboard that a test plays on. std only.
#pragma once

#include "platform/hot_keys.h"

#include <cstdint>
#include <deque>
#include <optional>
#include <set>
#include <vector>

namespace dwellkey {

class FakeHotKeys final : public HotKeys {
public:
    /// A key with the modifiers (hot-key service mask) of its combination.
    struct Combination {
        std::uint32_t keyCode = 0;
        std::uint32_t modifiers = 0;
        bool operator==(const Combination&) const = default;
    };

    OSStatus installHandler(Handler handler) override;
    Registration registerHotKey(std::uint32_t keyCode, std::uint32_t modifiers,
                                EventHotKeyID id) override;
    OSStatus unregisterHotKey(EventHotKeyRef ref) override;
    void setStandsDown(EventHotKeyID id, bool standsDown) override;
    bool confirmPressed() override;

    // The physical keyboard.

    /// The modifiers go down, then the key.
    void press(std::uint32_t keyCode, std::uint32_t modifiers);
    /// The key goes up, then the modifiers. For modifier first, use `modifiersUp`.
    void release(std::uint32_t keyCode, std::uint32_t modifiers);
    /// A key that is already down repeats itself.
    void keyDown(std::uint32_t keyCode);
    void keyUp(std::uint32_t keyCode);
    void modifiersDown(std::uint32_t modifiers) { modifiersDown_ |= modifiers; }
    void modifiersUp(std::uint32_t modifiers);

    /// The service loses sight of the keyboard (the session locks, the keyboard is unplugged)
    /// while the keys may still be down.
    void loseKeyboard();

    /// Hands the handler an event as it stands, null included; `eventNotHandledErr` without one.
    OSStatus send(const HotKeyEvent* event) const;

    /// Delivers the events that arrived while `holdsEventsBack` was set.
    void deliverEvents();

    // Other programs.

    void takeByOther(Combination combination) { takenByOthers_.push_back(combination); }
    void giveBackByOther(Combination combination) { std::erase(takenByOthers_, combination); }
    /// The key strokes, repeats included, that went to whoever has the keyboard.
    std::vector<Combination> typedIntoApplication;

    // The script.

    OSStatus installStatus = noErr;
    OSStatus registerStatus = noErr;
    OSStatus unregisterStatus = noErr;
    /// What the keyboard answers to `confirmPressed`; absent: what is played on it.
    std::optional<bool> keysReallyDown;
    /// Events wait, as in a busy process, until `deliverEvents` or `confirmPressed`.
    bool holdsEventsBack = false;

    // What was asked for.

    [[nodiscard]] bool isHandlerInstalled() const { return static_cast<bool>(handler_); }
    [[nodiscard]] std::vector<Combination> registeredCombinations() const;
    [[nodiscard]] std::optional<EventHotKeyID> idOf(Combination combination) const;
    /// In effect now, that is, not while a change waits for a release.
    [[nodiscard]] bool standsDown(EventHotKeyID id) const;
    int installCount = 0;
    int registerCount = 0;
    /// How often `setStandsDown` changed something.
    int standDownChangeCount = 0;

private:
    struct HotKey {
        EventHotKeyRef ref{};
        EventHotKeyID id;
        Combination combination;
        bool pressed = false;
    };

    [[nodiscard]] HotKey* find(Combination combination);
    [[nodiscard]] bool isAnyPressed() const;
    /// Ends the presses that meet the condition, with one released event each.
    template <typename Condition>
    void endPresses(Condition condition);
    void enqueue(std::uint32_t kind, EventHotKeyID id);
    void applyStandDown();

    Handler handler_;
    std::vector<HotKey> hotKeys_;
    std::uint32_t nextRef_ = 1;
    std::vector<Combination> takenByOthers_;
    std::set<std::uint32_t> keysDown_;
    std::set<std::uint32_t> grabbedKeysDown_; // went down as a hot key: ours until they go up
    std::uint32_t modifiersDown_ = 0;
    std::vector<EventHotKeyID> standingDownRequested_;
    std::vector<EventHotKeyID> standingDown_;
    std::deque<HotKeyEvent> events_;
};

} // namespace dwellkey
