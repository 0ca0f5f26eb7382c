// SPDX-License-Identifier: MIT
// Registration, the stored entry and what is logged.
#include "key_command_fixture.h"

#include <gmock/gmock.h>

namespace dwellkey {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Entry = FakeErrorLog::Entry;

TEST_F(KeyCommandTest, enable_registersAndStores_disableUndoesBoth) {
    const KeyCommand quit = quitCommand();
    EXPECT_FALSE(quit.isEnabled());
    EXPECT_EQ(stored("quitApplication"), nullptr);
    for (int round = 0; round < 2; ++round) {
        quit.enable();
        EXPECT_TRUE(quit.isEnabled());
        EXPECT_THAT(platform.hotKeys.registeredCombinations(), ElementsAre(commandQ));
        ASSERT_NE(stored("quitApplication"), nullptr);
        EXPECT_EQ(stored("quitApplication")->bytes,
                  R"({"key":12,"modifiers":[{"command":{}}],)"
                  R"("name":{"rawValue":"quitApplication","prefix":"","separator":""}})");
        quit.disable();
        EXPECT_FALSE(quit.isEnabled());
        EXPECT_THAT(platform.hotKeys.registeredCombinations(), IsEmpty());
        EXPECT_EQ(platform.userDefaults.find("quitApplication"), nullptr);
    }
    EXPECT_EQ(platform.hotKeys.installCount, 1);
}

TEST_F(KeyCommandTest, enable_withoutModifierOrKey_doesNothing) {
    const KeyCommand close = command("closeWindow");
    close.setKey(Key::w);
    close.enable();
    EXPECT_FALSE(close.isEnabled());
    close.setKey(std::nullopt);
    close.setModifiers({Modifier::command});
    close.enable();
    EXPECT_FALSE(close.isEnabled());
    EXPECT_EQ(platform.hotKeys.registerCount, 0);
    EXPECT_EQ(platform.userDefaults.keyCount(), 0U);
}

TEST_F(KeyCommandTest, restart_restoresWhatWasRegistered) {
    quitCommand().enable();
    restart();
    EXPECT_THAT(platform.hotKeys.registeredCombinations(), IsEmpty());
    const KeyCommand quit = command("quitApplication");
    EXPECT_EQ(quit.key(), Key::q);
    EXPECT_EQ(quit.modifiers(), Modifiers{Modifier::command});
    EXPECT_FALSE(quit.isEnabled());
}

TEST_F(KeyCommandTest, restart_withDamagedOrForeignEntries_tellsAndKeepsThem) {
    quitCommand().enable();
    const Data quitEntry = *stored("quitApplication");
    platform.userDefaults.set("closeWindow", quitEntry); // names another command
    platform.userDefaults.set("quitApplication", Data{"{\"key\":12"});
    platform.userDefaults.set("third", quitEntry.bytes); // a text, not data
    platform.userDefaults.garbleFromOutside("fourth");
    restart();
    for (const std::string name : {"closeWindow", "quitApplication", "third", "fourth"}) {
        const KeyCommand restored = command(name);
        EXPECT_EQ(restored.key(), std::nullopt) << name;
        EXPECT_THAT(restored.modifiers(), IsEmpty()) << name;
        EXPECT_EQ(platform.errorLog.entries.back().message,
                  "The stored shortcut \"" + name + "\" cannot be used.");
        ASSERT_TRUE(restored.proxy().registrationFailure()) << name;
        EXPECT_TRUE(restored.proxy().registrationFailure()->isUnreadable) << name;
        EXPECT_TRUE(platform.userDefaults.contains(name)) << "its owner may want to mend it";
    }
    EXPECT_EQ(platform.errorLog.entries.size(), 4U);
    command("fourth").remove();
    EXPECT_FALSE(platform.userDefaults.contains("fourth"));
    EXPECT_EQ(command("fourth").proxy().registrationFailure(), std::nullopt);
}

TEST_F(KeyCommandTest, valuesWithEqualNames_areTheSameCommand) {
    quitCommand().enable();
    EXPECT_TRUE(command("quitApplication").isEnabled());
    const KeyCommand prefixed(KeyCommand::Name("Application", KeyCommand::Name::Prefix{"quit"}),
                              *registry_);
    EXPECT_EQ(prefixed.name().storageKey(), "quitApplication");
    EXPECT_FALSE(prefixed.isEnabled());
}

TEST_F(KeyCommandTest, proxies_getConsecutiveIdsUnderOneSignature) {
    const EventHotKeyID first = command("first").proxy().identifier();
    const EventHotKeyID second = command("second").proxy().identifier();
    EXPECT_EQ(second.id, first.id + 1);
    EXPECT_EQ(first.signature, std::uint32_t{'H'} << 24U | 'O' << 16U | 'T' << 8U | 'C');
    EXPECT_EQ(second.signature, first.signature);
}

TEST_F(KeyCommandTest, setKey_ofARegisteredCommand_movesTheRegistration) {
    const KeyCommand quit = quitCommand();
    quit.enable();
    int changes = 0;
    const auto observer = quit.proxy().observeKeyAndModifierChanges([&] {
        ++changes;
        EXPECT_TRUE(quit.isEnabled());
    });
    quit.setKey(Key::w);
    EXPECT_EQ(changes, 1);
    EXPECT_THAT(platform.hotKeys.registeredCombinations(), ElementsAre(commandW));
    EXPECT_THAT(stored("quitApplication")->bytes, testing::StartsWith(R"({"key":13,)"));
}

TEST_F(KeyCommandTest, remove_clearsEverythingAndAnnouncesKeyAndModifiers) {
    const KeyCommand quit = quitCommand();
    quit.enable();
    int changes = 0;
    int registrations = 0;
    const auto observer = quit.proxy().observeKeyAndModifierChanges([&] { ++changes; });
    const auto registration = quit.proxy().observeRegistrationState([&] { ++registrations; });
    quit.remove();
    EXPECT_EQ(changes, 2);
    EXPECT_EQ(registrations, 1);
    EXPECT_FALSE(quit.isEnabled());
    EXPECT_EQ(quit.key(), std::nullopt);
    EXPECT_THAT(quit.modifiers(), IsEmpty());
    EXPECT_THAT(platform.hotKeys.registeredCombinations(), IsEmpty());
    EXPECT_EQ(platform.userDefaults.find("quitApplication"), nullptr);
}

TEST_F(KeyCommandTest, combinationTakenByAnotherProgram_isLoggedAndLeavesNothingStored) {
    platform.hotKeys.takeByOther(commandQ);
    const KeyCommand quit = quitCommand();
    quit.enable();
    EXPECT_FALSE(quit.isEnabled());
    EXPECT_EQ(platform.userDefaults.keyCount(), 0U);
    EXPECT_THAT(platform.errorLog.entries,
                ElementsAre(Entry{"[OSStatus -9878] Key command registration failed.",
                                  "the combination is already grabbed by another program"}));
    platform.hotKeys.giveBackByOther(commandQ);
    quit.enable();
    EXPECT_TRUE(quit.isEnabled());
}

TEST_F(KeyCommandTest, combinationGivenBackByAnotherProgram_isTakenAtTheNextActivation) {
    platform.hotKeys.takeByOther(commandQ);
    const KeyCommand quit = quitCommand();
    quit.enable();
    platform.workspace.launchInFront("still.taken");
    EXPECT_FALSE(quit.isEnabled());
    EXPECT_EQ(platform.errorLog.entries.size(), 1U);
    platform.hotKeys.giveBackByOther(commandQ);
    platform.workspace.launchInFront("free");
    EXPECT_TRUE(quit.isEnabled());
    EXPECT_NE(stored("quitApplication"), nullptr);

    platform.hotKeys.takeByOther(commandW);
    quit.setKey(Key::w);
    quit.disable(); // the user is content without it
    platform.hotKeys.giveBackByOther(commandW);
    platform.workspace.launchInFront("another");
    EXPECT_FALSE(quit.isEnabled());
}

TEST_F(KeyCommandTest, entryOfACommandThatCannotRegister_isKeptForTheNextStart) {
    quitCommand().enable();
    platform.hotKeys.takeByOther(commandQ); // between the two halves of registering anew
    command("quitApplication").enable();
    EXPECT_FALSE(command("quitApplication").isEnabled());
    EXPECT_NE(stored("quitApplication"), nullptr);
    restart();
    command("quitApplication").enable();
    EXPECT_EQ(command("quitApplication").key(), Key::q);
    EXPECT_NE(stored("quitApplication"), nullptr);
    command("quitApplication").remove();
    EXPECT_EQ(stored("quitApplication"), nullptr) << "nothing, on purpose";
}

TEST_F(KeyCommandTest, handlerInstallationFailure_isLoggedAndTriedAgainByTheNextRegistration) {
    platform.hotKeys.installStatus = eventInternalErr;
    const KeyCommand quit = quitCommand();
    quit.enable();
    EXPECT_FALSE(quit.isEnabled());
    EXPECT_EQ(platform.hotKeys.registerCount, 0);
    EXPECT_EQ(platform.errorLog.entries.at(0).message,
              "[OSStatus -9868] Event handler installation failed.");
    platform.hotKeys.installStatus = noErr;
    quit.enable();
    EXPECT_TRUE(quit.isEnabled());
}

TEST_F(KeyCommandTest, unregistrationFailure_isLoggedAndCountsAsUnregistered) {
    const KeyCommand quit = quitCommand();
    quit.enable();
    platform.hotKeys.unregisterStatus = eventHotKeyInvalidErr;
    quit.disable();
    EXPECT_FALSE(quit.isEnabled());
    EXPECT_EQ(platform.userDefaults.find("quitApplication"), nullptr);
    EXPECT_EQ(platform.errorLog.entries.at(0).message,
              "[OSStatus -9879] Key command unregistration failed.");
}

TEST_F(KeyCommandTest, encodingFailure_isLoggedAndTheCommandWorksUnstored) {
    const KeyCommand odd(KeyCommand::Name("\xff"), Key::q, {Modifier::command}, *registry_);
    odd.enable();
    EXPECT_TRUE(odd.isEnabled());
    EXPECT_EQ(platform.userDefaults.keyCount(), 0U);
    EXPECT_EQ(platform.errorLog.entries.at(0).message,
              "[OSStatus -9868] Key command encoding failed.");
}

TEST_F(KeyCommandTest, disablesOnMenuOpen_standsDownWhileAMenuIsOpen) {
    const KeyCommand quit = quitCommand();
    quit.enable();
    quit.setDisablesOnMenuOpen(true);
    quit.setDisablesOnMenuOpen(true);
    EXPECT_TRUE(quit.disablesOnMenuOpen());
    platform.menuTracking.openMenu();
    EXPECT_TRUE(quit.proxy().menuIsOpen());
    EXPECT_FALSE(quit.isEnabled());
    platform.menuTracking.closeMenu();
    EXPECT_FALSE(quit.proxy().menuIsOpen());
    EXPECT_TRUE(quit.isEnabled());
    quit.setDisablesOnMenuOpen(false);
    platform.menuTracking.openMenu();
    EXPECT_TRUE(quit.isEnabled());
}

class ReservedShortcuts : public testing::Test {
protected:
    bool isReserved(Key key, const Modifiers& modifiers) {
        return KeyCommand::isReservedBySystem(key, modifiers, platform.platform());
    }
    FakePlatform platform;
};

TEST_F(ReservedShortcuts, entry_reservesItsCombinationOnly) {
    platform.systemShortcuts.list.entries = {{true, 49, 0x100}};
    EXPECT_TRUE(isReserved(Key::space, {Modifier::command}));
    EXPECT_FALSE(isReserved(Key::space, {Modifier::command, Modifier::shift}));
    EXPECT_FALSE(isReserved(Key::tab, {Modifier::command}));
    EXPECT_FALSE(isReserved(Key::space, {}));
}

TEST_F(ReservedShortcuts, modifiers_areComparedByNumberAndContainment) {
    platform.systemShortcuts.list.entries = {{true, 49, 0x300}, {true, 12, 0}};
    EXPECT_TRUE(isReserved(Key::space, {Modifier::command, Modifier::shift}));
    EXPECT_TRUE(isReserved(Key::space, {Modifier::command, Modifier::command}));
    EXPECT_FALSE(isReserved(Key::space, {Modifier::command}));
    EXPECT_TRUE(isReserved(Key::q, {}));
}

TEST_F(ReservedShortcuts, disabledIncompleteAndUnknownEntries_reserveNothing) {
    platform.systemShortcuts.list.entries = {{false, 49, 0x100},
                                             {std::nullopt, 49, 0x100},
                                             {true, std::nullopt, 0x100},
                                             {true, 49, std::nullopt},
                                             {true, 63, 0x100}};
    EXPECT_FALSE(isReserved(Key::space, {Modifier::command}));
}

TEST_F(ReservedShortcuts, unreadableList_reservesNothingAndLogsEachCall) {
    platform.systemShortcuts.list.status = eventInternalErr;
    EXPECT_FALSE(isReserved(Key::space, {Modifier::command}));
    EXPECT_FALSE(isReserved(Key::space, {Modifier::command}));
    ASSERT_EQ(platform.errorLog.entries.size(), 2U);
    EXPECT_EQ(platform.errorLog.entries[0].message,
              "[OSStatus -9868] System reserved key command retrieval failed.");
}

} // namespace
} // namespace dwellkey
