// SPDX-License-Identifier: MIT
// System-wide shortcuts, known by the settings key that they are stored under. std only.
#pragma once

#include <functional>
#include <string_view>

namespace dwellkey {

class ShortcutBinder {
public:
    using Action = std::function<void()>;

    ShortcutBinder() = default;
    ShortcutBinder(const ShortcutBinder&) = delete;
    ShortcutBinder& operator=(const ShortcutBinder&) = delete;
    virtual ~ShortcutBinder() = default;

    /// Takes the shortcut that is stored under the key at this moment, system-wide. `toAction` runs
    /// on each press and `onKeyUp` once after each, on the main thread. A binding that the key has
    /// already is replaced. With no stored shortcut, or one that cannot be taken, nothing is bound.
    virtual void bindShortcut(std::string_view defaultsKey, Action toAction, Action onKeyUp) = 0;

    /// Gives the key's shortcut back, if it is bound. If it is pressed, `onKeyUp` runs first.
    virtual void breakBinding(std::string_view defaultsKey) = 0;

    /// Positive evidence for a hold: delivers every key event that has arrived until now, then
    /// asks the keyboard itself whether a bound shortcut is still down.
    virtual bool confirmPressed() = 0;

    /// The process's binder; null when it has none.
    static ShortcutBinder* sharedBinder();

    /// Called once, by the composition root. The binder stays the caller's; null takes it out.
    static void install(ShortcutBinder* binder);
};

} // namespace dwellkey
