// SPDX-License-Identifier: MIT
#include "keycommands/key_command_proxy.h"

#include "keycommands/key_command_coding.h"
#include "keycommands/key_command_registry.h"
#include "status_log.h"

#include <algorithm>
#include <utility>

namespace dwellkey {
namespace {

bool listensTo(const KeyCommand::EventType& observed, const KeyCommand::EventType& event) {
    return observed.kind == event.kind
           && (event.kind != KeyCommand::EventType::Kind::doubleTap
               || event.interval <= observed.interval);
}

} // namespace

KeyCommandProxy::KeyCommandProxy(Platform& platform, KeyCommandRegistry& registry,
                                 KeyCommand::Name name, EventHotKeyID identifier)
    : platform_(platform), registry_(registry), name_(std::move(name)), identifier_(identifier),
      lastKeyUp_(platform.clock.now()),
      registerOnce_(platform.runLoop, [this] { registerHotKey(); }),
      editsFromOutside_(
          platform.userDefaults.observe(name_.storageKey(), [this](DefaultsChange change) {
              if (change == DefaultsChange::fromOutside) {
                  takeOverStoredEntry();
              }
          })) {}

KeyCommandProxy::~KeyCommandProxy() {
    if (isRegistered_) {
        platform_.hotKeys.unregisterHotKey(hotKeyRef_);
    }
}

void KeyCommandProxy::setKey(std::optional<Key> key) {
    key_ = key;
    keyOrModifiersChanged();
}

void KeyCommandProxy::setModifiers(Modifiers modifiers) {
    modifiers_ = std::move(modifiers);
    keyOrModifiersChanged();
}

void KeyCommandProxy::keyOrModifiersChanged() {
    registrationFailure_.reset();
    unregisterHotKey(Reregistration::yes);
    keyAndModifiersDidChange_.emit();
}

void KeyCommandProxy::restore() {
    auto stored = storedKeyCommand(platform_.userDefaults, name_);
    if (!stored) {
        return;
    }
    if (const auto* error = std::get_if<CodingError>(&*stored)) {
        unreadable("The stored shortcut \"" + name_.storageKey() + "\" cannot be used.", *error);
        return;
    }
    auto& content = std::get<KeyCommandContent>(*stored);
    assign(content.key, std::move(content.modifiers));
}

/// Somebody edited the settings file. An entry that was taken out clears the command; one that
/// cannot be read changes nothing, and stays there for its editor to mend.
void KeyCommandProxy::takeOverStoredEntry() {
    auto stored = storedKeyCommand(platform_.userDefaults, name_);
    if (stored && std::holds_alternative<CodingError>(*stored)) {
        unreadable("The edited shortcut \"" + name_.storageKey() + "\" is not used.",
                   std::get<CodingError>(*stored));
        return;
    }
    auto content =
        stored ? std::get<KeyCommandContent>(*std::move(stored)) : KeyCommandContent{{}, {}, name_};
    assign(content.key, std::move(content.modifiers));
    suspend();
    // Later in the turn, because one edit may change several commands, and one's new combination
    // may be another's old one.
    registerOnce_.schedule();
}

void KeyCommandProxy::choose(Key key, Modifiers modifiers) {
    assign(key, std::move(modifiers));
    const KeyCommandProxy* holder = registry_.registered(key, modifiers_);
    if (holder == nullptr || holder == this) {
        store();
    }
}

void KeyCommandProxy::assign(std::optional<Key> key, Modifiers modifiers) {
    setBlocksRegistrationChanges(true);
    setKey(key);
    setModifiers(std::move(modifiers));
    setBlocksRegistrationChanges(false);
}

void KeyCommandProxy::registerHotKey() {
    if (blocksRegistrationChanges_ || modifiers_.empty() || !key_) {
        return;
    }
    suspend();
    if (const OSStatus status = registry_.installHandler(); status != noErr) {
        logStatus(platform_.errorLog, status, "Event handler installation failed.");
        return;
    }
    const auto registration = platform_.hotKeys.registerHotKey(
        static_cast<std::uint32_t>(rawValue(*key_)), hotKeyMask(modifiers_), identifier_);
    if (registration.status != noErr) {
        registrationFailed(registration.status);
        return;
    }
    registrationFailure_.reset();
    hotKeyRef_ = registration.ref;
    store();
    isRegistered_ = true;
    registrationStateDidChange_.emit();
}

void KeyCommandProxy::registrationFailed(OSStatus status) {
    const bool isOurs = registry_.registered(*key_, modifiers_) != nullptr;
    const RegistrationFailure failure{.status = status, .isHeldByAnotherCommand = isOurs};
    if (registrationFailure_ != failure) {
        registrationFailure_ = failure;
        logStatus(platform_.errorLog, status, "Key command registration failed.");
        registrationDidFail_.emit();
    }
    // Whoever holds the combination may end, and another application is in front then.
    tryAgain_ = platform_.workspace.didActivateApplication.subscribe(
        [this](const auto& /*application*/) { registerHotKey(); });
}

void KeyCommandProxy::unreadable(std::string_view message, const CodingError& error) {
    platform_.errorLog.error(message, error.description);
    if (!key_) { // otherwise the combination in force goes on guarding
        registrationFailure_ = {.isUnreadable = true};
        registrationDidFail_.emit();
    }
}

void KeyCommandProxy::store() {
    auto encoding = encode(KeyCommandContent{key_, modifiers_, name_});
    if (auto* json = std::get_if<std::string>(&encoding)) {
        platform_.userDefaults.set(name_.storageKey(), Data{std::move(*json)});
    } else {
        logStatus(platform_.errorLog, eventInternalErr, "Key command encoding failed.");
    }
}

void KeyCommandProxy::unregisterHotKey(Reregistration reregistration) {
    if (!release()) {
        return;
    }
    forget();
    registrationStateDidChange_.emit();
    if (reregistration == Reregistration::yes) {
        registerHotKey();
    }
}

void KeyCommandProxy::suspend() {
    if (release()) {
        registrationStateDidChange_.emit();
    }
}

/// Whether it was registered and is not any more. Tells nobody.
bool KeyCommandProxy::release() {
    if (blocksRegistrationChanges_) {
        return false;
    }
    tryAgain_.cancel();
    if (!isRegistered_) {
        return false;
    }
    const OSStatus status = platform_.hotKeys.unregisterHotKey(std::exchange(hotKeyRef_, {}));
    if (status != noErr) {
        logStatus(platform_.errorLog, status, "Key command unregistration failed.");
    }
    isRegistered_ = false;
    return true;
}

void KeyCommandProxy::forget() {
    platform_.userDefaults.remove(name_.storageKey());
}

Subscription KeyCommandProxy::observeKeyAndModifierChanges(std::function<void()> handler) const {
    return keyAndModifiersDidChange_.subscribe(std::move(handler));
}

Subscription KeyCommandProxy::observeRegistrationState(std::function<void()> handler) const {
    return registrationStateDidChange_.subscribe(std::move(handler));
}

Subscription KeyCommandProxy::observeRegistrationFailure(std::function<void()> handler) const {
    return registrationDidFail_.subscribe(std::move(handler));
}

void KeyCommandProxy::addObservation(const Observation& observation) {
    const bool present = std::ranges::any_of(
        observations_, [&](const auto& other) { return other && *other == observation; });
    if (!present) {
        observations_.push_back(std::make_shared<const Observation>(observation));
    }
}

void KeyCommandProxy::removeFirstObservation(
    const std::function<bool(const Observation&)>& predicate) {
    const auto found = std::ranges::find_if(observations_, [&](const auto& observation) {
        return observation && predicate(*observation);
    });
    if (found != observations_.end()) {
        found->reset();
        forgetRemovedObservations();
    }
}

void KeyCommandProxy::removeAllObservations() {
    std::ranges::fill(observations_, nullptr);
    forgetRemovedObservations();
}

void KeyCommandProxy::forgetRemovedObservations() {
    if (firingDepth_ == 0) {
        std::erase(observations_, nullptr);
    }
}

bool KeyCommandProxy::disablesOnMenuOpen() const {
    return menuDidBegin_.isActive() && menuDidEnd_.isActive();
}

void KeyCommandProxy::setDisablesOnMenuOpen(bool disables) {
    if (disables == disablesOnMenuOpen()) {
        return;
    }
    if (!disables) {
        menuDidBegin_.cancel();
        menuDidEnd_.cancel();
        return;
    }
    menuDidBegin_ = platform_.menuTracking.observe(MenuTrackingNotification::didBegin, [this] {
        menuIsOpen_ = true;
        unregisterHotKey(Reregistration::no);
    });
    menuDidEnd_ = platform_.menuTracking.observe(MenuTrackingNotification::didEnd, [this] {
        menuIsOpen_ = false;
        registerHotKey();
    });
}

void KeyCommandProxy::keyWentDown() {
    fire(KeyCommand::EventType::keyDown);
}

void KeyCommandProxy::keyWentUp() {
    const auto now = platform_.clock.now();
    const auto gap = now - std::exchange(lastKeyUp_, now);
    fire(KeyCommand::EventType::keyUp);
    fire(KeyCommand::EventType::doubleTap(gap));
}

void KeyCommandProxy::fire(const KeyCommand::EventType& event) {
    ++firingDepth_;
    const std::size_t count = observations_.size(); // one added meanwhile waits for the next event
    for (std::size_t i = 0; i < count; ++i) {
        const auto observation = observations_[i];
        if (observation && listensTo(observation->eventType, event)) {
            observation->handler();
        }
    }
    --firingDepth_;
    forgetRemovedObservations();
}

} // namespace dwellkey
