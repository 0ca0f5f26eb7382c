// SPDX-License-Identifier: MIT
#include "binder/hot_key_shortcut_binder.h"

#include "keycommands/key_command_coding.h"
#include "platform/fake/fake_platform.h"

#include <gtest/gtest.h>

namespace dwellkey {
namespace {

constexpr std::uint32_t q = 12;
constexpr std::uint32_t w = 13;
constexpr std::uint32_t command = hot_key_mask::command;

class Binder : public testing::Test {
protected:
    void store(const std::string& settingsKey, std::optional<Key> key, Modifiers modifiers) {
        const auto text =
            encode(KeyCommandContent{key, std::move(modifiers), KeyCommand::Name(settingsKey)});
        platform.userDefaults.set(settingsKey, Data{std::get<std::string>(text)});
    }
    void bind(const std::string& settingsKey) {
        binder->bindShortcut(
            settingsKey, [=, this] { events.push_back(settingsKey + " down"); },
            [=, this] { events.push_back(settingsKey + " up"); });
    }
    std::vector<std::string> taken() { return std::exchange(events, {}); }
    [[nodiscard]] std::size_t registered() const {
        return platform.hotKeys.registeredCombinations().size();
    }

    FakePlatform platform;
    std::unique_ptr<HotKeyShortcutBinder> binder = std::make_unique<HotKeyShortcutBinder>(
        platform.hotKeys, platform.userDefaults, platform.errorLog);
    std::vector<std::string> events;
};

TEST_F(Binder, boundShortcut_tellsEachPressAndItsRelease) {
    store("one", Key::q, {Modifier::command});
    store("two", Key::w, {Modifier::command});
    bind("one");
    bind("two");
    platform.hotKeys.press(q, command);
    EXPECT_TRUE(binder->confirmPressed());
    platform.hotKeys.keyDown(q); // auto-repeat
    platform.hotKeys.modifiersUp(command);
    platform.hotKeys.keyUp(q);
    platform.hotKeys.press(w, command);
    EXPECT_EQ(events, (std::vector<std::string>{"one down", "one up", "two down"}));
}

TEST_F(Binder, keyWithNoShortcutThatCanBeRead_bindsNothing) {
    bind("absent");
    store("no key", std::nullopt, {Modifier::command});
    bind("no key");
    store("no modifier", Key::q, {});
    bind("no modifier");
    platform.userDefaults.set("text", "Ctrl+Q");
    store("copied", Key::q, {Modifier::command});
    platform.userDefaults.set("other", *platform.userDefaults.find("copied"));
    EXPECT_TRUE(platform.errorLog.entries.empty());
    bind("text");
    bind("other");
    bind("other"); // as at each activation
    EXPECT_EQ(registered(), 0U);
    ASSERT_EQ(platform.errorLog.entries.size(), 2U);
    EXPECT_EQ(platform.errorLog.entries[0].message, "The stored shortcut \"text\" cannot be used.");
}

TEST_F(Binder, boundAgain_takesTheShortcutThatIsStoredNow) {
    store("one", Key::q, {Modifier::command});
    bind("one");
    store("one", Key::w, {Modifier::command});
    EXPECT_EQ(platform.hotKeys.registeredCombinations().front().keyCode, q);
    bind("one");
    ASSERT_EQ(registered(), 1U);
    EXPECT_EQ(platform.hotKeys.registeredCombinations().front().keyCode, w);
}

TEST_F(Binder, brokenWhileItIsPressed_isReleasedFirst) {
    store("one", Key::q, {Modifier::command});
    bind("one");
    platform.hotKeys.press(q, command);
    binder->breakBinding("one");
    binder->breakBinding("one");
    EXPECT_EQ(registered(), 0U);
    platform.hotKeys.release(q, command);
    EXPECT_EQ(events, (std::vector<std::string>{"one down", "one up"}));
}

TEST_F(Binder, rebindingInsideTheActions_isSafe) {
    store("one", Key::q, {Modifier::command});
    const auto rebind = [this] {
        binder->breakBinding("one");
        bind("one");
    };
    binder->bindShortcut(
        "one", [] {}, rebind);
    platform.hotKeys.press(q, command);
    platform.hotKeys.release(q, command);
    platform.hotKeys.press(q, command);
    EXPECT_EQ(events, std::vector<std::string>{"one down"});
}

TEST_F(Binder, combinationThatCannotBeTaken_saysWhoHasIt) {
    store("one", Key::q, {Modifier::command});
    store("two", Key::q, {Modifier::command});
    std::vector<std::string> changed;
    const auto watch = binder->bindingFailureDidChange.subscribe(
        [&](std::string_view settingsKey) { changed.emplace_back(settingsKey); });
    bind("one");
    bind("two");
    EXPECT_EQ(binder->bindingFailure("one"), std::nullopt);
    EXPECT_EQ(binder->bindingFailure("two"), (ShortcutBinder::Failure{eventHotKeyExistsErr, true}));
    platform.hotKeys.takeByOther({w, command});
    store("two", Key::w, {Modifier::command});
    EXPECT_EQ(binder->bindingFailure("two"), std::nullopt) << "not of this shortcut";
    bind("two");
    EXPECT_EQ(binder->bindingFailure("two"),
              (ShortcutBinder::Failure{eventHotKeyExistsErr, false}));
    platform.userDefaults.remove("two");
    bind("two");
    EXPECT_EQ(binder->bindingFailure("two"), std::nullopt);
    EXPECT_EQ(changed, (std::vector<std::string>{"two", "two", "two"}));
}

TEST_F(Binder, combinationThatCannotBeTaken_isLoggedOnceUntilThatChanges) {
    store("one", Key::q, {Modifier::command});
    platform.hotKeys.takeByOther({q, command});
    bind("one");
    bind("one");
    EXPECT_EQ(platform.errorLog.entries.size(), 1U);
    platform.hotKeys.giveBackByOther({q, command});
    bind("one");
    EXPECT_EQ(registered(), 1U);
    binder->breakBinding("one");
    platform.hotKeys.takeByOther({q, command});
    bind("one");
    EXPECT_EQ(platform.errorLog.entries.size(), 2U);
}

TEST_F(Binder, gone_givesAllBackAndIsDeaf) {
    store("one", Key::q, {Modifier::command});
    bind("one");
    const HotKeyEvent late{kEventHotKeyPressed, platform.hotKeys.idOf({q, command}), noErr};
    binder.reset();
    EXPECT_EQ(registered(), 0U);
    EXPECT_EQ(platform.hotKeys.send(&late), eventNotHandledErr);
    EXPECT_TRUE(events.empty());
}

} // namespace
} // namespace dwellkey
