// SPDX-License-Identifier: MIT
// The user's settings store. std only.
#pragma once

#include "support/signal.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace dwellkey {

/// Bytes, as opposed to a text.
struct Data {
    std::string bytes;
    bool operator==(const Data&) const = default;
};

using DefaultsValue =
    std::variant<bool, std::int64_t, double, std::string, std::vector<std::string>, Data>;

/// Who changed a value: a `set` or `remove` in this process, or an edit of the store from outside.
enum class DefaultsChange { ours, fromOutside };

/// Typed values by key. What is set is read back at once; backends that persist do so by the end
/// of the turn of the run loop, and log (never throw) what goes wrong.
class UserDefaults {
public:
    UserDefaults() = default;
    UserDefaults(const UserDefaults&) = delete;
    UserDefaults& operator=(const UserDefaults&) = delete;
    virtual ~UserDefaults() = default;

    /// The value, or null when the key is missing or holds what no alternative can. Valid until
    /// the store changes. Allocates nothing.
    [[nodiscard]] virtual const DefaultsValue* find(std::string_view key) const = 0;

    /// Whether the key is there at all, with whatever value.
    [[nodiscard]] virtual bool contains(std::string_view key) const = 0;

    virtual void set(std::string_view key, DefaultsValue value) = 0;

    /// No effect when the key is missing.
    virtual void remove(std::string_view key) = 0;

    /// Runs `changed` after the key's value became another one: at once for our own changes.
    [[nodiscard]] virtual Subscription observe(std::string_view key,
                                               std::function<void(DefaultsChange)> changed) = 0;

    /// Persists what is still pending, now. For the end of the process.
    virtual void synchronize() = 0;
};

} // namespace dwellkey
