// SPDX-License-Identifier: MIT
// Named system-wide key commands. Main thread only. std only.
#pragma once

#include "keycommands/key.h"
#include "keycommands/modifier.h"
#include "platform/platform.h"
#include "support/uuid.h"

#include <chrono>
#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <utility>

namespace dwellkey {

class KeyCommandProxy;
class KeyCommandRegistry;

/// A system-wide keyboard shortcut, known by its name: values with equal names in one registry are
/// the same command, whose state lives in the registry for good. Failures are logged and leave the
/// command unregistered; ask `isEnabled`. While a command is registered, its key and modifiers are
/// stored in the user defaults; a disabled command forgets what it had stored. What the user chose,
/// see `KeyCommandProxy::choose`, stays stored also while it cannot be registered.
/// The operations are const because the value itself is only the name.
class KeyCommand {
public:
    struct Name {
        struct Prefix {
            std::string rawValue;
            bool operator==(const Prefix&) const = default;
        };

        /// An absent prefix is an empty one.
        explicit Name(std::string name, std::optional<Prefix> namePrefix = std::nullopt,
                      std::string nameSeparator = {})
            : rawValue(std::move(name)), prefix(std::move(namePrefix).value_or(Prefix{})),
              separator(std::move(nameSeparator)) {}

        /// The user-defaults key of the command: prefix, separator and name.
        [[nodiscard]] std::string storageKey() const;
        [[nodiscard]] std::string description() const;
        bool operator==(const Name&) const = default;

        std::string rawValue;
        Prefix prefix;
        std::string separator;
    };

    struct EventType {
        enum class Kind { keyUp, keyDown, doubleTap };
        using Interval = std::chrono::duration<double>; // seconds

        static const EventType keyUp;
        static const EventType keyDown;
        /// Two releases at most `limit` apart.
        static constexpr EventType doubleTap(Interval limit) { return {Kind::doubleTap, limit}; }

        bool operator==(const EventType&) const = default;

        Kind kind = Kind::keyUp;
        Interval interval{}; // of double taps only
    };

    /// Equal to itself and its copies only.
    struct Observation {
        bool operator==(const Observation& other) const { return identity == other.identity; }

        Uuid identity;
        EventType eventType;
        std::function<void()> handler;
    };

    /// The command of the process's shared registry. The first use of a name restores the key and
    /// modifiers that were stored for it. What cannot be read restores nothing, is logged, and
    /// stays where it is until something else takes its place.
    explicit KeyCommand(Name name);
    KeyCommand(Name name, std::optional<Key> key, Modifiers modifiers);

    /// The same in another registry, which must outlive the command.
    KeyCommand(Name name, KeyCommandRegistry& registry);
    KeyCommand(Name name, std::optional<Key> key, Modifiers modifiers,
               KeyCommandRegistry& registry);

    [[nodiscard]] const Name& name() const { return name_; }

    /// Changing either of a registered command registers it anew, at once.
    [[nodiscard]] std::optional<Key> key() const;
    void setKey(std::optional<Key> key) const;
    [[nodiscard]] const Modifiers& modifiers() const;
    void setModifiers(Modifiers modifiers) const;

    /// Whether the combination is registered with the hot-key service.
    [[nodiscard]] bool isEnabled() const;
    /// No effect without a key and at least one modifier.
    void enable() const;
    void disable() const;

    /// Leaves the command without key, modifiers, registration and stored entry.
    void remove() const;

    /// Calls `handler` on each such event until the observation is removed, and enables the
    /// command. Handlers may observe, remove observations and change the command.
    Observation observe(EventType eventType, std::function<void()> handler) const;
    void removeObservation(const Observation& observation) const;
    void removeObservations(std::span<const Observation> observations) const;
    void removeFirstObservation(const std::function<bool(const Observation&)>& predicate) const;
    /// Disables the command too.
    void removeAllObservations() const;

    /// Whether the command is disabled while one of this program's own menus is open.
    [[nodiscard]] bool disablesOnMenuOpen() const;
    void setDisablesOnMenuOpen(bool disables) const;

    /// Whether the combination is one of the desktop's own enabled shortcuts. When the desktop
    /// cannot say, it is not, and the log says why.
    [[nodiscard]] static bool isReservedBySystem(Key key, const Modifiers& modifiers,
                                                 Platform& platform = Platform::shared());

    /// The state behind the name; made on first use. Valid as long as the registry.
    [[nodiscard]] KeyCommandProxy& proxy() const;

    bool operator==(const KeyCommand&) const = default;

private:
    void restore() const;

    Name name_;
    KeyCommandRegistry* registry_;
};

inline constexpr KeyCommand::EventType KeyCommand::EventType::keyUp{Kind::keyUp, {}};
inline constexpr KeyCommand::EventType KeyCommand::EventType::keyDown{Kind::keyDown, {}};

} // namespace dwellkey

template <>
struct std::hash<dwellkey::KeyCommand::Name> {
    std::size_t operator()(const dwellkey::KeyCommand::Name& name) const noexcept {
        const std::hash<std::string> text;
        return text(name.rawValue) ^ (text(name.prefix.rawValue) << 1U)
               ^ (text(name.separator) << 2U);
    }
};

template <>
struct std::hash<dwellkey::KeyCommand::EventType> {
    std::size_t operator()(const dwellkey::KeyCommand::EventType& eventType) const noexcept {
        return static_cast<std::size_t>(eventType.kind)
               ^ std::hash<double>{}(eventType.interval.count());
    }
};

template <>
struct std::hash<dwellkey::KeyCommand::Observation> {
    std::size_t operator()(const dwellkey::KeyCommand::Observation& observation) const noexcept {
        return std::hash<dwellkey::Uuid>{}(observation.identity);
    }
};
