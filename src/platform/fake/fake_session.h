// SPDX-License-Identifier: MIT
// Scripted login item, permission, script host and log. std only.
#pragma once

#include "platform/session.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace dwellkey {

class FakeLoginItem final : public LoginItem {
public:
    std::optional<Error> registerItem() override {
        ++registerCount;
        if (!registerError) {
            currentStatus = statusAfterRegister;
        }
        return registerError;
    }
    std::optional<Error> unregisterItem() override {
        ++unregisterCount;
        if (!unregisterError) {
            currentStatus = LoginItemStatus::notRegistered;
        }
        return unregisterError;
    }
    [[nodiscard]] LoginItemStatus status() const override { return currentStatus; }
    [[nodiscard]] Subscription observe(std::function<void()> changed) override {
        return didChange.subscribe(std::move(changed));
    }

    Signal<> didChange;
    LoginItemStatus currentStatus = LoginItemStatus::notRegistered;
    LoginItemStatus statusAfterRegister = LoginItemStatus::enabled;
    std::optional<Error> registerError;
    std::optional<Error> unregisterError;
    int registerCount = 0;
    int unregisterCount = 0;
};

class FakeAccessibilityTrust final : public AccessibilityTrust {
public:
    [[nodiscard]] std::optional<Lack> lack() const override {
        return trusted ? std::nullopt : std::optional(whatIsLacking);
    }

    bool trusted = true;
    Lack whatIsLacking{"The permission was not granted.", true};
};

class FakeScriptHost final : public ScriptHost {
public:
    std::unique_ptr<Script> compile(std::string_view source) override {
        compiledSources.emplace_back(source);
        return compiles ? std::make_unique<FakeScript>(*this, std::string(source)) : nullptr;
    }

    bool compiles = true;
    std::optional<Script::Error> executionError;
    std::vector<std::string> compiledSources;
    std::vector<std::string> executedSources; // one for each execution, failed ones too

private:
    class FakeScript final : public Script {
    public:
        FakeScript(FakeScriptHost& host, std::string source)
            : host_(host), source_(std::move(source)) {}
        std::optional<Error> execute() override {
            host_.executedSources.push_back(source_);
            return host_.executionError;
        }

    private:
        FakeScriptHost& host_;
        std::string source_;
    };
};

class FakeErrorLog final : public ErrorLog {
public:
    struct Entry {
        std::string message;
        std::string cause;
        bool operator==(const Entry&) const = default;
    };

    void error(std::string_view message, std::string_view cause) override {
        entries.push_back({std::string(message), std::string(cause)});
    }

    std::vector<Entry> entries;
};

} // namespace dwellkey
