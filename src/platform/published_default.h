// SPDX-License-Identifier: MIT
// A setting that its model publishes. std only.
#pragma once

#include "platform/user_default.h"
#include "support/observable_object.h"

#include <utility>

namespace dwellkey {

/// A published property whose value lives in the store. Every assignment tells the owner's
/// `objectWillChange` before it takes effect. A change that somebody else made to the store
/// (another model, an edit of the file) is told after the fact: nobody can ask the store
/// beforehand. Owner and store must outlive the property.
template <typename Value>
class PublishedDefault {
public:
    PublishedDefault(ObservableObject& owner, UserDefaults& store, std::string_view key,
                     Value defaultValue)
        : owner_(owner), stored_(store, key, std::move(defaultValue)),
          observation_(stored_.observe([this](DefaultsChange) {
              if (!assigning_) {
                  owner_.objectWillChange.emit();
              }
          })) {}
    PublishedDefault(const PublishedDefault&) = delete;
    PublishedDefault& operator=(const PublishedDefault&) = delete;
    ~PublishedDefault() = default;

    [[nodiscard]] Value get() const { return stored_.get(); }
    void set(Value value) {
        owner_.objectWillChange.emit();
        assigning_ = true;
        stored_.set(std::move(value));
        assigning_ = false;
    }

private:
    ObservableObject& owner_;
    UserDefault<Value> stored_;
    bool assigning_ = false; // our own assignment was told already
    Subscription observation_;
};

} // namespace dwellkey
