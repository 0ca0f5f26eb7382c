// SPDX-License-Identifier: MIT
#pragma once

#include "backend.h"
#include "platform/hot_keys.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

namespace dwellkey {

/// A keyboard, an application with the keyboard focus and another program, around one service.
/// Key codes are virtual key codes, modifiers hot-key service masks. What a call does has reached
/// the service's doorstep when it returns, but is delivered only by `settle`.
class HotKeyDriver {
public:
    HotKeyDriver() = default;
    HotKeyDriver(const HotKeyDriver&) = delete;
    HotKeyDriver& operator=(const HotKeyDriver&) = delete;
    virtual ~HotKeyDriver() = default;

    virtual HotKeys& hotKeys() = 0;
    /// Delivers every event that was caused so far, as the run loop would.
    virtual void settle() = 0;

    virtual void keyDown(std::uint32_t keyCode) = 0;
    virtual void keyUp(std::uint32_t keyCode) = 0;
    virtual void modifiersDown(std::uint32_t modifiers) = 0;
    virtual void modifiersUp(std::uint32_t modifiers) = 0;
    /// Returns after the key, which is down, repeated itself at least twice.
    virtual void letRepeat(std::uint32_t keyCode) = 0;
    /// Switches Caps Lock and Num Lock.
    virtual void setLocks(bool on) = 0;

    virtual void takeByOther(std::uint32_t keyCode, std::uint32_t modifiers) = 0;
    virtual void giveBackByOther(std::uint32_t keyCode, std::uint32_t modifiers) = 0;

    /// How often the key, repeats included, went down in the application with the focus.
    virtual std::size_t strokesInApplication(std::uint32_t keyCode) = 0;
};

class HotKeysConformance : public ConformanceTest<HotKeyDriver> {
protected:
    using Event = std::pair<std::uint32_t, std::uint32_t>; // kind, id

    static constexpr std::uint32_t q = 12;
    static constexpr std::uint32_t w = 13;
    static constexpr std::uint32_t shift = 0x200;
    static constexpr std::uint32_t command = 0x100;
    static constexpr EventHotKeyID quit{0x54455354, 1};
    static constexpr EventHotKeyID close{0x54455354, 2};

    void SetUp() override;
    EventHotKeyRef take(std::uint32_t keyCode, std::uint32_t modifiers, EventHotKeyID id);
    void press(std::uint32_t keyCode, std::uint32_t modifiers);
    void release(std::uint32_t keyCode, std::uint32_t modifiers);

    HotKeys& hotKeys = driver->hotKeys();
    std::vector<Event> events;
    std::function<void()> duringEvent;
};

} // namespace dwellkey
