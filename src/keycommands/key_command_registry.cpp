// SPDX-License-Identifier: MIT
#include "keycommands/key_command_registry.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace dwellkey {

KeyCommandRegistry& KeyCommandRegistry::shared() {
    static auto* const registry = new KeyCommandRegistry(Platform::shared());
    return *registry;
}

KeyCommandRegistry::KeyCommandRegistry(Platform& platform) : platform_(platform) {}

KeyCommandProxy* KeyCommandRegistry::find(const KeyCommand::Name& name) const {
    const auto found =
        std::ranges::find_if(proxies_, [&](const auto& proxy) { return proxy->name() == name; });
    return found == proxies_.end() ? nullptr : found->get();
}

KeyCommandProxy* KeyCommandRegistry::find(EventHotKeyID identifier) const {
    const auto found = std::ranges::find_if(
        proxies_, [&](const auto& proxy) { return proxy->identifier() == identifier; });
    return found == proxies_.end() ? nullptr : found->get();
}

KeyCommandProxy& KeyCommandRegistry::proxy(const KeyCommand::Name& name) {
    if (KeyCommandProxy* present = find(name)) {
        return *present;
    }
    if (nextId_ == std::numeric_limits<std::uint32_t>::max()) {
        std::abort(); // ids are never reused
    }
    return *proxies_.emplace_back(std::make_unique<KeyCommandProxy>(
        platform_, *this, name, EventHotKeyID{signature, nextId_++}));
}

KeyCommandProxy* KeyCommandRegistry::registered(Key key, const Modifiers& modifiers) const {
    const auto found = std::ranges::find_if(proxies_, [&](const auto& proxy) {
        return proxy->isRegistered() && proxy->key() == key
               && hotKeyMask(proxy->modifiers()) == hotKeyMask(modifiers);
    });
    return found == proxies_.end() ? nullptr : found->get();
}

OSStatus KeyCommandRegistry::installHandler() {
    if (handlerLife_) {
        return noErr;
    }
    auto life = std::make_shared<const bool>(true);
    // The service may outlive the registry and has no operation that takes the handler out.
    const OSStatus status = platform_.hotKeys.installHandler(
        [this, alive = std::weak_ptr(life)](const HotKeyEvent* event) {
            return alive.expired() ? eventNotHandledErr : handle(event);
        });
    if (status == noErr) {
        handlerLife_ = std::move(life);
    }
    return status;
}

OSStatus KeyCommandRegistry::handle(const HotKeyEvent* event) const {
    if (event == nullptr) {
        return eventNotHandledErr;
    }
    if (event->parameterStatus != noErr) {
        return event->parameterStatus;
    }
    KeyCommandProxy* const proxy = event->hotKeyID ? find(*event->hotKeyID) : nullptr;
    if (proxy == nullptr) {
        return eventNotHandledErr;
    }
    switch (event->kind) {
    case kEventHotKeyPressed:
    case kEventRawKeyDown:
        proxy->keyWentDown();
        break;
    case kEventHotKeyReleased:
    case kEventRawKeyUp:
        proxy->keyWentUp();
        break;
    default:
        break;
    }
    return noErr;
}

} // namespace dwellkey
