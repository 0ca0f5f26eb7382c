// SPDX-License-Identifier: MIT
#include "platform/linux/evdev_key_codes.h"

#include <gtest/gtest.h>
#include <linux/input-event-codes.h>

#include <set>

namespace dwellkey {
namespace {

TEST(EvdevKeyCodes, everyKey_hasAPlaceOfItsOwnAndFindsBack) {
    std::set<std::uint32_t> places;
    for (std::uint32_t code = 0; code < 256; ++code) {
        if (const auto evdev = evdevKeyCode(code)) {
            EXPECT_TRUE(places.insert(*evdev).second) << code;
            EXPECT_EQ(virtualKeyCode(*evdev), code);
        }
    }
    EXPECT_EQ(places.size(), 108U);
}

TEST(EvdevKeyCodes, keysThatOtherKeyboardsHave_sitWhereTheyAre) {
    EXPECT_EQ(evdevKeyCode(12), KEY_Q);
    EXPECT_EQ(evdevKeyCode(10), KEY_102ND); // the section key of ISO keyboards
    EXPECT_EQ(evdevKeyCode(93), KEY_YEN);
    EXPECT_EQ(evdevKeyCode(90), KEY_F20);
    EXPECT_EQ(virtualKeyCode(KEY_LEFTCTRL), std::nullopt);
}

} // namespace
} // namespace dwellkey
