// SPDX-License-Identifier: MIT
// The X11 backend, the toolkit's run loop and the settings file keep the promises of the seam.
#include "harness/temporary_folder.h"
#include "hot_keys_conformance.h"
#include "keyboard_layout_conformance.h"
#include "platform/fake/fake_session.h"
#include "platform/linux/evdev_key_codes.h"
#include "platform/linux/json_user_defaults.h"
#include "platform/qt/qt_run_loop.h"
#include "platform/x11/x11_keyboard_layout.h"
#include "run_loop_conformance.h"
#include "user_defaults_conformance.h"
#include "x11_support/hot_key_rig.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>

#include <thread>

namespace dwellkey {
namespace {

xcb_keycode_t keycodeOf(std::uint32_t keyCode) {
    return static_cast<xcb_keycode_t>(evdevKeyCode(keyCode).value() + xkbKeycodeOffset);
}

class X11HotKeyDriver final : public HotKeyDriver {
public:
    HotKeys& hotKeys() override { return rig_.hotKeys; }
    void settle() override { rig_.settle(); }
    void keyDown(std::uint32_t keyCode) override {
        rig_.synchronize();
        rig_.keyboard->press(keycodeOf(keyCode));
    }
    void keyUp(std::uint32_t keyCode) override { rig_.keyboard->release(keycodeOf(keyCode)); }
    void modifiersDown(std::uint32_t modifiers) override {
        forEachModifier(modifiers, [&](xcb_keycode_t key) { rig_.keyboard->press(key); });
    }
    void modifiersUp(std::uint32_t modifiers) override {
        forEachModifier(modifiers, [&](xcb_keycode_t key) { rig_.keyboard->release(key); });
    }
    void letRepeat(std::uint32_t keyCode) override { rig_.awaitRepeats(keycodeOf(keyCode)); }
    void setLocks(bool on) override { rig_.setLocks(on); }
    void takeByOther(std::uint32_t keyCode, std::uint32_t modifiers) override {
        EXPECT_TRUE(rig_.otherProgram.grab(keycodeOf(keyCode), real(modifiers)));
    }
    void giveBackByOther(std::uint32_t keyCode, std::uint32_t modifiers) override {
        rig_.otherProgram.ungrab(keycodeOf(keyCode), real(modifiers));
    }
    std::size_t strokesInApplication(std::uint32_t keyCode) override {
        return rig_.application.strokes(keycodeOf(keyCode));
    }

private:
    struct ModifierKey {
        std::uint32_t mask;
        std::uint16_t real;
        xcb_keycode_t key;
    };
    static constexpr ModifierKey modifierKeys[] = {
        {0x100, XCB_MOD_MASK_CONTROL, e2e::key::leftControl},
        {0x200, XCB_MOD_MASK_SHIFT, e2e::key::leftShift},
    };

    template <typename Action>
    static void forEachModifier(std::uint32_t modifiers, Action action) {
        for (const ModifierKey& modifier : modifierKeys) {
            if ((modifiers & modifier.mask) != 0) {
                action(modifier.key);
            }
        }
    }
    static std::uint16_t real(std::uint32_t modifiers) {
        std::uint16_t mask = 0;
        for (const ModifierKey& modifier : modifierKeys) {
            mask |= (modifiers & modifier.mask) != 0 ? modifier.real : 0;
        }
        return mask;
    }

    HotKeyRig rig_;
};

class X11KeyboardLayoutDriver final : public KeyboardLayoutDriver {
public:
    KeyboardLayout& layout() override { return layout_; }
    void use(TestedLayout layout) override {
        keyboard_->setLayout(layout == TestedLayout::french ? "fr" : "us");
    }

private:
    std::unique_ptr<e2e::Keyboard> keyboard_ = PrivateDisplay::shared().keyboard();
    std::unique_ptr<X11Connection> connection_ = PrivateDisplay::connect();
    X11KeyboardLayout layout_{*connection_};
};

/// The toolkit's loops want one.
class Application final : public testing::Environment {
public:
    void SetUp() override {
        application_ = std::make_unique<QCoreApplication>(argumentCount_, arguments_);
    }
    void TearDown() override { application_.reset(); }

private:
    int argumentCount_ = 1;
    char name_[12] = "conformance";
    char* arguments_[2] = {name_, nullptr};
    std::unique_ptr<QCoreApplication> application_;
};

testing::Environment* const application =
    testing::AddGlobalTestEnvironment(new Application); // NOLINT: GoogleTest owns it

bool runLoopUntil(const std::function<bool()>& condition, std::chrono::nanoseconds limit) {
    const QDeadlineTimer deadline(limit);
    QEventLoop loop;
    QTimer wakeUp; // a condition may come true by the time alone
    wakeUp.start(1);
    while (!condition() && !deadline.hasExpired()) {
        loop.processEvents(QEventLoop::WaitForMoreEvents);
    }
    return condition();
}

class QtRunLoopDriver final : public RunLoopDriver {
public:
    RunLoop& runLoop() override { return loop_; }
    Clock& clock() override { return loop_; }
    void runFor(std::chrono::nanoseconds duration) override {
        const auto end = loop_.now() + duration;
        runUntil([&] { return loop_.now() >= end; });
    }
    bool runUntil(const std::function<bool()>& condition) override {
        return runLoopUntil(condition, std::chrono::seconds(10));
    }
    void stall(std::chrono::nanoseconds duration) override {
        std::this_thread::sleep_for(duration); // NOLINT: being unresponsive is the point
    }
    void readableChanged(int, bool) override {} // descriptors speak for themselves

private:
    QtRunLoop loop_;
};

class JsonUserDefaultsDriver final : public UserDefaultsDriver {
public:
    JsonUserDefaultsDriver() { restart(); }
    UserDefaults& store() override { return *store_; }
    void restart() override {
        if (store_) {
            store_->synchronize();
        }
        store_.reset();
        store_ = open();
    }
    void editFromOutside(std::string_view key, const DefaultsValue& value) override {
        open()->set(key, value); // as a second process would
    }
    bool runUntil(const std::function<bool()>& condition) override {
        return runLoopUntil(condition, std::chrono::seconds(10));
    }

private:
    [[nodiscard]] std::unique_ptr<JsonUserDefaults> open() {
        return std::make_unique<JsonUserDefaults>((folder_.path() / "settings.json").string(),
                                                  loop_, log_);
    }

    e2e::TemporaryFolder folder_;
    FakeErrorLog log_;
    QtRunLoop loop_;
    std::unique_ptr<JsonUserDefaults> store_;
};

template <typename Driver, typename Made>
std::unique_ptr<Driver> make() {
    return std::make_unique<Made>();
}

DWELLKEY_CONFORMS(HotKeysConformance, HotKeyDriver, X11, (make<HotKeyDriver, X11HotKeyDriver>));
DWELLKEY_CONFORMS(KeyboardLayoutConformance, KeyboardLayoutDriver, X11,
                  (make<KeyboardLayoutDriver, X11KeyboardLayoutDriver>));
DWELLKEY_CONFORMS(RunLoopConformance, RunLoopDriver, Qt, (make<RunLoopDriver, QtRunLoopDriver>));
DWELLKEY_CONFORMS(UserDefaultsConformance, UserDefaultsDriver, Json,
                  (make<UserDefaultsDriver, JsonUserDefaultsDriver>));

} // namespace
} // namespace dwellkey
