// SPDX-License-Identifier: MIT
// A US layout that can change, scripted reserved shortcuts, menus and the bell. std only.
#pragma once

#include "platform/keyboard.h"

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <utility>

namespace dwellkey {

class FakeKeyboardLayout final : public KeyboardLayout {
public:
    FakeKeyboardLayout();

    [[nodiscard]] std::string character(std::uint16_t keyCode) const override {
        const auto found = characters.find(keyCode);
        return found == characters.end() ? std::string() : found->second;
    }

    /// Letters, digits and punctuation of a US keyboard at first. Empty: no layout can be had.
    std::map<std::uint16_t, std::string> characters;
};

class FakeSystemShortcuts final : public SystemShortcuts {
public:
    [[nodiscard]] List copySymbolicHotKeys() const override { return list; }

    List list;
};

class FakeMenuTracking final : public MenuTracking {
public:
    [[nodiscard]] Subscription observe(MenuTrackingNotification notification,
                                       std::function<void()> block) override {
        return signalOf(notification).subscribe(std::move(block));
    }

    void openMenu() { didBegin_.emit(); }
    void closeMenu() { didEnd_.emit(); }

private:
    Signal<>& signalOf(MenuTrackingNotification notification) {
        return notification == MenuTrackingNotification::didBegin ? didBegin_ : didEnd_;
    }

    Signal<> didBegin_;
    Signal<> didEnd_;
};

class FakeBeeper final : public Beeper {
public:
    void beep() override { ++beepCount; }

    int beepCount = 0;
};

} // namespace dwellkey
