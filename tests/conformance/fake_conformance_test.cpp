// SPDX-License-Identifier: MIT
// The scripted platform keeps the promises of the real ones.
#include "hot_keys_conformance.h"
#include "keyboard_layout_conformance.h"
#include "platform/fake/fake_hot_keys.h"
#include "platform/fake/fake_keyboard.h"
#include "platform/fake/fake_run_loop.h"
#include "platform/fake/fake_user_defaults.h"
#include "run_loop_conformance.h"
#include "user_defaults_conformance.h"

#include <algorithm>

namespace dwellkey {
namespace {

class FakeHotKeyDriver final : public HotKeyDriver {
public:
    FakeHotKeyDriver() { fake_.holdsEventsBack = true; }

    HotKeys& hotKeys() override { return fake_; }
    void settle() override { fake_.deliverEvents(); }
    void keyDown(std::uint32_t keyCode) override { fake_.keyDown(keyCode); }
    void keyUp(std::uint32_t keyCode) override { fake_.keyUp(keyCode); }
    void modifiersDown(std::uint32_t modifiers) override { fake_.modifiersDown(modifiers); }
    void modifiersUp(std::uint32_t modifiers) override { fake_.modifiersUp(modifiers); }
    void letRepeat(std::uint32_t keyCode) override {
        fake_.keyDown(keyCode);
        fake_.keyDown(keyCode);
    }
    void setLocks(bool) override {} // lock keys are no part of a hot-key mask
    void takeByOther(std::uint32_t keyCode, std::uint32_t modifiers) override {
        fake_.takeByOther({keyCode, modifiers});
    }
    void giveBackByOther(std::uint32_t keyCode, std::uint32_t modifiers) override {
        fake_.giveBackByOther({keyCode, modifiers});
    }
    std::size_t strokesInApplication(std::uint32_t keyCode) override {
        return static_cast<std::size_t>(std::ranges::count(fake_.typedIntoApplication, keyCode,
                                                           &FakeHotKeys::Combination::keyCode));
    }

private:
    FakeHotKeys fake_;
};

class FakeKeyboardLayoutDriver final : public KeyboardLayoutDriver {
public:
    KeyboardLayout& layout() override { return fake_; }
    void use(TestedLayout layout) override {
        fake_.characters = FakeKeyboardLayout().characters;
        if (layout == TestedLayout::french) {
            fake_.characters[0] = "q";
            fake_.characters[12] = "a";
            fake_.characters[41] = "m";
            fake_.characters[19] = "é";
        }
    }

private:
    FakeKeyboardLayout fake_;
};

class FakeRunLoopDriver final : public RunLoopDriver {
public:
    RunLoop& runLoop() override { return loop_; }
    Clock& clock() override { return clock_; }
    void runFor(std::chrono::nanoseconds duration) override { loop_.advance(duration); }
    bool runUntil(const std::function<bool()>& condition) override {
        const auto end = clock_.now() + std::chrono::seconds(10);
        while (!condition() && clock_.now() < end) {
            loop_.advance(std::chrono::milliseconds(1));
        }
        return condition();
    }
    void stall(std::chrono::nanoseconds duration) override { clock_.advance(duration); }
    void readableChanged(int descriptor, bool readable) override {
        loop_.setReadable(descriptor, readable);
    }

private:
    FakeClock clock_;
    FakeRunLoop loop_{clock_};
};

class FakeUserDefaultsDriver final : public UserDefaultsDriver {
public:
    UserDefaults& store() override { return fake_; }
    void restart() override {} // memory is all the storage there is
    void editFromOutside(std::string_view key, const DefaultsValue& value) override {
        fake_.setFromOutside(key, value);
    }
    bool runUntil(const std::function<bool()>& condition) override { return condition(); }

private:
    FakeUserDefaults fake_;
};

template <typename Driver, typename Made>
std::unique_ptr<Driver> make() {
    return std::make_unique<Made>();
}

DWELLKEY_CONFORMS(HotKeysConformance, HotKeyDriver, Fake, (make<HotKeyDriver, FakeHotKeyDriver>));
DWELLKEY_CONFORMS(KeyboardLayoutConformance, KeyboardLayoutDriver, Fake,
                  (make<KeyboardLayoutDriver, FakeKeyboardLayoutDriver>));
DWELLKEY_CONFORMS(RunLoopConformance, RunLoopDriver, Fake,
                  (make<RunLoopDriver, FakeRunLoopDriver>));
DWELLKEY_CONFORMS(UserDefaultsConformance, UserDefaultsDriver, Fake,
                  (make<UserDefaultsDriver, FakeUserDefaultsDriver>));

} // namespace
} // namespace dwellkey
