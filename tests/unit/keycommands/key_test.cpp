// SPDX-License-Identifier: MIT
#include "keycommands/key.h"
#include "keycommands/modifier.h"
#include "platform/fake/fake_keyboard.h"

#include <gtest/gtest.h>

#include <set>

namespace dwellkey {
namespace {

TEST(Key, everyKey_hasACodeOfItsOwnThatLeadsBackToIt) {
    std::set<int> codes;
    for (const Key key : allCases<Key>) {
        EXPECT_TRUE(codes.insert(rawValue(key)).second) << rawValue(key);
        EXPECT_EQ(keyFromRawValue(rawValue(key)), key);
    }
    EXPECT_EQ(codes.size(), 108U);
    EXPECT_EQ(keyFromRawValue(0), Key::a);
    EXPECT_EQ(keyFromRawValue(10), Key::isoSection);
}

TEST(Key, keyFromRawValue_ofACodeWithoutAKey_givesNone) {
    EXPECT_EQ(keyFromRawValue(63), std::nullopt); // a modifier
    EXPECT_EQ(keyFromRawValue(-1), std::nullopt);
    EXPECT_EQ(keyFromRawValue((std::int64_t{1} << 32) + 12), std::nullopt);
}

TEST(Key, stringValue_isTheSymbolOrElseWhatTheLayoutTypes) {
    FakeKeyboardLayout layout;
    EXPECT_EQ(stringValue(Key::f10, layout), "F10");
    EXPECT_EQ(stringValue(Key::home, layout), "⇱");
    EXPECT_EQ(stringValue(Key::q, layout), "q");
    EXPECT_EQ(stringValue(Key::volumeUp, layout), "");
    layout.characters[72] = "\x10";
    EXPECT_EQ(stringValue(Key::volumeUp, layout), "\x10");
    layout.characters.clear();
    EXPECT_EQ(stringValue(Key::a, layout), "");
    EXPECT_EQ(stringValue(Key::f10, layout), "F10");
}

TEST(Key, keyFromCharacter_followsTheLayoutAndNeverTheSymbols) {
    FakeKeyboardLayout layout;
    EXPECT_EQ(keyFromCharacter("q", layout), Key::q);
    std::swap(layout.characters[0], layout.characters[12]); // AZERTY
    EXPECT_EQ(keyFromCharacter("q", layout), Key::a);
    EXPECT_EQ(keyFromCharacter("F10", layout), std::nullopt);
    layout.characters[83] = "1"; // the keypad types it too: the first key of the table wins
    EXPECT_EQ(keyFromCharacter("1", layout), Key::one);
}

TEST(Modifier, masksAndFlags_leadToModifiersInTheirFixedOrder) {
    EXPECT_EQ(modifiersFromHotKeyMask(0x1900),
              (Modifiers{Modifier::control, Modifier::option, Modifier::command}));
    EXPECT_EQ(modifiersFromEventFlags((1U << 17U) | (1U << 20U)),
              (Modifiers{Modifier::shift, Modifier::command}));
    EXPECT_EQ(modifiersFromHotKeyMask(0xff), Modifiers{});
}

TEST(Modifier, repeatedModifiers_countOnceInAMaskAndShowAsGiven) {
    EXPECT_EQ(hotKeyMask({Modifier::command, Modifier::command}), 0x100U);
    EXPECT_EQ(hotKeyMask({}), 0U);
    EXPECT_EQ(eventFlags({Modifier::command, Modifier::control}), 0x140000U);
    EXPECT_EQ(stringValue(Modifiers{Modifier::command, Modifier::shift}), "⌘⇧");
    EXPECT_EQ(stringValue(Modifiers{Modifier::shift, Modifier::command}), "⇧⌘");
}

} // namespace
} // namespace dwellkey
