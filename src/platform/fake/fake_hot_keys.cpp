// SPDX-License-Identifier: MIT
#include "platform/fake/fake_hot_keys.h"

#include <algorithm>
#include <utility>

namespace dwellkey {
namespace {
constexpr std::uint32_t lastKeyCode = 127; // of any keyboard
} // namespace

OSStatus FakeHotKeys::installHandler(Handler handler) {
    ++installCount;
    if (installStatus == noErr) {
        handler_ = std::move(handler);
    }
    return installStatus;
}

HotKeys::Registration FakeHotKeys::registerHotKey(std::uint32_t keyCode, std::uint32_t modifiers,
                                                  EventHotKeyID id) {
    ++registerCount;
    const Combination combination{keyCode, modifiers};
    if (registerStatus != noErr) {
        return {registerStatus, {}};
    }
    if (keyCode > lastKeyCode) {
        return {eventHotKeyInvalidErr, {}};
    }
    const bool taken = std::ranges::find(takenByOthers_, combination) != takenByOthers_.end();
    if (taken || find(combination) != nullptr) {
        return {eventHotKeyExistsErr, {}};
    }
    const EventHotKeyRef ref{nextRef_++};
    hotKeys_.push_back({ref, id, combination});
    return {noErr, ref};
}

OSStatus FakeHotKeys::unregisterHotKey(EventHotKeyRef ref) {
    if (unregisterStatus != noErr) {
        return unregisterStatus;
    }
    const auto found = std::ranges::find(hotKeys_, ref, &HotKey::ref);
    if (found == hotKeys_.end()) {
        return eventHotKeyInvalidErr;
    }
    std::erase_if(events_, [&](const HotKeyEvent& event) { return event.hotKeyID == found->id; });
    hotKeys_.erase(found);
    applyStandDown();
    return noErr;
}

void FakeHotKeys::setStandsDown(EventHotKeyID id, bool standsDown) {
    const auto present = std::ranges::find(standingDownRequested_, id);
    if ((present != standingDownRequested_.end()) == standsDown) {
        return;
    }
    ++standDownChangeCount;
    if (standsDown) {
        standingDownRequested_.push_back(id);
    } else {
        standingDownRequested_.erase(present);
    }
    applyStandDown();
}

bool FakeHotKeys::confirmPressed() {
    deliverEvents();
    return std::ranges::any_of(hotKeys_, [this](const HotKey& hotKey) {
        const auto& [keyCode, modifiers] = hotKey.combination;
        const bool played =
            keysDown_.contains(keyCode) && (modifiersDown_ & modifiers) == modifiers;
        return hotKey.pressed && keysReallyDown.value_or(played);
    });
}

void FakeHotKeys::press(std::uint32_t keyCode, std::uint32_t modifiers) {
    modifiersDown(modifiers);
    keyDown(keyCode);
}

void FakeHotKeys::release(std::uint32_t keyCode, std::uint32_t modifiers) {
    keyUp(keyCode);
    modifiersUp(modifiers);
}

void FakeHotKeys::keyDown(std::uint32_t keyCode) {
    const bool repeats = !keysDown_.insert(keyCode).second;
    const Combination combination{keyCode, modifiersDown_};
    HotKey* hotKey = find(combination);
    if (!repeats && hotKey != nullptr && !standsDown(hotKey->id)) {
        grabbedKeysDown_.insert(keyCode);
        hotKey->pressed = true;
        enqueue(kEventHotKeyPressed, hotKey->id);
    } else if (!grabbedKeysDown_.contains(keyCode)) {
        typedIntoApplication.push_back(combination);
    }
}

void FakeHotKeys::keyUp(std::uint32_t keyCode) {
    keysDown_.erase(keyCode);
    grabbedKeysDown_.erase(keyCode);
    endPresses([&](const HotKey& hotKey) { return hotKey.combination.keyCode == keyCode; });
}

void FakeHotKeys::modifiersUp(std::uint32_t modifiers) {
    modifiersDown_ &= ~modifiers;
    endPresses(
        [&](const HotKey& hotKey) { return (hotKey.combination.modifiers & modifiers) != 0; });
}

void FakeHotKeys::loseKeyboard() {
    endPresses([](const HotKey&) { return true; });
}

OSStatus FakeHotKeys::send(const HotKeyEvent* event) const {
    return handler_ ? handler_(event) : eventNotHandledErr;
}

void FakeHotKeys::deliverEvents() {
    while (!events_.empty()) {
        const HotKeyEvent event = events_.front();
        events_.pop_front();
        send(&event);
    }
}

std::vector<FakeHotKeys::Combination> FakeHotKeys::registeredCombinations() const {
    std::vector<Combination> combinations;
    for (const HotKey& hotKey : hotKeys_) {
        combinations.push_back(hotKey.combination);
    }
    return combinations;
}

std::optional<EventHotKeyID> FakeHotKeys::idOf(Combination combination) const {
    const auto found = std::ranges::find(hotKeys_, combination, &HotKey::combination);
    return found == hotKeys_.end() ? std::nullopt : std::optional(found->id);
}

bool FakeHotKeys::standsDown(EventHotKeyID id) const {
    return std::ranges::find(standingDown_, id) != standingDown_.end();
}

FakeHotKeys::HotKey* FakeHotKeys::find(Combination combination) {
    const auto found = std::ranges::find(hotKeys_, combination, &HotKey::combination);
    return found == hotKeys_.end() ? nullptr : &*found;
}

bool FakeHotKeys::isAnyPressed() const {
    return std::ranges::any_of(hotKeys_, &HotKey::pressed);
}

template <typename Condition>
void FakeHotKeys::endPresses(Condition condition) {
    std::vector<EventHotKeyID> released; // the handler may register and unregister
    for (HotKey& hotKey : hotKeys_) {
        if (hotKey.pressed && condition(hotKey)) {
            hotKey.pressed = false;
            released.push_back(hotKey.id);
        }
    }
    applyStandDown();
    for (const EventHotKeyID id : released) {
        enqueue(kEventHotKeyReleased, id);
    }
}

void FakeHotKeys::enqueue(std::uint32_t kind, EventHotKeyID id) {
    events_.push_back({kind, id, noErr});
    if (!holdsEventsBack) {
        deliverEvents();
    }
}

void FakeHotKeys::applyStandDown() {
    if (!isAnyPressed()) {
        standingDown_ = standingDownRequested_;
    }
}

} // namespace dwellkey
