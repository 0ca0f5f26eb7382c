// SPDX-License-Identifier: MIT
// The state of one key command. Main thread only. std only.
#pragma once

#include "keycommands/key_command.h"
#include "platform/hot_keys.h"
#include "platform/once_per_turn.h"
#include "support/signal.h"

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace dwellkey {

enum class Reregistration { no, yes };
struct CodingError;

/// One per name and registry, made by the registry and kept as long as it. Handlers of every kind
/// may change the command and its observations while they run.
class KeyCommandProxy {
public:
    using Observation = KeyCommand::Observation;

    KeyCommandProxy(Platform& platform, KeyCommandRegistry& registry, KeyCommand::Name name,
                    EventHotKeyID identifier);
    KeyCommandProxy(const KeyCommandProxy&) = delete;
    KeyCommandProxy& operator=(const KeyCommandProxy&) = delete;
    /// Gives the combination back. The stored entry stays: the next start restores it.
    ~KeyCommandProxy();

    [[nodiscard]] const KeyCommand::Name& name() const { return name_; }

    /// How the hot-key service knows the command; the same for good, registered or not.
    [[nodiscard]] EventHotKeyID identifier() const { return identifier_; }

    [[nodiscard]] std::optional<Key> key() const { return key_; }
    void setKey(std::optional<Key> key);
    [[nodiscard]] const Modifiers& modifiers() const { return modifiers_; }
    void setModifiers(Modifiers modifiers);

    [[nodiscard]] bool isRegistered() const { return isRegistered_; }

    struct RegistrationFailure {
        OSStatus status = noErr;
        bool isHeldByAnotherCommand = false; // of the registry
        bool isUnreadable = false;           // nothing was tried
        bool operator==(const RegistrationFailure&) const = default;
    };
    /// Why the present combination could not be registered, when it was tried last, or that there
    /// is none because what is stored cannot be read; absent when it was not tried, or could be.
    [[nodiscard]] const std::optional<RegistrationFailure>& registrationFailure() const {
        return registrationFailure_;
    }

    /// Registers the combination, anew if it is registered. No effect without a key and at least
    /// one modifier. A failure is logged and leaves the command unregistered; until it is
    /// unregistered, each change of the application in front tries again.
    void registerHotKey();
    /// Unregisters and forgets the stored entry. No effect when not registered.
    void unregisterHotKey(Reregistration reregistration);
    /// Unregisters for a while: the stored entry stays, so whatever ends the process meanwhile
    /// costs the user nothing.
    void suspend();

    /// Takes over what is stored, and registers nothing.
    void restore();
    /// Takes the user's choice as one change, stores it and registers nothing. So it is tried again
    /// at the next start when somebody else holds it now. A combination of another command of the
    /// registry is not stored: that command would lose it at the next start.
    void choose(Key key, Modifiers modifiers);
    /// Removes the stored entry.
    void forget();

    /// While set, registering and unregistering do nothing: for changing key and modifiers as one.
    void setBlocksRegistrationChanges(bool blocks) { blocksRegistrationChanges_ = blocks; }

    /// Runs `handler` after the key or the modifiers were assigned.
    [[nodiscard]] Subscription observeKeyAndModifierChanges(std::function<void()> handler) const;
    /// Runs `handler` after `isRegistered` changed.
    [[nodiscard]] Subscription observeRegistrationState(std::function<void()> handler) const;
    /// Runs `handler` after registering failed for a reason that is new.
    [[nodiscard]] Subscription observeRegistrationFailure(std::function<void()> handler) const;

    /// No effect when it is already there.
    void addObservation(const Observation& observation);
    void removeFirstObservation(const std::function<bool(const Observation&)>& predicate);
    void removeAllObservations();

    /// Whether a menu of this program is open; followed only while `disablesOnMenuOpen`.
    [[nodiscard]] bool menuIsOpen() const { return menuIsOpen_; }
    [[nodiscard]] bool disablesOnMenuOpen() const;
    void setDisablesOnMenuOpen(bool disables);

    /// The hot-key service's events. They allocate nothing.
    void keyWentDown();
    void keyWentUp();

private:
    void keyOrModifiersChanged();
    void takeOverStoredEntry();
    void assign(std::optional<Key> key, Modifiers modifiers);
    bool release();
    void registrationFailed(OSStatus status);
    void unreadable(std::string_view message, const CodingError& error);
    void store();
    void fire(const KeyCommand::EventType& event);
    void forgetRemovedObservations();

    Platform& platform_;
    KeyCommandRegistry& registry_;
    const KeyCommand::Name name_;
    const EventHotKeyID identifier_;

    std::optional<Key> key_;
    Modifiers modifiers_;
    EventHotKeyRef hotKeyRef_{};
    bool isRegistered_ = false;
    bool blocksRegistrationChanges_ = false;
    bool menuIsOpen_ = false;
    std::chrono::nanoseconds lastKeyUp_;

    Signal<> keyAndModifiersDidChange_;
    Signal<> registrationStateDidChange_;
    Signal<> registrationDidFail_;
    /// In the order of observing. Null: removed while an event was walking the list.
    std::vector<std::shared_ptr<const Observation>> observations_;
    int firingDepth_ = 0;
    Subscription menuDidBegin_;
    Subscription menuDidEnd_;
    /// Logged once: each start registers a command once for each of its observers.
    std::optional<RegistrationFailure> registrationFailure_;
    Subscription tryAgain_;
    OncePerTurn registerOnce_;
    Subscription editsFromOutside_;
};

} // namespace dwellkey
