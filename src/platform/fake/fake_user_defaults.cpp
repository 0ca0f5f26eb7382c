// SPDX-License-Identifier: MIT
#include "platform/fake/fake_user_defaults.h"

#include <utility>

namespace dwellkey {

const DefaultsValue* FakeUserDefaults::find(std::string_view key) const {
    const auto found = values_.find(key);
    return found == values_.end() ? nullptr : &found->second;
}

void FakeUserDefaults::set(std::string_view key, DefaultsValue value) {
    ++writes_[std::string(key)];
    setFromOutside(key, std::move(value));
}

void FakeUserDefaults::setFromOutside(std::string_view key, DefaultsValue value) {
    const DefaultsValue* present = find(key);
    if (present != nullptr && *present == value) {
        return;
    }
    values_.insert_or_assign(std::string(key), std::move(value));
    notify(key);
}

void FakeUserDefaults::remove(std::string_view key) {
    const auto found = values_.find(key);
    if (found == values_.end()) {
        return;
    }
    values_.erase(found);
    notify(key);
}

Subscription FakeUserDefaults::observe(std::string_view key, std::function<void()> changed) {
    return observers_[std::string(key)].subscribe(std::move(changed));
}

std::size_t FakeUserDefaults::writeCount(std::string_view key) const {
    const auto found = writes_.find(key);
    return found == writes_.end() ? 0 : found->second;
}

void FakeUserDefaults::notify(std::string_view key) const {
    if (const auto found = observers_.find(key); found != observers_.end()) {
        found->second.emit();
    }
}

} // namespace dwellkey
