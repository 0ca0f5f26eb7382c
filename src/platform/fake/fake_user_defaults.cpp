// SPDX-License-Identifier: MIT
#include "platform/fake/fake_user_defaults.h"

#include <utility>

namespace dwellkey {

const DefaultsValue* FakeUserDefaults::find(std::string_view key) const {
    const auto found = values_.find(key);
    return found == values_.end() ? nullptr : &found->second;
}

bool FakeUserDefaults::contains(std::string_view key) const {
    return values_.contains(key) || garbled_.contains(key);
}

void FakeUserDefaults::set(std::string_view key, DefaultsValue value) {
    ++writes_[std::string(key)];
    store(key, std::move(value), DefaultsChange::ours);
}

void FakeUserDefaults::setFromOutside(std::string_view key, DefaultsValue value) {
    store(key, std::move(value), DefaultsChange::fromOutside);
}

void FakeUserDefaults::store(std::string_view key, DefaultsValue value, DefaultsChange change) {
    const DefaultsValue* present = find(key);
    if (present != nullptr && *present == value) {
        return;
    }
    garbled_.erase(std::string(key));
    values_.insert_or_assign(std::string(key), std::move(value));
    notify(key, change);
}

void FakeUserDefaults::removeFromOutside(std::string_view key) {
    erase(key, DefaultsChange::fromOutside);
}

void FakeUserDefaults::erase(std::string_view key, DefaultsChange change) {
    values_.erase(std::string(key));
    garbled_.erase(std::string(key));
    notify(key, change);
}

void FakeUserDefaults::garbleFromOutside(std::string_view key) {
    values_.erase(std::string(key));
    garbled_.emplace(key);
    notify(key, DefaultsChange::fromOutside);
}

void FakeUserDefaults::remove(std::string_view key) {
    if (contains(key)) {
        erase(key, DefaultsChange::ours);
    }
}

Subscription FakeUserDefaults::observe(std::string_view key,
                                       std::function<void(DefaultsChange)> changed) {
    return observers_[std::string(key)].subscribe(std::move(changed));
}

std::size_t FakeUserDefaults::writeCount(std::string_view key) const {
    const auto found = writes_.find(key);
    return found == writes_.end() ? 0 : found->second;
}

void FakeUserDefaults::notify(std::string_view key, DefaultsChange change) const {
    if (const auto found = observers_.find(key); found != observers_.end()) {
        found->second.emit(change);
    }
}

} // namespace dwellkey
