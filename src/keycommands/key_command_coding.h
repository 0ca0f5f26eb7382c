// SPDX-License-Identifier: MIT
// The stored (JSON) forms. No exception leaves these functions. std only.
#pragma once

#include "keycommands/key_command.h"

#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace dwellkey {

/// What a stored key command says.
struct KeyCommandContent {
    std::optional<Key> key;
    Modifiers modifiers;
    KeyCommand::Name name;
    bool operator==(const KeyCommandContent&) const = default;
};

struct CodingError {
    std::string description;
};

/// A value, or why there is none.
template <typename Value>
using Coded = std::variant<Value, CodingError>;

/// Compact JSON. Texts that are not UTF-8 cannot be encoded.
[[nodiscard]] Coded<std::string> encode(const KeyCommandContent& content);
[[nodiscard]] Coded<std::string> encode(const KeyCommand::Name& name);
[[nodiscard]] std::string encode(Key key);
[[nodiscard]] std::string encode(Modifier modifier);
[[nodiscard]] std::string encode(const KeyCommand::EventType& eventType);

/// Further fields of an object are ignored; everything else must be as `encode` writes it.
[[nodiscard]] Coded<KeyCommandContent> decodeKeyCommand(std::string_view json);

/// What is stored for the command; absent when that is nothing. An error when it cannot be read, or
/// is an entry that somebody copied from another command.
[[nodiscard]] std::optional<Coded<KeyCommandContent>>
storedKeyCommand(const UserDefaults& store, const KeyCommand::Name& name);
[[nodiscard]] Coded<Key> decodeKey(std::string_view json);
[[nodiscard]] Coded<Modifier> decodeModifier(std::string_view json);

} // namespace dwellkey
