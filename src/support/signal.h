// SPDX-License-Identifier: MIT
// Signals with owned subscriptions. Main thread only.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace dwellkey {

/// Owns one registration somewhere: destroying or cancelling it undoes the registration, once.
/// Cancelling from inside the callback that it registered is allowed.
class Subscription {
public:
    Subscription() = default;
    explicit Subscription(std::function<void()> undo) : undo_(std::move(undo)) {}
    Subscription(Subscription&& other) noexcept : undo_(std::exchange(other.undo_, nullptr)) {}
    Subscription& operator=(Subscription&& other) noexcept {
        if (this != &other) {
            cancel();
            undo_ = std::exchange(other.undo_, nullptr);
        }
        return *this;
    }
    Subscription(const Subscription&) = delete;
    Subscription& operator=(const Subscription&) = delete;
    ~Subscription() { cancel(); }

    void cancel() {
        if (auto undo = std::exchange(undo_, nullptr)) {
            undo();
        }
    }

    /// True until it was cancelled. It does not say whether the other side still exists.
    [[nodiscard]] bool isActive() const { return static_cast<bool>(undo_); }

private:
    std::function<void()> undo_;
};

/// A list of handlers, called in the order in which they subscribed.
///
/// Handlers may subscribe, unsubscribe (themselves or others) and emit again while the signal is
/// emitting: a handler removed meanwhile is not called any more, one added meanwhile is first
/// called by the next emission. Emitting allocates nothing. A subscription may outlive its signal.
template <typename... Arguments>
class Signal {
public:
    using Handler = std::function<void(Arguments...)>;

    Signal() = default;
    Signal(const Signal&) = delete;
    Signal& operator=(const Signal&) = delete;
    ~Signal() = default;

    [[nodiscard]] Subscription subscribe(Handler handler) const {
        auto slot = std::make_shared<Slot>(Slot{std::move(handler)});
        slots_->list.push_back(slot);
        return Subscription([slots = std::weak_ptr<Slots>(slots_), slot] {
            slot->live = false;
            if (auto alive = slots.lock()) {
                alive->forget();
            }
        });
    }

    void emit(Arguments... arguments) const {
        const auto slots = slots_; // a handler may destroy the signal's owner
        ++slots->depth;
        const std::size_t count = slots->list.size();
        for (std::size_t i = 0; i < count; ++i) {
            const auto slot = slots->list[i];
            if (slot->live) {
                slot->handler(arguments...);
            }
        }
        --slots->depth;
        slots->forget();
    }

private:
    struct Slot {
        Handler handler;
        bool live = true;
    };
    struct Slots {
        std::vector<std::shared_ptr<Slot>> list;
        int depth = 0;

        /// Drops dead slots, unless an emission is walking the list; then that emission does it.
        void forget() {
            if (depth == 0) {
                std::erase_if(list, [](const auto& slot) { return !slot->live; });
            }
        }
    };

    std::shared_ptr<Slots> slots_ = std::make_shared<Slots>();
};

} // namespace dwellkey
