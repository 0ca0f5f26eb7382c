// SPDX-License-Identifier: MIT
#include "keycommands/key_command.h"

#include "keycommands/key_command_proxy.h"
#include "keycommands/key_command_registry.h"
#include "status_log.h"

#include <algorithm>

namespace dwellkey {
namespace {

bool matches(const SystemShortcuts::Entry& entry, Key key, const Modifiers& modifiers) {
    if (!entry.enabled.value_or(false) || !entry.keyCode || !entry.modifiers) {
        return false;
    }
    const Modifiers reserved =
        modifiersFromHotKeyMask(static_cast<std::uint32_t>(*entry.modifiers));
    // Equal lengths and containment, so that a repeated modifier counts by its place in the list.
    return modifiers.size() == reserved.size() && keyFromRawValue(*entry.keyCode) == key
           && std::ranges::all_of(modifiers, [&](Modifier modifier) {
                  return std::ranges::find(reserved, modifier) != reserved.end();
              });
}

} // namespace

std::string KeyCommand::Name::storageKey() const {
    return prefix.rawValue + separator + rawValue;
}

std::string KeyCommand::Name::description() const {
    return "Name(rawValue: " + rawValue + ", prefix: " + prefix.rawValue
           + ", separator: " + separator + ")";
}

KeyCommand::KeyCommand(Name name) : KeyCommand(std::move(name), KeyCommandRegistry::shared()) {}

KeyCommand::KeyCommand(Name name, std::optional<Key> key, Modifiers modifiers)
    : KeyCommand(std::move(name), key, std::move(modifiers), KeyCommandRegistry::shared()) {}

KeyCommand::KeyCommand(Name name, KeyCommandRegistry& registry)
    : name_(std::move(name)), registry_(&registry) {
    if (registry.find(name_) == nullptr) {
        restore();
    }
}

KeyCommand::KeyCommand(Name name, std::optional<Key> key, Modifiers modifiers,
                       KeyCommandRegistry& registry)
    : KeyCommand(std::move(name), registry) {
    setKey(key);
    setModifiers(std::move(modifiers));
}

void KeyCommand::restore() const {
    proxy().restore();
}

std::optional<Key> KeyCommand::key() const {
    return proxy().key();
}

void KeyCommand::setKey(std::optional<Key> key) const {
    proxy().setKey(key);
}

const Modifiers& KeyCommand::modifiers() const {
    return proxy().modifiers();
}

void KeyCommand::setModifiers(Modifiers modifiers) const {
    proxy().setModifiers(std::move(modifiers));
}

bool KeyCommand::isEnabled() const {
    return proxy().isRegistered();
}

void KeyCommand::enable() const {
    proxy().registerHotKey();
}

void KeyCommand::disable() const {
    proxy().unregisterHotKey(Reregistration::no);
}

void KeyCommand::remove() const {
    KeyCommandProxy& state = proxy();
    state.setBlocksRegistrationChanges(true);
    state.setKey(std::nullopt);
    state.setModifiers({});
    state.setBlocksRegistrationChanges(false);
    state.unregisterHotKey(Reregistration::yes);
    state.forget();
}

KeyCommand::Observation KeyCommand::observe(EventType eventType,
                                            std::function<void()> handler) const {
    Observation observation{Uuid::random(), eventType, std::move(handler)};
    proxy().addObservation(observation);
    proxy().registerHotKey();
    return observation;
}

void KeyCommand::removeObservation(const Observation& observation) const {
    removeFirstObservation([&](const Observation& other) { return other == observation; });
}

void KeyCommand::removeObservations(std::span<const Observation> observations) const {
    for (const Observation& observation : observations) {
        removeObservation(observation);
    }
}

void KeyCommand::removeFirstObservation(
    const std::function<bool(const Observation&)>& predicate) const {
    proxy().removeFirstObservation(predicate);
}

void KeyCommand::removeAllObservations() const {
    proxy().removeAllObservations();
    disable();
}

bool KeyCommand::disablesOnMenuOpen() const {
    return proxy().disablesOnMenuOpen();
}

void KeyCommand::setDisablesOnMenuOpen(bool disables) const {
    proxy().setDisablesOnMenuOpen(disables);
}

bool KeyCommand::isReservedBySystem(Key key, const Modifiers& modifiers, Platform& platform) {
    const SystemShortcuts::List list = platform.systemShortcuts.copySymbolicHotKeys();
    if (list.status != noErr) {
        logStatus(platform.errorLog, list.status, "System reserved key command retrieval failed.");
        return false;
    }
    return std::ranges::any_of(list.entries,
                               [&](const auto& entry) { return matches(entry, key, modifiers); });
}

KeyCommandProxy& KeyCommand::proxy() const {
    return registry_->proxy(name_);
}

} // namespace dwellkey
