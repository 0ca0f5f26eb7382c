// SPDX-License-Identifier: MIT
// Observable models: properties that announce a change before it takes effect. Main thread only.
#pragma once

#include "support/signal.h"

#include <utility>

namespace dwellkey {

/// Base of the models that views mirror. `objectWillChange` is emitted before any published
/// property changes; an observer that wants the new state asks for it later in the same turn of
/// the run loop, once, however many properties changed.
class ObservableObject {
public:
    ObservableObject(const ObservableObject&) = delete;
    ObservableObject& operator=(const ObservableObject&) = delete;

    Signal<> objectWillChange;

protected:
    ObservableObject() = default;
    ~ObservableObject() = default;
};

/// One published property. Assigning a different value tells `willChange` (with the value to
/// come) and then the owner's `objectWillChange`, and only then stores it. Assigning an equal
/// value is silent.
template <typename Value>
class Published {
public:
    Published(ObservableObject& owner, Value initial) : owner_(owner), value_(std::move(initial)) {}
    Published(const Published&) = delete;
    Published& operator=(const Published&) = delete;
    ~Published() = default;

    [[nodiscard]] const Value& get() const { return value_; }
    operator const Value&() const { return value_; } // NOLINT: reads like the property it is

    void set(Value value) {
        if (value == value_) {
            return;
        }
        willChange.emit(value);
        owner_.objectWillChange.emit();
        value_ = std::move(value);
    }
    Published& operator=(Value value) {
        set(std::move(value));
        return *this;
    }

    Signal<const Value&> willChange;

private:
    ObservableObject& owner_;
    Value value_;
};

} // namespace dwellkey
