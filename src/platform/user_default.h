// SPDX-License-Identifier: MIT
// One setting with its key, type and default. std only.
#pragma once

#include "platform/user_defaults.h"

#include <concepts>
#include <string>
#include <string_view>
#include <utility>

namespace dwellkey {

/// A property whose value lives in the store: read on every access, written on every assignment.
/// A missing or mistyped value reads as the default; a whole number reads as a double too.
/// The store must outlive the property.
template <typename Value>
class UserDefault {
public:
    UserDefault(UserDefaults& store, std::string_view key, Value defaultValue)
        : store_(store), key_(key), defaultValue_(std::move(defaultValue)) {}

    [[nodiscard]] Value get() const {
        const DefaultsValue* stored = store_.find(key_);
        if (stored == nullptr) {
            return defaultValue_;
        }
        if (const auto* value = std::get_if<Value>(stored)) {
            return *value;
        }
        if constexpr (std::same_as<Value, double>) {
            if (const auto* whole = std::get_if<std::int64_t>(stored)) {
                return static_cast<double>(*whole);
            }
        }
        return defaultValue_;
    }
    void set(Value value) { store_.set(key_, DefaultsValue(std::move(value))); }

    [[nodiscard]] std::string_view key() const { return key_; }
    [[nodiscard]] Subscription observe(std::function<void(DefaultsChange)> changed) const {
        return store_.observe(key_, std::move(changed));
    }

private:
    UserDefaults& store_;
    std::string key_;
    Value defaultValue_;
};

} // namespace dwellkey
