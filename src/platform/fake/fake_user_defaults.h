// SPDX-License-Identifier: MIT
// A settings store in memory. std only.
#pragma once

#include "platform/user_defaults.h"

#include <cstddef>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>

namespace dwellkey {

class FakeUserDefaults final : public UserDefaults {
public:
    [[nodiscard]] const DefaultsValue* find(std::string_view key) const override;
    [[nodiscard]] bool contains(std::string_view key) const override;
    void set(std::string_view key, DefaultsValue value) override;
    void remove(std::string_view key) override;
    [[nodiscard]] Subscription observe(std::string_view key,
                                       std::function<void(DefaultsChange)> changed) override;
    void synchronize() override { ++synchronizeCount; }

    /// How often `set` was called for the key, with whatever value.
    [[nodiscard]] std::size_t writeCount(std::string_view key) const;
    [[nodiscard]] std::size_t keyCount() const { return values_.size(); }

    /// An edit by another program: observers see it, the write count does not.
    void setFromOutside(std::string_view key, DefaultsValue value);
    void removeFromOutside(std::string_view key);
    /// The key is there, with something that no value can hold.
    void garbleFromOutside(std::string_view key);

    int synchronizeCount = 0;

private:
    void store(std::string_view key, DefaultsValue value, DefaultsChange change);
    void erase(std::string_view key, DefaultsChange change);
    void notify(std::string_view key, DefaultsChange change) const;

    std::map<std::string, DefaultsValue, std::less<>> values_;
    std::set<std::string, std::less<>> garbled_;
    std::map<std::string, std::size_t, std::less<>> writes_;
    std::map<std::string, Signal<DefaultsChange>, std::less<>> observers_;
};

} // namespace dwellkey
