// SPDX-License-Identifier: MIT
// Bindings that a test presses and releases by their settings key. std only.
#pragma once

#include "platform/shortcut_binder.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace dwellkey {

class FakeShortcutBinder final : public ShortcutBinder {
public:
    void bindShortcut(std::string_view defaultsKey, Action toAction, Action onKeyUp) override {
        bindings_.insert_or_assign(std::string(defaultsKey),
                                   Binding{std::move(toAction), std::move(onKeyUp)});
        ++bindCount;
    }
    [[nodiscard]] std::optional<Failure>
    bindingFailure(std::string_view defaultsKey) const override {
        const auto found = failures_.find(defaultsKey);
        return found == failures_.end() ? std::nullopt : found->second;
    }
    void setBindingFailure(const std::string& defaultsKey, std::optional<Failure> failure) {
        failures_[defaultsKey] = failure;
        bindingFailureDidChange.emit(defaultsKey);
    }
    void breakBinding(std::string_view defaultsKey) override {
        bindings_.erase(std::string(defaultsKey));
        broken.emplace_back(defaultsKey);
    }
    bool confirmPressed() override {
        if (duringConfirmation) {
            duringConfirmation();
        }
        return keysReallyDown;
    }

    /// No effect on a key that is not bound.
    void press(const std::string& defaultsKey) { run(defaultsKey, &Binding::toAction); }
    void release(const std::string& defaultsKey) { run(defaultsKey, &Binding::onKeyUp); }

    [[nodiscard]] bool isBound(const std::string& defaultsKey) const {
        return bindings_.contains(defaultsKey);
    }

    int bindCount = 0;
    std::vector<std::string> broken; // in the order of asking, bound or not
    bool keysReallyDown = true;
    /// The events that arrived while the process was busy.
    std::function<void()> duringConfirmation;

private:
    struct Binding {
        Action toAction;
        Action onKeyUp;
    };

    void run(const std::string& defaultsKey, Action Binding::*action) const {
        const auto found = bindings_.find(defaultsKey);
        if (found != bindings_.end()) {
            const Action copy = found->second.*action; // it may replace itself
            copy();
        }
    }

    std::map<std::string, Binding> bindings_;
    std::map<std::string, std::optional<Failure>, std::less<>> failures_;
};

} // namespace dwellkey
