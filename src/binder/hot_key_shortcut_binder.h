// SPDX-License-Identifier: MIT
// The shortcut binder over the desktop's hot-key service. std only.
#pragma once

#include "platform/hot_keys.h"
#include "platform/session.h"
#include "platform/shortcut_binder.h"
#include "platform/user_defaults.h"

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dwellkey {

/// Takes the process's one hot-key handler with its first binding. So a process has either a
/// binder or key commands, never both: whoever came second would leave the other deaf.
class HotKeyShortcutBinder final : public ShortcutBinder {
public:
    /// The four characters 'SBND': the service keeps our ids apart from other programs' by it.
    static constexpr std::uint32_t signature = 0x53424e44;

    /// All must outlive the binder. Shortcuts are stored as key commands under their own key.
    HotKeyShortcutBinder(HotKeys& hotKeys, const UserDefaults& userDefaults, ErrorLog& errorLog);
    /// Gives all shortcuts back; no action runs any more.
    ~HotKeyShortcutBinder() override;

    /// What cannot be read or taken is logged, once until it changes.
    void bindShortcut(std::string_view defaultsKey, Action toAction, Action onKeyUp) override;
    void breakBinding(std::string_view defaultsKey) override;
    [[nodiscard]] std::optional<Failure>
    bindingFailure(std::string_view defaultsKey) const override;
    bool confirmPressed() override { return hotKeys_.confirmPressed(); }

private:
    struct Combination {
        std::uint32_t keyCode = 0;
        std::uint32_t modifiers = 0;
        bool operator==(const Combination&) const = default;
    };
    struct Binding {
        std::string defaultsKey;
        Combination combination;
        EventHotKeyID id;
        EventHotKeyRef ref{};
        Action toAction;
        Action onKeyUp;
        bool isPressed = false;
    };
    struct FailedAttempt {
        Combination combination;
        Failure failure;
        bool operator==(const FailedAttempt&) const = default;
    };

    [[nodiscard]] std::optional<Combination> storedCombination(std::string_view defaultsKey) const;
    [[nodiscard]] HotKeys::Registration take(const Combination& combination, EventHotKeyID id);
    OSStatus installHandler();
    OSStatus handle(const HotKeyEvent* event);
    void noteFailure(std::string_view defaultsKey, const FailedAttempt& attempt);
    void forgetFailure(std::string_view defaultsKey);
    void noteUnreadable(std::string_view defaultsKey);

    HotKeys& hotKeys_;
    const UserDefaults& userDefaults_;
    ErrorLog& errorLog_;
    std::vector<Binding> bindings_;
    std::uint32_t nextId_ = 0;
    std::map<std::string, FailedAttempt, std::less<>> failures_; // by settings key; logged already
    std::map<std::string, std::string> unreadable_; // causes, by settings key; logged already
    /// Set once the handler is installed; the handler is deaf when it is gone.
    std::shared_ptr<const bool> handlerLife_;
};

} // namespace dwellkey
